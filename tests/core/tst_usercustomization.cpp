// The user's keys and toolbars in the settings.
#include "refhost/core/usercustomization.h"

#include "refhost/core/settingsstore.h"
#include "tests/core/settingssupport.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using namespace quelhost;
using namespace quelhost::test;

namespace {

using Lines = std::vector<std::string>;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

Keys keys(const char* typed)
{
    return QKeySequence::listFromString(text(typed));
}

ToolbarChange titled(const char* title)
{
    ToolbarChange change;
    change.title = text(title);
    return change;
}

const GroupEntry kPump{text("PLANT"), text("pump")};
const GroupEntry kPipe{text("PLANT"), text("pipe")};
const GroupEntry kMark{text("SURVEY"), text("mark")};
const GroupEntry kBar{text("PLANT"), text("bar")};
const GroupEntry kOwn{QString(), text("1")};

struct Customization : testing::Test
{
    Customization() { open(); }

    // Ends the program and starts it again.
    void open(SettingsAccess access = SettingsAccess::ReadWrite)
    {
        user.reset();
        store.reset();
        store = openStore(profile.path(), access);
        read();
    }
    void read()
    {
        told.clear();
        user = std::make_unique<UserCustomization>(
            *store, [this](const Fault& fault) { told.push_back(fault.text().toStdString()); });
        user->setListener([this] { ++changes; });
    }
    [[nodiscard]] Lines stored() const { return itemsIn(*store); }
    [[nodiscard]] std::string keysOf(const GroupEntry& command) const
    {
        const auto found = user->keys().find(command);
        return found == user->keys().end()
                   ? "package's"
                   : QKeySequence::listToString(found->second).toStdString();
    }

    ScratchFolder profile;
    std::unique_ptr<SettingsStore> store;
    std::unique_ptr<UserCustomization> user;
    Lines told;
    int changes = 0;
};

} // namespace

TEST_F(Customization, BeginsWithNothing)
{
    EXPECT_TRUE(user->keys().empty());
    EXPECT_TRUE(user->toolbars().empty());
    EXPECT_EQ(stored(), Lines());
    EXPECT_EQ(told, Lines());
    EXPECT_EQ(changes, 0);
}

TEST_F(Customization, KeepsKeysForTheNextStart)
{
    EXPECT_EQ(test::told(user->setKeys(kPump, keys("Ctrl+K; F7"))), "done");
    EXPECT_EQ(test::told(user->setKeys(kMark, {})), "done");
    EXPECT_EQ(changes, 2);
    const Lines expected{"1 Accelerators/PLANT/pump string Ctrl+K; F7",
                         "1 Accelerators/SURVEY/mark string "};
    EXPECT_EQ(stored(), expected);
    open();
    EXPECT_EQ(keysOf(kPump), "Ctrl+K; F7");
    EXPECT_EQ(keysOf(kMark), "");
    EXPECT_EQ(keysOf(kPipe), "package's");
    EXPECT_EQ(stored(), expected);
    EXPECT_EQ(told, Lines());
}

TEST_F(Customization, KeepsToolbarsForTheNextStart)
{
    ToolbarChange own = titled("Mine");
    own.entries = {kPump, {}, kMark};
    EXPECT_EQ(test::told(user->setToolbar(kOwn, own)), "done");
    EXPECT_EQ(test::told(user->setToolbar(kBar, titled("Other"))), "done");
    const Lines expected{"1 OwnToolbars/1 string "
                         "{\"entries\":[\"PLANT/pump\",\"|\",\"SURVEY/mark\"],\"title\":\"Mine\"}",
                         "1 Toolbars/PLANT/bar string {\"title\":\"Other\"}"};
    EXPECT_EQ(stored(), expected);
    open();
    EXPECT_EQ(user->toolbars(), (ToolbarChanges{{kOwn, own}, {kBar, titled("Other")}}));
    EXPECT_EQ(told, Lines());
}

TEST_F(Customization, ResetsOneCommandOrToolbar)
{
    ASSERT_TRUE(user->setKeys(kPump, keys("F7")));
    ASSERT_TRUE(user->setKeys(kPipe, keys("F8")));
    ASSERT_TRUE(user->setToolbar(kBar, titled("Other")));
    ASSERT_TRUE(user->setToolbar(kOwn, titled("Mine")));
    EXPECT_EQ(test::told(user->resetKeys(kPump)), "done");
    EXPECT_EQ(test::told(user->resetKeys(kMark)), "done");
    EXPECT_EQ(test::told(user->resetToolbar(kBar)), "done");
    EXPECT_EQ(stored(), (Lines{"1 Accelerators/PLANT/pipe string F8",
                               "1 OwnToolbars/1 string {\"title\":\"Mine\"}"}));
    EXPECT_EQ(test::told(user->resetToolbar(kOwn)), "done");
    EXPECT_EQ(changes, 8);
    open();
    EXPECT_EQ(keysOf(kPump), "package's");
    EXPECT_EQ(keysOf(kPipe), "F8");
    EXPECT_TRUE(user->toolbars().empty());
}

