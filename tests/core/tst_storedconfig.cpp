#include "refhost/core/storedconfig.h"

#include "refhost/core/settingsstore.h"
#include "tests/core/settingssupport.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

using namespace quelhost;
using namespace quelhost::test;

namespace {

constexpr QueldConfig::Path kUser = QueldConfig::kUserProfile;
constexpr wchar_t kKey[] = L"UserInterfaceSettings\\MenuLoadDlg\\X";

struct Config
{
    explicit Config(SettingsAccess access = SettingsAccess::ReadWrite)
        : store(openStore(profile.path(), access))
        , config(*store, [this](const Fault& fault) { reports.push_back(fault); })
    {}

    ScratchFolder profile;
    std::unique_ptr<SettingsStore> store;
    std::vector<Fault> reports;
    StoredConfig config;
};

QuelVariant integer(int value)
{
    QuelVariant variant;
    variant.setInteger(value);
    return variant;
}

QuelVariant string(const wchar_t* value, QuelVariant::VarType type = QuelVariant::kString)
{
    QuelVariant variant;
    variant.setString(value, type);
    return variant;
}

QuelVariant bare(QuelVariant::VarType type)
{
    QuelVariant variant;
    variant.install(type, QuelVariant::allocateValue(type, 8));
    return variant;
}

} // namespace

TEST(StoredConfig, GivesBackWhatWasStoredWithItsKind)
{
    Config host;
    const int numbers[] = {0, 1, -1, std::numeric_limits<int>::max(),
                           std::numeric_limits<int>::min()};
    for (const int number : numbers) {
        EXPECT_EQ(host.config.setValue(kUser, kKey, integer(number)), 0);
        QuelVariant read;
        EXPECT_EQ(host.config.getValue(kUser, kKey, read), 0);
        EXPECT_EQ(read.type(), QuelVariant::kInteger);
        EXPECT_EQ(read.integerOrZero(), number);
    }
    for (const wchar_t* text : {L"", L"/t/a b.cuix;;/t/\u00E9\u4E2D\U0001F600.cuix", L"%s%n"}) {
        EXPECT_EQ(host.config.setValue(kUser, kKey, string(text)), 0);
        QuelVariant read;
        EXPECT_EQ(host.config.getValue(kUser, kKey, read), 0);
        EXPECT_EQ(read.type(), QuelVariant::kString);
        EXPECT_EQ(read.stringOrEmpty(), text);
        EXPECT_NE(read.block(), nullptr);
    }
    EXPECT_TRUE(host.reports.empty());
}

TEST(StoredConfig, KindsAreThereInTheNextRun)
{
    const ScratchFolder profile;
    const auto ignore = [](const Fault&) {};
    {
        const auto store = openStore(profile.path());
        StoredConfig config(*store, ignore);
        EXPECT_EQ(config.setValue(kUser, L"N", integer(5)), 0);
        EXPECT_EQ(config.setValue(kUser, L"T", string(L"5")), 0);
        EXPECT_EQ(config.addItem(kUser, L"S"), 0);
    }
    const auto store = openStore(profile.path());
    EXPECT_EQ(itemsIn(*store),
              (std::vector<std::string>{"4 N integer 5", "4 S section", "4 T string 5"}));
}

TEST(StoredConfig, CopiesAreDeepBothWays)
{
    Config host;
    QuelVariant stored = string(L"first");
    EXPECT_EQ(host.config.setValue(kUser, kKey, stored), 0);
    stored.setString(L"other", QuelVariant::kString);

    QuelVariant read;
    EXPECT_EQ(host.config.getValue(kUser, kKey, read), 0);
    EXPECT_EQ(read.stringOrEmpty(), L"first");
    read.setString(L"third", QuelVariant::kString);

    QuelVariant again;
    EXPECT_EQ(host.config.getValue(kUser, kKey, again), 0);
    EXPECT_EQ(again.stringOrEmpty(), L"first");
    EXPECT_NE(again.block(), read.block());
}

TEST(StoredConfig, WhatIsAbsentCannotBeRead)
{
    Config host;
    QuelVariant value = integer(5);
    EXPECT_NE(host.config.getValue(kUser, kKey, value), 0);
    EXPECT_EQ(value.integerOrZero(), 5);
    EXPECT_FALSE(host.config.isItemExist(kUser, kKey));
    EXPECT_TRUE(host.reports.empty());
}

TEST(StoredConfig, ASectionExistsAndHasNoValue)
{
    Config host;
    EXPECT_FALSE(host.config.isItemExist(kUser, L"CUIX"));
    EXPECT_EQ(host.config.addItem(kUser, L"CUIX"), 0);
    EXPECT_EQ(host.config.addItem(kUser, L"CUIX"), 0);
    EXPECT_TRUE(host.config.isItemExist(kUser, L"CUIX"));
    QuelVariant value = integer(5);
    EXPECT_NE(host.config.getValue(kUser, L"CUIX", value), 0);
    EXPECT_EQ(value.integerOrZero(), 5);
}

