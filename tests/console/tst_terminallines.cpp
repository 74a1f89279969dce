#include "tests/console/terminaltest.h"

#include <gtest/gtest.h>

#include <csignal>
#include <ostream>

namespace {

using namespace terminaltest;

TEST_F(TerminalLines, ShowCombiningCharacters)
{
    ASSERT_TRUE(start(probe({text("--prompt"), text("Größe: probe> ")})));
    m_terminal.write("Fu\xCC\x88ße");
    EXPECT_TRUE(m_terminal.expect("u\xCC\x88"));
    EXPECT_TRUE(enterGives("Fu\xCC\x88ße"));
}

TEST_F(TerminalLines, AreUtf8WhateverTheLocale)
{
    ASSERT_TRUE(start(probe({text("--prompt"), text("Größe (文): probe> ")}), with("LC_ALL", "C")));
    EXPECT_TRUE(m_terminal.transcript().contains("Größe (文): probe> "));
    m_terminal.write("é中😀");
    EXPECT_TRUE(m_terminal.expect("é中😀"));
    m_terminal.write("\x7Fu\xCC\x88");
    EXPECT_TRUE(enterGives("é中u\xCC\x88"));
    EXPECT_TRUE(ends());
}

TEST_F(TerminalLines, BeginOnARowOfTheirOwn)
{
    ASSERT_TRUE(start());
    m_terminal.write("one");
    EXPECT_TRUE(enterGives("one"));
    EXPECT_TRUE(m_terminal.expect("\r\nprobe> "));
    EXPECT_TRUE(m_terminal.transcript().contains("one\r\nTEXT[one]\r\nprobe> "));
}

TEST_F(TerminalLines, EscAloneCancels)
{
    ASSERT_TRUE(start());
    m_terminal.write("abc" + kEscape);
    EXPECT_TRUE(m_terminal.expect("abc\r\nCANCEL[]\r\nprobe> "));
    m_terminal.write("next");
    EXPECT_TRUE(enterGives("next"));
    EXPECT_TRUE(ends());
}

TEST_F(TerminalLines, EscBeforeEnterCancelsAndEnterBelongsToTheNextLine)
{
    ASSERT_TRUE(start());
    m_terminal.write("abc" + kEscape + "\r");
    EXPECT_TRUE(m_terminal.expect("CANCEL[]"));
    EXPECT_TRUE(m_terminal.expect("TEXT[]"));
}

TEST_F(TerminalLines, CancelLeavesTheRowsOfALongLine)
{
    ASSERT_TRUE(start());
    m_terminal.write(QByteArray(200, 'x') + kHome + kCtrlC);
    // From the first of three rows down to the one behind the last.
    EXPECT_TRUE(m_terminal.expect("\n\r\n\r\nCANCEL[]"));
}

TEST_F(TerminalLines, CtrlCCancels)
{
    ASSERT_TRUE(start());
    m_terminal.write("abc" + kCtrlC);
    EXPECT_TRUE(m_terminal.expect("abc\r\nCANCEL[]\r\nprobe> "));
    m_terminal.write(kCtrlC);
    EXPECT_TRUE(m_terminal.expect("CANCEL[]\r\nprobe> "));
    EXPECT_TRUE(ends());
}

TEST_F(TerminalLines, AnInterruptFromOutsideCancels)
{
    ASSERT_TRUE(start());
    m_terminal.write("abc");
    ASSERT_TRUE(m_terminal.expect("abc"));
    m_terminal.signal(SIGINT);
    EXPECT_TRUE(m_terminal.expect("CANCEL[]\r\nprobe> "));
    EXPECT_TRUE(ends());
}

TEST_F(TerminalLines, CancelInTheMiddleOfASearchOrAQuotedKey)
{
    ASSERT_TRUE(start(commandProbe(QString())));
    m_terminal.write("\x12"
                     "ab" +
                     kCtrlC);
    EXPECT_TRUE(m_terminal.expect("CANCEL[]\r\nprobe> "));
    m_terminal.write("a\x16" + kCtrlC);
    EXPECT_TRUE(m_terminal.expect("CANCEL[]\r\nprobe> "));
    EXPECT_TRUE(ends());
}

TEST_F(TerminalLines, CtrlDOnAnEmptyLineEndsForEver)
{
    ASSERT_TRUE(start());
    m_terminal.write(kCtrlD);
    EXPECT_TRUE(m_terminal.expect("\r\nEND[]\r\nAGAIN END[]\r\n"));
    EXPECT_TRUE(hasEndedWith(m_terminal.waitExit(), 0));
}

TEST_F(TerminalLines, EndWhenTheTerminalIsGone)
{
    ASSERT_TRUE(start(probe({text("--ignore-hangup")})));
    m_terminal.write("abc");
    ASSERT_TRUE(m_terminal.expect("abc"));
    m_terminal.close();
    EXPECT_TRUE(hasEndedWith(m_terminal.waitExit(), 0));
}

TEST_F(TerminalLines, AHangUpEndsTheProcessAsItDoesAnyOther)
{
    ASSERT_TRUE(start());
    m_terminal.close();
    EXPECT_TRUE(wasEndedBy(m_terminal.waitExit(), SIGHUP));
}

std::string signalName(const testing::TestParamInfo<int>& row)
{
    return ::sigabbrev_np(row.param);
}

class EndingSignal : public TerminalLines, public testing::WithParamInterface<int>
{};

TEST_P(EndingSignal, RestoresTheModes)
{
    ASSERT_TRUE(start());
    EXPECT_EQ(m_terminal.modes().c_lflag & ICANON, 0U);
    EXPECT_EQ(m_terminal.modes().c_lflag & ECHO, 0U);
    m_terminal.signal(GetParam());
    EXPECT_TRUE(wasEndedBy(m_terminal.waitExit(), GetParam()));
    EXPECT_TRUE(m_terminal.modes() == m_terminal.initialModes());
}

INSTANTIATE_TEST_SUITE_P(Each, EndingSignal, testing::Values(SIGTERM, SIGHUP, SIGQUIT, SIGABRT),
                         signalName);

TEST_F(TerminalLines, CtrlBackslashQuits)
{
    ASSERT_TRUE(start());
    m_terminal.write("\x1C");
    EXPECT_TRUE(wasEndedBy(m_terminal.waitExit(), SIGQUIT));
    EXPECT_TRUE(m_terminal.modes() == m_terminal.initialModes());
}

TEST_F(TerminalLines, RestoreModesAndSignalsAtTheEnd)
{
    ASSERT_TRUE(start());
    EXPECT_FALSE(m_terminal.modes() == m_terminal.initialModes());
    EXPECT_TRUE(ends());
    EXPECT_TRUE(m_terminal.modes() == m_terminal.initialModes());
}

TEST_F(TerminalLines, GoOnAfterAStop)
{
    const QString program = probe().join(QLatin1Char(' '));
    Environment environment = usual();
    environment[text("PS1")] = text("shell$ ");
    ASSERT_TRUE(m_terminal.spawn({text("/bin/sh"), text("-i")}, environment));
    ASSERT_TRUE(m_terminal.expect("shell$ "));
    m_terminal.write(program.toUtf8() + "\n");
    ASSERT_TRUE(m_terminal.expect("\nprobe> "));
    m_terminal.write("abc\x1A");
    ASSERT_TRUE(m_terminal.expect("Stopped"));
    ASSERT_TRUE(m_terminal.expect("shell$ "));
    EXPECT_NE(m_terminal.modes().c_lflag & ICANON, 0U);
    m_terminal.write("fg\n");
    ASSERT_TRUE(m_terminal.expect("probe> abc"));
    m_terminal.write("d");
    EXPECT_TRUE(enterGives("abcd"));
    m_terminal.write(kCtrlD);
    EXPECT_TRUE(m_terminal.expect("SIGNALS[restored]"));
    EXPECT_TRUE(m_terminal.expect("shell$ "));
}

TEST_F(TerminalLines, ShowABoldPromptWhereColourIsWanted)
{
    Environment colourful = usual();
    colourful.remove(text("NO_COLOR"));
    ASSERT_TRUE(m_terminal.spawn(probe(), colourful));
    EXPECT_TRUE(m_terminal.expect("\x1B[1mprobe>"));
    m_terminal.write("abc");
    EXPECT_TRUE(enterGives("abc"));
}

TEST_F(TerminalLines, ShowABoldPromptWhenNoColorIsEmpty)
{
    ASSERT_TRUE(m_terminal.spawn(probe(), with("NO_COLOR", "")));
    EXPECT_TRUE(m_terminal.expect("\x1B[1mprobe>"));
}

TEST_F(TerminalLines, ShowAPlainPromptUnderNoColor)
{
    ASSERT_TRUE(start());
    EXPECT_EQ(m_terminal.transcript(), "probe> ");
}

struct Prompt
{
    const char* name;
    QByteArray prompt;
};

void PrintTo(const Prompt& prompt, std::ostream* stream)
{
    *stream << prompt.name;
}

class WithPrompt : public TerminalLines, public testing::WithParamInterface<Prompt>
{};

TEST_P(WithPrompt, LinesAreRead)
{
    for (const char* noColor : {"1", ""}) {
        PseudoTerminal terminal({24, 40});
        ASSERT_TRUE(terminal.spawn(
            probe({text("--prompt"), QString::fromUtf8(GetParam().prompt) + text("end>")}),
            with("NO_COLOR", noColor)));
        ASSERT_TRUE(terminal.expect("end"));
        terminal.write("ab" + kLeft + "X\r");
        EXPECT_TRUE(terminal.expect("TEXT[aXb]"));
        ASSERT_TRUE(terminal.expect("end"));
        terminal.write(kCtrlD);
        EXPECT_TRUE(terminal.expect("SIGNALS[restored]"));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Each, WithPrompt,
    testing::Values(Prompt{"WiderThanTheWindow", QByteArray("wide ").repeated(20)},
                    Prompt{"AsWideAsTheWindow", QByteArray(36, 'x')},
                    Prompt{"HigherThanTheWindow", QByteArray("high ").repeated(400)},
                    Prompt{"WideCharacters", QByteArray("中文").repeated(30)},
                    Prompt{"CombiningCharacters", QByteArray("u\xCC\x88").repeated(50)},
                    Prompt{"CombiningCharacterFirst", "\xCC\x88x"},
                    Prompt{"ControlCharacters", "a\tb\x1B[31m\x01\x7F"},
                    Prompt{"Unassigned", "\xF0\x9F\xAB\xA8"}, Prompt{"PercentSigns", "%s%n%ls"}),
    rowName);

TEST_F(TerminalLines, ShowAPromptOfSeveralRows)
{
    ASSERT_TRUE(start(probe({text("--prompt"), text("one\ntwo\nprobe> ")})));
    EXPECT_EQ(m_terminal.transcript(), "one\r\ntwo\r\nprobe> ");
    m_terminal.write("a" + kHome + "b");
    EXPECT_TRUE(enterGives("ba"));
}

TEST_F(TerminalLines, TakeAPasteOfSeveralLinesAsSeveralLines)
{
    ASSERT_TRUE(start());
    m_terminal.write("one\rtwo größe\rthree\r");
    EXPECT_TRUE(m_terminal.expect("TEXT[one]"));
    EXPECT_TRUE(m_terminal.expect("TEXT[two größe]"));
    EXPECT_TRUE(m_terminal.expect("TEXT[three]"));
    EXPECT_TRUE(ends());
}

TEST_F(TerminalLines, TakeALargePaste)
{
    ASSERT_TRUE(start());
    QByteArray paste;
    for (int i = 0; i < 500; ++i)
        paste += "line " + QByteArray::number(i) + " of a long paste\r";
    m_terminal.write(paste);
    for (int i = 0; i < 500; ++i)
        ASSERT_TRUE(m_terminal.expect("TEXT[line " + QByteArray::number(i) + " of a long paste]"));
    // As it was typed and as it came back, but not as the terminal's own echo.
    EXPECT_EQ(m_terminal.transcript().count("line 250 of a long paste"), 2);
    EXPECT_TRUE(ends());
}

TEST_F(TerminalLines, AreDrawnAnewWhenTheWindowChanges)
{
    ASSERT_TRUE(start());
    m_terminal.write("some text");
    ASSERT_TRUE(m_terminal.expect("some text"));
    m_terminal.resize({10, 30});
    EXPECT_TRUE(m_terminal.expect("\r\x1B[Jprobe> some text"));
    m_terminal.write(QByteArray(40, 'x'));
    ASSERT_TRUE(m_terminal.expect("xxx"));
    EXPECT_TRUE(enterGives("some text" + QByteArray(40, 'x')));
}

TEST_F(TerminalLines, OfSeveralRowsAreDrawnAnewFromTheirFirstRow)
{
    ASSERT_TRUE(start());
    m_terminal.write(QByteArray(100, 'x') + "!");
    ASSERT_TRUE(m_terminal.expect("!"));
    // 108 columns: the cursor is on the second row of 80 and stays on it in 100.
    m_terminal.resize({24, 100});
    EXPECT_TRUE(m_terminal.expect("\r\x1B[A\x1B[Jprobe> xxx"));
    EXPECT_TRUE(enterGives(QByteArray(100, 'x') + "!"));
}

TEST_F(TerminalLines, SurviveAWindowOfNoSize)
{
    ASSERT_TRUE(start());
    for (const TerminalSize size : {TerminalSize{0, 0}, TerminalSize{1, 1}, TerminalSize{1, 2},
                                    TerminalSize{3, 2}, TerminalSize{24, 80}}) {
        m_terminal.resize(size);
        m_terminal.write("x中u\xCC\x88" + kHome + kEnd);
    }
    EXPECT_TRUE(enterGives(QByteArray("x中u\xCC\x88").repeated(5)));
    EXPECT_TRUE(ends());
}

} // namespace
