// REINIT through the whole program: by scripts, and on a terminal with an editor beside it.
#include "tests/support/programfolders.h"
#include "tests/support/pseudoterminal.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>

namespace {

const QByteArray kEnter = "\r";
const QByteArray kEscape = "\x1B";

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

struct ReinitByScript : testing::Test
{
    [[nodiscard]] QString aliasFile() const { return folders.profile() + text("/QUELD.pgp"); }
    [[nodiscard]] bool writeAliases(const QByteArray& content) const
    {
        QFile file(aliasFile());
        return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
    }
    // Makes the profile with that alias file.
    [[nodiscard]] bool makeProfile(const QByteArray& aliases) const
    {
        return folders.script(QString()).run().exitStatus == 0 && writeAliases(aliases);
    }

    ProgramFolders folders;
};

struct ReinitOnTerminal : ReinitByScript
{
    testing::AssertionResult start()
    {
        if (!makeProfile("OLD = ECHO\n"))
            return testing::AssertionFailure() << "no profile";
        const QStringList arguments{text(QUELHOST_PROGRAM), text("--profile"), folders.profile(),
                                    text("--report-status")};
        const auto started = terminal.spawn(arguments, {{text("TERM"), text("xterm-256color")},
                                                        {text("LC_ALL"), text("C.UTF-8")},
                                                        {text("NO_COLOR"), text("1")}});
        return started ? terminal.expect("Command: ") : started;
    }

    // Types a line where a command is awaited; waits until that is shown and a command is awaited
    // again.
    testing::AssertionResult type(const QByteArray& line, const QByteArray& shown)
    {
        terminal.write(line + kEnter);
        const auto found = terminal.expect(shown);
        return found ? terminal.expect("Command: ") : found;
    }

    // Types REINIT and that answer, and waits for the status.
    testing::AssertionResult reinit(const QByteArray& answer, const QByteArray& status)
    {
        terminal.write("REINIT" + kEnter);
        const auto asked = terminal.expect("Re-Load QUELD.pgp?\r\n[OK/Cancel]: ");
        if (!asked)
            return asked;
        terminal.write(answer);
        const auto done = terminal.expect("REINIT\t" + status);
        return done ? terminal.expect("Command: ") : done;
    }

    bool endsNormally()
    {
        terminal.write("QUIT" + kEnter);
        const std::optional<int> status = terminal.waitExit();
        return status && WIFEXITED(*status) && WEXITSTATUS(*status) == 0;
    }

    PseudoTerminal terminal{TerminalSize{24, 200}};
};

} // namespace

TEST_F(ReinitOnTerminal, MakesTheAliasesOfTheChangedFileWork)
{
    ASSERT_TRUE(start());
    EXPECT_TRUE(type("OLD one", "\r\none"));
    ASSERT_TRUE(writeAliases("NEW = ECHO\n"));
    EXPECT_TRUE(type("NEW two", "Unknown command NEW."));
    EXPECT_TRUE(type("OLD three", "\r\nthree"));
    ASSERT_TRUE(reinit("OK" + kEnter, "5100"));
    EXPECT_TRUE(type("NEW four", "\r\nfour"));
    EXPECT_TRUE(type("OLD five", "Unknown command OLD."));
    EXPECT_TRUE(endsNormally());
}

TEST_F(ReinitOnTerminal, KeepsTheAliasesWhenItIsDeclined)
{
    ASSERT_TRUE(start());
    ASSERT_TRUE(writeAliases("NEW = ECHO\n"));
    for (const QByteArray& answer : {"Cancel" + kEnter, "c" + kEnter, kEscape}) {
        ASSERT_TRUE(reinit(answer, "-5001"));
        EXPECT_TRUE(type("NEW one", "Unknown command NEW."));
        EXPECT_TRUE(type("OLD two", "\r\ntwo"));
    }
    EXPECT_TRUE(endsNormally());
}

TEST_F(ReinitOnTerminal, HasNoAliasesWhileTheFileIsMissing)
{
    ASSERT_TRUE(start());
    ASSERT_TRUE(QFile::remove(aliasFile()));
    EXPECT_TRUE(type("OLD one", "\r\none"));
    ASSERT_TRUE(reinit("OK" + kEnter, "-5001"));
    EXPECT_TRUE(terminal.transcript().contains("The alias file " + aliasFile().toUtf8() +
                                               " cannot be read: "));
    EXPECT_TRUE(type("OLD two", "Unknown command OLD."));
    ASSERT_TRUE(writeAliases("NEW = ECHO\n"));
    ASSERT_TRUE(reinit("OK" + kEnter, "5100"));
    EXPECT_TRUE(type("NEW three", "\r\nthree"));
    EXPECT_TRUE(endsNormally());
}

