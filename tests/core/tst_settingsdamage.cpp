// Damaged settings files: what is kept, what is restored, what the user is told.
#include "refhost/core/settingsdatabase.h"
#include "refhost/core/settingsfiles.h"
#include "refhost/core/settingsstore.h"
#include "tests/core/childprocess.h"
#include "tests/core/damagedprofile.h"
#include "tests/core/settingssupport.h"

#include <QDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include <sys/stat.h>

using namespace quelhost;
using namespace quelhost::test;

namespace {

// A profile of many pages, cleanly ended, with a good copy of the same content.
bool makeProfile(const QString& folder)
{
    static const ScratchFolder model;
    static const bool filled = fillProfile(model.path(), 60);
    return filled && copyFile(settingsFile(model.path()), settingsFile(folder)) &&
           copyFile(goodCopyFile(model.path()), goodCopyFile(folder));
}

std::vector<std::string> itemsOfProfile()
{
    const ScratchFolder profile;
    if (!makeProfile(profile.path()))
        return {"not made"};
    return itemsIn(*openStore(profile.path()));
}

bool overwrite(const QString& file, int offset, const QByteArray& bytes)
{
    QByteArray content = bytesOf(file);
    content.replace(offset, bytes.size(), bytes);
    return setBytes(file, content);
}

constexpr int kPage = 4096;

struct Damage
{
    const char* name;
    std::function<bool(const QString& file)> apply;
};

const std::vector<Damage>& damages()
{
    static const QByteArray garbage(64, '\xA5');
    static const std::vector<Damage> all = {
        {"first bytes of the header",
         [](const QString& file) { return overwrite(file, 0, "ALite"); }},
        {"page size in the header",
         [](const QString& file) { return overwrite(file, 16, QByteArray("\x03\x01", 2)); }},
        {"a header that forbids writing",
         [](const QString& file) { return overwrite(file, 18, "\x07"); }},
        {"a header that forbids reading",
         [](const QString& file) { return overwrite(file, 19, "\x07"); }},
        {"number of free pages in the header",
         [](const QString& file) { return overwrite(file, 36, QByteArray("\0\0\0\7", 4)); }},
        {"format of the table of contents in the header",
         [](const QString& file) { return overwrite(file, 47, "\x05"); }},
        {"text encoding in the header",
         [](const QString& file) { return overwrite(file, 59, "\x03"); }},
        {"format mark in the header",
         [](const QString& file) { return overwrite(file, 60, QByteArray("\0\0\0\0", 4)); }},
        {"table of contents", [](const QString& file) { return overwrite(file, 100, garbage); }},
        {"text of the table of contents",
         [](const QString& file) { return overwrite(file, kPage - 40, garbage); }},
        {"head of a page in the middle",
         [](const QString& file) {
             return overwrite(file, bytesOf(file).size() / kPage / 2 * kPage, garbage);
         }},
        {"rows of a page in the middle",
         [](const QString& file) {
             return overwrite(file, bytesOf(file).size() / kPage / 2 * kPage + 3000, garbage);
         }},
        {"last page",
         [](const QString& file) {
             return overwrite(file, bytesOf(file).size() - kPage, garbage);
         }},
        {"last bytes",
         [](const QString& file) { return overwrite(file, bytesOf(file).size() - 64, garbage); }},
        {"one changed character of a value",
         [](const QString& file) {
             const QByteArray value("\0\0\0g\0\0\0o\0\0\0o\0\0\0d", 16);
             const int place = bytesOf(file).indexOf(value);
             return place > 0 && overwrite(file, place + 15, "t");
         }},
        {"a value changed behind the checksum",
         [](const QString& file) {
             return runSql(file, "UPDATE item SET value = x'00000062' WHERE key = x'0000004B'");
         }},
        {"a kind changed behind the checksum",
         [](const QString& file) {
             return runSql(file, "UPDATE item SET kind = 0, value = x'' WHERE key = x'0000004B'");
         }},
        {"a key changed behind the checksum",
         [](const QString& file) {
             return runSql(file, "UPDATE item SET key = x'0000004C' WHERE key = x'0000004B'");
         }},
        {"a category changed behind the checksum",
         [](const QString& file) {
             return runSql(file, "UPDATE item SET category = 5 WHERE key = x'0000004B'");
         }},
        {"the table dropped", [](const QString& file) { return runSql(file, "DROP TABLE item"); }},
        {"another table in its place",
         [](const QString& file) {
             return runSql(file, "DROP TABLE item; CREATE TABLE item (category, key, kind, value,"
                                 " checksum)");
         }},
        {"cut in half",
         [](const QString& file) {
             return setBytes(file, bytesOf(file).left(bytesOf(file).size() / 2));
         }},
        {"cut to the first page",
         [](const QString& file) { return setBytes(file, bytesOf(file).left(kPage)); }},
        {"cut within the header",
         [](const QString& file) { return setBytes(file, bytesOf(file).left(50)); }},
        {"one byte short",
         [](const QString& file) { return setBytes(file, bytesOf(file).chopped(1)); }},
        {"no bytes at all", [](const QString& file) { return setBytes(file, QByteArray()); }},
        {"a text file",
         [](const QString& file) { return setBytes(file, "[General]\nLoadedCuix=/t/a.cuix\n"); }},
        {"random bytes",
         [](const QString& file) { return setBytes(file, QByteArray(3 * kPage, '\x5A')); }},
        {"an empty database of another program",
         [](const QString& file) {
             return QFile::remove(file) && setBytes(file, QByteArray()) &&
                    runSql(file, "CREATE TABLE other (a); PRAGMA user_version = 3");
         }},
    };
    return all;
}

} // namespace

