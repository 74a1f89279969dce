// One stored setting, as the settings store takes it and hands it out.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace quelhost {

// The numbers are the kind codes of the host interface's values; they are stored in the file.
enum class ItemKind {
    Section = 0, // a group of keys: it exists or not and has no value
    Integer = 1, // 32-bit integer
    String = 5,  // wide string
};

// The category of the host's own settings, apart from those that modules keep.
constexpr int kHostCategory = 1;

// `key` and `text` are any sequence of wide characters, also an empty one, also with null
// characters, lone surrogates and values above U+10FFFF. `number` counts only for integers, `text`
// only for strings; in an item that was read the other one is 0 or empty.
struct Item
{
    int category = 0;
    std::wstring key;
    ItemKind kind = ItemKind::Section;
    std::int32_t number = 0;
    std::wstring text;

    [[nodiscard]] static Item section(int category, std::wstring key)
    {
        return {category, std::move(key), ItemKind::Section, 0, {}};
    }

    [[nodiscard]] static Item integer(int category, std::wstring key, std::int32_t number)
    {
        return {category, std::move(key), ItemKind::Integer, number, {}};
    }

    [[nodiscard]] static Item string(int category, std::wstring key, std::wstring text)
    {
        return {category, std::move(key), ItemKind::String, 0, std::move(text)};
    }

    friend bool operator==(const Item& one, const Item& other)
    {
        return one.category == other.category && one.kind == other.kind &&
               one.number == other.number && one.key == other.key && one.text == other.text;
    }
};

// What is to be changed at once.
struct SettingsEdit
{
    std::vector<Item> written;
    std::vector<std::pair<int, std::wstring>> removed; // categories and keys, stored or not

    [[nodiscard]] bool isEmpty() const { return written.empty() && removed.empty(); }
    // A key to name the edit by.
    // REQUIRES: not isEmpty().
    [[nodiscard]] const std::wstring& firstKey() const
    {
        return written.empty() ? removed.front().second : written.front().key;
    }
};

} // namespace quelhost
