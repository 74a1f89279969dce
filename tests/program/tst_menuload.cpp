// MENULOAD through the whole program, by scripts.
#include "tests/support/programfolders.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

int count(const QString& text, const QString& part)
{
    return text.count(part);
}

struct MenuLoadByScript : testing::Test
{
    ProgramFolders folders;
    const QString plant = ProgramFolders::example("plant");
    const QString survey = ProgramFolders::example("survey");
};

} // namespace

TEST_F(MenuLoadByScript, LoadsAPackageAndReportsItsGroup)
{
    const ProgramResult result = folders.script(text("MENULOAD\n%1\nGROUPS\n").arg(plant)).run();
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_TRUE(result.rows().contains(text("Loading \"%1\" success.group:PLANT").arg(plant)))
        << result.output.toStdString();
    EXPECT_EQ(result.rows().filter(QRegularExpression(text("^QUELD  "))).size(), 1);
    EXPECT_EQ(result.rows().filter(QRegularExpression(text("^PLANT  "))).size(), 1);
    EXPECT_EQ(result.diagnostics, text("MENULOAD\t5100\nGROUPS\t5100\n"));
    EXPECT_EQ(folders.storedList(), folders.mainFile() + text(";") + plant);
}

TEST_F(MenuLoadByScript, RefusesTheSamePackageTheSecondTime)
{
    const QString script = text("MENULOAD\n%1\n").arg(plant);
    ASSERT_EQ(folders.script(script).run().exitStatus, 0);
    const QString stored = folders.storedList();
    const ProgramResult result = folders.script(script).run();
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(count(result.output, text("success")), 0);
    EXPECT_TRUE(result.rows().contains(text("\"%1\" is already loaded.").arg(plant)))
        << result.output.toStdString();
    EXPECT_EQ(result.diagnostics, text("MENULOAD\t0\n"));
    EXPECT_EQ(folders.storedList(), stored);
}

TEST_F(MenuLoadByScript, TakesTheFileFromTheLineOfTheCommand)
{
    const ProgramResult result = folders.script(text("MENULOAD %1\n").arg(plant)).run();
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_TRUE(result.rows().contains(text("Loading \"%1\" success.group:PLANT").arg(plant)));
    EXPECT_EQ(result.diagnostics, text("MENULOAD\t5100\n"));
    EXPECT_EQ(folders.storedList(), folders.mainFile() + text(";") + plant);
}

TEST_F(MenuLoadByScript, SpeaksGermanWhenAsked)
{
    const ProgramResult result =
        folders
            .script(text("MENÜLADEN %1\nMENULOAD\n/t/no.cuix\n").arg(plant),
                    {text("--lang"), text("de_AT")})
            .run();
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_TRUE(result.rows().contains(text("\"%1\" wurde geladen. Gruppe:PLANT").arg(plant)))
        << result.output.toStdString();
    EXPECT_TRUE(result.rows().contains(
        text("Menüdatei nicht geladen.  Datei nicht gefunden:\"/t/no.cuix\"")));
    EXPECT_EQ(result.diagnostics, text("MENULOAD\t5100\nMENULOAD\t-5002\n"));
}

TEST_F(MenuLoadByScript, WritesUtf8WhateverTheLocale)
{
    ProgramRun run = folders.script(text("MENULOAD\n/t/é😀.cuix\n"));
    run.environment.insert(text("LC_ALL"), text("C"));
    const ProgramResult result = run.run();
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_TRUE(
        result.rows().contains(text("Menu file load failed.  File not found:\"/t/é😀.cuix\"")))
        << result.output.toStdString();
}

TEST_F(MenuLoadByScript, EndOfInputCancelsEveryPrompt)
{
    for (const char* command :
         {"MENULOAD", "CUILOAD", "MENU", "SETVAR", "GETVAR", "SETVAR FILEDIA"}) {
        const ProgramResult result = folders.script(text(command)).run();
        EXPECT_EQ(result.exitStatus, 0) << command;
        const QString name = text(command).section(QLatin1Char(' '), 0, 0);
        const QString status = text(command) == text("CUILOAD") ? text("5100") : text("-5002");
        EXPECT_EQ(result.diagnostics, name + text("\t") + status + text("\n")) << command;
    }
}

TEST_F(MenuLoadByScript, ACancelDropsNothingButItsPrompt)
{
    const ProgramResult result = folders.script(text("MENULOAD\n^C\nECHO on\n")).run();
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_TRUE(result.rows().contains(text("on")));
    EXPECT_EQ(result.diagnostics, text("MENULOAD\t-5002\nECHO\t5100\n"));
}

