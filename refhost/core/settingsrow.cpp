#include "refhost/core/settingsrow.h"

#include <QtEndian>

#include <limits>

#include <zlib.h>

namespace quelhost {

namespace {

constexpr std::size_t kUnit = sizeof(wchar_t);
static_assert(kUnit == 4, "a wide character is stored as 32 bits");

std::string bigEndian32(std::uint32_t number)
{
    std::string bytes(sizeof number, '\0');
    qToBigEndian(number, bytes.data());
    return bytes;
}

std::uint32_t fromBigEndian32(std::string_view bytes)
{
    return qFromBigEndian<quint32>(bytes.data());
}

// The library takes a null pointer for the wish to begin anew, whatever the size.
uLong addTo(uLong sum, std::string_view bytes)
{
    return bytes.empty() ? sum
                         : crc32_z(sum, reinterpret_cast<const Bytef*>(bytes.data()), bytes.size());
}

std::int64_t checksumOf(const SettingsRowView& row)
{
    std::string head(3 * sizeof(quint64), '\0');
    qToBigEndian(static_cast<qint64>(row.category), head.data());
    qToBigEndian(static_cast<qint64>(row.kind), head.data() + 8);
    qToBigEndian(static_cast<quint64>(row.key.size()), head.data() + 16);
    const uLong sum = addTo(addTo(addTo(crc32_z(0, nullptr, 0), head), row.key), row.value);
    return static_cast<std::int64_t>(sum);
}

std::string valueOf(const Item& item)
{
    switch (item.kind) {
    case ItemKind::Integer:
        return bigEndian32(static_cast<std::uint32_t>(item.number));
    case ItemKind::String:
        return encodeWide(item.text);
    case ItemKind::Section:
        break;
    }
    return {};
}

// Puts the row's value into the item; false when the kind has no such value.
bool takeValue(const SettingsRowView& row, Item& item)
{
    if (row.kind == static_cast<int>(ItemKind::Section)) {
        item.kind = ItemKind::Section;
        return row.value.empty();
    }
    if (row.kind == static_cast<int>(ItemKind::Integer) && row.value.size() == 4) {
        item.kind = ItemKind::Integer;
        item.number = static_cast<std::int32_t>(fromBigEndian32(row.value));
        return true;
    }
    std::optional<std::wstring> text = decodeWide(row.value);
    if (row.kind != static_cast<int>(ItemKind::String) || !text)
        return false;
    item.kind = ItemKind::String;
    item.text = std::move(*text);
    return true;
}

} // namespace

std::string encodeWide(std::wstring_view text)
{
    std::string bytes(text.size() * kUnit, '\0');
    qToBigEndian<quint32>(text.data(), static_cast<qsizetype>(text.size()), bytes.data());
    return bytes;
}

std::optional<std::wstring> decodeWide(std::string_view bytes)
{
    if (bytes.size() % kUnit != 0)
        return std::nullopt;
    std::wstring text(bytes.size() / kUnit, L'\0');
    qFromBigEndian<quint32>(bytes.data(), static_cast<qsizetype>(text.size()), text.data());
    return text;
}

SettingsRow rowOf(const Item& item)
{
    SettingsRow row;
    row.category = item.category;
    row.key = encodeWide(item.key);
    row.kind = static_cast<int>(item.kind);
    row.value = valueOf(item);
    row.checksum = checksumOf(row);
    return row;
}

std::optional<Item> itemOf(const SettingsRowView& row)
{
    using Category = std::numeric_limits<int>;
    if (checksumOf(row) != row.checksum)
        return std::nullopt;
    if (row.category < Category::min() || row.category > Category::max())
        return std::nullopt;
    std::optional<std::wstring> key = decodeWide(row.key);
    if (!key)
        return std::nullopt;
    Item item;
    item.category = static_cast<int>(row.category);
    item.key = std::move(*key);
    return takeValue(row, item) ? std::optional<Item>(std::move(item)) : std::nullopt;
}

} // namespace quelhost