TEST_F(ReinitByScript, AsksAndReportsWhatWasAnswered)
{
    const ProgramResult result =
        folders.script(text("REINIT\nOK\nREINIT\nCancel\nREINIT\n^C\nREINIT o\nREINIT")).run();
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.output.count(text("Re-Load QUELD.pgp?\n[OK/Cancel]: ")), 5)
        << result.output.toStdString();
    EXPECT_EQ(result.diagnostics,
              text("REINIT\t5100\nREINIT\t-5001\nREINIT\t-5001\nREINIT\t5100\nREINIT\t-5001\n"));
}

TEST_F(ReinitByScript, SpeaksGermanWhenAsked)
{
    const ProgramResult result =
        folders.script(text("REINIT\nOK\n"), {text("--lang"), text("de_DE")}).run();
    EXPECT_TRUE(result.rows().contains(text("QUELD.pgp neu laden?")))
        << result.output.toStdString();
    EXPECT_EQ(result.diagnostics, text("REINIT\t5100\n"));
}

TEST_F(ReinitByScript, TellsBadLinesAndTakesTheGoodOnes)
{
    ASSERT_TRUE(makeProfile("A = ECHO\nno alias\nB = ECHO this\n\xFF = ECHO\nC = ECHO\n"));
    const ProgramResult result = folders.script(text("REINIT OK\nA one\nC two\nB three\n")).run();
    const QStringList rows = result.rows();
    const int asked = rows.indexOf(text("Re-Load QUELD.pgp?"));
    ASSERT_GT(asked, 0) << result.output.toStdString();
    for (const char* place : {"QUELD.pgp:2:1: ", "QUELD.pgp:3:1: ", "QUELD.pgp:4:1: "}) {
        EXPECT_EQ(rows.mid(0, asked).filter(text(place)).size(), 1) << place; // at the start
        EXPECT_EQ(rows.mid(asked).filter(text(place)).size(), 1) << place;
    }
    EXPECT_TRUE(rows.contains(text("one")));
    EXPECT_TRUE(rows.contains(text("two")));
    EXPECT_TRUE(result.output.contains(text("Unknown command B.")));
    EXPECT_TRUE(result.diagnostics.startsWith(text("REINIT\t5100\nECHO\t5100\nECHO\t5100\n")))
        << result.diagnostics.toStdString();
}

TEST_F(ReinitByScript, FailsWithoutTheFile)
{
    ASSERT_TRUE(makeProfile("A = ECHO\n"));
    ASSERT_TRUE(QFile::remove(aliasFile()));
    const ProgramResult result = folders.script(text("REINIT OK\nECHO on\n")).run();
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.output.count(text("The alias file %1 cannot be read: ").arg(aliasFile())), 2)
        << result.output.toStdString(); // at the start and again
    EXPECT_EQ(result.diagnostics, text("REINIT\t-5001\nECHO\t5100\n"));
}

TEST_F(ReinitByScript, FailsWithAFileThatMayNotBeRead)
{
    ASSERT_TRUE(makeProfile("A = ECHO\n"));
    ASSERT_EQ(::chmod(folders.path(QString()).toUtf8().constData(), 0755), 0);
    ASSERT_EQ(::chmod(folders.profile().toUtf8().constData(), 0755), 0);
    for (const QString& name : QDir(folders.profile()).entryList(QDir::Files))
        ASSERT_EQ(::chmod((folders.profile() + text("/") + name).toUtf8().constData(), 0644), 0);
    ASSERT_EQ(::chmod(aliasFile().toUtf8().constData(), 0), 0);
    ProgramRun run = folders.script(text("REINIT OK\nA one\nREINIT Cancel\nECHO on\n"));
    run.runAsUser = 65534;
    run.folder = text("/tmp");
    const ProgramResult result = run.run();
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.output.count(text("The alias file %1 cannot be read: ").arg(aliasFile())), 2)
        << result.output.toStdString();
    EXPECT_TRUE(result.output.contains(text("Unknown command A.")));
    // A build that measures coverage complains there too: it may not write its figures.
    EXPECT_EQ(result.diagnostics.split(QLatin1Char('\n')).filter(QStringLiteral("\t")),
              (QStringList{text("REINIT\t-5001"), text("REINIT\t-5001"), text("ECHO\t5100")}))
        << result.diagnostics.toStdString();
}
