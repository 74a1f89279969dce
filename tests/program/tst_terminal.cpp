// The whole program on a terminal, with a person's keys.
#include "tests/support/programfolders.h"
#include "tests/support/pseudoterminal.h"

#include <gtest/gtest.h>

#include <sys/wait.h>

namespace {

const QByteArray kEnter = "\r";
const QByteArray kEscape = "\x1B";
const QByteArray kUp = "\x1B[A";
const QByteArray kTab = "\t";
const QByteArray kCtrlC = "\x03";
const QByteArray kCtrlD = "\x04";

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

struct ProgramOnTerminal : testing::Test
{
    testing::AssertionResult start(PseudoTerminal& terminal, const QStringList& more = {}) const
    {
        const QStringList arguments{text(QUELHOST_PROGRAM), text("--profile"), folders.profile()};
        return terminal.spawn(arguments + more, {{text("TERM"), text("xterm-256color")},
                                                 {text("LC_ALL"), text("C.UTF-8")},
                                                 {text("NO_COLOR"), text("1")}});
    }

    static bool endedNormally(PseudoTerminal& terminal)
    {
        const std::optional<int> status = terminal.waitExit();
        return status && WIFEXITED(*status) && WEXITSTATUS(*status) == 0;
    }

    ProgramFolders folders;
    const QString plant = ProgramFolders::example("plant");
    PseudoTerminal wide{TerminalSize{24, 200}};
};

} // namespace

TEST_F(ProgramOnTerminal, LoadsAPackageByPrompt)
{
    ASSERT_TRUE(start(wide));
    ASSERT_TRUE(wide.expect("Command: "));
    wide.write("menuload" + kEnter);
    ASSERT_TRUE(wide.expect("Enter name of menu file to load:"));
    wide.write(plant.toUtf8() + kEnter);
    ASSERT_TRUE(wide.expect("success.group:PLANT"));
    ASSERT_TRUE(wide.expect("Command: "));
    wide.write(kCtrlD);
    EXPECT_TRUE(endedNormally(wide));
    EXPECT_EQ(folders.storedList(), folders.mainFile() + text(";") + plant);
}

TEST_F(ProgramOnTerminal, CompletesCommandsAndPaths)
{
    const QString package = folders.copyOf("plant", text("quiteunique.cuix"));
    ASSERT_TRUE(start(wide));
    ASSERT_TRUE(wide.expect("Command: "));
    wide.write("menul" + kTab);
    ASSERT_TRUE(wide.expect("MENULOAD "));
    wide.write(kEnter);
    ASSERT_TRUE(wide.expect("to load:"));
    wide.write(folders.path(text("quite")).toUtf8() + kTab);
    ASSERT_TRUE(wide.expect("unique.cuix"));
    wide.write(kEnter);
    EXPECT_TRUE(wide.expect("success.group:PLANT"));
    wide.write("quit" + kEnter);
    EXPECT_TRUE(endedNormally(wide));
    EXPECT_EQ(folders.storedList(), folders.mainFile() + text(";") + package);
}

TEST_F(ProgramOnTerminal, EscapeAndInterruptCancelAPrompt)
{
    for (const QByteArray& key : {kEscape, kCtrlC}) {
        PseudoTerminal terminal;
        ASSERT_TRUE(start(terminal, {text("--report-status")}));
        ASSERT_TRUE(terminal.expect("Command: "));
        terminal.write("MENULOAD" + kEnter);
        ASSERT_TRUE(terminal.expect("to load:"));
        terminal.write(key);
        ASSERT_TRUE(terminal.expect("MENULOAD\t-5002"));
        ASSERT_TRUE(terminal.expect("Command: "));
        terminal.write("ECHO goes on" + kEnter);
        EXPECT_TRUE(terminal.expect("\r\ngoes on"));
        terminal.write("QUIT" + kEnter);
        EXPECT_TRUE(endedNormally(terminal));
    }
}

TEST_F(ProgramOnTerminal, EnterRepeatsTheLastCommand)
{
    ASSERT_TRUE(start(wide));
    ASSERT_TRUE(wide.expect("Command: "));
    wide.write("GETVAR FILEDIA" + kEnter);
    ASSERT_TRUE(wide.expect("FILEDIA = 1"));
    ASSERT_TRUE(wide.expect("Command: "));
    wide.write(kEnter);
    ASSERT_TRUE(wide.expect("Name of the system variable: "));
    wide.write("FILEDIA" + kEnter);
    EXPECT_TRUE(wide.expect("FILEDIA = 1"));
    wide.write("QUIT" + kEnter);
    EXPECT_TRUE(endedNormally(wide));
}

TEST_F(ProgramOnTerminal, RemembersCommandsFromTheSessionBefore)
{
    ASSERT_TRUE(start(wide));
    ASSERT_TRUE(wide.expect("Command: "));
    wide.write("ECHO of yesterday" + kEnter);
    ASSERT_TRUE(wide.expect("\r\nof yesterday"));
    wide.write(kCtrlD);
    ASSERT_TRUE(endedNormally(wide));

    PseudoTerminal again;
    ASSERT_TRUE(start(again));
    ASSERT_TRUE(again.expect("Command: "));
    again.write(kUp);
    ASSERT_TRUE(again.expect("ECHO of yesterday"));
    again.write(kEnter);
    EXPECT_TRUE(again.expect("\r\nof yesterday"));
    again.write(kCtrlD);
    EXPECT_TRUE(endedNormally(again));
}

TEST_F(ProgramOnTerminal, AHangUpLeavesEverythingStored)
{
    ASSERT_TRUE(start(wide));
    ASSERT_TRUE(wide.expect("Command: "));
    wide.write("MENULOAD " + plant.toUtf8() + kEnter);
    ASSERT_TRUE(wide.expect("success.group:PLANT"));
    wide.write("MENULOAD" + kEnter);
    ASSERT_TRUE(wide.expect("to load:"));
    wide.close();
    ASSERT_TRUE(wide.waitExit().has_value());
    EXPECT_EQ(folders.storedList(), folders.mainFile() + text(";") + plant);
    EXPECT_EQ(folders.script(QString()).run().output, text("Command: \n"));
}

TEST_F(ProgramOnTerminal, AKilledProgramLeavesWhatItAcknowledged)
{
    ASSERT_TRUE(start(wide));
    ASSERT_TRUE(wide.expect("Command: "));
    wide.write("MENULOAD " + plant.toUtf8() + kEnter);
    ASSERT_TRUE(wide.expect("success.group:PLANT"));
    wide.signal(SIGKILL);
    ASSERT_TRUE(wide.waitExit().has_value());
    EXPECT_EQ(folders.storedList(), folders.mainFile() + text(";") + plant);
    EXPECT_EQ(folders.script(QString()).run().output, text("Command: \n"));
}

TEST_F(ProgramOnTerminal, ShowsABoxWithOneButtonAsText)
{
    ASSERT_EQ(folders.script(text("MENULOAD %1\n").arg(plant)).run().exitStatus, 0);
    ASSERT_TRUE(start(wide, {text("--report-status")}));
    ASSERT_TRUE(wide.expect("Command: "));
    wide.write("MENULOAD " + plant.toUtf8() + kEnter);
    ASSERT_TRUE(wide.expect("is already loaded."));
    ASSERT_TRUE(wide.expect("MENULOAD\t0"));
    wide.write("QUIT" + kEnter);
    EXPECT_TRUE(endedNormally(wide));
}
