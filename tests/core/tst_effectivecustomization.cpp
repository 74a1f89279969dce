// Keys and toolbars in force: those of the packages with the user's changes.
#include "refhost/core/effectivecustomization.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

using namespace quelhost;

namespace {

using Lines = std::vector<std::string>;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

GroupEntry entry(const char* group, const char* id)
{
    return {text(group), text(id)};
}

Keys keys(const char* typed)
{
    return QKeySequence::listFromString(text(typed));
}

// "F7 pump": a key and a command.
ShownGroup group(const char* name, std::initializer_list<const char*> commands,
                 std::initializer_list<const char*> accelerators = {})
{
    ShownGroup shown;
    shown.group.name = text(name);
    for (const char* const id : commands)
        shown.group.commands.push_back({text(id), text(id), {}, {}, {}});
    for (const char* const accelerator : accelerators)
        shown.group.accelerators.push_back(
            {text(accelerator).section(QLatin1Char(' '), 1),
             QKeySequence(text(accelerator).section(QLatin1Char(' '), 0, 0))});
    return shown;
}

// A group with one toolbar, "bar", of these commands; "|" is a separator.
ShownGroup withBar(ShownGroup shown, std::initializer_list<const char*> items)
{
    Toolbar bar{text("bar"), text("&Bar && Co"), {}};
    for (const char* const item : items)
        bar.items.push_back({text(item) == QLatin1String("|") ? QString() : text(item)});
    shown.group.toolbars.push_back(bar);
    return shown;
}

std::string shownEntry(const ToolbarEntry& entry)
{
    return isSeparator(entry) ? "|" : (entry.group + QLatin1Char('/') + entry.id).toStdString();
}

std::string shownEntries(const std::vector<ToolbarEntry>& entries)
{
    std::string result;
    for (const ToolbarEntry& each : entries)
        result += (result.empty() ? "" : " ") + shownEntry(each);
    return result;
}

// "GROUP/id: keys (package's keys)", with a star where they are changed.
Lines keyLines(const std::vector<ShownGroup>& groups, const KeyChanges& changes = {})
{
    Lines lines;
    for (const CommandKeys& each : commandKeys(groups, changes))
        lines.push_back(shownEntry(each.command) + ": " +
                        QKeySequence::listToString(each.keys).toStdString() + " (" +
                        QKeySequence::listToString(each.packageKeys).toStdString() + ")" +
                        (each.isChanged() ? "*" : ""));
    return lines;
}

// "GROUP/id TITLE: entries = shown entries", with what else there is to say.
Lines toolbarLines(const std::vector<ShownGroup>& groups, const ToolbarChanges& changes = {})
{
    Lines lines;
    for (const EffectiveToolbar& each : effectiveToolbars(groups, changes))
        lines.push_back(shownEntry(each.name) + " " + each.title.toStdString() + ": " +
                        shownEntries(each.entries) + " = " + shownEntries(each.shownEntries) +
                        (each.changed ? " changed" : "") + (each.hidden ? " hidden" : "") +
                        (each.deleted ? " deleted" : "") + (each.isOwn() ? " own" : ""));
    return lines;
}

Lines acceleratorLines(const std::vector<ShownGroup>& groups)
{
    Lines lines;
    for (const ShownGroup& shown : groups) {
        for (const Accelerator& each : shown.group.accelerators)
            lines.push_back(shown.group.name.toStdString() + "/" + each.command.toStdString() +
                            ": " + each.keys.toString().toStdString() +
                            (each.chosen ? " chosen" : ""));
    }
    return lines;
}

std::vector<ToolbarEntry> entries(std::initializer_list<const char*> all)
{
    std::vector<ToolbarEntry> result;
    for (const char* const each : all) {
        const QString name = text(each);
        result.push_back(name == QLatin1String("|")
                             ? ToolbarEntry()
                             : ToolbarEntry{name.section(QLatin1Char('/'), 0, 0),
                                            name.section(QLatin1Char('/'), 1)});
    }
    return result;
}

ToolbarChange ownToolbar(const char* title, std::initializer_list<const char*> all)
{
    ToolbarChange change;
    change.title = text(title);
    change.entries = entries(all);
    return change;
}

const ShownGroup kPlant =
    withBar(group("PLANT", {"pump", "pipe", "tank"}, {"F7 pump", "Ctrl+K pipe", "F8 pump"}),
            {"pump", "|", "pipe"});
const ShownGroup kSurvey = group("SURVEY", {"mark", "level"}, {"F9 mark"});
const ToolbarChanges kMixed{
    {{QString(), text("1")},
     ownToolbar("Mine", {"PLANT/pump", "|", "SURVEY/mark", "|", "PLANT/pipe", "SURVEY/level"})}};

} // namespace