TEST_F(Customization, ResetsAllKeysOrAllToolbars)
{
    ASSERT_TRUE(user->setKeys(kPump, keys("F7")));
    ASSERT_TRUE(user->setKeys(kMark, keys("F8")));
    ASSERT_TRUE(user->setToolbar(kBar, titled("Other")));
    EXPECT_EQ(test::told(user->replaceKeys({})), "done");
    EXPECT_EQ(stored(), Lines{"1 Toolbars/PLANT/bar string {\"title\":\"Other\"}"});
    EXPECT_EQ(user->toolbars().size(), 1U);
    EXPECT_EQ(test::told(user->replaceToolbars({})), "done");
    EXPECT_EQ(stored(), Lines());
    EXPECT_TRUE(user->keys().empty());
    EXPECT_TRUE(user->toolbars().empty());
}

TEST_F(Customization, PutsAllChangesOfAnEditorInPlaceOfTheFormer)
{
    ASSERT_TRUE(user->setKeys(kPump, keys("F7")));
    ASSERT_TRUE(user->setKeys(kPipe, keys("F8")));
    const KeyChanges wanted{{kPipe, keys("F8")}, {kMark, keys("F9")}};
    EXPECT_EQ(test::told(user->replaceKeys(wanted)), "done");
    EXPECT_EQ(user->keys(), wanted);
    EXPECT_EQ(stored(), (Lines{"1 Accelerators/PLANT/pipe string F8",
                               "1 Accelerators/SURVEY/mark string F9"}));
    EXPECT_EQ(changes, 3);
}

TEST_F(Customization, AToolbarChangeThatSaysNothingIsNone)
{
    ASSERT_TRUE(user->setToolbar(kBar, titled("Other")));
    EXPECT_EQ(test::told(user->setToolbar(kBar, {})), "done");
    EXPECT_TRUE(user->toolbars().empty());
    EXPECT_EQ(stored(), Lines());
}

TEST_F(Customization, LeavesOtherSettingsAlone)
{
    ASSERT_TRUE(store->write(Item::string(1, L"SystemVariables/MENUNAME", L"m")));
    ASSERT_TRUE(store->write(Item::string(4, L"Accelerators/PLANT/pump", L"a module's")));
    ASSERT_TRUE(store->write(Item::string(1, L"Accelerator", L"x")));
    ASSERT_TRUE(store->write(Item::section(1, L"ToolbarsX/PLANT/bar")));
    const Lines before = stored();
    open();
    EXPECT_EQ(told, Lines());
    EXPECT_TRUE(user->keys().empty());
    ASSERT_TRUE(user->setKeys(kPump, keys("F7")));
    ASSERT_TRUE(user->replaceKeys({}));
    EXPECT_EQ(stored(), before);
}

TEST_F(Customization, TellsWhatItCannotReadAndDropsItWithTheNextChange)
{
    const struct
    {
        const wchar_t* key;
        Item item;
    } rows[] = {
        {L"no keys", Item::string(1, L"Accelerators/PLANT/pump", L"Ctrl+Foo")},
        {L"no text", Item::integer(1, L"Accelerators/PLANT/pipe", 3)},
        {L"a section", Item::section(1, L"Accelerators/PLANT/more")},
        {L"no command", Item::string(1, L"Accelerators/PLANT", L"F7")},
        {L"no toolbar", Item::string(1, L"Toolbars/PLANT/bar", L"Other")},
        {L"no change", Item::string(1, L"Toolbars/PLANT/none", L"{}")},
        {L"no group", Item::string(1, L"Toolbars//bar", L"{\"title\":\"T\"}")},
        {L"no id", Item::string(1, L"OwnToolbars/", L"{\"title\":\"T\"}")},
    };
    for (const auto& row : rows)
        ASSERT_TRUE(store->write(row.item));
    ASSERT_TRUE(store->write(Item::string(1, L"Accelerators/SURVEY/mark", L"F9")));
    open();
    EXPECT_EQ(told.size(), std::size(rows));
    EXPECT_EQ(told.front(), "The setting Accelerators/PLANT cannot be understood and is not used.");
    EXPECT_EQ(user->keys(), (KeyChanges{{kMark, keys("F9")}}));
    EXPECT_TRUE(user->toolbars().empty());
    EXPECT_EQ(stored().size(), std::size(rows) + 1);

    ASSERT_TRUE(user->setKeys({text("PLANT"), text("more")}, {}));
    EXPECT_EQ(stored(),
              (Lines{"1 Accelerators/PLANT/more string ", "1 Accelerators/SURVEY/mark string F9"}));
    open();
    EXPECT_EQ(told, Lines());
}

