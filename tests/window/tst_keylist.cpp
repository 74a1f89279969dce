// The list of commands and their keys inside the editor of keys.
#include "refhost/window/keylist.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QPointer>

#include <algorithm>
#include <memory>

using namespace quelhost;

namespace {

std::vector<EditedGroup> groupOf(std::size_t commands)
{
    return {{QStringLiteral("Plant"),
             std::vector<EditedCommand>(commands, {{}, QStringLiteral("Hatch"), {}})}};
}

// The actions behind the commands that are shown.
std::vector<QPointer<QAction>> commandsOf(const KeyList& list)
{
    std::vector<QPointer<QAction>> commands;
    for (QAction* const action : list.findChildren<QAction*>()) {
        if (action->text() == QLatin1String("Hatch"))
            commands.emplace_back(action);
    }
    return commands;
}

bool areGone(const std::vector<QPointer<QAction>>& actions)
{
    return std::all_of(actions.begin(), actions.end(),
                       [](const auto& action) { return action.isNull(); });
}

} // namespace

TEST(KeyList, KeepsNothingOfCommandsThatItShowsNoMore)
{
    KeyList list;
    list.showGroups(groupOf(3));
    const auto commands = commandsOf(list);
    ASSERT_EQ(commands.size(), 3U);
    list.showGroups(groupOf(2));
    EXPECT_TRUE(areGone(commands));
    EXPECT_EQ(commandsOf(list).size(), 2U);
}

TEST(KeyList, TakesItsCommandsWithIt)
{
    auto list = std::make_unique<KeyList>();
    list->showGroups(groupOf(3));
    const auto commands = commandsOf(*list);
    ASSERT_EQ(commands.size(), 3U);
    list.reset();
    EXPECT_TRUE(areGone(commands));
}

// The toolkit would call an action that is gone when the key is pressed.
TEST(KeyList, GivesUpTheKeysOfItsCommands)
{
    const Keys second{QKeySequence(), QKeySequence(QStringLiteral("Ctrl+K"))};
    auto list = std::make_unique<KeyList>();
    list->showGroups(groupOf(1));
    QAction* const command = commandsOf(*list).front();
    command->setShortcuts(second);
    Keys last = second;
    QObject::connect(command, &QAction::changed, [&last, command] { last = command->shortcuts(); });
    list.reset();
    EXPECT_EQ(last, Keys());
}