namespace {

struct RefusedRow
{
    const char* name;
    const char* answer; // %1 is the test's folder
};

void PrintTo(const RefusedRow& row, std::ostream* stream)
{
    *stream << row.name;
}

class RefusedAnswer : public testing::TestWithParam<RefusedRow>
{
protected:
    ProgramFolders folders;
};

INSTANTIATE_TEST_SUITE_P(MenuLoad, RefusedAnswer,
                         testing::Values(RefusedRow{"MissingFile", "%1/missing.cuix"},
                                         RefusedRow{"NoName", "\"\""},
                                         RefusedRow{"OtherExtension", "%1/notes.txt"},
                                         RefusedRow{"FormatCharacters", "/t/%s%n%ls%100000d.cuix"},
                                         RefusedRow{"ShortName", "%1/uix"},
                                         RefusedRow{"Folder", "%1"}),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

TEST_P(RefusedAnswer, IsToldAndAskedForAgain)
{
    ASSERT_FALSE(folders.file(text("notes.txt"), "x").isEmpty());
    ASSERT_FALSE(folders.file(text("uix"), "x").isEmpty());
    const QString answer = QString::fromUtf8(GetParam().answer)
                               .replace(text("%1/"), folders.path(QString()))
                               .replace(text("%1"), folders.path(QString()));
    const ProgramResult result = folders.script(text("MENULOAD\n") + answer + text("\n")).run();
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_TRUE(result.rows().contains(text("Menu file load failed.  File not found:\"") + answer +
                                       text("\"")))
        << result.output.toStdString();
    EXPECT_EQ(count(result.output, text("Enter name of menu file to load:")), 2);
    EXPECT_EQ(result.diagnostics, text("MENULOAD\t-5002\n"));
    EXPECT_EQ(folders.storedList(), folders.mainFile());
}

TEST_F(MenuLoadByScript, CutsAnAbsurdlyLongAnswer)
{
    const QString answer(5000, QLatin1Char('x'));
    const ProgramResult result =
        folders.script(text("MENULOAD\n") + answer + text("\nECHO on\n^C\nECHO after\n")).run();
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_TRUE(result.output.contains(text("Menu file load failed.  File not found:\"xxxx")));
    EXPECT_TRUE(result.rows().contains(text("after")));
    EXPECT_EQ(folders.storedList(), folders.mainFile());
}

TEST_F(MenuLoadByScript, LoadsFilesWithUnusualNames)
{
    for (const char* name : {"with blanks.cuix", "😀.cuix", "%s%n.cuix", "é'$(x).cuix"}) {
        const ProgramFolders own;
        const QString path = own.copyOf("plant", text(name));
        const ProgramResult result = own.script(text("MENULOAD\n\"") + path + text("\"\n")).run();
        EXPECT_EQ(result.exitStatus, 0) << name;
        EXPECT_TRUE(
            result.rows().contains(text("Loading \"") + path + text("\" success.group:PLANT")))
            << result.output.toStdString();
        EXPECT_EQ(own.storedList(), own.mainFile() + text(";") + path) << name;
    }
}

TEST_F(MenuLoadByScript, AFaultyPackageIsRefusedWholeWithEveryFault)
{
    const QString path = folders.file(text("junk.cuix"), "PK no archive");
    const ProgramResult result = folders.script(text("MENULOAD %1\nGROUPS\n").arg(path)).run();
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(count(result.output, text("success")), 0);
    EXPECT_EQ(
        result.rows()
            .filter(QRegularExpression(text("^") + QRegularExpression::escape(path) + text(": ")))
            .size(),
        1)
        << result.output.toStdString();
    EXPECT_EQ(result.diagnostics, text("MENULOAD\t5100\nGROUPS\t5100\n"));
    EXPECT_EQ(folders.storedList(), folders.mainFile() + text(";") + path);
}

TEST_F(MenuLoadByScript, AnExplicitDialogWithoutADisplayIsOneLine)
{
    const ProgramResult result = folders.script(text("MENULOAD\n~\nECHO on\n")).run();
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(count(result.output, text("There is no display, so the dialog cannot be shown.")), 1);
    EXPECT_EQ(result.diagnostics, text("MENULOAD\t5100\nECHO\t5100\n"));
}

TEST_F(MenuLoadByScript, LoadsTheFilesOfItsCommandLine)
{
    ProgramRun run = folders.script(QString(), {plant, text("missing.cuix"), survey});
    const ProgramResult result = run.run();
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.diagnostics, text("MENULOAD\t5100\nMENULOAD\t-5002\nMENULOAD\t5100\n"));
    EXPECT_EQ(folders.storedList(), folders.mainFile() + text(";") + plant + text(";") + survey);
}

TEST_F(MenuLoadByScript, AGroupNameInTwoFilesIsShownOnce)
{
    const QString other = folders.copyOf("plant", text("other.cuix"));
    const ProgramResult result =
        folders.script(text("MENULOAD %1\nMENULOAD %2\nGROUPS\n").arg(plant, other)).run();
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.rows().filter(QRegularExpression(text("^PLANT  "))).size(), 1);
    EXPECT_TRUE(result.output.contains(
        text("%1 is not shown: its group PLANT is shown already, from %2.").arg(other, plant)))
        << result.output.toStdString();
}
