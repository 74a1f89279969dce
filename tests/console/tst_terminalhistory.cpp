#include "tests/console/terminaltest.h"

#include <gtest/gtest.h>

#include <QDir>

#include <csignal>

namespace {

using namespace terminaltest;

TEST_F(TerminalLines, ComeBackInALaterRun)
{
    const QString history = path("history");
    ASSERT_TRUE(start(commandProbe(history)));
    m_terminal.write("first größe");
    EXPECT_TRUE(enterGives("first größe"));
    m_terminal.write("second u\xCC\x88");
    EXPECT_TRUE(enterGives("second u\xCC\x88"));
    m_terminal.write("dropped" + kCtrlC);
    EXPECT_TRUE(m_terminal.expect("CANCEL[]"));
    EXPECT_TRUE(ends());
    EXPECT_EQ(contentOf(history), "first größe\nsecond u\xCC\x88\n");

    PseudoTerminal later;
    ASSERT_TRUE(later.spawn(commandProbe(history), usual()));
    ASSERT_TRUE(later.expect("probe> "));
    later.write("typed" + kUp + "\r");
    EXPECT_TRUE(later.expect("TEXT[second u\xCC\x88]"));
    later.write(kUp + kUp + "!\r");
    EXPECT_TRUE(later.expect("TEXT[first größe!]"));
    later.write("ty" + kUp + kUp + kDown + kDown + "ped\r");
    EXPECT_TRUE(later.expect("TEXT[typed]"));
    later.write(kUp + kUp + kUp + kUp + kUp);
    EXPECT_TRUE(later.expect(kBeep));
    later.write("\r");
    EXPECT_TRUE(later.expect("TEXT[first größe]"));
}

TEST_F(TerminalLines, AreKeptAtOnceSoThatNothingIsLostInACrash)
{
    ASSERT_TRUE(start(commandProbe(path("history"))));
    m_terminal.write("kept");
    EXPECT_TRUE(enterGives("kept"));
    m_terminal.signal(SIGKILL);
    EXPECT_TRUE(wasEndedBy(m_terminal.waitExit(), SIGKILL));
    EXPECT_EQ(contentOf(path("history")), "kept\n");
}

TEST_F(TerminalLines, AreKeptAtTheCommandPromptOnly)
{
    ASSERT_TRUE(
        start(probe({text("--completion"), text("paths"), text("--history"), path("history")})));
    m_terminal.write("secret");
    EXPECT_TRUE(enterGives("secret"));
    m_terminal.write(kUp + "x");
    EXPECT_TRUE(enterGives("x"));
    EXPECT_TRUE(ends());
    EXPECT_FALSE(QFile::exists(path("history")));
}

TEST_F(TerminalLines, AreFoundBySearching)
{
    ASSERT_TRUE(start(commandProbe(QString())));
    for (const char* line : {"menuload one", "menuunload two", "echo three"}) {
        m_terminal.write(line);
        ASSERT_TRUE(enterGives(line));
    }
    m_terminal.write("\x12unl\r");
    EXPECT_TRUE(m_terminal.expect("TEXT[menuunload two]"));
    m_terminal.write("menul\x1B[5~\r");
    EXPECT_TRUE(m_terminal.expect("TEXT[menuload one]"));
    EXPECT_TRUE(ends());
}

TEST_F(TerminalLines, TellOnceThatTheHistoryIsAFolder)
{
    ASSERT_TRUE(QDir().mkpath(path("history")));
    ASSERT_TRUE(start(commandProbe(path("history"))));
    EXPECT_TRUE(m_terminal.transcript().contains("PROBLEM[The lines you type are not kept: "));
    EXPECT_TRUE(m_terminal.transcript().contains(path("history").toUtf8() + " is not a file.]"));
    m_terminal.write("one");
    EXPECT_TRUE(enterGives("one"));
    m_terminal.write(kUp);
    EXPECT_TRUE(enterGives("one"));
    EXPECT_TRUE(ends());
    EXPECT_EQ(m_terminal.transcript().count("PROBLEM["), 1);
}

TEST_F(TerminalLines, LeaveAnUnreadableHistoryAsItIs)
{
    ASSERT_TRUE(writeFile(path("history"), "old\n"));
    ASSERT_TRUE(QFile::setPermissions(path("history"), QFile::Permissions()));
    // Whoever gives up the superuser's rights must still be able to replace the file.
    ASSERT_TRUE(QFile::setPermissions(m_folder.path(), QFile::Permissions(0x7777)));
    ASSERT_TRUE(start(commandProbe(path("history")) << text("--without-privileges")));
    EXPECT_TRUE(m_terminal.transcript().contains("history cannot be read: "));
    m_terminal.write("new");
    EXPECT_TRUE(enterGives("new"));
    EXPECT_TRUE(ends());
    EXPECT_EQ(m_terminal.transcript().count("PROBLEM["), 1);
    ASSERT_TRUE(QFile::setPermissions(path("history"), QFile::ReadOwner | QFile::WriteOwner));
    EXPECT_EQ(contentOf(path("history")), "old\n");
}

TEST_F(TerminalLines, TellOnceThatTheHistoryCannotBeWritten)
{
    ASSERT_TRUE(start(commandProbe(path("no such folder/history"))));
    EXPECT_FALSE(m_terminal.transcript().contains("PROBLEM["));
    for (const char* line : {"one", "two"}) {
        m_terminal.write(line);
        ASSERT_TRUE(enterGives(line));
    }
    EXPECT_TRUE(ends());
    EXPECT_EQ(m_terminal.transcript().count("history cannot be written: "), 1);
    EXPECT_EQ(m_terminal.transcript().count("PROBLEM["), 1);
}

TEST_F(TerminalLines, MayBeVeryLong)
{
    ASSERT_TRUE(start(commandProbe(path("history"))));
    const QByteArray longLine = QByteArray("0123456789").repeated(500);
    m_terminal.write(longLine);
    EXPECT_TRUE(enterGives(longLine));
    m_terminal.write("short" + kUp + "x" + kHome + "y");
    EXPECT_TRUE(enterGives("y" + longLine + "x"));
    m_terminal.write(longLine + "!" + kUp + kUp + kDown + kDown);
    EXPECT_TRUE(enterGives(longLine + "!"));
    EXPECT_TRUE(ends());

    PseudoTerminal later;
    ASSERT_TRUE(later.spawn(commandProbe(path("history")), usual()));
    ASSERT_TRUE(later.expect("probe> "));
    later.write(kUp + "\r");
    EXPECT_TRUE(later.expect("TEXT[" + longLine + "!]"));
}

TEST_F(TerminalLines, AreNotSearchedForFromAVeryLongLine)
{
    ASSERT_TRUE(start(commandProbe(QString())));
    m_terminal.write("abc");
    ASSERT_TRUE(enterGives("abc"));
    const QByteArray longLine(1500, 'x');
    m_terminal.write(longLine + "\x12\x1B[5~");
    EXPECT_TRUE(m_terminal.expect(kBeep));
    EXPECT_TRUE(enterGives(longLine));
}

} // namespace
