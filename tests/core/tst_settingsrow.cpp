#include "refhost/core/settingsrow.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <zlib.h>

using namespace quelhost;

namespace {

std::wstring codes(std::initializer_list<unsigned int> values)
{
    std::wstring text;
    for (const unsigned int value : values)
        text += static_cast<wchar_t>(value);
    return text;
}

struct TextCase
{
    const char* name;
    std::wstring text;
    std::string bytes;
};

const std::vector<TextCase>& textCases()
{
    using namespace std::string_literals;
    static const std::vector<TextCase> cases = {
        {"empty", L"", ""s},
        {"one letter", L"A", "\x00\x00\x00\x41"s},
        {"a null character inside", codes({0x41, 0, 0x42}),
         "\x00\x00\x00\x41\x00\x00\x00\x00\x00\x00\x00\x42"s},
        {"byte order mark in front", codes({0xFEFF, 0x61}), "\x00\x00\xFE\xFF\x00\x00\x00\x61"s},
        {"beyond the basic plane", codes({0x1F600}), "\x00\x01\xF6\x00"s},
        {"a lone surrogate", codes({0xD800}), "\x00\x00\xD8\x00"s},
        {"two surrogates stay two characters", codes({0xD83D, 0xDE00}),
         "\x00\x00\xD8\x3D\x00\x00\xDE\x00"s},
        {"above the last code point", codes({0x110000}), "\x00\x11\x00\x00"s},
        {"all bits set", codes({0xFFFFFFFF}), "\xFF\xFF\xFF\xFF"s},
    };
    return cases;
}

std::string bigEndian64(std::uint64_t number)
{
    std::string bytes;
    for (int shift = 56; shift >= 0; shift -= 8)
        bytes += static_cast<char>((number >> shift) & 0xFF);
    return bytes;
}

// Gives a row the checksum that its content asks for.
SettingsRow sealed(SettingsRow row)
{
    const std::string bytes = bigEndian64(static_cast<std::uint64_t>(row.category)) +
                              bigEndian64(static_cast<std::uint64_t>(row.kind)) +
                              bigEndian64(row.key.size()) + row.key + row.value;
    row.checksum = static_cast<std::int64_t>(
        crc32_z(0, reinterpret_cast<const Bytef*>(bytes.data()), bytes.size()));
    return row;
}

const std::vector<std::pair<const char*, Item>>& itemCases()
{
    static const std::vector<std::pair<const char*, Item>> cases = {
        {"section", Item::section(4, L"UserInterfaceSettings\\MenuLoadDlg")},
        {"integer zero", Item::integer(4, L"X", 0)},
        {"largest integer", Item::integer(4, L"X", 2147483647)},
        {"smallest integer", Item::integer(4, L"X", -2147483647 - 1)},
        {"text", Item::string(4, L"CUIX/LoadedCuix", L"/t/m.cuix;;/t/a.cuix")},
        {"empty text", Item::string(4, L"CUIX/LoadedCuix", L"")},
        {"empty key", Item::string(4, L"", L"x")},
        {"negative category", Item::integer(-1, L"X", 1)},
        {"text with odd characters", Item::string(4, codes({0xD800, 0}), codes({0x110000, 0}))},
    };
    return cases;
}

} // namespace

TEST(SettingsRow, TextIsStoredAsItsCharactersHighByteFirst)
{
    for (const TextCase& row : textCases()) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(encodeWide(row.text), row.bytes);
        const std::optional<std::wstring> back = decodeWide(row.bytes);
        ASSERT_TRUE(back.has_value());
        EXPECT_EQ(*back, row.text);
    }
}

TEST(SettingsRow, BytesThatAreNoWholeCharactersAreNoText)
{
    for (const std::size_t length : {1U, 2U, 3U, 5U, 7U}) {
        SCOPED_TRACE(length);
        EXPECT_FALSE(decodeWide(std::string(length, 'x')).has_value());
    }
}

TEST(SettingsRow, ItemsComeBackAsTheyWere)
{
    for (const auto& [name, item] : itemCases()) {
        SCOPED_TRACE(name);
        const std::optional<Item> back = itemOf(rowOf(item));
        ASSERT_TRUE(back.has_value());
        EXPECT_EQ(back->category, item.category);
        EXPECT_EQ(back->key, item.key);
        EXPECT_EQ(back->kind, item.kind);
        EXPECT_EQ(back->number, item.number);
        EXPECT_EQ(back->text, item.text);
    }
}

