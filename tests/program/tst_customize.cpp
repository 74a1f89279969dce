// CUSTOMIZE through the whole program, by scripts.
#include "refhost/core/settingsstore.h"
#include "refhost/core/usercustomization.h"
#include "tests/support/programfolders.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The cells of the row that begins with `first` and has `second`; empty when there is none.
QString rowOf(const QStringList& rows, const char* first, const char* second)
{
    for (const QString& row : rows) {
        if (row.startsWith(text(first) + QLatin1Char(' ')) && row.contains(text(second)))
            return row.simplified();
    }
    return {};
}

// What stands between the row that ends with `typed` and the next prompt.
QStringList rowsBehind(const ProgramResult& result, const char* typed)
{
    QStringList rows;
    bool isBehind = false;
    for (const QString& row : result.rows()) {
        if (isBehind && row.startsWith(text("Command: ")))
            break;
        if (isBehind)
            rows << row;
        isBehind = isBehind || row.endsWith(text(typed));
    }
    return rows;
}

QString prompt(const char* answer)
{
    return text("Customize [Accelerator/Toolbar] <Accelerator>: %1").arg(text(answer));
}

struct CustomizeByScript : testing::Test
{
    // Lets the user of the folders' profile change something between two runs.
    [[nodiscard]] bool change(const std::function<bool(quelhost::UserCustomization&)>& work) const
    {
        auto store =
            quelhost::SettingsStore::open(folders.profile(), quelhost::SettingsAccess::ReadWrite);
        if (!store)
            return false;
        quelhost::UserCustomization user(*store.value(), [](const quelhost::Fault&) {});
        return work(user);
    }
    // Gives PLANT's pump F2 and takes the key of its pipe away.
    [[nodiscard]] bool changeKeys() const
    {
        return change([](quelhost::UserCustomization& user) {
            return user.setKeys({text("PLANT"), text("pump")}, {QKeySequence(Qt::Key_F2)}) &&
                   user.setKeys({text("PLANT"), text("pipe")}, {});
        });
    }
    // The table that the last CUSTOMIZE of a script printed.
    [[nodiscard]] QStringList table(const QString& lines, const char* answer) const
    {
        const QString typed = text("CUSTOMIZE ") + text(answer);
        const ProgramResult result = folders.script(lines + typed + QLatin1Char('\n')).run();
        return rowsBehind(result, typed.toUtf8().constData());
    }

    ProgramFolders folders;
    const QString loadPlant = text("MENULOAD %1\n").arg(ProgramFolders::example("plant"));
};

} // namespace

TEST_F(CustomizeByScript, EnterPrintsTheAccelerators)
{
    const ProgramResult result = folders.script(loadPlant + text("CUSTOMIZE\n\n")).run();
    EXPECT_EQ(result.diagnostics, text("MENULOAD\t5100\nCUSTOMIZE\t5100\n"));
    const QStringList rows = rowsBehind(result, "<Accelerator>: ");
    ASSERT_GE(rows.size(), 2) << result.output.toStdString();
    EXPECT_EQ(rows.first().simplified(), text("COMMAND KEY GROUP CHANGED"));
    EXPECT_EQ(rows.filter(text("  Ctrl+Shift+P  PLANT  no")).size(), 1)
        << rows.join(QLatin1Char('\n')).toStdString();
}

TEST_F(CustomizeByScript, AToolbarsNamePrintsTheToolbars)
{
    const ProgramResult result = folders.script(loadPlant + text("CUSTOMIZE toolbar\n")).run();
    EXPECT_EQ(result.diagnostics, text("MENULOAD\t5100\nCUSTOMIZE\t5100\n"));
    const QStringList rows = rowsBehind(result, "CUSTOMIZE toolbar");
    ASSERT_GE(rows.size(), 2) << result.output.toStdString();
    EXPECT_EQ(rows.at(1).simplified(), text("TITLE GROUP COMMANDS CHANGED"));
}

TEST_F(CustomizeByScript, CancelPrintsNothingAndCompletes)
{
    const ProgramResult result = folders.script(text("CUSTOMIZE\n^C\n")).run();
    EXPECT_EQ(result.diagnostics, text("CUSTOMIZE\t5100\n"));
    EXPECT_TRUE(result.rows().contains(prompt("^C"))) << result.output.toStdString();
    EXPECT_EQ(rowsBehind(result, "^C"), QStringList()) << result.output.toStdString();
}

TEST_F(CustomizeByScript, TheEndOfTheInputPrintsNothingAndCompletes)
{
    const ProgramResult result = folders.script(text("CUSTOMIZE\n")).run();
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.diagnostics, text("CUSTOMIZE\t5100\n"));
    EXPECT_FALSE(result.output.contains(text("GROUP"))) << result.output.toStdString();
}

TEST_F(CustomizeByScript, AsksAgainForAnUnknownKeyword)
{
    const ProgramResult result = folders.script(text("CUSTOMIZE\nmenu\nT\n")).run();
    EXPECT_EQ(result.diagnostics, text("CUSTOMIZE\t5100\n"));
    const QStringList rows = rowsBehind(result, "CUSTOMIZE");
    EXPECT_EQ(rows.filter(prompt("")).size(), 2) << result.output.toStdString();
    EXPECT_EQ(rows.filter(text("TITLE  ")).size(), 1) << result.output.toStdString();
}

