// The program's options, its exit status, its profile and what can go wrong around it.
#include "tests/support/programfolders.h"

#include <gtest/gtest.h>

#include <QProcess>
#include <QRegularExpression>

#include <sys/stat.h>

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

ProgramResult runWith(const QStringList& arguments, const QByteArray& input = {})
{
    ProgramRun run;
    run.arguments = arguments;
    run.input = input;
    return run.run();
}

// One sentence on standard error and nothing else.
bool isOneSentence(const QString& diagnostics)
{
    return diagnostics.startsWith(text("quelhost: ")) &&
           diagnostics.count(QLatin1Char('\n')) == 1 && diagnostics.endsWith(QLatin1Char('\n'));
}

struct Program : testing::Test
{
    ProgramFolders folders;
    const QString plant = ProgramFolders::example("plant");
};

struct WrongOptionsRow
{
    const char* name;
    QStringList arguments;
};

void PrintTo(const WrongOptionsRow& row, std::ostream* stream)
{
    *stream << row.name;
}

class WrongOptions : public testing::TestWithParam<WrongOptionsRow>
{};

INSTANTIATE_TEST_SUITE_P(
    Program, WrongOptions,
    testing::Values(WrongOptionsRow{"Unknown", {text("--bogus")}},
                    WrongOptionsRow{"VariableWithoutValue", {text("--var"), text("FILEDIA")}},
                    WrongOptionsRow{"UnknownVariable", {text("--var"), text("NOSUCH=1")}},
                    WrongOptionsRow{"VariableOfAnotherKind", {text("--var"), text("FILEDIA=x")}},
                    WrongOptionsRow{"TwoFaces", {text("--console"), text("--window")}},
                    WrongOptionsRow{"TypedInputWithoutScript", {text("--interactive-input")}},
                    WrongOptionsRow{"NothingToCheck", {text("--check")}}),
    [](const auto& row) { return std::string(row.param.name); });

struct ModuleRow
{
    const char* name;
    QString path;
    const char* says;
};

void PrintTo(const ModuleRow& row, std::ostream* stream)
{
    *stream << row.name;
}

class NoModule : public testing::TestWithParam<ModuleRow>
{};

