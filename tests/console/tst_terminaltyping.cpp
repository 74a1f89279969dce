#include "tests/console/terminaltest.h"

#include <gtest/gtest.h>

#include <ostream>

namespace {

using namespace terminaltest;

struct Typing
{
    const char* name;
    QByteArray typed;
    QByteArray line;
};

void PrintTo(const Typing& typing, std::ostream* stream)
{
    *stream << typing.name;
}

class TypedOnATerminal : public TerminalLines, public testing::WithParamInterface<Typing>
{};

TEST_P(TypedOnATerminal, GivesTheLine)
{
    ASSERT_TRUE(start());
    m_terminal.write(GetParam().typed);
    EXPECT_TRUE(enterGives(GetParam().line));
    EXPECT_TRUE(ends());
}

INSTANTIATE_TEST_SUITE_P(
    Editing, TypedOnATerminal,
    testing::Values(
        Typing{"Letters", "hello", "hello"}, Typing{"Nothing", "", ""},
        Typing{"Blanks", "  a  ", "  a  "}, Typing{"ArrowLeft", "ab" + kLeft + "X", "aXb"},
        Typing{"ArrowLeftOfAnotherTerminal", "ab\x1BODX", "aXb"},
        Typing{"ArrowRight", "ab" + kLeft + kLeft + kRight + "X", "aXb"},
        Typing{"Home", "ab" + kHome + "X", "Xab"}, Typing{"HomeOfAConsole", "ab\x1B[1~X", "Xab"},
        Typing{"End", "ab" + kHome + kEnd + "X", "abX"},
        Typing{"EndOfAConsole", "ab" + kHome + "\x1B[4~X", "abX"},
        Typing{"Backspace", "abc\x7F", "ab"}, Typing{"CtrlH", "abc\x08", "ab"},
        Typing{"Delete", "abc" + kHome + kDelete, "bc"},
        Typing{"CtrlDInALine", "abc" + kHome + kCtrlD, "bc"},
        Typing{"CtrlDAtTheEndOfALine", "abc" + kCtrlD, "abc"},
        Typing{"CtrlAAndCtrlE",
               "b\x01"
               "a\x05"
               "c",
               "abc"},
        Typing{"CtrlK", "abc" + kHome + kRight + "\x0B", "a"},
        Typing{"CtrlU",
               "abc\x15"
               "d",
               "d"},
        Typing{"CtrlW", "one two\x17", "one "}, Typing{"CtrlY", "abc\x15\x19\x19", "abcabc"},
        Typing{"CtrlT", "ab\x14", "ba"}, Typing{"WordLeft", "one two\x1B[1;5DX", "one Xtwo"},
        Typing{"AltB",
               "one two\x1B"
               "bX",
               "one Xtwo"},
        Typing{"WordRight", "one two" + kHome + "\x1B[1;5CX", "oneX two"},
        Typing{"AltBackspace", "one two\x1B\x7F", "one "},
        Typing{"AltD",
               "one two" + kHome +
                   "\x1B"
                   "d",
               " two"},
        Typing{"AltU", "one" + kHome + "\x1Bu", "ONE"}),
    rowName);

INSTANTIATE_TEST_SUITE_P(
    KeysWithoutMeaning, TypedOnATerminal,
    testing::Values(Typing{"F1", "a\x1BOPb", "ab"}, Typing{"F1OfALinuxConsole", "a\x1B[[Ab", "ab"},
                    Typing{"F12", "a\x1B[24~b", "ab"}, Typing{"ShiftTab", "a\x1B[Zb", "ab"},
                    Typing{"CtrlShiftUp", "a\x1B[1;6Ab", "ab"}, Typing{"AltX", "a\x1Bxb", "ab"},
                    Typing{"AltDigit",
                           "a\x1B"
                           "5b",
                           "ab"},
                    Typing{"MarksOfAPaste", "\x1B[200~a b\x1B[201~", "a b"},
                    Typing{"CtrlG",
                           "a\x07"
                           "b",
                           "ab"},
                    Typing{"CtrlAt", "a" + QByteArray(1, 0) + "b", "ab"},
                    Typing{"Tab", "a\tb", "ab"},
                    Typing{"ControlCharacterAboveAscii",
                           "a\xC2\x9B"
                           "b",
                           "ab"}),
    rowName);

INSTANTIATE_TEST_SUITE_P(
    Text, TypedOnATerminal,
    testing::Values(
        Typing{"EveryLatinLetter", "ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞßàáâãäåæçèéêëìíîïðñòóôõöøùúûüýþÿ",
               "ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞßàáâãäåæçèéêëìíîïðñòóôõöøùúûüýþÿ"},
        Typing{"Cyrillic", "меню", "меню"}, Typing{"Wide", "中文 한국어", "中文 한국어"},
        Typing{"OutsideOfTheBasicPlane", "😀𝄞", "😀𝄞"},
        Typing{"BackspaceOverAWideCharacter",
               "a中文\x7F"
               "b",
               "a中b"},
        Typing{"Combining", "Fu\xCC\x88ße", "Fu\xCC\x88ße"},
        Typing{"TwoMarksOnALetter", "o\xCC\x82\xCC\xA3", "o\xCC\x82\xCC\xA3"},
        Typing{"MarkOnAWideCharacter", "か\xE3\x82\x99", "か\xE3\x82\x99"},
        Typing{"MarkWithoutALetter", "\xCC\x88", "\xCC\x88"},
        Typing{"MarkInTheMiddle", "ux" + kLeft + "\xCC\x88", "u\xCC\x88x"},
        Typing{"BackspaceTakesALetterWithItsMarks",
               "au\xCC\x88\x7F"
               "b",
               "ab"},
        Typing{"ArrowsPassALetterWithItsMarks", "au\xCC\x88" + kLeft + "b", "abu\xCC\x88"},
        Typing{"CharactersThatStandForOthers", "\xF0\xAF\xA0\x80\xF4\x80\x80\x80x",
               "\xF0\xAF\xA0\x80\xF4\x80\x80\x80x"},
        Typing{"Thai", "ที่นี่", "ที่นี่"},
        Typing{"NotUtf8",
               "a\xFF"
               "b\xC3(",
               "a\xEF\xBF\xBD"
               "b\xEF\xBF\xBD("},
        Typing{"Unassigned", "\xF0\x9F\xAB\xA8", "\xF0\x9F\xAB\xA8"},
        Typing{"QuotedControlCharacter",
               "a\x16\x01"
               "b",
               "a\x01"
               "b"}),
    rowName);

} // namespace
