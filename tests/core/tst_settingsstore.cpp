#include "refhost/core/settingsstore.h"

#include "refhost/core/settingsdatabase.h"
#include "refhost/core/settingsfiles.h"
#include "tests/core/childprocess.h"
#include "tests/core/settingssupport.h"

#include <QFile>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <sys/stat.h>
#include <unistd.h>

using namespace quelhost;
using namespace quelhost::test;

namespace {

const wchar_t* const kList = L"CUIX/LoadedCuix";

std::wstring codes(std::initializer_list<unsigned int> values)
{
    std::wstring text;
    for (const unsigned int value : values)
        text += static_cast<wchar_t>(value);
    return text;
}

} // namespace

TEST(SettingsStore, ANewProfileHasNoItemsAndNothingToTell)
{
    const ScratchFolder profile;
    const auto store = openStore(profile.path());
    ASSERT_TRUE(store);
    EXPECT_TRUE(store->writable());
    EXPECT_EQ(itemsIn(*store), std::vector<std::string>());
    EXPECT_TRUE(store->notices().empty());
    EXPECT_EQ(valueIn(*store, kList), "nothing");
}

TEST(SettingsStore, ItemsKeepTheirKindsAcrossProcesses)
{
    const ScratchFolder profile;
    const ChildEnd writer = runInChild([&]() -> std::string {
        const auto store = openStore(profile.path());
        const Status results[] = {
            store->write(Item::section(4, L"UserInterfaceSettings\\MenuLoadDlg")),
            store->write(Item::integer(4, L"UserInterfaceSettings\\MenuLoadDlg\\X", -7)),
            store->write(Item::string(4, kList, L"/t/m.cuix;;/t/a.cuix")),
            store->write(Item::string(4, L"Empty", L"")),
        };
        std::string output;
        for (const Status& result : results)
            output += told(result) + " ";
        return output + told(store->close());
    });
    ASSERT_EQ(writer.exitCode, 0);
    ASSERT_EQ(writer.output, "done done done done done");

    const auto store = openStore(profile.path());
    ASSERT_TRUE(store);
    EXPECT_EQ(valueIn(*store, L"UserInterfaceSettings\\MenuLoadDlg"), "section");
    EXPECT_EQ(valueIn(*store, L"UserInterfaceSettings\\MenuLoadDlg\\X"), "integer -7");
    EXPECT_EQ(valueIn(*store, kList), "string /t/m.cuix;;/t/a.cuix");
    EXPECT_EQ(valueIn(*store, L"Empty"), "string ");
    EXPECT_EQ(valueIn(*store, L"UserInterfaceSettings/MenuLoadDlg"), "nothing");
}

TEST(SettingsStore, KeysAndTextsComeBackCharacterByCharacter)
{
    const std::vector<std::pair<const char*, std::wstring>> texts = {
        {"empty", L""},
        {"backslashes", L"UserInterfaceSettings\\Select Menu File\\InitialDirectory"},
        {"null characters", codes({0, 'a', 0, 0, 'b', 0})},
        {"byte order mark", codes({0xFEFF, 'a'})},
        {"lone surrogates", codes({0xDC00, 0xD800})},
        {"beyond the basic plane", codes({'/', 0x1F600, ';'})},
        {"above U+10FFFF", codes({0x110000, 0x7FFFFFFF, 0xFFFFFFFF})},
        {"quotes and percent signs", L"'; DROP TABLE item; -- \"%s%n\" %1"},
        {"decomposed and composed", codes({'e', 0x301, 0xE9})},
    };
    const ScratchFolder profile;
    auto store = openStore(profile.path());
    ASSERT_TRUE(store);
    for (const auto& [name, text] : texts) {
        SCOPED_TRACE(name);
        ASSERT_EQ(told(store->write(Item::string(4, text, text))), "done");
    }
    store = nullptr;
    store = openStore(profile.path());
    ASSERT_TRUE(store);
    for (const auto& [name, text] : texts) {
        SCOPED_TRACE(name);
        const auto item = store->read(4, text);
        ASSERT_TRUE(item && item.value());
        EXPECT_EQ(item.value()->key, text);
        EXPECT_EQ(item.value()->text, text);
    }
}

