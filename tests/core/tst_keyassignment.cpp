// Which keys work while several groups are shown.
#include "refhost/core/keyassignment.h"

#include <gtest/gtest.h>

#include <string>

using namespace quelhost;

namespace {

ShownGroup group(const char* name, std::initializer_list<std::pair<const char*, const char*>> keys)
{
    ShownGroup shown;
    shown.group.name = QString::fromLatin1(name);
    for (const auto& [command, sequence] : keys)
        shown.group.accelerators.push_back(
            {QString::fromLatin1(command), QKeySequence(QString::fromLatin1(sequence))});
    return shown;
}

std::string text(const GroupKey& key)
{
    return (key.keys.toString() + QLatin1Char(' ') + key.group + QLatin1Char('.') + key.command)
        .toStdString();
}

std::string working(const std::vector<ShownGroup>& groups)
{
    std::string result;
    for (const GroupKey& key : assignKeys({}, groups).working)
        result += text(key) + "\n";
    return result;
}

std::string lost(const std::vector<ShownGroup>& groups)
{
    std::string result;
    for (const LostKey& key : assignKeys({}, groups).lost)
        result += text(key.wanted) + " < " + text(key.kept) + "\n";
    return result;
}

const ShownGroup kPlant = group("PLANT", {{"pump", "Ctrl+K"}, {"pipe", "Ctrl+Shift+P"}});
const ShownGroup kSurvey = group("SURVEY", {{"mark", "Ctrl+K"}, {"level", "F7"}});

} // namespace

TEST(KeyAssignment, IsEmptyWithoutGroups)
{
    EXPECT_EQ(working({}), "");
    EXPECT_EQ(lost({}), "");
}

TEST(KeyAssignment, TheGroupLoadedFirstKeepsAKey)
{
    EXPECT_EQ(working({kPlant, kSurvey}),
              "Ctrl+K PLANT.pump\nCtrl+Shift+P PLANT.pipe\nF7 SURVEY.level\n");
    EXPECT_EQ(lost({kPlant, kSurvey}), "Ctrl+K SURVEY.mark < Ctrl+K PLANT.pump\n");
    EXPECT_EQ(lost({kSurvey, kPlant}), "Ctrl+K PLANT.pump < Ctrl+K SURVEY.mark\n");
}

TEST(KeyAssignment, AKeyComesBackWhenTheOtherGroupGoes)
{
    EXPECT_EQ(working({kSurvey}), "Ctrl+K SURVEY.mark\nF7 SURVEY.level\n");
    EXPECT_EQ(lost({kSurvey}), "");
}

TEST(KeyAssignment, TheFirstOfThreeKeepsAndEachOtherIsTold)
{
    const ShownGroup third = group("THIRD", {{"x", "Ctrl+K"}});
    EXPECT_EQ(lost({kPlant, kSurvey, third}),
              "Ctrl+K SURVEY.mark < Ctrl+K PLANT.pump\nCtrl+K THIRD.x < Ctrl+K PLANT.pump\n");
}

TEST(KeyAssignment, WithinAGroupTheFirstKeeps)
{
    const ShownGroup twice = group("TWICE", {{"a", "F2"}, {"b", "F2"}, {"a", "F3"}});
    EXPECT_EQ(working({twice}), "F2 TWICE.a\nF3 TWICE.a\n");
    EXPECT_EQ(lost({twice}), "F2 TWICE.b < F2 TWICE.a\n");
}

TEST(KeyAssignment, LeavesTheHostItsOwnKeys)
{
    const std::vector<GroupKey> own{
        {QStringLiteral("Host"), QStringLiteral("find"), QKeySequence(Qt::CTRL + Qt::Key_K)}};
    const KeyAssignment keys = assignKeys(own, {kPlant});
    ASSERT_EQ(keys.working.size(), 1U);
    EXPECT_EQ(text(keys.working[0]), "Ctrl+Shift+P PLANT.pipe");
    ASSERT_EQ(keys.lost.size(), 1U);
    EXPECT_EQ(text(keys.lost[0].wanted), "Ctrl+K PLANT.pump");
    EXPECT_EQ(text(keys.lost[0].kept), "Ctrl+K Host.find");
}

TEST(KeyAssignment, LeavesEscToPrompts)
{
    const KeyAssignment keys = assignKeys({}, {group("GREEDY", {{"go", "Esc"}, {"on", "F2"}})});
    ASSERT_EQ(keys.working.size(), 1U);
    EXPECT_EQ(text(keys.working[0]), "F2 GREEDY.on");
    ASSERT_EQ(keys.lost.size(), 1U);
    EXPECT_EQ(text(keys.lost[0].kept), "Esc Quelhost.cancel");
}