INSTANTIATE_TEST_SUITE_P(
    Program, NoModule,
    testing::Values(ModuleRow{"MissingFile", text("/nowhere/module.so"), "does not exist"},
                    ModuleRow{"Folder", text("/tmp"), "cannot be loaded as a command module"},
                    ModuleRow{"NoLibrary", text("/etc/passwd"),
                              "cannot be loaded as a command module"},
                    ModuleRow{"NoEntryPoint", text(QUELHOST_LIBRARY), "has no entry point"}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace

TEST_P(WrongOptions, EndWithTwoAndASentence)
{
    const ProgramResult result = runWith(GetParam().arguments);
    EXPECT_EQ(result.exitStatus, 2);
    EXPECT_TRUE(isOneSentence(result.diagnostics)) << result.diagnostics.toStdString();
    EXPECT_EQ(result.output, QString());
}

TEST_P(NoModule, EndsWithOneAndASentence)
{
    const ProgramFolders folders;
    const ProgramResult result =
        folders.script(QString(), {text("--module"), GetParam().path}).run();
    EXPECT_EQ(result.exitStatus, 1);
    EXPECT_TRUE(isOneSentence(result.diagnostics)) << result.diagnostics.toStdString();
    EXPECT_TRUE(result.diagnostics.contains(text(GetParam().says)))
        << result.diagnostics.toStdString();
}

TEST_F(Program, TellsItsVersionAndItsOptions)
{
    const ProgramResult version = runWith({text("--version")});
    EXPECT_EQ(version.exitStatus, 0);
    EXPECT_TRUE(QRegularExpression(text("^quelhost \\d+\\.\\d+\\.\\d+\n$"))
                    .match(version.output)
                    .hasMatch());
    const ProgramResult help = runWith({text("--help")});
    EXPECT_EQ(help.exitStatus, 0);
    for (const char* option :
         {"--console", "--script", "--interactive-input", "--profile", "--module", "--var",
          "--support", "--lang", "--report-status", "--list-settings", "--check"})
        EXPECT_TRUE(help.output.contains(text(option))) << option;
}

TEST_F(Program, ChecksPackages)
{
    const QString junk = folders.file(text("junk.cuix"), "junk");
    const ProgramResult good = runWith({text("--check"), plant, ProgramFolders::example("queld"),
                                        ProgramFolders::example("survey")});
    EXPECT_EQ(good.exitStatus, 0);
    EXPECT_EQ(good.output.count(QLatin1Char('\n')), 6);
    EXPECT_TRUE(good.output.contains(text("; Ctrl+Shift+P stays with PLANT\n")));
    const ProgramResult bad = runWith({text("--check"), plant, junk});
    EXPECT_EQ(bad.exitStatus, 1);
    EXPECT_TRUE(bad.output.contains(junk + text(": ")));
    EXPECT_FALSE(QFileInfo::exists(folders.profile()));
}

TEST_F(Program, ChecksPackagesBesideWhatAProfileHasLoaded)
{
    const QStringList profile{text("--profile"), folders.profile()};
    runWith(profile + QStringList{text("--script"), text("-"), plant});
    const ProgramResult result =
        runWith(profile + QStringList{text("--check"), ProgramFolders::example("survey"), plant});
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_TRUE(result.output.contains(text("; Ctrl+Shift+P stays with PLANT\n")))
        << result.output.toStdString();
    EXPECT_TRUE(result.output.endsWith(plant + text(": is loaded already\n")))
        << result.output.toStdString();
}

TEST_F(Program, RefusesAScriptThatCannotBeRead)
{
    for (const QString& script : {folders.path(text("missing.scr")), folders.path(QString())}) {
        const ProgramResult result =
            runWith({text("--profile"), folders.profile(), text("--script"), script});
        EXPECT_EQ(result.exitStatus, 1);
        EXPECT_TRUE(isOneSentence(result.diagnostics)) << result.diagnostics.toStdString();
    }
}

TEST_F(Program, PassesOverRemarksOfAScriptOnly)
{
    const QString lines = text("; a remark\n\nECHO one\r\n  ; another\nECHO two");
    const ProgramResult script = folders.script(lines).run();
    EXPECT_EQ(script.diagnostics, text("ECHO\t5100\nECHO\t5100\n"));
    EXPECT_TRUE(script.rows().contains(text("one")));
    EXPECT_TRUE(script.rows().contains(text("two")));
    EXPECT_FALSE(script.output.contains(text("remark")));

    const ProgramResult typed =
        folders.script(text("ECHO\n\n"), {text("--interactive-input")}).run();
    EXPECT_EQ(typed.diagnostics, text("ECHO\t5100\nECHO\t5100\n"));
}

TEST_F(Program, KeepsVariablesThatAreSetButNotThoseOfItsOptions)
{
    const ProgramResult first =
        folders.script(text("GETVAR FILEDIA\nSETVAR MENUNAME \"my menu\"\n")).run();
    EXPECT_TRUE(first.rows().contains(text("FILEDIA = 0")));
    ProgramRun again;
    again.arguments =
        QStringList{text("--profile"), folders.profile(), text("--script"), text("-")};
    again.input = "GETVAR FILEDIA\nGETVAR MENUNAME\n";
    const ProgramResult second = again.run();
    EXPECT_TRUE(second.rows().contains(text("FILEDIA = 1"))) << second.output.toStdString();
    EXPECT_TRUE(second.rows().contains(text("MENUNAME = my menu"))) << second.output.toStdString();
}

TEST_F(Program, NamesWhatAnUnknownCommandMayHaveMeant)
{
    const ProgramResult result = folders.script(text("MENULOUD\nQQQQQQ\nECHO on\n")).run();
    EXPECT_TRUE(result.output.contains(text("Unknown command MENULOUD. Did you mean MENULOAD")));
    EXPECT_TRUE(result.rows().contains(text("Unknown command QQQQQQ. HELP lists the commands.")));
    EXPECT_TRUE(result.rows().contains(text("on")));
}

TEST_F(Program, FindsMenuFilesInItsSearchFolders)
{
    const QString stored = folders.copyOf("plant", text("mymenu.cuix.mnu"));
    ASSERT_TRUE(QFileInfo::exists(stored));
    const ProgramResult found =
        folders.script(text("MENU\nmymenu\n"), {text("--support"), folders.path(QString())}).run();
    EXPECT_EQ(found.diagnostics, text("MENU\t5100\n"));
    const ProgramResult missing = folders.script(text("MENU\nnosuch\n")).run();
    EXPECT_EQ(missing.diagnostics, text("MENU\t-5001\n"));
    EXPECT_TRUE(missing.rows().contains(text("Menu file load failed.  File not found:nosuch")));
    for (const char* answer : {"\"\"", "\"  \""}) {
        const ProgramResult empty =
            folders.script(text("MENU\n") + text(answer) + text("\n")).run();
        EXPECT_TRUE(empty.rows().contains(text("Menu file load failed.  File not found:")))
            << answer;
        EXPECT_EQ(empty.diagnostics, text("MENU\t-5001\n")) << answer;
    }
}

TEST_F(Program, OneProfileHasOneHost)
{
    ASSERT_EQ(folders.script(QString()).run().exitStatus, 0);
    QProcess holder;
    holder.start(text(QUELHOST_PROGRAM),
                 {text("--profile"), folders.profile(), text("--script"), text("-")});
    holder.write("ECHO ready\n");
    QByteArray said;
    while (!said.contains("\nready\n") && holder.waitForReadyRead(30000))
        said += holder.readAllStandardOutput();
    ASSERT_TRUE(said.contains("\nready\n"));

    const ProgramResult second = folders.script(QString()).run();
    EXPECT_EQ(second.exitStatus, 1);
    EXPECT_TRUE(isOneSentence(second.diagnostics));
    EXPECT_TRUE(second.diagnostics.contains(QString::number(holder.processId())));
    EXPECT_EQ(folders.storedList(), folders.mainFile()); // reading works beside the first

    holder.write(text("MENULOAD %1\n").arg(plant).toUtf8());
    holder.closeWriteChannel();
    ASSERT_TRUE(holder.waitForFinished(30000));
    EXPECT_EQ(holder.exitCode(), 0);
    EXPECT_EQ(folders.storedList(), folders.mainFile() + text(";") + plant);
}

TEST_F(Program, AProfileThatCannotBeMadeIsOneSentence)
{
    const ProgramResult result =
        runWith({text("--profile"), text("/proc/none/profile"), text("--script"), text("-")});
    EXPECT_EQ(result.exitStatus, 1);
    EXPECT_TRUE(isOneSentence(result.diagnostics)) << result.diagnostics.toStdString();
}

TEST_F(Program, AProfileThatCannotBeWrittenIsUsedAllTheSame)
{
    ASSERT_EQ(folders.script(QString()).run().exitStatus, 0);
    const QString stored = folders.storedList();
    ASSERT_EQ(::chmod(folders.path(QString()).toUtf8().constData(), 0755), 0);
    ASSERT_EQ(::chmod(folders.profile().toUtf8().constData(), 0555), 0);
    for (const QString& name : QDir(folders.profile()).entryList(QDir::Files))
        ASSERT_EQ(::chmod((folders.profile() + text("/") + name).toUtf8().constData(), 0444), 0);
    ProgramRun run = folders.script(text("MENULOAD %1\nGROUPS\n").arg(plant));
    run.runAsUser = 65534;
    run.folder = text("/tmp");
    const ProgramResult result = run.run();
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.output.count(text("cannot be written")), 2) << result.output.toStdString();
    EXPECT_TRUE(result.rows().contains(text("Loading \"%1\" success.group:PLANT").arg(plant)));
    EXPECT_EQ(result.rows().filter(QRegularExpression(text("^PLANT  "))).size(), 1);
    EXPECT_EQ(folders.storedList(), stored);
    ASSERT_EQ(::chmod(folders.profile().toUtf8().constData(), 0755), 0);
}

TEST_F(Program, AFullDiskLosesNothingAndIsTold)
{
    ASSERT_EQ(folders.script(QString()).run().exitStatus, 0);
    const QString stored = folders.storedList();
    ProgramRun run = folders.script(text("MENULOAD %1\nECHO on\n").arg(plant));
    run.fileSizeLimit = 1;
    const ProgramResult result = run.run();
    EXPECT_EQ(result.exitStatus, 0) << result.diagnostics.toStdString();
    EXPECT_EQ(result.output.count(text("was not stored")), 1) << result.output.toStdString();
    EXPECT_TRUE(result.rows().contains(text("Loading \"%1\" success.group:PLANT").arg(plant)));
    EXPECT_TRUE(result.rows().contains(text("on")));
    EXPECT_EQ(folders.storedList(), stored);
    EXPECT_EQ(folders.script(QString()).run().output, text("Command: \n"));
}

TEST_F(Program, LeavesWhatItDoesNotReadToOthers)
{
    QProcess shell;
    shell.start(text("/bin/sh"),
                {text("-c"), text("{ '%1' --profile '%2' --script - > /dev/null; cat; }")
                                 .arg(text(QUELHOST_PROGRAM), folders.profile())});
    shell.write("QUIT\nthis is left\n");
    shell.closeWriteChannel();
    ASSERT_TRUE(shell.waitForFinished(30000));
    EXPECT_EQ(QString::fromUtf8(shell.readAllStandardOutput()), text("this is left\n"));
}

TEST_F(Program, GoesOnWhenItsReaderHasGone)
{
    QProcess shell;
    shell.start(text("/bin/sh"),
                {text("-c"), text("printf 'COMMANDS\\nCOMMANDS\\nMENULOAD %3\\n' | '%1' --profile "
                                  "'%2' --script - | head -n 1")
                                 .arg(text(QUELHOST_PROGRAM), folders.profile(), plant)});
    ASSERT_TRUE(shell.waitForFinished(30000));
    EXPECT_EQ(folders.storedList(), folders.mainFile() + text(";") + plant);
}

TEST_F(Program, PlaysTheTourTwice)
{
    ProgramRun run;
    run.folder = text(QUEL_EXAMPLES);
    run.arguments = QStringList{text("--profile"), folders.profile(), text("--var"),
                                text("FILEDIA=0"), text("--script"),  text("tour.scr")};
    const ProgramResult first = run.run();
    EXPECT_EQ(first.exitStatus, 0);
    EXPECT_TRUE(first.rows().contains(text("Loading \"plant.cuix\" success.group:PLANT")));
    EXPECT_TRUE(first.rows().contains(text("Loading \"survey.cuix\" success.group:SURVEY")));
    EXPECT_EQ(first.diagnostics, QString());
    EXPECT_FALSE(first.output.contains(text("Unknown command"))) << first.output.toStdString();
    EXPECT_EQ(run.run().exitStatus, 0);
}

TEST_F(Program, SaysThatItHasNoWindow)
{
    const ProgramResult result = folders.script(QString(), {text("--window")}).run();
    EXPECT_EQ(result.exitStatus, 1);
    EXPECT_TRUE(isOneSentence(result.diagnostics)) << result.diagnostics.toStdString();
    EXPECT_FALSE(QFileInfo::exists(folders.profile()));
}