TEST(SettingsStore, KeysAreToldApartByCategoryAndByEveryCharacter)
{
    const ScratchFolder profile;
    const auto store = openStore(profile.path());
    ASSERT_TRUE(store);
    ASSERT_EQ(told(store->write(Item::integer(4, L"Key", 1))), "done");
    ASSERT_EQ(told(store->write(Item::integer(4, L"key", 2))), "done");
    ASSERT_EQ(told(store->write(Item::integer(3, L"Key", 3))), "done");
    ASSERT_EQ(told(store->write(Item::integer(4, L"Key ", 4))), "done");
    EXPECT_EQ(itemsIn(*store), (std::vector<std::string>{"3 Key integer 3", "4 Key integer 1",
                                                         "4 Key  integer 4", "4 key integer 2"}));
}

TEST(SettingsStore, AllItemsComeInTheOrderOfTheirCodePoints)
{
    const ScratchFolder profile;
    const auto store = openStore(profile.path());
    ASSERT_TRUE(store);
    const std::wstring order[] = {
        codes({0xFFFFFFFF}), codes({0x1F600}), codes({0xE9}), L"b", L"aa", L"a", L"B"};
    for (const std::wstring& key : order)
        ASSERT_EQ(told(store->write(Item::section(4, key))), "done");
    store->setForThisRun(Item::section(4, L"ab"));
    store->setForThisRun(Item::section(4, codes({0x80000000})));
    const auto items = store->all();
    ASSERT_TRUE(items);
    std::vector<std::wstring> keys;
    for (const Item& item : items.value())
        keys.push_back(item.key);
    EXPECT_EQ(keys, (std::vector<std::wstring>{L"B", L"a", L"aa", L"ab", L"b", codes({0xE9}),
                                               codes({0x1F600}), codes({0x80000000}),
                                               codes({0xFFFFFFFF})}));
}

TEST(SettingsStore, AWriteReplacesValueAndKind)
{
    const ScratchFolder profile;
    const auto store = openStore(profile.path());
    ASSERT_TRUE(store);
    ASSERT_EQ(told(store->write(Item::string(4, L"X", L"long ago"))), "done");
    ASSERT_EQ(told(store->write(Item::integer(4, L"X", 12))), "done");
    EXPECT_EQ(itemsIn(*store), std::vector<std::string>{"4 X integer 12"});
    ASSERT_EQ(told(store->write(Item::section(4, L"X"))), "done");
    EXPECT_EQ(itemsIn(*store), std::vector<std::string>{"4 X section"});
}

TEST(SettingsStore, ExistenceHoldsForEveryKind)
{
    const ScratchFolder profile;
    const auto store = openStore(profile.path());
    ASSERT_TRUE(store);
    ASSERT_EQ(told(store->write(Item::section(4, L"Section"))), "done");
    ASSERT_EQ(told(store->write(Item::integer(4, L"Number", 0))), "done");
    for (const wchar_t* key : {L"Section", L"Number"}) {
        const Result<bool> exists = store->exists(4, key);
        ASSERT_TRUE(exists);
        EXPECT_TRUE(exists.value());
    }
    const Result<bool> absent = store->exists(4, L"Sect");
    ASSERT_TRUE(absent);
    EXPECT_FALSE(absent.value());
}

TEST(SettingsStore, ALongListIsKept)
{
    std::wstring list = L"/t/m.cuix";
    for (int number = 0; number < 100000; ++number)
        list += L";/t/" + std::to_wstring(number) + L".cuix";
    const ScratchFolder profile;
    auto store = openStore(profile.path());
    ASSERT_TRUE(store);
    ASSERT_EQ(told(store->write(Item::string(4, kList, list))), "done");
    ASSERT_EQ(told(store->close()), "done");
    store = openStore(profile.path());
    ASSERT_TRUE(store);
    const auto item = store->read(4, kList);
    ASSERT_TRUE(item && item.value());
    EXPECT_TRUE(item.value()->text == list);
}

