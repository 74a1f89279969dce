#include "refhost/core/settingslisting.h"

#include "refhost/core/profile.h"
#include "refhost/core/settingsfiles.h"
#include "refhost/core/settingsstore.h"
#include "tests/core/childprocess.h"
#include "tests/core/settingssupport.h"

#include <QFile>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <unistd.h>

using namespace quelhost;
using namespace quelhost::test;

namespace {

std::string listed(const QString& folder)
{
    const Result<QByteArray> lines = listSettings(folder);
    return lines ? lines.value().toStdString() : nameOf(lines.fault().kind);
}

bool store(const QString& folder, const std::vector<Item>& items)
{
    const auto opened = openStore(folder);
    bool stored = opened != nullptr;
    for (const Item& item : items)
        stored = stored && static_cast<bool>(opened->write(item));
    return stored && static_cast<bool>(opened->close());
}

} // namespace

TEST(SettingsListing, ALineHasKeyKindAndValue)
{
    struct Row
    {
        const char* name;
        Item item;
        const char* line;
    };
    const Row rows[] = {
        {"section", Item::section(4, L"UserInterfaceSettings\\MenuLoadDlg"),
         "UserInterfaceSettings\\\\MenuLoadDlg\tsection"},
        {"integer", Item::integer(4, L"A\\X", 640), "A\\\\X\tint\t640"},
        {"negative integer", Item::integer(4, L"X", -2147483647 - 1), "X\tint\t-2147483648"},
        {"text", Item::string(4, L"CUIX/LoadedCuix", L"/t/m.cuix;;/t/a.cuix"),
         "CUIX/LoadedCuix\tstring\t/t/m.cuix;;/t/a.cuix"},
        {"empty text", Item::string(4, L"K", L""), "K\tstring\t"},
        {"empty key", Item::string(4, L"", L"v"), "\tstring\tv"},
        {"tab, newline and backslash in the value", Item::string(4, L"K", L"a\tb\nc\\d"),
         "K\tstring\ta\\tb\\nc\\\\d"},
        {"tab, newline and backslash in the key", Item::integer(4, L"a\tb\nc\\d", 1),
         "a\\tb\\nc\\\\d\tint\t1"},
        {"a backslash before a letter t", Item::string(4, L"K", L"\\t"), "K\tstring\t\\\\t"},
        {"a carriage return stays", Item::string(4, L"K", L"a\rb"), "K\tstring\ta\rb"},
        {"UTF-8", Item::string(4, L"Schl\u00FCssel", L"/t/\u4E2D\U0001F600.cuix"),
         "Schl\xC3\xBCssel\tstring\t/t/\xE4\xB8\xAD\xF0\x9F\x98\x80.cuix"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(settingLine(row.item).toStdString(), row.line);
    }
}

TEST(SettingsListing, LinesAreSortedByCategoryAndKey)
{
    const ScratchFolder profile;
    ASSERT_TRUE(store(profile.path(),
                      {Item::integer(4, L"b", 1), Item::section(4, L"a"), Item::integer(4, L"B", 2),
                       Item::integer(5, L"a", 3), Item::integer(3, L"z", 4),
                       Item::integer(4, L"aa", 5), Item::integer(-1, L"z", 6)}));
    const std::string expected = "z\tint\t6\n"
                                 "z\tint\t4\n"
                                 "B\tint\t2\n"
                                 "a\tsection\n"
                                 "aa\tint\t5\n"
                                 "b\tint\t1\n"
                                 "a\tint\t3\n";
    EXPECT_EQ(listed(profile.path()), expected);
    EXPECT_EQ(listed(profile.path()), expected);
}

TEST(SettingsListing, WithoutSettingsThereAreNoLinesAndNoFilesAreMade)
{
    const ScratchFolder profile;
    EXPECT_EQ(listed(profile.path()), "");
    EXPECT_EQ(profile.names(), std::vector<std::string>());
    EXPECT_EQ(listed(profile.path() + QStringLiteral("/not/there")), "");
}

TEST(SettingsListing, ItWorksBesideARunningHost)
{
    const ScratchFolder folder;
    ChildProcess host([&](int output) {
        const auto profile = Profile::open(folder.path());
        const auto settings = openStore(folder.path());
        for (int number = 0; profile && settings; ++number) {
            if (!settings->write(Item::integer(4, L"N", number)))
                writeAll(output, "fault\n");
            if (number % 10 == 0)
                writeAll(output, std::to_string(number) + "\n");
        }
    });
    for (int round = 0; round < 20; ++round) {
        SCOPED_TRACE(round);
        const std::string written = host.readLine();
        ASSERT_EQ(written, std::to_string(round * 10));
        const std::string lines = listed(folder.path());
        ASSERT_EQ(lines.substr(0, 6), "N\tint\t");
        EXPECT_GE(std::stoi(lines.substr(6)), round * 10);
    }
    EXPECT_EQ(::access(folder.file("settings.db-wal").toLocal8Bit().constData(), F_OK), 0);
    host.kill();
    EXPECT_EQ(host.wait().output.find("fault"), std::string::npos);
}

TEST(SettingsListing, ItWorksAfterAHostWasKilled)
{
    const ScratchFolder profile;
    ASSERT_TRUE(leaveByKill(profile.path(), L"in the log"));
    EXPECT_EQ(listed(profile.path()), "last\tstring\tin the log\n");
    const auto opened = openStore(profile.path());
    ASSERT_TRUE(opened);
    EXPECT_EQ(valueIn(*opened, L"last"), "string in the log");
}

TEST(SettingsListing, ItWorksWhereNothingMayBeWritten)
{
    struct Row
    {
        const char* name;
        const char* path; // below the profile
        unsigned int mode;
        const char* expected;
    };
    const Row rows[] = {
        {"folder", "", 0555, "K\tint\t1\n"},
        {"file", "/settings.db", 0444, "K\tint\t1\n"},
        {"folder that may not be entered", "", 0444, "NotPermitted"},
        {"file that may not be read", "/settings.db", 0, "NotPermitted"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const ScratchFolder profile;
        ASSERT_TRUE(store(profile.path(), {Item::integer(4, L"K", 1)}));
        ASSERT_TRUE(giveToOrdinaryUser(settingsFile(profile.path()).toStdString()));
        ASSERT_TRUE(setMode(profile.path() + QString::fromLatin1(row.path), row.mode));
        const ChildEnd end = runInChild(
            [&] { return becomeOrdinaryUser() ? listed(profile.path()) : "no other user"; });
        EXPECT_EQ(end.output, row.expected);
    }
}

TEST(SettingsListing, AnotherUsersRunningHostCanBeListed)
{
    const ScratchFolder folder;
    ASSERT_EQ(::chown(folder.path().toLocal8Bit().constData(), ::geteuid(), ::getegid()), 0);
    const auto running = openStore(folder.path());
    ASSERT_TRUE(running);
    ASSERT_TRUE(running->write(Item::integer(4, L"K", 7)));
    const ChildEnd end =
        runInChild([&] { return becomeOrdinaryUser() ? listed(folder.path()) : "no other user"; });
    EXPECT_EQ(end.output, "K\tint\t7\n");
}

TEST(SettingsListing, DamageIsToldAndNotRepaired)
{
    const std::vector<std::pair<const char*, QByteArray>> contents = {
        {"text", "no database"}, {"no bytes", QByteArray()}, {"zeros", QByteArray(8192, '\0')}};
    for (const auto& [name, content] : contents) {
        SCOPED_TRACE(name);
        const ScratchFolder profile;
        ASSERT_TRUE(store(profile.path(), {Item::integer(4, L"K", 1)}));
        ASSERT_TRUE(setBytes(settingsFile(profile.path()), content));
        const Result<QByteArray> lines = listSettings(profile.path());
        ASSERT_FALSE(lines);
        EXPECT_EQ(nameOf(lines.fault().kind), "Damaged");
        EXPECT_TRUE(lines.fault().sentence.contains(settingsFile(profile.path())));
        EXPECT_EQ(bytesOf(settingsFile(profile.path())), content);
        EXPECT_EQ(profile.names(), (std::vector<std::string>{"settings.db", "settings.good.db"}));
    }
}

TEST(SettingsListing, ADamagedRowIsToldWithItsKey)
{
    const ScratchFolder profile;
    ASSERT_TRUE(store(profile.path(), {Item::integer(4, L"A", 1), Item::integer(4, L"K", 1)}));
    ASSERT_TRUE(runSql(settingsFile(profile.path()),
                       "UPDATE item SET value = x'00000002' WHERE key = x'0000004B'"));
    const Result<QByteArray> lines = listSettings(profile.path());
    ASSERT_FALSE(lines);
    EXPECT_EQ(nameOf(lines.fault().kind), "Damaged");
    EXPECT_TRUE(lines.fault().sentence.contains(QStringLiteral("\"K\"")));
}