TEST(EffectiveKeys, AreThePackagesWithoutChanges)
{
    EXPECT_EQ(keyLines({kPlant, kSurvey}),
              (Lines{"PLANT/pump: F7; F8 (F7; F8)", "PLANT/pipe: Ctrl+K (Ctrl+K)",
                     "PLANT/tank:  ()", "SURVEY/mark: F9 (F9)", "SURVEY/level:  ()"}));
    EXPECT_EQ(keyLines({}, {{entry("PLANT", "pump"), keys("F2")}}), Lines());
}

TEST(EffectiveKeys, AreTheUsersWhereThereAreSome)
{
    const KeyChanges changes{
        {entry("PLANT", "pump"), keys("Ctrl+P; F2")}, {entry("PLANT", "pipe"), {}},
        {entry("PLANT", "tank"), keys("F3")},         {entry("PLANT", "gone"), keys("F4")},
        {entry("SURVEY", "mark"), keys("F9")},        {entry("SURVEY", "pump"), keys("F5")},
        {entry("OTHER", "pump"), keys("F6")}};
    EXPECT_EQ(keyLines({kPlant, kSurvey}, changes),
              (Lines{"PLANT/pump: Ctrl+P; F2 (F7; F8)*", "PLANT/pipe:  (Ctrl+K)*",
                     "PLANT/tank: F3 ()*", "SURVEY/mark: F9 (F9)", "SURVEY/level:  ()"}));
}

TEST(EffectiveKeys, ThoseOfThePackageAreNoChange)
{
    const CommandKeys pump = commandKeys({kPlant}, {}).front();
    KeyChanges changes{{entry("SURVEY", "mark"), keys("F2")}};
    noteKeys(changes, pump, keys("F2"));
    EXPECT_EQ(changes.at(entry("PLANT", "pump")), keys("F2"));
    noteKeys(changes, pump, {});
    EXPECT_EQ(changes.at(entry("PLANT", "pump")), Keys());
    noteKeys(changes, pump, keys("F8; F7"));
    EXPECT_EQ(changes.size(), 2U);
    noteKeys(changes, pump, keys("F7; F8"));
    EXPECT_EQ(changes, (KeyChanges{{entry("SURVEY", "mark"), keys("F2")}}));
}

TEST(EffectiveKeys, StandInTheGroupsAsAccelerators)
{
    const KeyChanges changes{{entry("PLANT", "pump"), keys("Ctrl+P; F2")},
                             {entry("SURVEY", "mark"), {}},
                             {entry("PLANT", "gone"), keys("F4")}};
    const std::vector<ShownGroup> groups = withUserKeys({kPlant, kSurvey}, changes);
    EXPECT_EQ(acceleratorLines(groups),
              (Lines{"PLANT/pipe: Ctrl+K", "PLANT/pump: Ctrl+P chosen", "PLANT/pump: F2 chosen"}));
    ASSERT_EQ(groups.size(), 2U);
    EXPECT_EQ(groups.front().group.commands.size(), 3U);
    EXPECT_EQ(groups.front().group.toolbars.size(), 1U);
    EXPECT_EQ(acceleratorLines(withUserKeys({kPlant}, {})),
              (Lines{"PLANT/pump: F7", "PLANT/pipe: Ctrl+K", "PLANT/pump: F8"}));
}

