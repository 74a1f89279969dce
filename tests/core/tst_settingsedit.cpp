// Several settings changed at once.
#include "refhost/core/settingsfiles.h"
#include "refhost/core/settingsstore.h"
#include "tests/core/faultyvfs.h"
#include "tests/core/settingssupport.h"

#include <gtest/gtest.h>

#include <sqlite3.h>

#include <string>
#include <vector>

using namespace quelhost;
using namespace quelhost::test;

namespace {

using Lines = std::vector<std::string>;

const SettingsEdit kEdit{{Item::string(4, L"A", L"new"), Item::integer(4, L"C", 3)}, {{4, L"B"}}};
const Lines kBefore{"4 A string old", "4 B string old"};
const Lines kAfter{"4 A string new", "4 C integer 3"};

bool fill(SettingsStore& store)
{
    return store.write(Item::string(4, L"A", L"old")) && store.write(Item::string(4, L"B", L"old"));
}

} // namespace

TEST(SettingsEdits, WriteAndRemoveAtOnce)
{
    const ScratchFolder profile;
    auto store = openStore(profile.path());
    ASSERT_TRUE(fill(*store));
    EXPECT_EQ(told(store->change(kEdit)), "done");
    EXPECT_EQ(itemsIn(*store), kAfter);
    EXPECT_EQ(valueIn(*store, L"B"), "nothing");
    store.reset();
    store = openStore(profile.path());
    EXPECT_EQ(itemsIn(*store), kAfter);
}

TEST(SettingsEdits, RemoveWhatIsNotThere)
{
    const ScratchFolder profile;
    const auto store = openStore(profile.path());
    ASSERT_TRUE(fill(*store));
    EXPECT_EQ(told(store->change({{}, {{4, L"Z"}, {3, L"A"}, {4, L"A"}}})), "done");
    EXPECT_EQ(itemsIn(*store), Lines{"4 B string old"});
}

TEST(SettingsEdits, AnEmptyOneIsDoneWithoutADisk)
{
    const ScratchFolder profile;
    ASSERT_TRUE(openStore(profile.path()));
    const auto store = openStore(profile.path(), SettingsAccess::ReadOnly);
    EXPECT_EQ(told(store->change({})), "done");
    EXPECT_EQ(told(store->change({{}, {{4, L"A"}}})), "NotPermitted");
}

TEST(SettingsEdits, DoNothingWhenAnItemCannotBeStored)
{
    const ScratchFolder profile;
    const auto store = openStore(profile.path());
    ASSERT_TRUE(fill(*store));
    SettingsEdit edit = kEdit;
    edit.written.push_back(Item::string(4, L"D", std::wstring(17 * 1024 * 1024, L'x')));
    EXPECT_EQ(told(store->change(edit)), "BadInput");
    EXPECT_EQ(itemsIn(*store), kBefore);
}

TEST(SettingsEdits, DoNothingWhenADiskCallFails)
{
    FaultyVfs disk;
    const ScratchFolder profile;
    {
        const auto store = openStore(profile.path());
        ASSERT_TRUE(fill(*store));
        int failed = 0;
        for (int call = 1; failed == call - 1; ++call) {
            disk.refuse(call, SQLITE_FULL, FaultyVfs::Refusal::AllWritesFromNow);
            const Status changed = store->change(kEdit);
            const bool wasRefused = disk.refused() > 0;
            disk.carryOutAll();
            failed += changed ? 0 : 1;
            EXPECT_EQ(itemsIn(*store), changed ? kAfter : kBefore) << call;
            EXPECT_EQ(wasRefused, !changed) << call;
        }
        EXPECT_GE(failed, 1);
    }
}

TEST(SettingsEdits, LeaveADamagedRowAlone)
{
    const ScratchFolder profile;
    const auto store = openStore(profile.path());
    ASSERT_TRUE(fill(*store));
    ASSERT_TRUE(runSql(settingsFile(profile.path()),
                       "UPDATE item SET checksum = checksum + 1 WHERE value = ("
                       "SELECT value FROM item ORDER BY key DESC LIMIT 1) AND key = ("
                       "SELECT key FROM item ORDER BY key DESC LIMIT 1)"));
    EXPECT_EQ(told(store->change(kEdit)), "Damaged");
    EXPECT_EQ(valueIn(*store, L"A"), "string old");
    EXPECT_EQ(valueIn(*store, L"B"), "Damaged");
}

TEST(SettingsEdits, TakeItemsOfThisRunAway)
{
    const ScratchFolder profile;
    const auto store = openStore(profile.path());
    store->setForThisRun(Item::string(4, L"A", L"for this run"));
    store->setForThisRun(Item::string(4, L"B", L"for this run"));
    EXPECT_EQ(told(store->change(kEdit)), "done");
    EXPECT_EQ(itemsIn(*store), kAfter);
}
