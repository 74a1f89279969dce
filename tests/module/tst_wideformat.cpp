#include "host/wideformat.h"

#include <gtest/gtest.h>

#include <climits>
#include <cwchar>
#include <vector>

namespace {

struct Formatted
{
    int result;
    std::wstring text;
};

Formatted format(const wchar_t* format, const std::vector<FormatArgument>& arguments,
                 std::size_t limit = 4096)
{
    std::wstring buffer(limit + 1, L'#');
    const int result =
        _tarvswprintf(buffer.data(), limit, format, arguments.data(), arguments.size());
    EXPECT_EQ(buffer.back(), L'#') << "written beyond the limit";
    return {result, limit == 0 ? std::wstring() : std::wstring(buffer.c_str())};
}

struct Row
{
    const char* name;
    const wchar_t* format;
    std::vector<FormatArgument> arguments;
    const wchar_t* text;
};

} // namespace

TEST(WideFormat, FillsInTexts)
{
    const wchar_t* const none = nullptr;
    for (const Row& row : {
             Row{"bare", L"<%s>", {L"abc"}, L"<abc>"},
             Row{"long", L"<%ls>", {L"abc"}, L"<abc>"},
             Row{"every plane", L"%s", {L"\u00E9\u4E2D\U0001F600"}, L"\u00E9\u4E2D\U0001F600"},
             Row{"width", L"<%10s>", {L"abc"}, L"<       abc>"},
             Row{"width on the left", L"<%-6s>", {L"abc"}, L"<abc   >"},
             Row{"width below the length", L"<%2s>", {L"abc"}, L"<abc>"},
             Row{"width counts characters", L"<%3s>", {L"\U0001F600"}, L"<  \U0001F600>"},
             Row{"precision", L"<%.2s>", {L"abc"}, L"<ab>"},
             Row{"precision of nothing", L"<%.s>", {L"abc"}, L"<>"},
             Row{"precision above the length", L"<%.9s>", {L"abc"}, L"<abc>"},
             Row{"width and precision", L"<%5.2s>", {L"abc"}, L"<   ab>"},
             Row{"left, width and precision", L"<%-5.2ls>", {L"abc"}, L"<ab   >"},
             Row{"null", L"<%s>", {none}, L"<>"},
             Row{"null with a width", L"<%3s>", {none}, L"<   >"},
             Row{"empty", L"<%s>", {L""}, L"<>"},
             Row{"two", L"%s-%s", {L"a", L"b"}, L"a-b"},
             Row{"conversions in an argument", L"%s", {L"%s%n%d%%"}, L"%s%n%d%%"},
             Row{"nothing else in the format", L"%s%s", {L"a", L"b"}, L"ab"},
         }) {
        const Formatted formatted = format(row.format, row.arguments);
        EXPECT_EQ(formatted.text, row.text) << row.name;
        EXPECT_EQ(formatted.result, static_cast<int>(std::wcslen(row.text))) << row.name;
    }
}

TEST(WideFormat, FillsInNumbersAndCharacters)
{
    for (const Row& row : {
             Row{"signed", L"%d %i", {-5, 7}, L"-5 7"},
             Row{"unsigned", L"%u", {4000000000U}, L"4000000000"},
             Row{"hexadecimal", L"%x %X", {255U, 255U}, L"ff FF"},
             Row{"octal", L"%o", {8U}, L"10"},
             Row{"smallest long long", L"%d", {LLONG_MIN}, L"-9223372036854775808"},
             Row{"largest unsigned long long", L"%u", {ULLONG_MAX}, L"18446744073709551615"},
             Row{"long", L"%ld %lu", {-1L, 1UL}, L"-1 1"},
             Row{"a length that is not the argument's", L"%hhd %lld", {70000, 5}, L"70000 5"},
             Row{"width", L"<%5d>", {42}, L"<   42>"},
             Row{"zeros", L"<%05d>", {42}, L"<00042>"},
             Row{"left", L"<%-5d>", {42}, L"<42   >"},
             Row{"plus", L"<%+d>", {42}, L"<+42>"},
             Row{"blank for a sign", L"<% d>", {42}, L"< 42>"},
             Row{"alternative form", L"<%#x>", {255U}, L"<0xff>"},
             Row{"precision", L"<%.4d>", {42}, L"<0042>"},
             Row{"wide", L"<%40d>", {1}, L"<                                       1>"},
             Row{"character", L"<%c>", {L'\u4E2D'}, L"<\u4E2D>"},
             Row{"long character", L"<%lc>", {L'x'}, L"<x>"},
             Row{"character with a width", L"<%3c>", {L'x'}, L"<  x>"},
             Row{"character on the left", L"<%-3c>", {L'x'}, L"<x  >"},
         }) {
        const Formatted formatted = format(row.format, row.arguments);
        EXPECT_EQ(formatted.text, row.text) << row.name;
        EXPECT_EQ(formatted.result, static_cast<int>(std::wcslen(row.text))) << row.name;
    }
}