TEST(EffectiveKeys, GoForTheHostsOwnActionsToo)
{
    const std::vector<GroupKey> own{{text("HOST"), text("find"), QKeySequence(text("Ctrl+I"))},
                                    {text("HOST"), text("line"), QKeySequence(text("Ctrl+C"))},
                                    {text("HOST"), text("find"), QKeySequence(text("F3"))}};
    const auto lines = [&own](const KeyChanges& changes) {
        Lines result;
        for (const GroupKey& key : withUserKeys(own, changes))
            result.push_back(key.command.toStdString() + " " + key.keys.toString().toStdString());
        return result;
    };
    EXPECT_EQ(lines({}), (Lines{"find Ctrl+I", "line Ctrl+C", "find F3"}));
    EXPECT_EQ(lines({{entry("HOST", "find"), keys("F1; F2")}, {entry("PLANT", "line"), {}}}),
              (Lines{"find F1", "find F2", "line Ctrl+C"}));
    EXPECT_EQ(lines({{entry("HOST", "find"), {}}, {entry("HOST", "line"), {}}}), Lines());
}

TEST(EffectiveToolbars, AreThePackagesWithoutChanges)
{
    EXPECT_EQ(toolbarLines({kPlant, kSurvey}),
              Lines{"PLANT/bar Bar & Co: PLANT/pump | PLANT/pipe = PLANT/pump | PLANT/pipe"});
    EXPECT_EQ(toolbarLines({}), Lines());
}

TEST(EffectiveToolbars, HaveTheUsersChanges)
{
    const GroupEntry bar = entry("PLANT", "bar");
    ToolbarChange renamed;
    renamed.title = text("Other");
    EXPECT_EQ(toolbarLines({kPlant}, {{bar, renamed}}),
              Lines{"PLANT/bar Other: PLANT/pump | PLANT/pipe = PLANT/pump | PLANT/pipe changed"});
    ToolbarChange refilled;
    refilled.entries = entries({"PLANT/tank"});
    refilled.hidden = true;
    EXPECT_EQ(toolbarLines({kPlant}, {{bar, refilled}}),
              Lines{"PLANT/bar Bar & Co: PLANT/tank = PLANT/tank changed hidden"});
    ToolbarChange deleted;
    deleted.deleted = true;
    EXPECT_EQ(toolbarLines({kPlant}, {{bar, deleted}, {entry("PLANT", "gone"), renamed}}),
              Lines{"PLANT/bar Bar & Co: PLANT/pump | PLANT/pipe = PLANT/pump | PLANT/pipe changed "
                    "deleted"});
    EXPECT_EQ(toolbarLines({kSurvey}, {{bar, renamed}}), Lines());
}

TEST(EffectiveToolbars, ShowCommandsOfLoadedGroupsOnlyAndKeepTheOthers)
{
    const std::string all = "PLANT/pump | SURVEY/mark | PLANT/pipe SURVEY/level";
    EXPECT_EQ(toolbarLines({withBar(kSurvey, {"mark"}), kPlant}, kMixed).back(),
              "/1 Mine: " + all + " = " + all + " changed own");
    EXPECT_EQ(toolbarLines({kSurvey}, kMixed).back(),
              "/1 Mine: " + all + " = SURVEY/mark | SURVEY/level changed own");
    EXPECT_EQ(toolbarLines({kPlant}, kMixed).back(),
              "/1 Mine: " + all + " = PLANT/pump | PLANT/pipe changed own");
    EXPECT_EQ(toolbarLines({}, kMixed), Lines{"/1 Mine: " + all + " =  changed own"});
}

TEST(EffectiveToolbars, LeaveNoLooseSeparatorsWhereCommandsAreLeftOut)
{
    struct Row
    {
        std::initializer_list<const char*> all;
        const char* shown;
    };
    for (const Row& row : {
             Row{{"X/a", "|", "PLANT/pump"}, "PLANT/pump"},
             Row{{"PLANT/pump", "|", "X/a"}, "PLANT/pump"},
             Row{{"PLANT/pump", "|", "X/a", "|", "|", "PLANT/pipe"}, "PLANT/pump | PLANT/pipe"},
             Row{{"|", "X/a", "|"}, ""},
             Row{{"PLANT/gone", "PLANT/pump"}, "PLANT/pump"},
             // As the user placed them.
             Row{{"|", "PLANT/pump", "|", "|"}, "| PLANT/pump | |"},
             Row{{}, ""},
         }) {
        const auto toolbars =
            effectiveToolbars({kPlant}, {{{QString(), text("1")}, ownToolbar("T", row.all)}});
        EXPECT_EQ(shownEntries(toolbars.back().shownEntries), row.shown);
        EXPECT_EQ(toolbars.back().entries.size(), row.all.size());
    }
}