TEST(SettingsDamage, ADamagedFileIsKeptAndTheGoodCopyRestored)
{
    const std::vector<std::string> expected = itemsOfProfile();
    ASSERT_EQ(expected.size(), 61U);
    for (const Damage& damage : damages()) {
        SCOPED_TRACE(damage.name);
        const ScratchFolder profile;
        ASSERT_TRUE(makeProfile(profile.path()));
        const QString file = settingsFile(profile.path());
        ASSERT_TRUE(damage.apply(file));
        const QByteArray damaged = bytesOf(file);

        auto store = openStore(profile.path());
        ASSERT_TRUE(store);
        EXPECT_TRUE(store->writable());
        EXPECT_EQ(itemsIn(*store), expected);
        const QStringList kept = keptAsideFiles(profile.path());
        ASSERT_EQ(kept.size(), 1);
        EXPECT_EQ(bytesOf(profile.path() + QLatin1Char('/') + kept[0]), damaged);
        ASSERT_EQ(store->notices().size(), 3U);
        EXPECT_TRUE(store->notices()[0].contains(file));
        EXPECT_TRUE(store->notices()[1].contains(profile.path() + QLatin1Char('/') + kept[0]));
        EXPECT_TRUE(store->notices()[2].contains(QStringLiteral("restored")));

        EXPECT_EQ(told(store->write(Item::string(4, L"K", L"later"))), "done");
        EXPECT_EQ(told(store->close()), "done");
        store = openStore(profile.path());
        ASSERT_TRUE(store);
        EXPECT_TRUE(store->notices().empty());
        EXPECT_EQ(valueIn(*store, L"K"), "string later");
    }
}

