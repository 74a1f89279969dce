// Editing toolbars step by step.
#include "refhost/core/toolbaredits.h"
#include "tests/support/testrounds.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <random>
#include <string>
#include <vector>

using namespace quelhost;

namespace {

using Lines = std::vector<std::string>;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

// "PLANT/pump"; "|" is a separator, "/1" a toolbar of the user's.
GroupEntry entry(const char* name)
{
    if (text(name) == QLatin1String("|"))
        return {};
    return {text(name).section(QLatin1Char('/'), 0, 0), text(name).section(QLatin1Char('/'), 1)};
}

std::vector<ToolbarEntry> entries(std::initializer_list<const char*> names)
{
    std::vector<ToolbarEntry> result;
    for (const char* const name : names)
        result.push_back(entry(name));
    return result;
}

// A group with one toolbar, "bar", of all its commands with a separator behind the first.
ShownGroup group(const char* name, const char* title, std::initializer_list<const char*> commands)
{
    ShownGroup shown;
    shown.group.name = text(name);
    Toolbar bar{text("bar"), text(title), {}};
    for (const char* const id : commands) {
        shown.group.commands.push_back({text(id), text(id), {}, {}, {}});
        bar.items.push_back({text(id)});
        if (bar.items.size() == 1)
            bar.items.push_back({});
    }
    shown.group.toolbars.push_back(bar);
    return shown;
}

// "GROUP/id TITLE: entries", with what else there is to say.
Lines lines(const ToolbarEdits& edits)
{
    Lines result;
    for (const EffectiveToolbar& each : edits.toolbars()) {
        QString line = each.name.group + QLatin1Char('/') + each.name.id + QLatin1Char(' ') +
                       each.title + QLatin1Char(':');
        for (const ToolbarEntry& item : each.entries)
            line += isSeparator(item) ? text(" |") : text(" ") + item.group + text("/") + item.id;
        result.push_back(line.toStdString() + (each.changed ? " changed" : "") +
                         (each.hidden ? " hidden" : "") + (each.deleted ? " deleted" : ""));
    }
    return result;
}

const GroupEntry kPlantBar = entry("PLANT/bar");
const GroupEntry kSurveyBar = entry("SURVEY/bar");
const GroupEntry kMine = entry("/1");

const std::string kPlantLine = "PLANT/bar Plant & Co: PLANT/pump | PLANT/pipe PLANT/tank";
const std::string kSurveyLine = "SURVEY/bar Survey: SURVEY/mark | SURVEY/level";

std::vector<ShownGroup> bothGroups()
{
    return {group("PLANT", "&Plant && Co", {"pump", "pipe", "tank"}),
            group("SURVEY", "&Survey", {"mark", "level"})};
}

class EditedToolbars : public testing::Test
{
protected:
    ToolbarEdits m_edits{bothGroups(), {}};
};

} // namespace

TEST_F(EditedToolbars, AreThoseOfThePackagesAtFirst)
{
    EXPECT_EQ(lines(m_edits), (Lines{kPlantLine, kSurveyLine}));
    EXPECT_FALSE(m_edits.isChanged());
    EXPECT_FALSE(m_edits.canUndo());
    EXPECT_FALSE(m_edits.canRedo());
    EXPECT_TRUE(m_edits.result().empty());
}

TEST_F(EditedToolbars, CanBeMadeOfCommandsOfSeveralGroups)
{
    const GroupEntry mine = m_edits.create(text("  My \n tools "));
    EXPECT_EQ(mine, kMine);
    EXPECT_TRUE(m_edits.insert(mine, 99, entry("PLANT/pump")));
    EXPECT_TRUE(m_edits.insert(mine, 0, entry("SURVEY/mark")));
    EXPECT_EQ(m_edits.spot().place, 0);
    EXPECT_TRUE(m_edits.insert(mine, 1, {}));
    EXPECT_EQ(lines(m_edits).back(), "/1 My tools: SURVEY/mark | PLANT/pump changed");
    EXPECT_EQ(m_edits.spot().toolbar, mine);
    EXPECT_EQ(m_edits.spot().place, 1);
    EXPECT_FALSE(m_edits.isResettable(mine));
    EXPECT_FALSE(m_edits.reset(mine));
}

TEST_F(EditedToolbars, AreMovedToWhereTheyAreToStand)
{
    EXPECT_TRUE(m_edits.move(kPlantBar, 0, 3));
    EXPECT_EQ(lines(m_edits).front(),
              "PLANT/bar Plant & Co: | PLANT/pipe PLANT/tank PLANT/pump changed");
    EXPECT_EQ(m_edits.spot().place, 3);
    EXPECT_TRUE(m_edits.move(kPlantBar, 2, 0));
    EXPECT_EQ(lines(m_edits).front(),
              "PLANT/bar Plant & Co: PLANT/tank | PLANT/pipe PLANT/pump changed");
    m_edits.undo();
    EXPECT_EQ(m_edits.spot().place, 2);
    EXPECT_EQ(lines(m_edits).front(),
              "PLANT/bar Plant & Co: | PLANT/pipe PLANT/tank PLANT/pump changed");
    EXPECT_TRUE(m_edits.move(kPlantBar, 3, 0));
    EXPECT_EQ(lines(m_edits).front(), kPlantLine);
    EXPECT_TRUE(m_edits.result().empty()); // as the package has it again
}

