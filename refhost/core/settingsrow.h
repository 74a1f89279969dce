// How a setting stands in the table of the settings file.
//
// Keys and texts are stored as the plain 32-bit value of each wide character, most significant
// byte first. UTF-8 and UTF-16 have no form for a lone surrogate or a value above U+10FFFF, and a
// text column would end at the first null character; here every sequence of wide characters has
// exactly one form and comes back as it was. With the high byte first, the byte order in which the
// database sorts is the order of the code points.
//
// The checksum is the CRC-32 over category, kind, length of the key, key and value, so a value that
// got under another key or another kind does not pass either.
#pragma once

#include "refhost/core/settingsitem.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quelhost {

// One row as the database is to hold it.
struct SettingsRow
{
    std::int64_t category = 0;
    std::string key;
    std::int64_t kind = 0;
    std::string value; // section: empty; integer: 4 bytes; string: 4 bytes a character
    std::int64_t checksum = 0;
};

// One row as it is found; nothing about it is checked yet. The bytes are borrowed: a list of loaded
// files may have millions.
struct SettingsRowView
{
    std::int64_t category = 0;
    std::string_view key;
    std::int64_t kind = 0;
    std::string_view value;
    std::int64_t checksum = 0;

    SettingsRowView() = default;
    // Implicit: what is to be stored can be looked at like what is found.
    SettingsRowView(const SettingsRow& row)
        : category(row.category)
        , key(row.key)
        , kind(row.kind)
        , value(row.value)
        , checksum(row.checksum)
    {}
};

[[nodiscard]] std::string encodeWide(std::wstring_view text);

// Nothing when the number of bytes is no multiple of 4.
[[nodiscard]] std::optional<std::wstring> decodeWide(std::string_view bytes);

// The row of an item, with its checksum.
[[nodiscard]] SettingsRow rowOf(const Item& item);

// The item of a row; nothing when the checksum does not match or the row is none that `rowOf`
// makes: the row is damaged.
[[nodiscard]] std::optional<Item> itemOf(const SettingsRowView& row);

} // namespace quelhost
