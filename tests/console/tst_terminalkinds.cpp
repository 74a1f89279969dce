#include "tests/console/terminaltest.h"

#include <gtest/gtest.h>

namespace {

using namespace terminaltest;

struct SimpleTerminal
{
    const char* name;
    const char* term;
};

void PrintTo(const SimpleTerminal& row, std::ostream* stream)
{
    *stream << row.name;
}

class WithoutEditing : public TerminalLines, public testing::WithParamInterface<SimpleTerminal>
{};

TEST_P(WithoutEditing, LinesAreReadAllTheSame)
{
    ASSERT_TRUE(start(commandProbe(path("history")), with("TERM", GetParam().term)));
    m_terminal.write("größe\n");
    EXPECT_TRUE(m_terminal.expect("größe\r\nTEXT[größe]\r\nprobe> "));
    m_terminal.write("abc" + kCtrlC);
    EXPECT_TRUE(m_terminal.expect("CANCEL[]\r\nprobe> "));
    m_terminal.write("abc" + kEscape + "\n");
    EXPECT_TRUE(m_terminal.expect("CANCEL[]\r\nprobe> "));
    EXPECT_TRUE(ends());
    EXPECT_TRUE(m_terminal.modes() == m_terminal.initialModes());
    EXPECT_EQ(contentOf(path("history")), "größe\n");
}

TEST_P(WithoutEditing, TheOutputIsPlain)
{
    Environment colourful = with("TERM", GetParam().term);
    colourful.remove(text("NO_COLOR"));
    ASSERT_TRUE(start(probe(), colourful));
    EXPECT_EQ(m_terminal.transcript(), "probe> ");
    EXPECT_TRUE(ends());
    EXPECT_FALSE(m_terminal.transcript().contains('\x1B'));
}

INSTANTIATE_TEST_SUITE_P(Each, WithoutEditing,
                         testing::Values(SimpleTerminal{"Dumb", "dumb"},
                                         SimpleTerminal{"Unknown", "no-such-terminal"},
                                         SimpleTerminal{"Unnamed", ""},
                                         SimpleTerminal{"Emacs", "emacs"}),
                         rowName);

TEST_F(TerminalLines, AreNotEditedWhenTheOutputGoesElsewhere)
{
    const QString command = probe().join(QLatin1Char(' ')) + text(" > ") + path("output");
    ASSERT_TRUE(m_terminal.spawn({text("/bin/sh"), text("-c"), command}, usual()));
    m_terminal.write("hello\n" + kCtrlD);
    EXPECT_TRUE(hasEndedWith(m_terminal.waitExit(), 0));
    EXPECT_EQ(contentOf(path("output")),
              "probe> hello\nTEXT[hello]\nprobe> \nEND[]\nAGAIN END[]\nSIGNALS[restored]\n");
}

class EditedOn : public TerminalLines, public testing::WithParamInterface<SimpleTerminal>
{};

TEST_P(EditedOn, ArrowsAndTabWork)
{
    ASSERT_TRUE(start(completingProbe("commands", "MENULOAD"), with("TERM", GetParam().term)));
    m_terminal.write("ab" + kLeft + "X" + kHome + "men\t");
    EXPECT_TRUE(enterGives("MENULOAD aXb"));
    EXPECT_TRUE(ends());
}

INSTANTIATE_TEST_SUITE_P(Each, EditedOn,
                         testing::Values(SimpleTerminal{"LinuxConsole", "linux"},
                                         SimpleTerminal{"Vt100", "vt100"},
                                         SimpleTerminal{"Vt220", "vt220"},
                                         SimpleTerminal{"Screen", "screen"},
                                         SimpleTerminal{"Tmux", "tmux-256color"},
                                         SimpleTerminal{"Rxvt", "rxvt-unicode-256color"}),
                         rowName);

} // namespace
