// What loading and unloading would change, and where commands stand.
#include "refhost/core/groupmodel.h"
#include "refhost/core/resources.h"
#include "tests/support/germantexts.h"

#include <gtest/gtest.h>

#include <string>

using namespace quelhost;
using quelhost::test::GermanTexts;

namespace {

QKeySequence keys(const char* text)
{
    return QKeySequence(QString::fromLatin1(text));
}

MenuItem item(const char* command)
{
    return {MenuItem::Kind::Command, QString::fromLatin1(command), {}};
}

MenuItem inner(const Menu& menu)
{
    return {MenuItem::Kind::Menu, {}, menu};
}

// A group with a command "go" on Ctrl+K and one for the other key, in menus and on a toolbar.
ShownGroup group(const char* name, const char* other)
{
    MenuGroup made;
    made.name = QString::fromLatin1(name);
    made.commands = {{QStringLiteral("go"), QStringLiteral("Go"), {}, {}, QStringLiteral("x")},
                     {QStringLiteral("idle"), QStringLiteral("Idle"), {}, {}, QStringLiteral("x")}};
    const Menu more{QStringLiteral("more"), QStringLiteral("&More && more"), {item("go")}};
    made.menus = {{QStringLiteral("first"), QStringLiteral("&First"), {item("go"), inner(more)}},
                  {QStringLiteral("empty"), QStringLiteral("Empty"), {}}};
    made.toolbars = {{QStringLiteral("bar"), QStringLiteral("Bar"), {{QStringLiteral("go")}, {}}},
                     {QStringLiteral("other"), QStringLiteral("Other"), {}}};
    made.accelerators = {{QStringLiteral("go"), keys("Ctrl+K")},
                         {QStringLiteral("go"), keys(other)}};
    return {(QStringLiteral("/t/") + made.name + QStringLiteral(".cuix")).toStdWString(), made,
            false};
}

const ShownGroup kPlant = group("PLANT", "F5");
const ShownGroup kSurvey = group("SURVEY", "F6");
const ShownGroup kRoads = group("ROADS", "F6");

std::string adds(const std::vector<ShownGroup>& shown, const ShownGroup& loaded)
{
    return loadingText(GroupModel({}, shown).changeByLoading(loaded.group)).toStdString();
}

std::string removes(const std::vector<ShownGroup>& shown, const char* name)
{
    const GroupModel model({}, shown);
    return unloadingText(model.changeByUnloading(QString::fromLatin1(name))).toStdString();
}

std::string places(const GroupModel& model, const char* group, const char* command)
{
    std::string text;
    for (const CommandPlace& place :
         model.placesOf(QString::fromLatin1(group), QString::fromLatin1(command))) {
        text += place.kind == CommandPlace::Kind::Menu      ? "menu "
                : place.kind == CommandPlace::Kind::Toolbar ? "toolbar "
                                                            : "key ";
        text += place.ids.join(QLatin1Char('/')).toStdString() + ": " + place.text.toStdString();
        text += "\n";
    }
    return text;
}

} // namespace

TEST(GroupModel, TellsWhatLoadingAdds)
{
    EXPECT_EQ(adds({}, kPlant), "adds 2 menus, 2 toolbars, 2 accelerators");
    EXPECT_EQ(adds({kSurvey}, kPlant),
              "adds 2 menus, 2 toolbars, 1 accelerator; Ctrl+K stays with SURVEY");
}

TEST(GroupModel, TellsOfSeveralGroupsThatKeepTheirKeys)
{
    EXPECT_EQ(adds({kSurvey}, kRoads), "adds 2 menus, 2 toolbars; Ctrl+K, F6 stay with SURVEY");
    ShownGroup only = group("ONLY", "F7");
    only.group.accelerators.erase(only.group.accelerators.begin());
    ShownGroup wants = kPlant;
    wants.group.accelerators.push_back({QStringLiteral("idle"), keys("F7")});
    EXPECT_EQ(adds({kSurvey, only}, wants),
              "adds 2 menus, 2 toolbars, 1 accelerator; Ctrl+K stays with SURVEY; F7 stays with "
              "ONLY");
}

TEST(GroupModel, SaysOneAndMany)
{
    ShownGroup small = kPlant;
    small.group.menus.pop_back();
    small.group.toolbars.pop_back();
    small.group.accelerators.pop_back();
    EXPECT_EQ(adds({}, small), "adds 1 menu, 1 toolbar, 1 accelerator");
}

TEST(GroupModel, LeavesOutWhatThereIsNoneOf)
{
    ShownGroup bare = kPlant;
    bare.group.toolbars.clear();
    bare.group.accelerators.clear();
    EXPECT_EQ(adds({}, bare), "adds 2 menus");
    bare.group.menus.clear();
    EXPECT_EQ(adds({}, bare), "adds no menus, toolbars or accelerators");
}

TEST(GroupModel, TellsWhatUnloadingRemovesAndGivesBack)
{
    EXPECT_EQ(removes({kSurvey, kPlant}, "SURVEY"),
              "removes 2 menus, 2 toolbars, 2 accelerators; Ctrl+K goes to PLANT");
    EXPECT_EQ(removes({kSurvey, kPlant}, "PLANT"), "removes 2 menus, 2 toolbars, 1 accelerator");
    // Of two that want the key, the one loaded first gets it.
    EXPECT_EQ(
        removes({kSurvey, kPlant, kRoads}, "SURVEY"),
        "removes 2 menus, 2 toolbars, 2 accelerators; Ctrl+K goes to PLANT; F6 goes to ROADS");
}

TEST(GroupModel, TellsItInGerman)
{
    const GermanTexts german;
    EXPECT_EQ(adds({kSurvey}, kPlant),
              "fügt hinzu: 2 Menüs, 2 Werkzeugleisten, 1 Tastenkürzel; Ctrl+K bleibt bei SURVEY");
}

