#include "refhost/core/hostlistings.h"

#include "refhost/core/commandstore.h"
#include "refhost/core/settingsstore.h"
#include "refhost/core/shownmenugroups.h"
#include "refhost/core/storedconfig.h"
#include "refhost/core/widetext.h"
#include "tests/support/functioncommand.h"
#include "tests/support/testhost.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace quelhost;
using namespace quelhost::test;

namespace {

QStringList texts(std::initializer_list<const char*> all)
{
    QStringList result;
    for (const char* text : all)
        result << QString::fromUtf8(text);
    return result;
}

// How many of the rows hold that text.
int count(const QStringList& rows, const QString& part)
{
    return rows.filter(part).size();
}

constexpr char kInside[] =
    "<commands><command id=\"pump\" text=\"&amp;Pump\" macro=\"ECHO\"/></commands>"
    "<menus><menu id=\"a\" text=\"P&amp;lant &amp;&amp; Co\"/><menu id=\"b\" "
    "text=\"More\"/></menus>"
    "<toolbars><toolbar id=\"t\" text=\"&amp;Bar\"/></toolbars>";

} // namespace

TEST(HostListings, ColumnsStandSideBySide)
{
    EXPECT_EQ(tableRows({texts({"a", "bb", "c"}), texts({"long", "b", "last"})}),
              texts({"a     bb  c", "long  b   last"}));
    EXPECT_EQ(tableRows({texts({"\xC3\xA9", "x"}), texts({"ab", "y"})}),
              texts({"\xC3\xA9   x", "ab  y"}));
    EXPECT_EQ(tableRows({texts({"a"}), QStringList(), texts({"b", "c"})}),
              texts({"a", "", "b  c"}));
    EXPECT_EQ(tableRows({}), QStringList());
}

TEST(HostListings, AliasesStandBesideTheirCommands)
{
    EXPECT_EQ(aliasRows({}), texts({"There are no aliases."}));
    const AliasTable aliases{{QStringLiteral("ML"), QStringLiteral("MENULOAD")},
                             {QStringLiteral("?"), QStringLiteral("HELP")}};
    EXPECT_EQ(aliasRows(aliases), texts({"?   HELP", "ML  MENULOAD"}));
}

TEST(HostListings, CommandsStandWithBothNamesModuleAndDescription)
{
    FunctionCommand menu(L"MENU", L"MEN\u00DC", {});
    FunctionCommand echo(L"ECHO");
    CommandStore commands;
    ASSERT_EQ(commands.addCommand(&menu, 0) + commands.addCommand(&echo, 0), 0);
    EXPECT_EQ(commandRows(commands),
              texts({"Global name  Localized name  Module  Description",
                     "MENU         MEN\xC3\x9C            tests   does what a test says",
                     "ECHO         ECHO            tests   does what a test says"}));
}

TEST(HostListings, HelpNamesEveryCommandByItsLocalizedName)
{
    FunctionCommand menu(L"MENU", L"MEN\u00DC", {});
    FunctionCommand echo(L"ECHO");
    CommandStore commands;
    ASSERT_EQ(commands.addCommand(&menu, 0) + commands.addCommand(&echo, 0), 0);
    const QStringList rows = helpRows(commands);
    ASSERT_GE(rows.size(), 2);
    EXPECT_EQ(rows.last().toStdString(), "Commands: ECHO  MEN\xC3\x9C");
    for (const QString& row : rows)
        EXPECT_FALSE(row.contains(QLatin1Char('\n')));
}

TEST(HostListings, SettingsAreThoseOfAKeyAndWhatIsBelowIt)
{
    const std::vector<Item> items{
        Item::section(4, L"A"),     Item::integer(4, L"A\\X", 7),  Item::string(4, L"A/Y", L"t\t"),
        Item::integer(4, L"AB", 1), Item::integer(4, L"A\\X1", 2), Item::integer(4, L"\\A", 3),
    };
    struct Row
    {
        const char* name;
        const wchar_t* key;
        QStringList expected;
    };
    const Row rows[] = {
        {"everything", L"",
         texts({"A\tsection", "A\\\\X\tint\t7", "A/Y\tstring\tt\\t", "AB\tint\t1",
                "A\\\\X1\tint\t2", "\\\\A\tint\t3"})},
        {"a section", L"A",
         texts({"A\tsection", "A\\\\X\tint\t7", "A/Y\tstring\tt\\t", "A\\\\X1\tint\t2"})},
        {"a value", L"A\\X", texts({"A\\\\X\tint\t7"})},
        {"another case", L"a", texts({"There is no such setting."})},
        {"nothing", L"Z", texts({"There is no such setting."})},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(settingsRows(items, row.key), row.expected)
            << settingsRows(items, row.key).join(QLatin1Char('\n')).toStdString();
    }
    EXPECT_EQ(settingsRows({}, L""), texts({"There is no such setting."}));
}

TEST(HostListings, GroupsStandWithMenusToolbarsAndFile)
{
    const ScratchFolder folder;
    const auto store = openStore(folder.path());
    StoredConfig config(*store, [](const Fault&) {});
    ShownMenuGroups groups(config, [](const Fault&) {});
    EXPECT_EQ(groupRows(groups), texts({"No menu group is shown."}));

    const std::wstring plant = writePackage(folder, "plant.cuix", "PLANT", kInside);
    const std::wstring bare = writePackage(folder, "bare.cuix", "BARE");
    const std::wstring lost = toWide(folder.file("lost.cuix"));
    const std::wstring list = plant + L";;" + lost + L";" + bare + L";relative.cuix";
    ASSERT_EQ(told(store->write(Item::string(4, L"CUIX/LoadedCuix", list))), "done");
    groups.refresh();
    ASSERT_TRUE(QFile::remove(folder.file("bare.cuix")));

    const QString path = folder.path();
    EXPECT_EQ(groupRows(groups),
              (QStringList{
                  QStringLiteral("PLANT"), QStringLiteral("    menus     Plant & Co, More"),
                  QStringLiteral("    toolbars  Bar"),
                  QStringLiteral("    file      %1/plant.cuix").arg(path), QStringLiteral("BARE"),
                  QStringLiteral("    menus     none"), QStringLiteral("    toolbars  none"),
                  QStringLiteral("    file      %1/bare.cuix  (file is missing)").arg(path),
                  QStringLiteral("Listed, but not shown:"),
                  QStringLiteral("    %1/lost.cuix  (file is missing)").arg(path),
                  QStringLiteral("    relative.cuix  (relative name, file is missing)")}))
        << groupRows(groups).join(QLatin1Char('\n')).toStdString();
}

TEST(HostListings, AGroupsTitleStandsBehindItsName)
{
    const ScratchFolder folder;
    const auto store = openStore(folder.path());
    StoredConfig config(*store, [](const Fault&) {});
    ShownMenuGroups groups(config, [](const Fault&) {});
    QuString group;
    ASSERT_TRUE(groups.loadMenuFile(
        QuString(toWide(QStringLiteral(QUEL_EXAMPLES "/plant.cuix")).c_str()), group));
    const QString name = toQString(group.kwszPtr());
    EXPECT_EQ(count(groupRows(groups), name + QStringLiteral("  ")), 1);
}
