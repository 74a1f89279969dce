// The host interface as modules call it: variables, resources, text and settings.
#include "host/aliases.h"
#include "host/customization.h"
#include "host/errors.h"
#include "host/messageboxes.h"
#include "host/output.h"
#include "host/resources.h"
#include "host/settings.h"
#include "host/variables.h"

#include "refhost/core/widetext.h"
#include "tests/support/rawslots.h"
#include "tests/support/testhost.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <string>

using namespace quelhost;
using namespace quelhost::test;

namespace {

// A record as a caller has it that did not prepare it.
resbuf marked()
{
    resbuf record;
    std::memset(static_cast<void*>(&record), 0x55, sizeof record);
    return record;
}

bool isMarked(const resbuf& record)
{
    const resbuf expected = marked();
    return std::memcmp(&record, &expected, sizeof record) == 0;
}

resbuf* newRecord(short type, resbuf* link)
{
    auto* record = static_cast<resbuf*>(std::calloc(1, sizeof(resbuf)));
    record->type = type;
    record->link = link;
    return record;
}

wchar_t* newString(const wchar_t* text)
{
    return ::wcsdup(text);
}

} // namespace

TEST(HostVariables, ANumberHas16BitsAndLeavesTheRestAlone)
{
    TestHost test;
    ASSERT_EQ(told(test.host->variables.set(QStringLiteral("FILEDIA"), QStringLiteral("-2"))),
              "done");
    resbuf record = marked();
    EXPECT_EQ(quedGetVar(L"filedia", &record), 5100);
    EXPECT_EQ(record.type, 5003);
    EXPECT_EQ(record.value.shortInteger, -2);
    EXPECT_EQ(record.link, marked().link);
}

TEST(HostVariables, ATextIsACopyForTheCaller)
{
    TestHost test;
    resbuf record = marked();
    ASSERT_EQ(quedGetVar(L"MenuName", &record), 5100);
    EXPECT_EQ(record.type, 5005);
    EXPECT_EQ(record.value.string, toWide(test.profile.file("QUELD")));
    record.value.string[0] = L'#';
    void* buffer = record.value.string;
    quutDelBuffer(buffer);
    EXPECT_EQ(buffer, nullptr);
    ASSERT_EQ(quedGetVar(L"MENUNAME", &record), 5100);
    EXPECT_EQ(record.value.string, toWide(test.profile.file("QUELD")));
    buffer = record.value.string;
    quutDelBuffer(buffer);
}

TEST(HostVariables, AnUnknownOneLeavesTheRecordAlone)
{
    const TestHost test;
    for (const wchar_t* name : {L"COLOUR", L"", L"FILEDIA "}) {
        resbuf record = marked();
        EXPECT_EQ(quedGetVar(name, &record), -5001);
        EXPECT_TRUE(isMarked(record));
    }
}

TEST(HostVariables, BuffersAndChainsAreFreed)
{
    void* nothing = nullptr;
    quutDelBuffer(nothing);
    EXPECT_EQ(nothing, nullptr);
    void* buffer = newString(L"text");
    quutDelBuffer(buffer);
    EXPECT_EQ(buffer, nullptr);

    // A leak or a double free is what the sanitizers look for.
    quutRelRb(nullptr);
    resbuf* chain = newRecord(5003, nullptr);
    chain->value.shortInteger = 7;
    chain = newRecord(5005, chain);
    chain->value.string = newString(L"text");
    chain = newRecord(5005, chain); // without its string
    quutRelRb(chain);
}

