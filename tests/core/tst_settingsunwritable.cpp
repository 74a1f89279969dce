// Profiles that the user may not write. A superuser may write everything, so each test lets an
// ordinary user do it in a process of its own and compares what came out.
#include "refhost/core/settingsfiles.h"
#include "refhost/core/settingsstore.h"
#include "tests/core/childprocess.h"
#include "tests/core/settingssupport.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

using namespace quelhost;
using namespace quelhost::test;

namespace {

constexpr SettingsAccess kReadWrite = SettingsAccess::ReadWrite;
constexpr SettingsAccess kReadOnly = SettingsAccess::ReadOnly;

std::string asOrdinaryUser(const std::function<std::string()>& work)
{
    const ChildEnd end =
        runInChild([&] { return becomeOrdinaryUser() ? work() : "cannot become another user"; });
    return end.exitCode == 0 ? end.output : "ended by " + std::to_string(end.signal);
}

// Makes a profile as the ordinary user, so that everything in it is that user's.
bool makeProfile(const QString& folder)
{
    return asOrdinaryUser([&]() -> std::string {
               const auto store = openStore(folder);
               const bool stored =
                   store && store->write(Item::string(4, L"K", L"stored")) && store->close();
               return stored ? "made" : "not made";
           }) == "made";
}

// Opens the store, reads, tries to write, reads again: "WRITABLE/NOTICES: READ, WRITE, READ".
std::string use(const QString& folder, SettingsAccess access)
{
    const auto store = openStore(folder, access);
    if (!store)
        return "not opened";
    const std::string notices = std::to_string(store->notices().size());
    std::string result = std::string(store->writable() ? "writable/" : "not writable/") + notices;
    result += ": " + valueIn(*store, L"K");
    result += ", " + told(store->write(Item::string(4, L"K", L"new")));
    return result + ", " + valueIn(*store, L"K");
}

using Names = std::vector<std::string>;

} // namespace