TEST(SettingsDamage, WithoutAGoodCopyTheStoreStartsEmptyAndSaysSo)
{
    for (const Damage& damage : damages()) {
        SCOPED_TRACE(damage.name);
        const ScratchFolder profile;
        ASSERT_TRUE(makeProfile(profile.path()));
        const QString file = settingsFile(profile.path());
        ASSERT_TRUE(damage.apply(file));
        ASSERT_TRUE(QFile::remove(goodCopyFile(profile.path())));
        const QByteArray damaged = bytesOf(file);

        const auto store = openStore(profile.path());
        ASSERT_TRUE(store);
        EXPECT_EQ(itemsIn(*store), std::vector<std::string>());
        const QStringList kept = keptAsideFiles(profile.path());
        ASSERT_EQ(kept.size(), 1);
        EXPECT_EQ(bytesOf(profile.path() + QLatin1Char('/') + kept[0]), damaged);
        ASSERT_EQ(store->notices().size(), 3U);
        EXPECT_TRUE(store->notices()[1].contains(kept[0]));
        EXPECT_TRUE(store->notices()[2].contains(QStringLiteral("empty")));
        EXPECT_EQ(told(store->write(Item::string(4, L"K", L"again"))), "done");
    }
}

TEST(SettingsDamage, ABrokenGoodCopyIsKeptAsideToo)
{
    for (const Damage& damage : damages()) {
        SCOPED_TRACE(damage.name);
        const ScratchFolder profile;
        ASSERT_TRUE(makeProfile(profile.path()));
        const QString good = goodCopyFile(profile.path());
        ASSERT_TRUE(damage.apply(good));
        const QByteArray damagedGood = bytesOf(good);
        ASSERT_TRUE(setBytes(settingsFile(profile.path()), "no database"));

        const auto store = openStore(profile.path());
        ASSERT_TRUE(store);
        EXPECT_EQ(itemsIn(*store), std::vector<std::string>());
        const QStringList keptGood = keptAsideFiles(profile.path(), "settings\\.good");
        ASSERT_EQ(keptGood.size(), 1);
        EXPECT_EQ(bytesOf(profile.path() + QLatin1Char('/') + keptGood[0]), damagedGood);
        EXPECT_EQ(keptAsideFiles(profile.path()).size(), 1);
        ASSERT_EQ(store->notices().size(), 4U);
        EXPECT_TRUE(store->notices()[2].contains(keptGood[0]));
    }
}

TEST(SettingsDamage, ABrokenGoodCopyBesideASoundFileIsReplaced)
{
    const std::vector<std::string> expected = itemsOfProfile();
    const ScratchFolder profile;
    ASSERT_TRUE(makeProfile(profile.path()));
    ASSERT_TRUE(setBytes(goodCopyFile(profile.path()), "no database"));
    const auto store = openStore(profile.path());
    ASSERT_TRUE(store);
    EXPECT_TRUE(store->notices().empty());
    EXPECT_EQ(itemsIn(*store), expected);
    EXPECT_TRUE(SettingsDatabase::openForReading(goodCopyFile(profile.path())));
}

TEST(SettingsDamage, NoKeptFileIsOverwritten)
{
    const ScratchFolder profile;
    ASSERT_TRUE(makeProfile(profile.path()));
    std::vector<std::string> contents;
    for (int round = 0; round < 12; ++round) {
        const QByteArray content = "damaged, round " + QByteArray::number(round);
        contents.push_back(content.toStdString());
        ASSERT_TRUE(setBytes(settingsFile(profile.path()), content));
        ASSERT_TRUE(openStore(profile.path()));
    }
    std::vector<std::string> found;
    for (const QString& name : keptAsideFiles(profile.path()))
        found.push_back(bytesOf(profile.path() + QLatin1Char('/') + name).toStdString());
    std::sort(contents.begin(), contents.end());
    std::sort(found.begin(), found.end());
    EXPECT_EQ(found, contents);
}

