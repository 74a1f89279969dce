#include "refhost/console/cellstream.h"
#include "refhost/console/celltext.h"
#include "refhost/console/textcolumns.h"
#include "refhost/core/cellwidth.h"
#include "refhost/core/utf8locale.h"
#include "tests/support/pipe.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <cwchar>
#include <ostream>
#include <string>

namespace {

using quelhost::CellText;

class Cells : public testing::Test
{
protected:
    const quelhost::Utf8Locale m_utf8;
    CellText m_cells;
};

TEST_F(Cells, AreTheCharactersThemselves)
{
    EXPECT_EQ(m_cells.toCells(L"aé中😀 \t\x01"), L"aé中😀 \t\x01");
    EXPECT_EQ(m_cells.toCells(L""), L"");
}

TEST_F(Cells, HoldACharacterWithItsMarks)
{
    const std::wstring text = L"au\u0308\u0323b";
    const std::wstring cells = m_cells.toCells(text);
    ASSERT_EQ(cells.size(), 3U);
    EXPECT_EQ(::wcwidth(cells[1]), 1);
    EXPECT_EQ(m_cells.toText(cells), text);
    EXPECT_EQ(m_cells.toScreen(cells), text);
}

TEST_F(Cells, KeepTheWidth)
{
    const std::wstring cells = m_cells.toCells(L"か\u3099");
    ASSERT_EQ(cells.size(), 1U);
    EXPECT_EQ(::wcwidth(cells[0]), 2);
    EXPECT_EQ(m_cells.toText(cells), L"か\u3099");
}

TEST_F(Cells, AreTheSameForTheSameText)
{
    const std::wstring first = m_cells.toCells(L"u\u0308");
    EXPECT_NE(m_cells.toCells(L"o\u0308"), first);
    EXPECT_EQ(m_cells.toCells(L"u\u0308"), first);
}

TEST_F(Cells, DrawAMarkWithoutALetterOverACircle)
{
    const std::wstring cells = m_cells.toCells(L"\u0308\u0323x");
    ASSERT_EQ(cells.size(), 2U);
    EXPECT_EQ(m_cells.toText(cells), L"\u0308\u0323x");
    EXPECT_EQ(m_cells.toScreen(cells), L"\u25CC\u0308\u0323x");
}

TEST_F(Cells, LetNoMarkJoinAControlCharacter)
{
    const std::wstring cells = m_cells.toCells(L"\x01\u0308");
    ASSERT_EQ(cells.size(), 2U);
    EXPECT_EQ(cells[0], L'\x01');
    EXPECT_EQ(m_cells.toText(cells), L"\x01\u0308");
}

TEST_F(Cells, KeepCharactersThatStandForOthers)
{
    std::wstring text = L"u\u0308";
    for (const wchar_t character : {0x100000, 0x100001, 0x2F800, 0x2F801, 0x10FFFD})
        text += character;
    EXPECT_EQ(m_cells.toText(m_cells.toCells(text)), text);
    EXPECT_EQ(m_cells.toScreen(m_cells.toCells(text)), text);
}

TEST_F(Cells, KeepTheTextWhenAllStandInsAreUsed)
{
    std::wstring text;
    for (wchar_t mark = 0x0300; mark < 0x0330; ++mark) {
        for (wchar_t letter = 0x4E00; letter < 0x4E10; ++letter)
            text += std::wstring{letter, mark};
    }
    ASSERT_GT(text.size() / 2, 542U);
    EXPECT_EQ(m_cells.toText(m_cells.toCells(text)), text);
}

TEST_F(Cells, LeaveOutTheEditorsOwnKeys)
{
    EXPECT_EQ(m_cells.toText(L"a\u0080\u009F"
                             L"b\u00A0"),
              L"ab\u00A0");
}

TEST_F(Cells, TakeColumnsAsTheEditorDrawsThem)
{
    EXPECT_EQ(quelhost::columnsOf(L'a', 0), 1);
    EXPECT_EQ(quelhost::columnsOf(L'中', 0), 2);
    EXPECT_EQ(quelhost::columnsOf(L'\x01', 0), 2);
    EXPECT_EQ(quelhost::columnsOf(L'\t', 0), 8);
    EXPECT_EQ(quelhost::columnsOf(L'\t', 13), 3);
    EXPECT_EQ(quelhost::columnsOf(wchar_t{0x0378}, 0), 7);
    EXPECT_EQ(quelhost::columnsOf(wchar_t{0x1FAFF}, 0), 8);
    EXPECT_EQ(quelhost::columnsOf(L"a中u\u0308"), 4);
}

TEST_F(Cells, BecomeTextOnTheWayToTheScreen)
{
    Pipe screen;
    std::string text;
    {
        const quelhost::CellStream stream(screen.input(), m_cells);
        ASSERT_NE(stream.file(), nullptr);
        // Longer than the stream's buffer, so that it is cut inside of characters.
        std::wstring cells;
        for (int i = 0; i < 2000; ++i) {
            cells += L"x" + m_cells.toCells(L"u\u0308中か\u3099");
            text += "xu\xCC\x88中か\xE3\x82\x99";
        }
        for (const wchar_t cell : cells) {
            char bytes[MB_LEN_MAX] = {};
            std::mbstate_t state = {};
            const std::size_t size = std::wcrtomb(bytes, cell, &state);
            ASSERT_EQ(std::fwrite(bytes, 1, size, stream.file()), size);
        }
    }
    screen.closeInput();
    EXPECT_EQ(screen.rest(), text);
}

struct Listing
{
    const char* name;
    QStringList texts;
    int width;
    std::wstring rows;
};

void PrintTo(const Listing& row, std::ostream* stream)
{
    *stream << row.name;
}

class InColumns : public testing::TestWithParam<Listing>
{
    const quelhost::Utf8Locale m_utf8;
};

TEST_P(InColumns, AreTheRows)
{
    EXPECT_EQ(quelhost::inColumns(GetParam().texts, GetParam().width), GetParam().rows);
}

QStringList list(const char* texts)
{
    return QString::fromUtf8(texts).split(QLatin1Char(' '));
}

INSTANTIATE_TEST_SUITE_P(
    Each, InColumns,
    testing::Values(Listing{"None", {}, 80, L""}, Listing{"One", list("a"), 80, L"a\n"},
                    Listing{"OneRow", list("a bb c"), 80, L"a   bb  c\n"},
                    Listing{"ReadDownwards", list("a b c d e"), 8, L"a  c  e\nb  d\n"},
                    Listing{"JustFitting", list("aaa bbb"), 9, L"aaa  bbb\n"},
                    Listing{"NotQuiteFitting", list("aaa bbb"), 8, L"aaa\nbbb\n"},
                    Listing{"TooNarrow", list("aaaa b"), 2, L"aaaa\nb\n"},
                    Listing{"WideCharacters", list("中文 b c"), 80, L"中文  b     c\n"},
                    Listing{"Marks", list("u\xCC\x88 b"), 80, L"u\u0308  b\n"}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
