#include "host/qustring.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr int kMost = std::numeric_limits<int>::max();
constexpr int kLeast = std::numeric_limits<int>::min();

} // namespace

TEST(QuString, HasNoTextUntilItGetsOne)
{
    const QuString none;
    EXPECT_EQ(none.kwszPtr(), nullptr);
    EXPECT_EQ(none.length(), 0);
    const wchar_t* const null = nullptr;
    const QuString alsoNone(null);
    EXPECT_EQ(alsoNone.kwszPtr(), nullptr);
    EXPECT_EQ(alsoNone.length(), 0);
}

TEST(QuString, TellsAnEmptyTextFromNone)
{
    const QuString empty(L"");
    ASSERT_NE(empty.kwszPtr(), nullptr);
    EXPECT_STREQ(empty.kwszPtr(), L"");
    EXPECT_EQ(empty.length(), 0);
}

TEST(QuString, CountsCharacters)
{
    EXPECT_EQ(QuString(L"abc").length(), 3);
    EXPECT_EQ(QuString(L"\U0001F600\u00E9").length(), 2);
}

TEST(QuString, CopiesItsText)
{
    std::wstring source = L"a text of some length";
    const QuString text(source.c_str());
    source[0] = L'X';
    EXPECT_STREQ(text.kwszPtr(), L"a text of some length");
    QuString copy = text;
    copy += L"!";
    EXPECT_STREQ(text.kwszPtr(), L"a text of some length");
    EXPECT_STREQ(copy.kwszPtr(), L"a text of some length!");
}

TEST(QuString, CutsOutAPart)
{
    struct Row
    {
        const char* name;
        int start;
        int count;
        const wchar_t* part;
    };
    const QuString text(L"abcdef");
    for (const Row& row :
         {Row{"the middle", 2, 3, L"cde"}, Row{"all", 0, 6, L"abcdef"},
          Row{"more than there is", 4, 100, L"ef"}, Row{"nothing", 2, 0, L""},
          Row{"the rest", 2, -1, L"cdef"}, Row{"the rest, far below zero", 2, kLeast, L"cdef"},
          Row{"from before the start", -3, 2, L"ab"}, Row{"from far before", kLeast, 2, L"ab"},
          Row{"from before, the rest", -1, -1, L"abcdef"}, Row{"from the end", 6, 2, L""},
          Row{"from behind the end", 7, 2, L""}, Row{"from far behind", kMost, kMost, L""}}) {
        const QuString part = text.substr(row.start, row.count);
        ASSERT_NE(part.kwszPtr(), nullptr) << row.name;
        EXPECT_STREQ(part.kwszPtr(), row.part) << row.name;
    }
    EXPECT_EQ(QuString().substr(0, 3).length(), 0);
}

TEST(QuString, ComparesWithoutCase)
{
    struct Row
    {
        const wchar_t* one;
        const wchar_t* other;
        int sign;
    };
    for (const Row& row :
         {Row{L"abc", L"ABC", 0}, Row{L"ABC", L"abc", 0}, Row{L"", L"", 0}, Row{L"abc", L"abd", -1},
          Row{L"ABD", L"abc", 1}, Row{L"ab", L"abc", -1}, Row{L"abc", L"ab", 1}, Row{L"a", L"", 1},
          Row{L"", L"a", -1}, Row{L"\u00C4rger", L"\u00E4RGER", 0}, Row{L"\u212A", L"k", 0},
          Row{L"\U00010400", L"\U00010428", 0}, Row{L"\u00DF", L"ss", 1}, Row{L"I", L"\u0131", -1},
          Row{L"_", L"a", -1}}) {
        const int result = QuString(row.one).compareNoCase(row.other);
        EXPECT_EQ((result > 0) - (result < 0), row.sign)
            << testing::PrintToString(row.one) << " " << testing::PrintToString(row.other);
    }
}

TEST(QuString, ComparesNullAsTheEmptyText)
{
    EXPECT_EQ(QuString(L"").compareNoCase(nullptr), 0);
    EXPECT_EQ(QuString().compareNoCase(nullptr), 0);
    EXPECT_EQ(QuString().compareNoCase(L""), 0);
    EXPECT_GT(QuString(L"a").compareNoCase(nullptr), 0);
    EXPECT_LT(QuString().compareNoCase(L"a"), 0);
}

TEST(QuString, TakesNewTexts)
{
    const wchar_t* const null = nullptr;
    QuString text;
    text = L"new";
    EXPECT_STREQ(text.kwszPtr(), L"new");
    text = null;
    EXPECT_STREQ(text.kwszPtr(), L"");
    QuString extended;
    extended += L"ab";
    extended += null;
    extended += L"cd";
    EXPECT_STREQ(extended.kwszPtr(), L"abcd");
    QuString extendedByNothing;
    extendedByNothing += null;
    EXPECT_STREQ(extendedByNothing.kwszPtr(), L"");
}

TEST(QuString, MayTakeAPartOfItself)
{
    QuString text(L"prefix and a long enough rest");
    text = text.kwszPtr() + 7;
    EXPECT_STREQ(text.kwszPtr(), L"and a long enough rest");
    text += text.kwszPtr() + 17;
    EXPECT_STREQ(text.kwszPtr(), L"and a long enough rest rest");
}