TEST(HostResources, ScopesShareTheStackOfTheHost)
{
    TestHost test;
    const QuelResourceHandle bottom = AfxGetResourceHandle();
    ASSERT_NE(bottom, nullptr);
    ASSERT_TRUE(SetCurrentResourceName(L"VxCuiCmdsRes.dll"));
    EXPECT_NE(AfxGetResourceHandle(), bottom);
    EXPECT_FALSE(SetCurrentResourceName(L"LostRes.dll"));
    EXPECT_FALSE(SetCurrentResourceName(nullptr));
    ASSERT_TRUE(SetCurrentResourceName(L"QUELDRes.dll"));
    EXPECT_EQ(AfxGetResourceHandle(), bottom);
    EXPECT_EQ(test.host->resources.depth(), 2U);
    RestorePreviousResource();
    EXPECT_STREQ(qumdQuResourceString(6916, L"default").kwszPtr(), L"MENULOAD");
    RestorePreviousResource();
    EXPECT_STREQ(qumdQuResourceString(6916, L"default").kwszPtr(), L"default");
}

TEST(HostResources, AMissingTextGivesTheDefaultOrNone)
{
    const TestHost test;
    ASSERT_TRUE(SetCurrentResourceName(L"VxCuiCmdsRes.dll"));
    EXPECT_STREQ(qumdQuResourceString(11070, L"default %s").kwszPtr(), L"default %s");
    EXPECT_EQ(qumdQuResourceString(11070, nullptr).kwszPtr(), nullptr);
    EXPECT_EQ(qumdQuResourceString(0xFFFFFFFF, nullptr).kwszPtr(), nullptr);
    EXPECT_STREQ(qumdQuResourceString(11065, nullptr).kwszPtr(), L"\"%s\" is already loaded.");

    QuString text(L"before");
    EXPECT_FALSE(text.loadString(11070));
    EXPECT_STREQ(text.kwszPtr(), L"before");
    EXPECT_TRUE(text.loadString(6916));
    EXPECT_STREQ(text.kwszPtr(), L"MENULOAD");
    RestorePreviousResource();
}

