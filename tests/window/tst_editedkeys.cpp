// What an editor of keys shows, and the changes that come out of it.
#include "refhost/window/editedkeys.h"
#include "tests/window/groupsfixture.h"

#include "refhost/core/hostkeys.h"

using namespace quelhost;
using namespace windowtest;

namespace {

// "Title: text [key; key] (package's key)", a command a text.
Texts textsOf(const std::vector<EditedGroup>& groups)
{
    Texts texts;
    for (const EditedGroup& group : groups) {
        for (const EditedCommand& command : group.commands) {
            const QString keys = QKeySequence::listToString(command.keys.keys);
            const QString own = QKeySequence::listToString(command.keys.packageKeys);
            texts.push_back(QStringLiteral("%1: %2 [%3] (%4)")
                                .arg(group.title, command.text, keys, own)
                                .toStdString());
        }
    }
    return texts;
}

std::vector<Keys> keysOf(const std::vector<EditedGroup>& groups)
{
    std::vector<Keys> keys;
    for (const EditedGroup& group : groups) {
        for (const EditedCommand& command : group.commands)
            keys.push_back(command.keys.keys);
    }
    return keys;
}

} // namespace

TEST(EditedKeys, TheHostsOwnCommandsComeFirst)
{
    EXPECT_EQ(textsOf(editedGroups(hostKeys(), {}, {})),
              (Texts{"The program itself: Find Command... [Ctrl+Alt+I] (Ctrl+Alt+I)",
                     "The program itself: Command Line [Ctrl+Alt+C] (Ctrl+Alt+C)",
                     "The program itself: What Is Loaded [Ctrl+Alt+L] (Ctrl+Alt+L)"}));
}

TEST(EditedKeys, ACommandHasTheKeysThatWork)
{
    ShownGroup titled = keyedGroup("B", {{"go", "Ctrl+K"}, {"go", "F7"}});
    titled.group.title = QStringLiteral("Second");
    const std::vector<EditedGroup> groups =
        editedGroups({}, {keyedGroup("A", {{"ask", "Ctrl+K"}}), titled}, {});
    EXPECT_EQ(textsOf(groups),
              (Texts{"A: Go A [] ()", "A: Ask [Ctrl+K] (Ctrl+K)",
                     "B – Second: Go B [F7] (Ctrl+K; F7)", "B – Second: Ask [] ()"}));
}

TEST(EditedKeys, WhatTheUserChoseGoesFirst)
{
    const KeyChanges changes{{entry("B", "ask"), {key("Ctrl+K")}},
                             {entry("Quelhost", "loaded"), {}}};
    const std::vector<EditedGroup> groups =
        editedGroups({{QStringLiteral("Quelhost"), QStringLiteral("loaded"), key("Ctrl+L")}},
                     {keyedGroup("A", {{"ask", "Ctrl+K"}}), keyedGroup("B", {})}, changes);
    EXPECT_EQ(textsOf(groups),
              (Texts{"The program itself: What Is Loaded [] (Ctrl+L)", "A: Go A [] ()",
                     "A: Ask [] (Ctrl+K)", "B: Go B [] ()", "B: Ask [Ctrl+K] ()"}));
}

TEST(EditedKeys, WhatIsNotTouchedStaysAsItWas)
{
    // A's key is lost to B, the user's choice.
    const KeyChanges changes{{entry("B", "ask"), {key("Ctrl+K")}},
                             {entry("GONE", "go"), {key("F9")}}};
    const std::vector<EditedGroup> groups = editedGroups(
        hostKeys(), {keyedGroup("A", {{"ask", "Ctrl+K"}}), keyedGroup("B", {})}, changes);
    EXPECT_EQ(changesAfter(changes, groups, keysOf(groups)), changes);
}

TEST(EditedKeys, WhatIsTouchedIsNotedByGroupAndCommand)
{
    const std::vector<EditedGroup> groups =
        editedGroups({}, {keyedGroup("A", {{"go", "F2"}}), keyedGroup("B", {{"go", "F3"}})}, {});
    const std::vector<Keys> now{{}, {}, {key("F3")}, {key("F4"), key("F5")}};
    EXPECT_EQ(changesAfter({}, groups, now),
              (KeyChanges{{entry("A", "go"), {}}, {entry("B", "ask"), {key("F4"), key("F5")}}}));
}

TEST(EditedKeys, ACommandWithThePackagesKeysAgainIsNotChanged)
{
    const KeyChanges changes{{entry("A", "go"), {key("F8")}}};
    const std::vector<EditedGroup> groups =
        editedGroups({}, {keyedGroup("A", {{"go", "F2"}})}, changes);
    EXPECT_EQ(changesAfter(changes, groups, {{key("F2")}, {}}), KeyChanges());
}

TEST(EditedKeys, ChangesOfOthersAreThoseThatAreNotShown)
{
    const KeyChanges changes{{entry("A", "go"), {key("F8")}}, {entry("GONE", "go"), {key("F9")}}};
    const std::vector<EditedGroup> groups = editedGroups({}, {keyedGroup("A", {})}, changes);
    EXPECT_EQ(changesOfOthers(changes, groups), (KeyChanges{{entry("GONE", "go"), {key("F9")}}}));
}