TEST_F(CustomizeByScript, ChangedKeysSurviveUnloadingReloadingAndRestarting)
{
    const QString plant = folders.copyOf("plant", text("plant.cuix"));
    const QByteArray package = bytesOf(plant);
    ASSERT_EQ(rowOf(table(text("MENULOAD %1\n").arg(plant), "A"), "pump", "PLANT"),
              text("pump Ctrl+Shift+P PLANT no"));
    ASSERT_TRUE(changeKeys());
    const QStringList changed = table({}, "A");
    EXPECT_EQ(rowOf(changed, "pump", "PLANT"), text("pump F2 PLANT yes"));
    EXPECT_EQ(rowOf(changed, "pipe", "PLANT"), text("pipe none PLANT yes"));
    EXPECT_EQ(rowOf(changed, "load", "QUELD"), text("load Ctrl+Shift+L QUELD no"));

    const QString unload = text("MENUUNLOAD %1\n").arg(plant);
    const QStringList unloaded = table(unload, "A");
    EXPECT_EQ(unloaded.filter(text("PLANT")), QStringList());
    EXPECT_EQ(rowOf(unloaded, "load", "QUELD"), text("load Ctrl+Shift+L QUELD no"));
    EXPECT_EQ(table(text("MENULOAD %1\n").arg(plant), "A"), changed);
    EXPECT_EQ(table(unload + text("MENULOAD %1\n").arg(plant), "A"), changed);
    EXPECT_EQ(bytesOf(plant), package);

    ASSERT_TRUE(change(
        [](quelhost::UserCustomization& user) { return static_cast<bool>(user.replaceKeys({})); }));
    EXPECT_EQ(rowOf(table({}, "A"), "pump", "PLANT"), text("pump Ctrl+Shift+P PLANT no"));
}

TEST_F(CustomizeByScript, AToolbarOfTwoPackagesShowsTheLoadedOnesAndIsWholeAgain)
{
    const QString survey = ProgramFolders::example("survey");
    const QString loadSurvey = text("MENULOAD %1\n").arg(survey);
    ASSERT_EQ(folders.script(loadPlant + loadSurvey).run().exitStatus, 0);
    ASSERT_TRUE(change([](quelhost::UserCustomization& user) {
        quelhost::ToolbarChange mine;
        mine.title = text("Mine");
        mine.entries = {{text("PLANT"), text("pump")}, {}, {text("SURVEY"), text("point")}};
        return static_cast<bool>(user.setToolbar(quelhost::newOwnToolbar({}), mine));
    }));
    const QString whole = text("Mine (yours) PLANT/pump | SURVEY/point yes");
    EXPECT_EQ(rowOf(table({}, "T"), "Mine", ""), whole);
    EXPECT_EQ(rowOf(table(text("MENUUNLOAD %1\n").arg(survey), "T"), "Mine", ""),
              text("Mine (yours) PLANT/pump yes"));
    EXPECT_EQ(rowOf(table(loadSurvey, "T"), "Mine", ""), whole);
}

TEST_F(CustomizeByScript, ChangesCanBeReadAmongTheSettings)
{
    ASSERT_EQ(folders.script({}).run().exitStatus, 0);
    ASSERT_TRUE(changeKeys());
    const ProgramResult result = folders.script(text("SETTINGS Accelerators\n")).run();
    EXPECT_EQ(rowsBehind(result, "SETTINGS Accelerators"),
              (QStringList{text("Accelerators/PLANT/pipe\tstring\t"),
                           text("Accelerators/PLANT/pump\tstring\tF2")}));
}

TEST_F(CustomizeByScript, AStoredChangeThatCannotBeUnderstoodIsToldOnce)
{
    ASSERT_EQ(folders.script({}).run().exitStatus, 0);
    {
        auto store =
            quelhost::SettingsStore::open(folders.profile(), quelhost::SettingsAccess::ReadWrite);
        ASSERT_TRUE(store);
        ASSERT_TRUE(store.value()->write(
            quelhost::Item::string(quelhost::kHostCategory, L"Accelerators/PLANT/pump", L"Foo")));
    }
    const ProgramResult result = folders.script(loadPlant + text("CUSTOMIZE A\n")).run();
    const QStringList told = result.rows().filter(text("cannot be understood"));
    EXPECT_EQ(told.size(), 1) << result.output.toStdString();
    EXPECT_EQ(rowOf(rowsBehind(result, "CUSTOMIZE A"), "pump", "PLANT"),
              text("pump Ctrl+Shift+P PLANT no"));
}

TEST_F(CustomizeByScript, SpeaksTheUsersLanguage)
{
    const ProgramResult result =
        folders.script(text("CUSTOMIZE T\n"), {text("--lang"), text("de")}).run();
    EXPECT_EQ(result.rows().filter(text("TITEL ")).size(), 1) << result.output.toStdString();
    EXPECT_EQ(result.diagnostics, text("CUSTOMIZE\t5100\n"));
}