TEST(SettingsDamage, TheLogOfADamagedFileIsKeptWithIt)
{
    const std::vector<Damage> rows = {
        {"first bytes of the header",
         [](const QString& file) { return overwrite(file, 0, "ALite"); }},
        {"no bytes at all", [](const QString& file) { return setBytes(file, QByteArray()); }},
    };
    for (const Damage& damage : rows) {
        SCOPED_TRACE(damage.name);
        const ScratchFolder profile;
        ASSERT_TRUE(leaveByKill(profile.path(), L"before"));
        ASSERT_TRUE(leaveByKill(profile.path(), L"in the log"));
        const QString file = settingsFile(profile.path());
        ASSERT_TRUE(damage.apply(file));
        const QByteArray damaged = bytesOf(file);
        const QByteArray log = bytesOf(file + QStringLiteral("-wal"));
        const QByteArray index = bytesOf(file + QStringLiteral("-shm"));
        ASSERT_FALSE(log.isEmpty());

        const auto store = openStore(profile.path());
        ASSERT_TRUE(store);
        EXPECT_EQ(valueIn(*store, L"last"), "string before") << "as at the last clean start";
        const QStringList kept = keptAsideFiles(profile.path());
        ASSERT_EQ(kept.size(), 1);
        const QString aside = profile.path() + QLatin1Char('/') + kept[0];
        EXPECT_EQ(bytesOf(aside), damaged);
        EXPECT_EQ(bytesOf(aside + QStringLiteral("-wal")), log);
        EXPECT_EQ(bytesOf(aside + QStringLiteral("-shm")).size(), index.size());
    }
}

TEST(SettingsDamage, ALogWithoutItsFileIsNoPartOfANewFile)
{
    for (const bool goodCopy : {true, false}) {
        SCOPED_TRACE(goodCopy ? "with a good copy" : "without a good copy");
        const ScratchFolder profile;
        ASSERT_TRUE(leaveByKill(profile.path(), L"before"));
        ASSERT_TRUE(leaveByKill(profile.path(), L"in the log"));
        const QString file = settingsFile(profile.path());
        const QByteArray log = bytesOf(file + QStringLiteral("-wal"));
        ASSERT_TRUE(QFile::remove(file));
        ASSERT_TRUE(goodCopy || QFile::remove(goodCopyFile(profile.path())));

        const auto store = openStore(profile.path());
        ASSERT_TRUE(store);
        EXPECT_EQ(valueIn(*store, L"last"), goodCopy ? "string before" : "nothing");
        ASSERT_EQ(store->notices().size(), 3U);
        EXPECT_TRUE(store->notices()[0].contains(QStringLiteral("missing")));
        const QStringList logs =
            QDir(profile.path()).entryList({QStringLiteral("settings.damaged-*.db-wal")});
        ASSERT_EQ(logs.size(), 1);
        EXPECT_EQ(bytesOf(profile.path() + QLatin1Char('/') + logs[0]), log);
    }
}

TEST(SettingsDamage, AMissingFileIsRestoredAndTold)
{
    const std::vector<std::string> expected = itemsOfProfile();
    const ScratchFolder profile;
    ASSERT_TRUE(makeProfile(profile.path()));
    ASSERT_TRUE(QFile::remove(settingsFile(profile.path())));
    const auto store = openStore(profile.path());
    ASSERT_TRUE(store);
    EXPECT_EQ(itemsIn(*store), expected);
    ASSERT_EQ(store->notices().size(), 2U);
    EXPECT_TRUE(store->notices()[0].contains(settingsFile(profile.path())));
    EXPECT_TRUE(store->notices()[1].contains(QStringLiteral("restored")));
    EXPECT_TRUE(keptAsideFiles(profile.path()).isEmpty());
}

TEST(SettingsDamage, WhatIsNoFileIsKeptAsideToo)
{
    const std::vector<std::pair<const char*, std::function<bool(const QString&)>>> things = {
        {"a folder", [](const QString& path) { return QDir().mkdir(path); }},
        {"a pipe",
         [](const QString& path) {
             return ::mkfifo(QFile::encodeName(path).constData(), S_IRUSR | S_IWUSR) == 0;
         }},
        {"a link to nowhere",
         [](const QString& path) { return QFile::link(QStringLiteral("/nowhere/at/all"), path); }},
    };
    for (const auto& [name, make] : things) {
        SCOPED_TRACE(name);
        const ScratchFolder profile;
        ASSERT_TRUE(makeProfile(profile.path()));
        ASSERT_TRUE(QFile::remove(settingsFile(profile.path())));
        ASSERT_TRUE(make(settingsFile(profile.path())));
        const auto store = openStore(profile.path());
        ASSERT_TRUE(store);
        EXPECT_EQ(valueIn(*store, L"K"), "string good");
        EXPECT_EQ(keptAsideFiles(profile.path()).size(), 1);
    }
}