TEST(SettingsUnwritable, AFolderIsReadAndKeepsItsValues)
{
    struct Row
    {
        const char* name;
        SettingsAccess access;
        const char* expected;
    };
    const Row rows[] = {
        {"asked for writing", kReadWrite,
         "not writable/1: string stored, NotPermitted, string stored"},
        {"asked for reading", kReadOnly,
         "not writable/0: string stored, NotPermitted, string stored"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const ScratchFolder profile;
        ASSERT_TRUE(makeProfile(profile.path()));
        const QByteArray before = bytesOf(settingsFile(profile.path()));
        ASSERT_TRUE(setMode(profile.path(), 0555));
        EXPECT_EQ(asOrdinaryUser([&] { return use(profile.path(), row.access); }), row.expected);
        EXPECT_EQ(bytesOf(settingsFile(profile.path())), before);
        EXPECT_EQ(profile.names(), (Names{"settings.db", "settings.good.db"}));
    }
}

TEST(SettingsUnwritable, AFileIsReadAndKeepsItsValues)
{
    const ScratchFolder profile;
    ASSERT_TRUE(makeProfile(profile.path()));
    const QByteArray before = bytesOf(settingsFile(profile.path()));
    ASSERT_TRUE(setMode(settingsFile(profile.path()), 0444));
    EXPECT_EQ(asOrdinaryUser([&] { return use(profile.path(), kReadWrite); }),
              "not writable/1: string stored, NotPermitted, string stored");
    EXPECT_EQ(bytesOf(settingsFile(profile.path())), before);
}

TEST(SettingsUnwritable, TheLogOfAKilledHostIsReadToo)
{
    struct Row
    {
        const char* name;
        bool indexRemoved;
    };
    for (const Row& row : {Row{"log and index", false}, Row{"log without its index", true}}) {
        SCOPED_TRACE(row.name);
        const ScratchFolder profile;
        ASSERT_TRUE(leaveByKill(profile.path(), L"earlier"));
        ASSERT_TRUE(leaveByKill(profile.path(), L"in the log"));
        const QString file = settingsFile(profile.path());
        ASSERT_TRUE(!row.indexRemoved || QFile::remove(file + QStringLiteral("-shm")));
        const QByteArray log = bytesOf(file + QStringLiteral("-wal"));
        const Names before = profile.names();
        ASSERT_TRUE(setMode(profile.path(), 0555));
        const std::string read = asOrdinaryUser([&]() -> std::string {
            const auto store = openStore(profile.path(), kReadOnly);
            return store ? valueIn(*store, L"last") : "not opened";
        });
        EXPECT_EQ(read, "string in the log");
        EXPECT_EQ(bytesOf(file + QStringLiteral("-wal")), log);
        EXPECT_EQ(profile.names(), before);
    }
}

TEST(SettingsUnwritable, ALogThatMayNotBeWrittenIsNoticedWhenOpening)
{
    const ScratchFolder profile;
    ASSERT_EQ(asOrdinaryUser([&]() -> std::string {
                  return leaveByKill(profile.path(), L"in the log") ? "left" : "not left";
              }),
              "left");
    ASSERT_TRUE(setMode(settingsFile(profile.path()) + QStringLiteral("-wal"), 0444));
    const std::string seen = asOrdinaryUser([&]() -> std::string {
        const auto store = openStore(profile.path());
        if (!store)
            return "not opened";
        const std::string result = store->writable() ? "writable, " : "not writable, ";
        return result + std::to_string(store->notices().size()) + ", " + valueIn(*store, L"last");
    });
    EXPECT_EQ(seen, "not writable, 1, string in the log");
}

TEST(SettingsUnwritable, APathWithOddCharactersIsReadToo)
{
    const ScratchFolder scratch;
    const QString folder = scratch.path() + QStringLiteral("/a ?b#c%41&d=e ü");
    ASSERT_TRUE(QDir().mkdir(folder));
    ASSERT_TRUE(giveToOrdinaryUser(QFile::encodeName(folder).toStdString()));
    ASSERT_TRUE(makeProfile(folder));
    ASSERT_TRUE(setMode(folder, 0555));
    EXPECT_EQ(asOrdinaryUser([&] { return use(folder, kReadOnly); }),
              "not writable/0: string stored, NotPermitted, string stored");
    ASSERT_TRUE(setMode(folder, 0755));
}

TEST(SettingsUnwritable, WithoutASettingsFileTheStoreWorksInMemory)
{
    struct Row
    {
        const char* name;
        SettingsAccess access;
        const char* expected;
    };
    const Row rows[] = {
        {"asked for writing", kReadWrite,
         "1 notices: nothing, string seed, NotPermitted, string seed"},
        {"asked for reading", kReadOnly,
         "0 notices: nothing, string seed, NotPermitted, string seed"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const ScratchFolder profile;
        ASSERT_TRUE(setMode(profile.path(), 0555));
        const std::string seen = asOrdinaryUser([&]() -> std::string {
            const auto store = openStore(profile.path(), row.access);
            if (!store)
                return "not opened";
            std::string result = std::to_string(store->notices().size()) + " notices: ";
            result += valueIn(*store, L"K") + ", ";
            store->setForThisRun(Item::string(4, L"K", L"seed"));
            result += valueIn(*store, L"K") + ", ";
            result += told(store->write(Item::string(4, L"K", L"new"))) + ", ";
            return result + valueIn(*store, L"K");
        });
        EXPECT_EQ(seen, row.expected);
        EXPECT_EQ(profile.names(), Names());
    }
}

TEST(SettingsUnwritable, WhatMayNotEvenBeReadIsNotReplaced)
{
    struct Row
    {
        const char* name;
        const char* path; // below the profile
        unsigned int mode;
    };
    for (const Row& row : {Row{"the file", "/settings.db", 0}, Row{"the folder", "", 0}}) {
        SCOPED_TRACE(row.name);
        const ScratchFolder profile;
        ASSERT_TRUE(makeProfile(profile.path()));
        const QByteArray before = bytesOf(settingsFile(profile.path()));
        ASSERT_TRUE(setMode(profile.path() + QString::fromLatin1(row.path), row.mode));
        EXPECT_EQ(asOrdinaryUser([&] { return use(profile.path(), kReadWrite); }),
                  "not writable/1: nothing, NotPermitted, nothing");
        ASSERT_TRUE(setMode(profile.path(), 0755));
        ASSERT_TRUE(setMode(settingsFile(profile.path()), 0644));
        EXPECT_EQ(bytesOf(settingsFile(profile.path())), before);
        EXPECT_EQ(profile.names(), (Names{"settings.db", "settings.good.db"}));
    }
}

TEST(SettingsUnwritable, ADamagedFileStaysAndTheGoodCopyIsRead)
{
    struct Row
    {
        const char* name;
        SettingsAccess access;
        bool goodCopy;
        const char* expected;
    };
    const Row rows[] = {
        {"asked for writing", kReadWrite, true,
         "not writable/3: string stored, Damaged, string stored"},
        {"asked for reading", kReadOnly, true,
         "not writable/2: string stored, Damaged, string stored"},
        {"no good copy", kReadOnly, false, "not writable/2: nothing, Damaged, nothing"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const ScratchFolder profile;
        ASSERT_TRUE(makeProfile(profile.path()));
        ASSERT_TRUE(setBytes(settingsFile(profile.path()), "no database"));
        ASSERT_TRUE(row.goodCopy || QFile::remove(goodCopyFile(profile.path())));
        const Names before = profile.names();
        ASSERT_TRUE(setMode(profile.path(), 0555));
        EXPECT_EQ(asOrdinaryUser([&] { return use(profile.path(), row.access); }), row.expected);
        EXPECT_EQ(profile.names(), before);
        EXPECT_EQ(bytesOf(settingsFile(profile.path())), QByteArray("no database"));
    }
}

TEST(SettingsUnwritable, AMissingFileIsReadFromTheGoodCopy)
{
    const ScratchFolder profile;
    ASSERT_TRUE(makeProfile(profile.path()));
    ASSERT_TRUE(QFile::remove(settingsFile(profile.path())));
    ASSERT_TRUE(setMode(profile.path(), 0555));
    EXPECT_EQ(asOrdinaryUser([&] { return use(profile.path(), kReadOnly); }),
              "not writable/2: string stored, Damaged, string stored");
}

TEST(SettingsUnwritable, WritingWorksAgainWhenItIsPermittedAgain)
{
    const ScratchFolder profile;
    ASSERT_TRUE(makeProfile(profile.path()));
    ASSERT_TRUE(setMode(profile.path(), 0555));
    const std::string seen = asOrdinaryUser([&]() -> std::string {
        const auto store = openStore(profile.path());
        if (!store)
            return "not opened";
        std::string result = told(store->write(Item::string(4, L"K", L"too early"))) + ", ";
        if (!setMode(profile.path(), 0755))
            return "not permitted again";
        result += told(store->write(Item::string(4, L"K", L"new"))) + ", ";
        result += store->writable() ? "writable, " : "not writable, ";
        result += valueIn(*store, L"K") + ", ";
        return result + told(store->close());
    });
    EXPECT_EQ(seen, "NotPermitted, done, writable, string new, done");
    const auto store = openStore(profile.path());
    ASSERT_TRUE(store);
    EXPECT_EQ(valueIn(*store, L"K"), "string new");
}

TEST(SettingsUnwritable, ReadOnlyAccessNeverWritesEvenWhereItMay)
{
    const ScratchFolder profile;
    ASSERT_TRUE(makeProfile(profile.path()));
    const QByteArray before = bytesOf(settingsFile(profile.path()));
    const QByteArray goodBefore = bytesOf(goodCopyFile(profile.path()));
    EXPECT_EQ(asOrdinaryUser([&] { return use(profile.path(), kReadOnly); }),
              "not writable/0: string stored, NotPermitted, string stored");
    EXPECT_EQ(bytesOf(settingsFile(profile.path())), before);
    EXPECT_EQ(bytesOf(goodCopyFile(profile.path())), goodBefore);
}
