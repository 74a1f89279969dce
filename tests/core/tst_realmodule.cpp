// Command modules in a whole host: the one that comes with the program, and small ones.
#include "refhost/core/host.h"

#include "refhost/core/widetext.h"
#include "tests/support/moduletrace.h"
#include "tests/support/testhost.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

using namespace quelhost;
using namespace quelhost::test;

namespace {

using Calls = std::vector<std::string>;
using Rows = std::vector<std::string>;

const QString kModule = QStringLiteral(QUEL_MODULE);
constexpr char kModuleFile[] = "/libVxCuiCmds.so";

QString testModule(const char* name)
{
    return QStringLiteral(QUEL_TEST_MODULES "/") + QString::fromLatin1(name);
}

// Makes the list of loaded files of a new profile.
bool seed(const TestHost& test)
{
    return static_cast<bool>(test.settings->write(Item::string(4, L"CUIX/LoadedCuix", L"")));
}

// The commands that the program's own module brings.
Rows moduleCommands(const Host& host)
{
    Rows names;
    for (IQuelCommandFactory* factory : host.commands.all()) {
        if (std::wstring(factory->module()) == L"VxCuiCmds.dll")
            names.push_back(toUtf8(factory->globalName()));
    }
    return names;
}

} // namespace

TEST(RealModule, IsLoadedRunStoppedAndLoadedAnew)
{
    TestHost test{L"MENULOAD", L"^C", L"MENULOAD", L"^C"};
    ModuleRecord record(kModule);
    for (int round = 0; round < 3; ++round) {
        ASSERT_EQ(told(record.start(test.host->commands)), "done");
        EXPECT_EQ(moduleCommands(*test.host), (Rows{"CUILOAD", "CUIUNLOAD", "MENULOAD",
                                                    "MENUUNLOAD", "MENU", "CUSTOMIZE", "REINIT"}));
        IQuelCommandFactory* factory = test.host->commands.find(QStringLiteral("MENULOAD"));
        ASSERT_NE(factory, nullptr);
        EXPECT_EQ(factory->flags(), 0U);
        factory->addFlags(7, true);
        EXPECT_TRUE(isMapped(kModuleFile));
        EXPECT_EQ(test.runPrepared("MENULOAD", {}), -5002);
        record.stop();
        EXPECT_EQ(record.state(), ModuleRecord::State::Unloaded);
        EXPECT_EQ(moduleCommands(*test.host), Rows{});
        EXPECT_FALSE(isMapped(kModuleFile));
    }
}

TEST(RealModule, LoadsAMenuFileFromOneLine)
{
    TestHost test{};
    ASSERT_TRUE(seed(test));
    ASSERT_TRUE(test.host->loadModule(kModule));
    const std::wstring plant = writePackage(test.profile, "pl ant%d.cuix", "PLANT");
    test.lines.add(L"MENULOAD \"" + plant + L"\"");
    const std::string printed = test.run();
    EXPECT_NE(printed.find("\nLoading \"" + toUtf8(plant) + "\" success.group:PLANT\n"),
              std::string::npos)
        << printed;
    EXPECT_EQ(valueIn(*test.settings, L"CUIX/LoadedCuix"), "string ;" + toUtf8(plant));
    ASSERT_EQ(test.host->groups.groups().size(), 1U);
    EXPECT_FALSE(test.host->groups.groups()[0].unlisted);
}

TEST(RealModule, TheEndOfInputEndsItsPromptWithinASecond)
{
    TestHost test({L"MENULOAD"}, {Typist::Person, false, true});
    ASSERT_TRUE(seed(test));
    ASSERT_TRUE(test.host->loadModule(kModule));
    const auto start = std::chrono::steady_clock::now();
    testing::internal::CaptureStderr();
    test.run();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "MENULOAD\t-5002\n");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
}

TEST(RealModule, AStoreThatCannotBeWrittenStillShowsTheGroupForThisRun)
{
    TestHostKind readOnly;
    readOnly.access = SettingsAccess::ReadOnly;
    TestHost test({}, readOnly);
    test.settings->setForThisRun(Item::string(4, L"CUIX/LoadedCuix", L""));
    ASSERT_TRUE(test.host->loadModule(kModule));
    const std::wstring plant = writePackage(test.profile, "plant.cuix", "PLANT");
    EXPECT_EQ(test.runPrepared("MENULOAD", {plant.c_str()}), 5100);
    const std::string printed = test.output.take();
    EXPECT_NE(printed.find("success.group:PLANT"), std::string::npos) << printed;
    const std::size_t told = printed.find("was not stored");
    ASSERT_NE(told, std::string::npos) << printed;
    EXPECT_EQ(printed.find("was not stored", told + 1), std::string::npos) << printed;
    ASSERT_EQ(test.host->groups.groups().size(), 1U);
    EXPECT_TRUE(test.host->groups.groups()[0].unlisted);
}

TEST(RealModule, SpeaksTheUsersLanguage)
{
    TestHostKind german;
    german.language = QStringLiteral("de");
    TestHost test({}, german);
    ASSERT_TRUE(test.host->loadModule(kModule));
    IQuelCommandFactory* factory = test.host->commands.find(QString::fromUtf8("men\xC3\xBCladen"));
    ASSERT_NE(factory, nullptr);
    EXPECT_STREQ(factory->globalName(), L"MENULOAD");
    EXPECT_EQ(test.host->commands.find(QStringLiteral("MENULOAD")), factory);
    EXPECT_EQ(test.host->resources.depth(), 0U);
}

TEST(SmallModules, HearOfTheSessionAndGoWithTheHost)
{
    static_cast<void>(takeModuleCalls());
    {
        TestHost test{L"TRYOUT"};
        ASSERT_TRUE(test.host->loadModule(testModule("good.so")));
        test.run();
        EXPECT_EQ(takeModuleCalls(),
                  (Calls{"initialize", "registCommand", "message 1", "execute", "message 2"}));
        test.host.reset();
        EXPECT_EQ(takeModuleCalls(), (Calls{"unregistCommand", "uninitialize"}));
    }
    EXPECT_FALSE(isMapped("/good.so"));
}

TEST(SmallModules, OneThatCannotBeLoadedChangesNothing)
{
    TestHost test{L"ECHO on"};
    const std::size_t before = test.host->commands.all().size();
    for (const char* name : {"lost.so", "noentry.so", "notready.so", "missing.so"}) {
        const Status loaded = test.host->loadModule(testModule(name));
        EXPECT_FALSE(loaded) << name;
    }
    EXPECT_EQ(test.host->commands.all().size(), before);
    EXPECT_NE(test.run().find("\non\n"), std::string::npos);
}

TEST(SmallModules, WhatOneThrewCanBeReadWhenItIsGone)
{
    TestHost test{};
    ModuleRecord record(testModule("throwing.so"));
    ASSERT_EQ(told(record.start(test.host->commands)), "done");
    EXPECT_EQ(test.runPrepared("THROWOUT", {}), -5001);
    record.stop();
    EXPECT_FALSE(isMapped("/throwing.so"));
    EXPECT_EQ(test.output.text(), "The command THROWOUT failed: thrown by a module\n");
    EXPECT_EQ(test.host->crashRecorder.lines(), QStringList{QStringLiteral("thrown by a module")});
}