TEST(SettingsStore, WhatCannotBeAnItemIsRefusedAndChangesNothing)
{
    const ScratchFolder profile;
    const auto store = openStore(profile.path());
    ASSERT_TRUE(store);
    ASSERT_EQ(told(store->write(Item::string(4, L"K", L"old"))), "done");
    const std::wstring tooLong(SettingsDatabase::kMaxCharacters, L'x');
    EXPECT_EQ(told(store->write(Item::string(4, L"K", tooLong))), "BadInput");
    Item strange = Item::integer(4, L"K", 1);
    strange.kind = static_cast<ItemKind>(7);
    EXPECT_EQ(told(store->write(strange)), "BadInput");
    EXPECT_EQ(itemsIn(*store), std::vector<std::string>{"4 K string old"});
    EXPECT_EQ(told(store->write(Item::string(4, L"K", L"new"))), "done");
    EXPECT_EQ(valueIn(*store, L"K"), "string new");
}

TEST(SettingsStore, TwoProcessesWritingAtOnceLoseNothing)
{
    const ScratchFolder profile;
    ASSERT_TRUE(openStore(profile.path()));
    const auto writer = [&](const wchar_t* name) {
        return [&profile, name](int output) {
            const auto store = openStore(profile.path());
            std::string results = store ? "" : "not opened";
            for (int number = 0; store && number < 50; ++number) {
                const std::wstring key = name + std::to_wstring(number);
                const std::string result = told(store->write(Item::integer(4, key, number)));
                results += result == "done" ? "" : result;
            }
            writeAll(output, results);
        };
    };
    ChildProcess first(writer(L"a"));
    ChildProcess second(writer(L"b"));
    EXPECT_EQ(first.wait().output, "");
    EXPECT_EQ(second.wait().output, "");
    const auto store = openStore(profile.path());
    ASSERT_TRUE(store);
    EXPECT_TRUE(store->notices().empty());
    for (int number = 0; number < 50; ++number) {
        const std::string value = "integer " + std::to_string(number);
        EXPECT_EQ(valueIn(*store, (L"a" + std::to_wstring(number)).c_str()), value);
        EXPECT_EQ(valueIn(*store, (L"b" + std::to_wstring(number)).c_str()), value);
    }
}

TEST(SettingsStore, ValuesForThisRunHideStoredOnesAndAreNotStored)
{
    const ScratchFolder profile;
    auto store = openStore(profile.path());
    ASSERT_TRUE(store);
    ASSERT_EQ(told(store->write(Item::string(4, L"A", L"stored"))), "done");
    store->setForThisRun(Item::string(4, L"A", L"run"));
    store->setForThisRun(Item::string(4, L"B", L"run"));
    store->setForThisRun(Item::string(4, L"C", L"run"));
    EXPECT_EQ(itemsIn(*store),
              (std::vector<std::string>{"4 A string run", "4 B string run", "4 C string run"}));
    EXPECT_TRUE(store->exists(4, L"B").value());
    ASSERT_EQ(told(store->write(Item::string(4, L"B", L"written"))), "done");
    EXPECT_EQ(valueIn(*store, L"B"), "string written");
    store = nullptr;
    store = openStore(profile.path());
    ASSERT_TRUE(store);
    EXPECT_EQ(itemsIn(*store),
              (std::vector<std::string>{"4 A string stored", "4 B string written"}));
}

TEST(SettingsStore, AfterClosingItTakesNoMoreWrites)
{
    const ScratchFolder profile;
    const auto store = openStore(profile.path());
    ASSERT_TRUE(store);
    ASSERT_EQ(told(store->close()), "done");
    EXPECT_FALSE(store->writable());
    EXPECT_EQ(told(store->write(Item::section(4, L"S"))), "NotPermitted");
    EXPECT_EQ(told(store->keepGoodCopy()), "NotPermitted");
    EXPECT_EQ(profile.names(), (std::vector<std::string>{"settings.db", "settings.good.db"}));
}

