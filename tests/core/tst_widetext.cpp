#include "refhost/core/widetext.h"

#include <gtest/gtest.h>

#include <clocale>
#include <string>
#include <vector>

using namespace quelhost;

namespace {

using Units = std::vector<unsigned int>;

Units unitsOf(const QString& text)
{
    Units units;
    for (const QChar unit : text)
        units.push_back(unit.unicode());
    return units;
}

Units unitsOf(const std::wstring& text)
{
    return Units(text.begin(), text.end());
}

std::wstring wide(const std::vector<unsigned int>& codes)
{
    std::wstring text;
    for (const unsigned int code : codes)
        text += static_cast<wchar_t>(code);
    return text;
}

QString fromUnits(const std::vector<unsigned int>& units)
{
    QString text;
    for (const unsigned int unit : units)
        text += QChar(static_cast<ushort>(unit));
    return text;
}

// Every Unicode scalar value once.
std::wstring everyCharacter()
{
    std::wstring text;
    for (unsigned int code = 0; code <= 0x10FFFF; ++code) {
        if (code < 0xD800 || code > 0xDFFF)
            text += static_cast<wchar_t>(code);
    }
    return text;
}

// The C locale as long as it lives: the one in which the C library knows ASCII alone.
class PlainLocale
{
public:
    PlainLocale()
        : m_former(std::setlocale(LC_ALL, nullptr))
    {
        std::setlocale(LC_ALL, "C");
    }
    ~PlainLocale() { std::setlocale(LC_ALL, m_former.c_str()); }
    PlainLocale(const PlainLocale&) = delete;
    PlainLocale& operator=(const PlainLocale&) = delete;

private:
    const std::string m_former;
};

} // namespace

TEST(WideText, WideTextBecomesUtf16)
{
    struct Row
    {
        const char* name;
        Units codes;
        Units expected;
    };
    const Row rows[] = {
        {"nothing", {}, {}},
        {"letters", {'a', 0xE9, 0x4E2D}, {'a', 0xE9, 0x4E2D}},
        {"beyond the first plane", {0x1F600}, {0xD83D, 0xDE00}},
        {"the first and the last code point", {0, 0x10FFFF}, {0, 0xDBFF, 0xDFFF}},
        {"a byte order mark in front stays", {0xFEFF, 'a'}, {0xFEFF, 'a'}},
        {"a lone surrogate", {'a', 0xD800, 'b'}, {'a', 0xFFFD, 'b'}},
        {"two surrogates that would be a pair", {0xD83D, 0xDE00}, {0xFFFD, 0xFFFD}},
        {"above the last code point", {0x110000, 0xFFFFFFFF}, {0xFFFD, 0xFFFD}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(unitsOf(toQString(wide(row.codes))), row.expected);
    }
}

TEST(WideText, Utf16BecomesWideText)
{
    struct Row
    {
        const char* name;
        Units units;
        Units expected;
    };
    const Row rows[] = {
        {"nothing", {}, {}},
        {"a pair", {0xD83D, 0xDE00}, {0x1F600}},
        {"a byte order mark in front stays", {0xFEFF, 'a'}, {0xFEFF, 'a'}},
        {"a null character", {'a', 0, 'b'}, {'a', 0, 'b'}},
        {"a lone high surrogate", {'a', 0xD83D, 'b'}, {'a', 0xFFFD, 'b'}},
        {"a lone low surrogate", {0xDE00}, {0xFFFD}},
        {"a high surrogate at the end", {'a', 0xD83D}, {'a', 0xFFFD}},
        {"a pair the wrong way round", {0xDE00, 0xD83D}, {0xFFFD, 0xFFFD}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(unitsOf(toWide(fromUnits(row.units))), row.expected);
    }
}

TEST(WideText, WideTextBecomesUtf8)
{
    struct Row
    {
        const char* name;
        Units codes;
        std::string expected;
    };
    const Row rows[] = {
        {"nothing", {}, ""},
        {"one to four bytes",
         {'a', 0xE9, 0x4E2D, 0x1F600},
         "a\xC3\xA9\xE4\xB8\xAD\xF0\x9F\x98\x80"},
        {"a byte order mark in front stays",
         {0xFEFF, 'a'},
         "\xEF\xBB\xBF"
         "a"},
        {"a null character", {'a', 0, 'b'}, std::string("a\0b", 3)},
        {"a lone surrogate", {0xDFFF}, "\xEF\xBF\xBD"},
        {"above the last code point", {0x110000}, "\xEF\xBF\xBD"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(toUtf8(wide(row.codes)), row.expected);
    }
}

TEST(WideText, Utf8BecomesWideText)
{
    struct Row
    {
        const char* name;
        std::string bytes;
        Units expected;
    };
    const Row rows[] = {
        {"nothing", "", {}},
        {"one to four bytes",
         "a\xC3\xA9\xE4\xB8\xAD\xF0\x9F\x98\x80",
         {'a', 0xE9, 0x4E2D, 0x1F600}},
        {"a byte order mark in front stays", "\xEF\xBB\xBFx", {0xFEFF, 'x'}},
        {"two of them", "\xEF\xBB\xBF\xEF\xBB\xBFx", {0xFEFF, 0xFEFF, 'x'}},
        {"one further behind", "x\xEF\xBB\xBFy", {'x', 0xFEFF, 'y'}},
        {"a null character", std::string("a\0b", 3), {'a', 0, 'b'}},
        {"a byte that begins nothing", "a\xFFz", {'a', 0xFFFD, 'z'}},
        {"a byte that goes on with nothing", "a\x80z", {'a', 0xFFFD, 'z'}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(unitsOf(fromUtf8(row.bytes)), row.expected);
    }
}

TEST(WideText, BytesThatAreNoUtf8AreReplacedAndWhatFollowsIsKept)
{
    struct Row
    {
        const char* name;
        std::string bytes;
    };
    const Row rows[] = {
        {"an overlong slash", "\xC0\xAF"},
        {"a surrogate", "\xED\xA0\x80"},
        {"above the last code point", "\xF4\x90\x80\x80"},
        {"a sequence that is cut off", "\xE4\xB8"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const std::wstring text = fromUtf8(row.bytes + "z");
        ASSERT_GE(text.size(), 2U);
        EXPECT_EQ(text.substr(0, text.size() - 1),
                  std::wstring(text.size() - 1, static_cast<wchar_t>(0xFFFD)));
        EXPECT_EQ(text.back(), L'z');
    }
}

TEST(WideText, EveryCharacterComesBackInEveryLocale)
{
    const PlainLocale plain;
    const std::wstring all = everyCharacter();
    EXPECT_TRUE(toWide(toQString(all)) == all);
    EXPECT_TRUE(fromUtf8(toUtf8(all)) == all);
    EXPECT_EQ(toUtf8(L"\u00E9"), "\xC3\xA9");
}