// A file written by one build of the program is read by all others.
TEST(SettingsRow, TheRowsOfTheFileFormatAreFixed)
{
    using namespace std::string_literals;
    const SettingsRow row = rowOf(Item::integer(4, L"A", -2));
    EXPECT_EQ(row.category, 4);
    EXPECT_EQ(row.key, "\x00\x00\x00\x41"s);
    EXPECT_EQ(row.kind, 1);
    EXPECT_EQ(row.value, "\xFF\xFF\xFF\xFE"s);
    EXPECT_EQ(row.checksum, 4107461781);
}

TEST(SettingsRow, EveryChangedBitIsNoticed)
{
    const SettingsRow sound = rowOf(Item::string(4, L"Key", L"Text"));
    ASSERT_TRUE(itemOf(sound).has_value());
    for (std::size_t bit = 0; bit < 8 * sound.key.size(); ++bit) {
        SettingsRow row = sound;
        row.key[bit / 8] = static_cast<char>(row.key[bit / 8] ^ (1 << (bit % 8)));
        EXPECT_FALSE(itemOf(row).has_value()) << "key, bit " << bit;
    }
    for (std::size_t bit = 0; bit < 8 * sound.value.size(); ++bit) {
        SettingsRow row = sound;
        row.value[bit / 8] = static_cast<char>(row.value[bit / 8] ^ (1 << (bit % 8)));
        EXPECT_FALSE(itemOf(row).has_value()) << "value, bit " << bit;
    }
    for (unsigned int bit = 0; bit < 64; ++bit) {
        const auto mask = static_cast<std::int64_t>(std::uint64_t{1} << bit);
        for (std::int64_t SettingsRow::*number :
             {&SettingsRow::category, &SettingsRow::kind, &SettingsRow::checksum}) {
            SettingsRow row = sound;
            row.*number ^= mask;
            EXPECT_FALSE(itemOf(row).has_value()) << "number, bit " << bit;
        }
    }
}

TEST(SettingsRow, AValueUnderAnotherKeyOrKindIsNoticed)
{
    const SettingsRow one = rowOf(Item::string(4, L"A", L"BC"));
    const SettingsRow other = rowOf(Item::string(4, L"AB", L"C"));
    SettingsRow moved = one;
    moved.key = other.key;
    moved.value = other.value;
    EXPECT_FALSE(itemOf(moved).has_value()) << "the border between key and value counts";
    moved = one;
    moved.kind = 1;
    EXPECT_FALSE(itemOf(moved).has_value());
    moved = one;
    moved.category = 5;
    EXPECT_FALSE(itemOf(moved).has_value());
}

TEST(SettingsRow, RowsThatNoItemHasAreRefusedWhateverTheirChecksum)
{
    using namespace std::string_literals;
    const std::string key = "\0\0\0A"s;
    const std::vector<std::pair<const char*, SettingsRow>> rows = {
        {"unknown kind", {4, key, 7, "\0\0\0\0"s, 0}},
        {"kind beyond 32 bits", {4, key, (std::int64_t{1} << 32) + 5, ""s, 0}},
        {"category beyond an integer", {std::int64_t{1} << 31, key, 5, ""s, 0}},
        {"category below an integer", {-(std::int64_t{1} << 31) - 1, key, 5, ""s, 0}},
        {"section with a value", {4, key, 0, "\0\0\0\0"s, 0}},
        {"integer without a value", {4, key, 1, ""s, 0}},
        {"integer of eight bytes", {4, key, 1, "\0\0\0\0\0\0\0\1"s, 0}},
        {"text of five bytes", {4, key, 5, "\0\0\0A\0"s, 0}},
        {"key of three bytes", {4, "\0\0A"s, 5, "\0\0\0A"s, 0}},
    };
    ASSERT_TRUE(itemOf(sealed({4, key, 5, "\0\0\0A"s, 0})).has_value());
    for (const auto& [name, row] : rows) {
        SCOPED_TRACE(name);
        EXPECT_FALSE(itemOf(sealed(row)).has_value());
    }
}