TEST(HostResources, LoadStringCopiesWhatFits)
{
    const TestHost test;
    ASSERT_TRUE(SetCurrentResourceName(L"VxCuiCmdsRes.dll"));
    struct Row
    {
        const char* name;
        unsigned int id;
        int room;
        int length;
        const wchar_t* text;
    };
    const Row rows[] = {
        {"with much room", 6916, 64, 8, L"MENULOAD"},
        {"with just enough room", 6916, 9, 8, L"MENULOAD"},
        {"with too little room", 6916, 8, 7, L"MENULOA"},
        {"with room for one", 6916, 2, 1, L"M"},
        {"with room for the null alone", 6916, 1, 0, L""},
        {"without such a resource", 11070, 64, 0, L""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        std::array<wchar_t, 64> buffer{};
        buffer.fill(L'#');
        EXPECT_EQ(LoadStringW(AfxGetResourceHandle(), row.id, buffer.data(), row.room), row.length);
        EXPECT_STREQ(buffer.data(), row.text);
        for (std::size_t i = static_cast<std::size_t>(row.room); i < buffer.size(); ++i)
            EXPECT_EQ(buffer.at(i), L'#');
    }
    RestorePreviousResource();
}

TEST(HostResources, TheUsersLanguageIsUsed)
{
    TestHostKind german;
    german.language = QStringLiteral("de_AT");
    const TestHost test({}, german);
    ASSERT_TRUE(SetCurrentResourceName(L"VxCuiCmdsRes.dll"));
    EXPECT_STREQ(qumdQuResourceString(6916, L"default").kwszPtr(), L"MEN\u00DCLADEN");
    RestorePreviousResource();
    EXPECT_STREQ(qumdQuResourceString(11008, L"default").kwszPtr(), L" Trotzdem laden?");
}

TEST(HostOutput, FinishedTextIsPrintedAsItStands)
{
    struct Row
    {
        const char* name;
        const wchar_t* text;
        const char* expected;
    };
    const Row rows[] = {
        {"a plain text", L"a\nb", "a\nb"},
        {"a path that looks like a format", L"/t/%s%n%ls%d.cuix", "/t/%s%n%ls%d.cuix"},
        {"two percent signs", L"100%% %%s", "100% %s"},
        {"a percent sign at the end", L"50%", "50%"},
        {"letters of any script", L"\u00E9\U0001F600", "\xC3\xA9\xF0\x9F\x98\x80"},
        {"nothing", L"", ""},
        {"null", nullptr, ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        TestHost test;
        quutPrintf(row.text);
        EXPECT_EQ(test.output.text(), row.expected);
    }
}

TEST(HostOutput, AFormatIsPrintedWithItsArguments)
{
    TestHost test;
    quutPrintf(L"<%s|%-4ls|%d%%>", L"\u00E9%s", L"a", 7);
    EXPECT_EQ(test.output.take(), "<\xC3\xA9%s|a   |7%>");
    quutPrintf(L"<%s>", static_cast<const wchar_t*>(nullptr));
    EXPECT_EQ(test.output.take(), "<>");
    promptf(L"\nLoading \"%s\" success.group:%s", L"/t/%n\U0001F600.cuix", L"PLANT");
    EXPECT_EQ(test.output.take(), "\nLoading \"/t/%n\xF0\x9F\x98\x80.cuix\" success.group:PLANT");
    promptf(L"%5d|%-5u|%x|%lld|%c|%.2s", -7, 7U, 255U, 1LL << 40, L'\u00E9', L"abc");
    EXPECT_EQ(test.output.take(), "   -7|7    |ff|1099511627776|\xC3\xA9|ab");
    promptf(L"\n");
    EXPECT_EQ(test.output.take(), "\n");
    promptf(nullptr);
    promptf(L"%n%f%");
    EXPECT_EQ(test.output.take(), "%n%f%");
}

TEST(HostServices, AreTheOnesOfTheHost)
{
    EXPECT_EQ(quelGetCrashRecorder(), nullptr);
    TestHost test;
    EXPECT_EQ(quelConfig(), &test.host->config);
    EXPECT_EQ(quCmdAliasManagerPtr(), &test.host->aliases);
    EXPECT_EQ(quelGetCrashRecorder(), &test.host->crashRecorder);
    ASSERT_NE(GetQuelAppInterface(), nullptr);
    EXPECT_EQ(GetQuelAppInterface()->customizationManager(), &test.host->groups);
    EXPECT_EQ(AfxGetMainWnd(), nullptr);
    ASSERT_NE(GetOemProductName(), nullptr);
    EXPECT_STRNE(GetOemProductName(), L"");
}

TEST(HostServices, AModuleReachesThemThroughTheirSlots)
{
    TestHost test;
    const std::wstring plant = writePackage(test.profile, "plant.cuix", "PLANT");
    auto* manager = raw::call<QuelCustomizationManager*>(GetQuelAppInterface(), 0);
    const QuString path(plant.c_str());
    QuString group;
    const QuString* const pathArgument = &path;
    QuString* const groupArgument = &group;
    EXPECT_TRUE(raw::call<bool>(manager, 1, pathArgument, groupArgument));
    EXPECT_STREQ(group.kwszPtr(), L"PLANT");

    QueldConfig* const config = quelConfig();
    const wchar_t* const key = L"CUIX/LoadedCuix";
    QuelVariant value;
    value.setString(L"", QuelVariant::kString);
    const QuelVariant* const stored = &value;
    EXPECT_FALSE(raw::call<bool>(config, 2, 4, key));
    EXPECT_EQ(raw::call<int>(config, 1, 4, key, stored), 0);
    EXPECT_TRUE(raw::call<bool>(config, 2, 4, key));
    QuelVariant read;
    QuelVariant* const target = &read;
    EXPECT_EQ(raw::call<int>(config, 0, 4, key, target), 0);
    EXPECT_EQ(read.type(), QuelVariant::kString);
    const wchar_t* const section = L"UserInterfaceSettings";
    EXPECT_EQ(raw::call<int>(config, 3, 4, section), 0);
    EXPECT_TRUE(raw::call<bool>(config, 2, 4, section));

    raw::call<void>(manager, 0);
    ASSERT_EQ(test.host->groups.groups().size(), 1U);
    EXPECT_TRUE(test.host->groups.groups()[0].unlisted);
}
