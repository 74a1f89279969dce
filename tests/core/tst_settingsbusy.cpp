// Settings files that another program keeps locked. The store waits for a while before it gives
// up, so these tests take their time.
#include "refhost/core/settingsfiles.h"
#include "refhost/core/settingsstore.h"
#include "tests/core/childprocess.h"
#include "tests/core/settingssupport.h"

#include <gtest/gtest.h>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <unistd.h>

using namespace quelhost;
using namespace quelhost::test;

namespace {

// A program that runs the SQL on the settings file and keeps it open until it is killed.
class Stranger
{
public:
    Stranger(const QString& folder, const char* sql)
        : m_child([=](int output) {
            const std::string file = settingsFile(folder).toStdString();
            SQLite::Database database(file, SQLite::OPEN_READWRITE);
            database.exec(sql);
            writeAll(output, "holds\n");
            ::pause();
        })
    {}

    bool holds() { return m_child.readLine() == "holds"; }
    void leave()
    {
        m_child.kill();
        static_cast<void>(m_child.wait());
    }

private:
    ChildProcess m_child;
};

} // namespace

TEST(SettingsBusy, AFileThatAnotherProgramKeepsLockedIsNotOpened)
{
    const ScratchFolder profile;
    ASSERT_EQ(told(openStore(profile.path())->close()), "done");
    Stranger stranger(profile.path(), "PRAGMA locking_mode=EXCLUSIVE; BEGIN EXCLUSIVE;");
    ASSERT_TRUE(stranger.holds());
    const auto opened = SettingsStore::open(profile.path(), SettingsAccess::ReadWrite);
    ASSERT_FALSE(opened);
    EXPECT_EQ(nameOf(opened.fault().kind), "Busy");
    EXPECT_TRUE(opened.fault().sentence.contains(settingsFile(profile.path())));
    stranger.leave();
    EXPECT_TRUE(openStore(profile.path()));
}

TEST(SettingsBusy, AWriteThatWaitedInVainLeavesTheFormerValue)
{
    const ScratchFolder profile;
    const auto store = openStore(profile.path());
    ASSERT_TRUE(store);
    ASSERT_EQ(told(store->write(Item::integer(4, L"K", 1))), "done");
    Stranger stranger(profile.path(), "BEGIN IMMEDIATE;");
    ASSERT_TRUE(stranger.holds());
    EXPECT_EQ(told(store->write(Item::integer(4, L"K", 2))), "Busy");
    EXPECT_EQ(valueIn(*store, L"K"), "integer 1");
    stranger.leave();
    EXPECT_EQ(told(store->write(Item::integer(4, L"K", 3))), "done");
    EXPECT_EQ(valueIn(*store, L"K"), "integer 3");
}