TEST(StoredConfig, AddingASectionLeavesAValueOfThatKeyAlone)
{
    Config host;
    EXPECT_EQ(host.config.setValue(kUser, kKey, integer(5)), 0);
    EXPECT_EQ(host.config.addItem(kUser, kKey), 0);
    QuelVariant value;
    EXPECT_EQ(host.config.getValue(kUser, kKey, value), 0);
    EXPECT_EQ(value.integerOrZero(), 5);
}

TEST(StoredConfig, KeysAreTakenAsGiven)
{
    Config host;
    const wchar_t* const keys[] = {L"a\\b", L"a/b", L"A/B", L"a", L"", L"a/b ", L"\u00E9"};
    int number = 0;
    for (const wchar_t* key : keys)
        EXPECT_EQ(host.config.setValue(kUser, key, integer(++number)), 0);
    EXPECT_EQ(host.config.setValue(static_cast<QueldConfig::Path>(5), L"a", integer(99)), 0);
    number = 0;
    for (const wchar_t* key : keys) {
        QuelVariant value;
        EXPECT_EQ(host.config.getValue(kUser, key, value), 0);
        EXPECT_EQ(value.integerOrZero(), ++number);
        EXPECT_TRUE(host.config.isItemExist(kUser, key));
    }
}

TEST(StoredConfig, OtherKindsAreRefusedAloud)
{
    const std::pair<const char*, QuelVariant> rows[] = {
        {"none", QuelVariant()},
        {"kind 2", bare(QuelVariant::kWide2)},
        {"kind 3", bare(QuelVariant::kWide3)},
        {"kind 7", string(L"t", QuelVariant::kString7)},
        {"kind 8", string(L"t", QuelVariant::kString8)},
        {"kind 99", bare(static_cast<QuelVariant::VarType>(99))},
    };
    for (const auto& [name, variant] : rows) {
        SCOPED_TRACE(name);
        Config host;
        EXPECT_EQ(host.config.setValue(kUser, kKey, integer(5)), 0);
        EXPECT_NE(host.config.setValue(kUser, kKey, variant), 0);
        EXPECT_EQ(valueIn(*host.store, kKey), "integer 5");
        ASSERT_EQ(host.reports.size(), 1U);
        EXPECT_EQ(host.reports[0].kind, FaultKind::BadInput);
        EXPECT_TRUE(host.reports[0].sentence.contains(QString::fromWCharArray(kKey)))
            << host.reports[0].sentence.toStdString();
    }
}

TEST(StoredConfig, AValueWithoutItsBlockIsTheEmptyOne)
{
    Config host;
    QuelVariant value;
    value.install(QuelVariant::kString, nullptr);
    EXPECT_EQ(host.config.setValue(kUser, L"T", value), 0);
    value.install(QuelVariant::kInteger, nullptr);
    EXPECT_EQ(host.config.setValue(kUser, L"N", value), 0);
    EXPECT_EQ(itemsIn(*host.store), (std::vector<std::string>{"4 N integer 0", "4 T string "}));
}

TEST(StoredConfig, AFailedWriteIsToldOnceAndTheOldValueStands)
{
    const ScratchFolder profile;
    {
        const auto store = openStore(profile.path());
        ASSERT_EQ(told(store->write(Item::integer(4, kKey, 5))), "done");
    }
    const auto store = openStore(profile.path(), SettingsAccess::ReadOnly);
    std::vector<Fault> reports;
    StoredConfig config(*store, [&](const Fault& fault) { reports.push_back(fault); });

    EXPECT_NE(config.setValue(kUser, kKey, integer(6)), 0);
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0].kind, FaultKind::NotPermitted);
    EXPECT_FALSE(reports[0].sentence.isEmpty());
    QuelVariant value;
    EXPECT_EQ(config.getValue(kUser, kKey, value), 0);
    EXPECT_EQ(value.integerOrZero(), 5);

    EXPECT_NE(config.addItem(kUser, L"New"), 0);
    EXPECT_EQ(reports.size(), 2U);
    EXPECT_FALSE(config.isItemExist(kUser, L"New"));
}

TEST(StoredConfig, ADamagedItemCannotBeReadAndIsTold)
{
    const ScratchFolder profile;
    const auto store = openStore(profile.path());
    ASSERT_EQ(told(store->write(Item::string(4, kKey, L"before"))), "done");
    std::vector<Fault> reports;
    StoredConfig config(*store, [&](const Fault& fault) { reports.push_back(fault); });
    ASSERT_TRUE(runSql(profile.file("settings.db"), "UPDATE item SET value = x'61'"));

    QuelVariant value = integer(5);
    EXPECT_NE(config.getValue(kUser, kKey, value), 0);
    EXPECT_EQ(value.integerOrZero(), 5);
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0].kind, FaultKind::Damaged);
    EXPECT_FALSE(config.isItemExist(kUser, kKey));
    EXPECT_EQ(reports.size(), 2U);
}