TEST(EffectiveToolbars, OfTheUserStandBehindInTheOrderOfTheirNumbers)
{
    ToolbarChanges changes;
    for (const char* const id : {"10", "2", "1"})
        changes[{QString(), text(id)}] = ownToolbar(id, {});
    Lines ids;
    for (const EffectiveToolbar& toolbar : effectiveToolbars({kPlant}, changes))
        ids.push_back(toolbar.name.id.toStdString());
    EXPECT_EQ(ids, (Lines{"bar", "1", "2", "10"}));
}

TEST(EffectiveToolbars, AChangeIsWhatDiffersFromThePackage)
{
    const Toolbar& bar = kPlant.group.toolbars.front();
    const auto same = entries({"PLANT/pump", "|", "PLANT/pipe"});
    const QString title = text("Bar & Co");
    EXPECT_TRUE(changeOf(text("PLANT"), bar, title, same).isNone());
    EXPECT_EQ(changeOf(text("PLANT"), bar, text("T"), same).title, text("T"));
    EXPECT_FALSE(changeOf(text("PLANT"), bar, text("T"), same).entries);
    const auto other = entries({"SURVEY/mark"});
    EXPECT_EQ(changeOf(text("PLANT"), bar, title, other).entries, other);
    EXPECT_FALSE(changeOf(text("PLANT"), bar, title, other).title);
    EXPECT_TRUE(changeOf(text("SURVEY"), bar, title, same).entries);
}

TEST(ChosenKeys, GoBeforeThoseOfPackages)
{
    const auto assigned = [](const KeyChanges& changes) {
        const KeyAssignment assignment = assignKeys({}, withUserKeys({kPlant, kSurvey}, changes));
        Lines lines;
        for (const GroupKey& key : assignment.working)
            lines.push_back(key.keys.toString().toStdString() + " " + key.command.toStdString());
        for (const LostKey& key : assignment.lost)
            lines.push_back("lost " + key.wanted.keys.toString().toStdString() + " " +
                            key.wanted.command.toStdString() + " to " +
                            key.kept.command.toStdString());
        return lines;
    };
    EXPECT_EQ(assigned({{entry("SURVEY", "mark"), keys("F7")}}),
              (Lines{"F7 mark", "Ctrl+K pipe", "F8 pump", "lost F7 pump to mark"}));
    EXPECT_EQ(assigned({{entry("SURVEY", "mark"), keys("F7")}, {entry("PLANT", "pump"), {}}}),
              (Lines{"F7 mark", "Ctrl+K pipe"}));
}

TEST(ChosenKeys, TypedOneAfterTheOtherAreLostToTheFirstOfThem)
{
    const auto lost = [](const char* host, const char* first, const char* second) {
        const std::vector<GroupKey> own{{text("HOST"), text("find"), QKeySequence(text(host))}};
        const KeyChanges changes{{entry("PLANT", "pump"), keys(first)},
                                 {entry("PLANT", "pipe"), keys(second)}};
        Lines lines;
        for (const LostKey& key : assignKeys(own, withUserKeys({kPlant}, changes)).lost)
            lines.push_back(key.wanted.command.toStdString() + " to " +
                            key.kept.command.toStdString());
        return lines;
    };
    EXPECT_EQ(lost("F1", "Ctrl+K, A", "Ctrl+K, B"), Lines());
    EXPECT_EQ(lost("F1", "Ctrl+K", "Ctrl+K, B"), Lines{"pipe to pump"});
    EXPECT_EQ(lost("F1", "Ctrl+K, B, C", "Ctrl+K, B"), Lines{"pipe to pump"});
    EXPECT_EQ(lost("F1", "Ctrl+K, B, C, D", "Ctrl+K, B, C"), Lines{"pipe to pump"});
    EXPECT_EQ(lost("F1", "Ctrl+K, B, C", "Ctrl+K, B, C, D"), Lines{"pipe to pump"});
    EXPECT_EQ(lost("F1", "Ctrl+K, B", "B"), Lines());
    EXPECT_EQ(lost("Ctrl+K", "Ctrl+K, A", "Ctrl+K"), (Lines{"pump to find", "pipe to find"}));
    EXPECT_EQ(lost("F1", "A", "Ctrl+A"), Lines());
}