TEST(GroupModel, LoadingThenUnloadingIsNoChange)
{
    const GroupModel before({}, {kSurvey});
    const GroupModel with({}, {kSurvey, kPlant});
    const GroupChange added = before.changeByLoading(kPlant.group);
    const GroupChange removed = with.changeByUnloading(kPlant.group.name);
    EXPECT_EQ(added.menus, removed.menus);
    EXPECT_EQ(added.toolbars, removed.toolbars);
    EXPECT_EQ(added.accelerators, removed.accelerators);
    EXPECT_TRUE(removed.keysOfOthers.empty());
}

TEST(GroupModel, KeepsTheHostsKeysFromGroups)
{
    const GroupModel model({{QStringLiteral("Host"), QStringLiteral("find"), keys("Ctrl+K")}}, {});
    EXPECT_EQ(loadingText(model.changeByLoading(kPlant.group)).toStdString(),
              "adds 2 menus, 2 toolbars, 1 accelerator; Ctrl+K stays with Host");
}

TEST(GroupModel, FindsGroupsByName)
{
    const GroupModel model({}, {kSurvey, kPlant});
    ASSERT_NE(model.find(QStringLiteral("PLANT")), nullptr);
    EXPECT_EQ(model.find(QStringLiteral("PLANT"))->path, L"/t/PLANT.cuix");
    EXPECT_EQ(model.find(QStringLiteral("plant")), nullptr);
    const GroupChange none = model.changeByUnloading(QStringLiteral("NONE"));
    EXPECT_EQ(none.menus + none.toolbars + none.accelerators, 0U);
}

TEST(GroupModel, KnowsWhereACommandStands)
{
    const GroupModel model({}, {kSurvey, kPlant});
    EXPECT_EQ(places(model, "SURVEY", "go"), "menu first: First\n"
                                             "menu first/more: First > More & more\n"
                                             "toolbar SURVEY/bar: Bar\n"
                                             "key : Ctrl+K\n"
                                             "key : F6\n");
    // The key that another group has is none of its places.
    EXPECT_EQ(places(model, "PLANT", "go"), "menu first: First\n"
                                            "menu first/more: First > More & more\n"
                                            "toolbar PLANT/bar: Bar\n"
                                            "key : F5\n");
    EXPECT_EQ(places(model, "PLANT", "idle"), "");
    EXPECT_EQ(places(model, "PLANT", "none"), "");
    EXPECT_EQ(places(model, "NONE", "go"), "");
}

TEST(GroupModel, HoldsWhatTheUserChanged)
{
    UserChanges changes;
    changes.keys[{QStringLiteral("PLANT"), QStringLiteral("idle")}] = {keys("Ctrl+K")};
    changes.keys[{QStringLiteral("Host"), QStringLiteral("find")}] = {keys("F5")};
    changes.toolbars[{QStringLiteral("PLANT"), QStringLiteral("bar")}].hidden = true;
    changes.toolbars[{QStringLiteral("PLANT"), QStringLiteral("other")}].deleted = true;
    ToolbarChange& own = changes.toolbars[{QString(), QStringLiteral("1")}];
    own.title = QStringLiteral("Mine");
    own.entries = std::vector<ToolbarEntry>{{QStringLiteral("PLANT"), QStringLiteral("idle")},
                                            {QStringLiteral("SURVEY"), QStringLiteral("go")}};
    const std::vector<GroupKey> host{{QStringLiteral("Host"), QStringLiteral("find"), keys("F9")}};
    const GroupModel both(host, {kSurvey, kPlant}, changes);
    ASSERT_EQ(both.hostKeys().size(), 1U);
    EXPECT_EQ(both.hostKeys()[0].keys, keys("F5"));
    // The user's choice goes before what was loaded first.
    EXPECT_EQ(places(both, "PLANT", "idle"), "toolbar /1: Mine\nkey : Ctrl+K\n");
    EXPECT_EQ(places(both, "SURVEY", "go"), "menu first: First\n"
                                            "menu first/more: First > More & more\n"
                                            "toolbar SURVEY/bar: Bar\n"
                                            "toolbar /1: Mine\n"
                                            "key : F6\n");
    ASSERT_EQ(both.toolbars().size(), 3U);
    EXPECT_EQ(both.toolbars()[2].title, QStringLiteral("Mine"));
    EXPECT_EQ(both.toolbars()[2].shownEntries.size(), 2U);

    const GroupModel survey(host, {kSurvey}, changes);
    ASSERT_EQ(survey.toolbars().size(), 3U);
    EXPECT_EQ(survey.toolbars()[2].shownEntries.size(), 1U);
    // The host has its F5; the user's choice for its other command takes Ctrl+K from SURVEY.
    EXPECT_EQ(loadingText(survey.changeByLoading(kPlant.group)).toStdString(),
              "adds 2 menus, 1 accelerator; F5 stays with Host; Ctrl+K is taken from SURVEY");
}

TEST(GroupModel, TellsBeforehandWhatAFileWouldDo)
{
    const GroupModel model({}, {kSurvey});
    const auto preview = [&model](const char* path, const ShownGroup& shown) {
        return loadingPreview(model, QString::fromLatin1(path), shown.group).toStdString();
    };
    EXPECT_EQ(preview("/t/PLANT.cuix", kPlant),
              "adds 2 menus, 2 toolbars, 1 accelerator; Ctrl+K stays with SURVEY");
    EXPECT_EQ(preview("/t/../t/SURVEY.cuix", kSurvey), "is loaded already");
    EXPECT_EQ(preview("/t/other.cuix", kSurvey),
              "cannot be shown: its menu group SURVEY is that of /t/SURVEY.cuix");
}