TEST(SettingsDamage, DamageFoundWhileRunningStopsWritingAndIsRepairedByTheNextStart)
{
    const ScratchFolder profile;
    ASSERT_TRUE(makeProfile(profile.path()));
    auto store = openStore(profile.path());
    ASSERT_TRUE(store);
    const QByteArray goodAfterStart = bytesOf(goodCopyFile(profile.path()));
    ASSERT_TRUE(runSql(settingsFile(profile.path()),
                       "UPDATE item SET value = x'00000062' WHERE key = x'0000004B'"));

    EXPECT_EQ(valueIn(*store, L"K"), "Damaged");
    EXPECT_EQ(valueIn(*store, L"Key0").substr(0, 11), "string /t/0") << "sound items are read";
    EXPECT_EQ(nameOf(store->exists(4, L"K").fault().kind), "Damaged");
    EXPECT_EQ(itemsIn(*store), std::vector<std::string>{"Damaged"});
    EXPECT_EQ(told(store->write(Item::string(4, L"K", L"new"))), "Damaged");
    EXPECT_EQ(told(store->write(Item::string(4, L"Key1", L"new"))), "Damaged");
    EXPECT_EQ(told(store->keepGoodCopy()), "Damaged");
    EXPECT_EQ(told(store->close()), "Damaged");
    store = nullptr;
    EXPECT_EQ(bytesOf(goodCopyFile(profile.path())), goodAfterStart);

    store = openStore(profile.path());
    ASSERT_TRUE(store);
    EXPECT_EQ(store->notices().size(), 3U);
    EXPECT_EQ(valueIn(*store, L"K"), "string good");
    EXPECT_EQ(told(store->write(Item::string(4, L"K", L"new"))), "done");
}

// Whichever use of the store meets the damage first.
TEST(SettingsDamage, AfterDamageWasFoundNothingIsWritten)
{
    struct Row
    {
        const char* name;
        std::function<std::string(SettingsStore&)> find;
    };
    const Row rows[] = {
        {"a read", [](SettingsStore& store) { return valueIn(store, L"K"); }},
        {"a question for existence",
         [](SettingsStore& store) { return nameOf(store.exists(4, L"K").fault().kind); }},
        {"a listing", [](SettingsStore& store) { return itemsIn(store)[0]; }},
        {"a write of the damaged row",
         [](SettingsStore& store) { return told(store.write(Item::string(4, L"K", L"new"))); }},
        {"a good copy", [](SettingsStore& store) { return told(store.keepGoodCopy()); }},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const ScratchFolder profile;
        ASSERT_TRUE(makeProfile(profile.path()));
        const auto store = openStore(profile.path());
        ASSERT_TRUE(store);
        const QByteArray good = bytesOf(goodCopyFile(profile.path()));
        ASSERT_TRUE(runSql(settingsFile(profile.path()),
                           "UPDATE item SET value = x'00000062' WHERE key = x'0000004B'"));
        EXPECT_EQ(row.find(*store), "Damaged");
        EXPECT_EQ(told(store->write(Item::string(4, L"Key1", L"new"))), "Damaged");
        EXPECT_EQ(valueIn(*store, L"Key1").substr(0, 11), "string /t/1");
        EXPECT_EQ(valueIn(*store, L"K"), "Damaged");
        EXPECT_EQ(told(store->close()), "Damaged");
        EXPECT_EQ(bytesOf(goodCopyFile(profile.path())), good);
    }
}