TEST(SettingsStore, AGoodCopyIsMadeAfterEachStartAndEachEnd)
{
    const ScratchFolder profile;
    const auto goodCopyHolds = [&]() -> std::vector<std::string> {
        const auto good = SettingsDatabase::openForReading(goodCopyFile(profile.path()));
        if (!good)
            return {"no good copy"};
        std::vector<std::string> items;
        const auto all = good.value()->all();
        for (const Item& item : all.value())
            items.push_back(told(item));
        return items;
    };
    auto store = openStore(profile.path());
    ASSERT_TRUE(store);
    EXPECT_EQ(goodCopyHolds(), std::vector<std::string>());
    ASSERT_EQ(told(store->write(Item::integer(4, L"A", 1))), "done");
    EXPECT_EQ(goodCopyHolds(), std::vector<std::string>()) << "not before the end";
    ASSERT_EQ(told(store->close()), "done");
    EXPECT_EQ(goodCopyHolds(), std::vector<std::string>{"integer 1"});

    store = openStore(profile.path());
    ASSERT_TRUE(store);
    ASSERT_EQ(told(store->write(Item::integer(4, L"A", 2))), "done");
    store = nullptr; // an end that is not clean
    EXPECT_EQ(goodCopyHolds(), std::vector<std::string>{"integer 1"});

    store = openStore(profile.path());
    EXPECT_EQ(goodCopyHolds(), std::vector<std::string>{"integer 2"}) << "after a clean start";
    EXPECT_EQ(bytesOf(goodCopyFile(profile.path())).mid(18, 2), QByteArray("\1\1", 2))
        << "its header says that it has no log";
}

// Starts and ends that changed nothing cost no copy.
TEST(SettingsStore, ASoundGoodCopyOfTheSameItemsStays)
{
    const ScratchFolder profile;
    auto store = openStore(profile.path());
    ASSERT_TRUE(store);
    ASSERT_EQ(told(store->write(Item::string(4, L"K", L"same"))), "done");
    ASSERT_EQ(told(store->close()), "done");
    const QString good = goodCopyFile(profile.path());
    const auto serial = [&good] {
        struct stat status = {};
        return ::stat(QFile::encodeName(good).constData(), &status) == 0 ? status.st_ino : 0;
    };
    const QString link = good + QStringLiteral(".link"); // keeps the number from being used again
    ASSERT_EQ(::link(QFile::encodeName(good).constData(), QFile::encodeName(link).constData()), 0);
    const ino_t before = serial();

    store = openStore(profile.path());
    ASSERT_TRUE(store);
    ASSERT_EQ(told(store->write(Item::string(4, L"K", L"same"))), "done");
    ASSERT_EQ(told(store->close()), "done");
    EXPECT_EQ(serial(), before);

    store = openStore(profile.path());
    ASSERT_EQ(told(store->write(Item::string(4, L"K", L"other"))), "done");
    ASSERT_EQ(told(store->close()), "done");
    EXPECT_NE(serial(), before);
}

TEST(SettingsStore, TheSettingsAreKeptInAWriteAheadLog)
{
    const ScratchFolder profile;
    const auto store = openStore(profile.path());
    ASSERT_TRUE(store);
    ASSERT_EQ(told(store->write(Item::string(4, L"K", L"in the log"))), "done");
    const QByteArray text("\0\0\0l\0\0\0o\0\0\0g", 12);
    const ChildEnd reader = runInChild([&]() -> std::string {
        const bool log = bytesOf(profile.file("settings.db-wal")).contains(text);
        const bool file = bytesOf(profile.file("settings.db")).contains(text);
        return std::string(log ? "log" : "") + (file ? "file" : "");
    });
    EXPECT_EQ(reader.output, "log");
}

TEST(SettingsStore, ANewerFormatIsRefusedAndLeftAlone)
{
    const ScratchFolder profile;
    auto store = openStore(profile.path());
    ASSERT_TRUE(store);
    ASSERT_EQ(told(store->write(Item::integer(4, L"A", 1))), "done");
    ASSERT_EQ(told(store->close()), "done");
    store = nullptr;
    // 'Q', 'S', 2 and its complement 253.
    ASSERT_TRUE(runSql(settingsFile(profile.path()), "PRAGMA user_version = 1364394749"));
    const QByteArray before = bytesOf(settingsFile(profile.path()));
    for (const SettingsAccess access : {SettingsAccess::ReadWrite, SettingsAccess::ReadOnly}) {
        const auto opened = SettingsStore::open(profile.path(), access);
        ASSERT_FALSE(opened);
        EXPECT_EQ(nameOf(opened.fault().kind), "BadInput");
        EXPECT_TRUE(opened.fault().sentence.contains(settingsFile(profile.path())));
    }
    EXPECT_EQ(bytesOf(settingsFile(profile.path())), before);
}