TEST_F(Customization, WhatCannotBeStoredHoldsForThisRun)
{
    ASSERT_TRUE(user->setKeys(kPump, keys("F7")));
    open(SettingsAccess::ReadOnly);
    const Status result = user->setKeys(kPipe, keys("F8"));
    EXPECT_EQ(test::told(result), "NotPermitted");
    EXPECT_TRUE(result.fault().text().contains(text("Accelerators/PLANT/pipe")))
        << result.fault().text().toStdString();
    EXPECT_EQ(told, Lines());
    EXPECT_EQ(keysOf(kPipe), "F8");
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(test::told(user->resetKeys(kPump)), "NotPermitted");
    EXPECT_EQ(keysOf(kPump), "package's");
    open();
    EXPECT_EQ(keysOf(kPump), "F7");
    EXPECT_EQ(keysOf(kPipe), "package's");
}

TEST_F(Customization, StoresWhatFailedBeforeWithTheNextChange)
{
    const GroupEntry endless{text("PLANT"), QString(17 * 1024 * 1024, QLatin1Char('x'))};
    EXPECT_EQ(test::told(user->setKeys(endless, keys("F7"))), "BadInput");
    EXPECT_EQ(test::told(user->setKeys(kPipe, keys("F8"))), "BadInput");
    EXPECT_EQ(stored(), Lines());
    EXPECT_EQ(user->keys().size(), 2U);
    EXPECT_EQ(test::told(user->resetKeys(endless)), "done");
    EXPECT_EQ(stored(), Lines{"1 Accelerators/PLANT/pipe string F8"});
}

TEST_F(Customization, NothingNewNeedsNoDisk)
{
    ASSERT_TRUE(user->setKeys(kPump, keys("F7")));
    open(SettingsAccess::ReadOnly);
    EXPECT_EQ(test::told(user->setKeys(kPump, keys("F7"))), "done");
    EXPECT_EQ(test::told(user->replaceToolbars({})), "done");
    EXPECT_EQ(test::told(user->resetKeys(kPipe)), "done");
}

TEST_F(Customization, AFurtherOwnToolbarHasANameOfItsOwn)
{
    EXPECT_EQ(newOwnToolbar({}), kOwn);
    const GroupEntry second{QString(), text("2")};
    EXPECT_EQ(newOwnToolbar({{kOwn, titled("A")}, {kBar, titled("B")}}), second);
    EXPECT_EQ(newOwnToolbar({{second, titled("A")}}), kOwn);
}

TEST_F(Customization, TakesCommandsOfAnyName)
{
    const GroupEntry odd{text("GR\xC3\xBC\xC3\x9F"
                              "E"),
                         text("a/b=c # \xF0\x9F\x98\x80")};
    ASSERT_TRUE(user->setKeys(odd, keys("F7")));
    open();
    EXPECT_EQ(keysOf(odd), "F7");
    EXPECT_EQ(told, Lines());
    ASSERT_TRUE(user->resetKeys(odd));
    EXPECT_EQ(stored(), Lines());
}

TEST(CustomizationInADamagedProfile, IsToldAndEmpty)
{
    const ScratchFolder profile;
    {
        const auto store = openStore(profile.path());
        UserCustomization user(*store, [](const Fault&) {});
        ASSERT_TRUE(user.setKeys(kPump, keys("F7")));
        ASSERT_TRUE(runSql(profile.file("settings.db"), "UPDATE item SET checksum = checksum + 1"));
        std::vector<std::string> told;
        UserCustomization again(
            *store, [&told](const Fault& fault) { told.push_back(nameOf(fault.kind)); });
        EXPECT_EQ(told, std::vector<std::string>{"Damaged"});
        EXPECT_TRUE(again.keys().empty());
        EXPECT_EQ(test::told(again.setKeys(kPipe, keys("F8"))), "Damaged");
    }
}