TEST_F(EditedToolbars, LeaveEverythingAsItIsForWhatChangesNothing)
{
    EXPECT_FALSE(m_edits.move(kPlantBar, 1, 1));
    EXPECT_FALSE(m_edits.move(kPlantBar, 0, 4));
    EXPECT_FALSE(m_edits.move(kPlantBar, -1, 0));
    EXPECT_FALSE(m_edits.take(kPlantBar, 4));
    EXPECT_FALSE(m_edits.take(kPlantBar, -1));
    EXPECT_FALSE(m_edits.setHidden(kPlantBar, false));
    EXPECT_FALSE(m_edits.rename(kPlantBar, text("Plant & Co")));
    EXPECT_FALSE(m_edits.rename(kPlantBar, text(" \t ")));
    EXPECT_FALSE(m_edits.reset(kPlantBar));
    EXPECT_FALSE(m_edits.resetAll());
    for (const char* const gone : {"PLANT/gone", "GONE/bar", "/7"}) {
        EXPECT_FALSE(m_edits.insert(entry(gone), 0, entry("PLANT/pump"))) << gone;
        EXPECT_FALSE(m_edits.rename(entry(gone), text("T"))) << gone;
        EXPECT_FALSE(m_edits.remove(entry(gone))) << gone;
    }
    EXPECT_FALSE(m_edits.canUndo());
}

TEST_F(EditedToolbars, HaveNamesOfTheirOwn)
{
    EXPECT_TRUE(m_edits.rename(kPlantBar, text("survey")));
    EXPECT_EQ(m_edits.find(kPlantBar)->title, text("survey 2"));
    const GroupEntry mine = m_edits.create(text("SURVEY"));
    EXPECT_EQ(m_edits.find(mine)->title, text("SURVEY 3"));
    EXPECT_FALSE(m_edits.rename(mine, text("Survey 3 ").toUpper()));
    EXPECT_TRUE(m_edits.rename(mine, text("Survey 3"))); // its own, in another case
    EXPECT_TRUE(m_edits.remove(kSurveyBar));
    EXPECT_TRUE(m_edits.rename(mine, text("Survey"))); // of one that is gone
    EXPECT_EQ(m_edits.find(mine)->title, text("Survey"));
}

TEST(ToolbarEdits, GiveThePackagesNameBackWhoeverElseHasIt)
{
    ToolbarEdits edits({group("PLANT", "File", {"pump"}), group("SURVEY", "File", {"mark"})}, {});
    EXPECT_TRUE(edits.rename(kPlantBar, text("Other")));
    EXPECT_TRUE(edits.rename(kPlantBar, text("File")));
    EXPECT_FALSE(edits.isChanged());
}

TEST_F(EditedToolbars, OfPackagesAreDeletedUntilTheyAreReset)
{
    EXPECT_TRUE(m_edits.rename(kPlantBar, text("Other")));
    EXPECT_TRUE(m_edits.remove(kPlantBar));
    EXPECT_EQ(lines(m_edits).front(), kPlantLine + " changed deleted");
    EXPECT_FALSE(m_edits.isEditable(kPlantBar));
    EXPECT_FALSE(m_edits.remove(kPlantBar));
    EXPECT_FALSE(m_edits.insert(kPlantBar, 0, entry("SURVEY/mark")));
    EXPECT_FALSE(m_edits.setHidden(kPlantBar, true));
    EXPECT_TRUE(m_edits.isResettable(kPlantBar));
    EXPECT_TRUE(m_edits.reset(kPlantBar));
    EXPECT_EQ(lines(m_edits).front(), kPlantLine);
    m_edits.undo();
    m_edits.undo();
    EXPECT_EQ(m_edits.find(kPlantBar)->title, text("Other"));
}

TEST_F(EditedToolbars, OfTheUserAreGoneWhenTheyAreDeleted)
{
    const GroupEntry mine = m_edits.create(text("Mine"));
    EXPECT_TRUE(m_edits.remove(mine));
    EXPECT_EQ(m_edits.find(mine), nullptr);
    EXPECT_FALSE(m_edits.isChanged());
    m_edits.undo();
    EXPECT_EQ(lines(m_edits).back(), "/1 Mine: changed");
    EXPECT_EQ(m_edits.spot().toolbar, mine);
}