TEST(WideFormat, LeavesWhatIsNoConversionAsItStands)
{
    for (const Row& row : {
             Row{"percent sign", L"100%%", {}, L"100%"},
             Row{"percent sign before a letter", L"%%s", {L"a"}, L"%s"},
             Row{"two percent signs", L"%%%%", {}, L"%%"},
             Row{"percent sign and conversion", L"%%%s", {L"a"}, L"%a"},
             Row{"at the end", L"abc%", {L"a"}, L"abc%"},
             Row{"unfinished", L"abc%-5", {L"a"}, L"abc%-5"},
             Row{"unfinished precision", L"abc%.", {L"a"}, L"abc%."},
             Row{"unfinished length", L"abc%l", {L"a"}, L"abc%l"},
             Row{"no argument", L"%s %d", {}, L"%s %d"},
             Row{"too few arguments", L"%s %s", {L"a"}, L"a %s"},
             Row{"count", L"%n%s", {L"a"}, L"%na"},
             Row{"narrow", L"%hs %s", {L"a"}, L"%hs a"},
             Row{"capital S", L"%S %s", {L"a"}, L"%S a"},
             Row{"asterisk width", L"%*s %s", {L"a"}, L"%*s a"},
             Row{"asterisk precision", L"%.*s %s", {L"a"}, L"%.*s a"},
             Row{"floating point", L"%f %s", {L"a"}, L"%f a"},
             Row{"pointer", L"%p %s", {L"a"}, L"%p a"},
             Row{"unknown letter", L"%y %s", {L"a"}, L"%y a"},
             Row{"a number for a text", L"%s %d", {5}, L"%s 5"},
             Row{"a text for a number", L"%d %s", {L"a"}, L"%d a"},
             Row{"a character for a number", L"%d %c", {L'x'}, L"%d x"},
             Row{"a number for a character", L"%c %u", {5U}, L"%c 5"},
             Row{"a text for a character", L"%c %s", {L"a"}, L"%c a"},
             Row{"arguments left over", L"%s", {L"a", L"b", 5}, L"a"},
             Row{"no format at all", L"", {L"a"}, L""},
             Row{"a position", L"%1$s %s", {L"a"}, L"%1$s a"},
         }) {
        EXPECT_EQ(format(row.format, row.arguments).text, row.text) << row.name;
    }
}

TEST(WideFormat, LeavesAWidthThatNobodyCanMean)
{
    EXPECT_EQ(format(L"%99999999999999999999s %s", {L"a"}).text, L"%99999999999999999999s a");
    EXPECT_EQ(format(L"%.99999999999999999999d %d", {5}).text, L"%.99999999999999999999d 5");
}

TEST(WideFormat, GivesTheEmptyTextForANullFormat)
{
    const Formatted formatted = format(nullptr, {L"a"});
    EXPECT_EQ(formatted.result, 0);
    EXPECT_EQ(formatted.text, L"");
}

TEST(WideFormat, CutsAtTheLimit)
{
    struct Limit
    {
        std::size_t limit;
        int result;
        const wchar_t* text;
    };
    for (const Limit& row : {Limit{0, -1, L""}, Limit{1, -1, L""}, Limit{2, -1, L"<"},
                             Limit{5, -1, L"<abc"}, Limit{6, 5, L"<abc>"}, Limit{7, 5, L"<abc>"}}) {
        const Formatted formatted = format(L"<%s>", {L"abc"}, row.limit);
        EXPECT_EQ(formatted.result, row.result) << row.limit;
        EXPECT_EQ(formatted.text, row.text) << row.limit;
    }
}

TEST(WideFormat, CutsAnEmptyResultNowhere)
{
    const Formatted formatted = format(L"", {}, 1);
    EXPECT_EQ(formatted.result, 0);
    EXPECT_EQ(formatted.text, L"");
}

TEST(WideFormat, WritesNothingWithoutRoom)
{
    wchar_t untouched = L'#';
    EXPECT_EQ(_tarvswprintf(&untouched, 0, L"abc", nullptr, 0), -1);
    EXPECT_EQ(untouched, L'#');
}