TEST_F(EditedToolbars, CanBeHiddenAndResetAllTogetherButForTheUsers)
{
    EXPECT_TRUE(m_edits.setHidden(kPlantBar, true));
    EXPECT_TRUE(m_edits.take(kSurveyBar, 0));
    m_edits.create(text("Mine"));
    EXPECT_EQ(lines(m_edits),
              (Lines{kPlantLine + " changed hidden", "SURVEY/bar Survey: | SURVEY/level changed",
                     "/1 Mine: changed"}));
    EXPECT_TRUE(m_edits.resetAll());
    EXPECT_EQ(lines(m_edits), (Lines{kPlantLine, kSurveyLine, "/1 Mine: changed"}));
}

TEST(ToolbarEdits, KeepWhatBelongsToGroupsThatAreNotLoaded)
{
    ToolbarChange ofAbsent;
    ofAbsent.title = text("Renamed");
    ToolbarChange mine;
    mine.title = text("Mine");
    mine.entries = entries({"PLANT/pump", "SURVEY/mark", "|", "SURVEY/level"});
    const ToolbarChanges start{{kPlantBar, ofAbsent}, {kMine, mine}};
    ToolbarEdits edits({group("SURVEY", "Survey", {"mark", "level"})}, start);
    EXPECT_FALSE(edits.isLoaded(text("PLANT")));
    EXPECT_EQ(edits.find(kPlantBar), nullptr);
    EXPECT_FALSE(edits.rename(kPlantBar, text("X")));
    EXPECT_FALSE(edits.resetAll());

    EXPECT_TRUE(edits.move(kMine, 0, 2));
    EXPECT_TRUE(edits.take(kMine, 0));
    EXPECT_TRUE(edits.take(kSurveyBar, 0));
    EXPECT_TRUE(edits.resetAll());
    ToolbarChanges expected = start;
    expected[kMine].entries = entries({"|", "PLANT/pump", "SURVEY/level"});
    EXPECT_EQ(edits.result(), expected);
}

TEST_F(EditedToolbars, ForgetWhatWasUndoneWhenSomethingElseIsDone)
{
    EXPECT_TRUE(m_edits.take(kPlantBar, 0));
    EXPECT_TRUE(m_edits.take(kPlantBar, 0));
    m_edits.undo();
    EXPECT_TRUE(m_edits.canRedo());
    EXPECT_TRUE(m_edits.rename(kPlantBar, text("Other")));
    EXPECT_FALSE(m_edits.canRedo());
    EXPECT_EQ(lines(m_edits).front(), "PLANT/bar Other: | PLANT/pipe PLANT/tank changed");
}

TEST(ToolbarEdits, UndoAndRedoWhateverWasDone)
{
    const unsigned int seed = wantedSeed();
    SCOPED_TRACE("QUELHOST_TEST_SEED=" + std::to_string(seed));
    std::mt19937 random(seed);
    const auto below = [&random](int limit) {
        return std::uniform_int_distribution<int>(0, limit - 1)(random);
    };
    ToolbarChange absent;
    absent.hidden = true;
    const ToolbarChanges start{{entry("ABSENT/bar"), absent}};
    ToolbarEdits edits(bothGroups(), start);
    const Lines startLines = lines(edits);
    const std::vector<ToolbarEntry> commands =
        entries({"PLANT/pump", "PLANT/pipe", "SURVEY/mark", "ABSENT/go", "|"});
    const int all = wantedRounds(2000);
    for (int round = 0; round < all; ++round) {
        const auto& toolbars = edits.toolbars();
        const EffectiveToolbar picked =
            toolbars[static_cast<std::size_t>(below(static_cast<int>(toolbars.size())))];
        const int places = static_cast<int>(picked.entries.size()) + 1;
        const int kind = below(20);
        if (kind < 6)
            edits.insert(picked.name, below(places), commands[static_cast<std::size_t>(below(5))]);
        else if (kind < 10)
            edits.move(picked.name, below(places), below(places));
        else if (kind < 13)
            edits.take(picked.name, below(places));
        else if (kind < 14)
            edits.create(text("New"));
        else if (kind < 15)
            edits.rename(picked.name, QString::number(below(9)));
        else if (kind < 16)
            edits.remove(picked.name);
        else if (kind < 17)
            edits.setHidden(picked.name, below(2) == 0);
        else if (kind < 18)
            edits.reset(picked.name);
        else if (kind < 19 && edits.canUndo())
            edits.undo();
        else if (below(20) == 0)
            edits.resetAll();
        ASSERT_EQ(edits.result().count(entry("ABSENT/bar")), 1U);
    }
    const ToolbarChanges end = edits.result();
    const Lines endLines = lines(edits);
    int undone = 0;
    for (; edits.canUndo(); ++undone)
        edits.undo();
    EXPECT_EQ(edits.result(), start);
    EXPECT_EQ(lines(edits), startLines);
    for (; undone > 0; --undone)
        edits.redo();
    EXPECT_EQ(edits.result(), end);
    EXPECT_EQ(lines(edits), endLines);
}
