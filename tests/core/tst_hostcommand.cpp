// The host's own commands, as they are typed and what they print.
#include "refhost/core/hostcommand.h"

#include "refhost/core/widetext.h"
#include "tests/support/testhost.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace quelhost;
using namespace quelhost::test;

namespace {

using Rows = std::vector<std::string>;

// What the session prints besides its prompts.
Rows answersOf(TestHost& test)
{
    Rows rows = rowsOf(test.run());
    rows.erase(
        std::remove_if(rows.begin(), rows.end(),
                       [](const std::string& row) { return row.rfind("Command: ", 0) == 0; }),
        rows.end());
    return rows;
}

// What the one line prints, and the status of its command.
Rows answersTo(const wchar_t* line)
{
    TestHost test({line}, {Typist::Person, false, true});
    testing::internal::CaptureStderr();
    Rows rows = answersOf(test);
    for (const std::string& status : rowsOf(testing::internal::GetCapturedStderr()))
        rows.push_back(status);
    return rows;
}

} // namespace

TEST(HostCommands, AreRegisteredLikeAnyOther)
{
    const TestHost test;
    for (const char* name : {"SETVAR", "GETVAR", "SETTINGS", "GROUPS", "ALIASES", "COMMANDS",
                             "ECHO", "HELP", "QUIT"}) {
        SCOPED_TRACE(name);
        IQuelCommandFactory* factory = test.host->commands.find(QString::fromLatin1(name));
        ASSERT_NE(factory, nullptr);
        EXPECT_EQ(toUtf8(factory->globalName()), name);
        EXPECT_STREQ(factory->module(), L"quelhost");
        EXPECT_STRNE(factory->description(), L"");
        EXPECT_EQ(factory->helpTopicOverride(), nullptr);
        factory->addFlags(5, true);
        factory->addFlags(1, false);
        EXPECT_EQ(factory->flags(), 4U);
        factory->release(nullptr);
    }
    EXPECT_EQ(test.host->commands.all().size(), 9U);
}

TEST(HostCommands, EchoPrintsTheRestOfItsLineAsItStands)
{
    EXPECT_EQ(answersTo(L"ECHO  a  \"b\" %s;"), (Rows{"a  \"b\" %s;", "ECHO\t5100"}));
    EXPECT_EQ(answersTo(L"echo ECHO"), (Rows{"ECHO", "ECHO\t5100"}));
}

TEST(HostCommands, VariablesAreSetAndShown)
{
    TestHost test{L"GETVAR filedia", L"SETVAR FileDia 0", L"GETVAR FILEDIA",
                  L"SETVAR MENUNAME /t/a b", L"GETVAR menuname"};
    EXPECT_EQ(answersOf(test),
              (Rows{"Name of the system variable: filedia", "FILEDIA = 1",
                    "Name of the system variable: FileDia", "New value: 0",
                    "Name of the system variable: FILEDIA", "FILEDIA = 0",
                    "Name of the system variable: MENUNAME", "New value: /t/a b",
                    "Name of the system variable: menuname", "MENUNAME = /t/a b"}));
    const Variables next(*test.settings, L"/p/QUELD");
    EXPECT_EQ(std::get<std::int16_t>(*next.find(QStringLiteral("FILEDIA"))), 0);
}

TEST(HostCommands, WhatIsWrongWithAVariableIsTold)
{
    EXPECT_EQ(
        answersTo(L"GETVAR %1"),
        (Rows{"Name of the system variable: %1",
              "There is no system variable %1; there are FILEDIA, MENUNAME.", "GETVAR\t-5001"}));
    EXPECT_EQ(
        answersTo(L"SETVAR FILEDIA x%1"),
        (Rows{"Name of the system variable: FILEDIA", "New value: x%1",
              "FILEDIA takes an integer from -32768 to 32767, not \"x%1\".", "SETVAR\t-5001"}));
    EXPECT_EQ(answersTo(L"SETVAR COLOUR 1").back(), "SETVAR\t-5001");
}

TEST(HostCommands, ACancelledQuestionChangesNothing)
{
    TestHost test{L"SETVAR",         L"^C", L"SETVAR FILEDIA", L"^C",
                  L"SETVAR FILEDIA", L"",   L"GETVAR",         L""};
    test.run();
    EXPECT_EQ(itemsIn(*test.settings), Rows{});
    EXPECT_EQ(answersTo(L"SETVAR FILEDIA").back(), "SETVAR\t-5002");
    EXPECT_EQ(answersTo(L"GETVAR").back(), "GETVAR\t-5002");
}

TEST(HostCommands, SettingsAreListed)
{
    const auto listed = [](const wchar_t* line) {
        TestHost test{line};
        EXPECT_EQ(told(test.settings->write(Item::string(4, L"CUIX/LoadedCuix", L"a;b"))), "done");
        EXPECT_EQ(told(test.settings->write(Item::integer(4, L"User Interface\\X", 7))), "done");
        return answersOf(test);
    };
    const Rows list{"CUIX/LoadedCuix\tstring\ta;b"};
    const Rows x{"User Interface\\\\X\tint\t7"};
    EXPECT_EQ(listed(L"SETTINGS"), (Rows{list[0], x[0]}));
    EXPECT_EQ(listed(L"SETTINGS CUIX"), list);
    EXPECT_EQ(listed(L"SETTINGS CUIX  "), list);
    EXPECT_EQ(listed(L"SETTINGS User Interface"), x);
    EXPECT_EQ(listed(L"SETTINGS cuix"), Rows{"There is no such setting."});
}

TEST(HostCommands, SettingsThatCannotBeReadAreTold)
{
    TestHost test({L"SETTINGS"}, {Typist::Person, false, true});
    ASSERT_EQ(told(test.settings->write(Item::string(4, L"K", L"good"))), "done");
    ASSERT_TRUE(runSql(test.profile.file("settings.db"), "UPDATE item SET value = x'61'"));
    testing::internal::CaptureStderr();
    const Rows rows = answersOf(test);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "SETTINGS\t-5001\n");
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_NE(rows[0].find("settings.db"), std::string::npos) << rows[0];
}

TEST(HostCommands, GroupsAliasesAndCommandsAreListed)
{
    {
        TestHost test{L"GROUPS", L"ALIASES"};
        ASSERT_TRUE(setBytes(test.profile.file("QUELD.pgp"), "G = GROUPS\n"));
        ASSERT_TRUE(test.host->aliases.initAliasNameList(true));
        EXPECT_EQ(answersOf(test), (Rows{"No menu group is shown.", "G  GROUPS"}));
    }
    const Rows rows = answersTo(L"COMMANDS");
    ASSERT_EQ(rows.size(), 1U + 9U + 1U);
    EXPECT_EQ(rows[0].rfind("Global name", 0), 0U);
    EXPECT_EQ(rows.back(), "COMMANDS\t5100");
}

TEST(HostCommands, HelpNamesTheCommands)
{
    const Rows rows = answersTo(L"HELP");
    ASSERT_GE(rows.size(), 3U);
    EXPECT_NE(rows[rows.size() - 2].find("ALIASES  COMMANDS  ECHO"), std::string::npos);
    EXPECT_EQ(rows.back(), "HELP\t5100");
}

TEST(HostCommands, QuitEndsTheSession)
{
    TestHost test{L"QUIT ECHO no", L"ECHO never"};
    EXPECT_EQ(test.run(), "Command: QUIT ECHO no\n");
    EXPECT_EQ(test.lines.unread(), 1U);
    EXPECT_TRUE(test.host->prompts.hasEnded());
}

TEST(HostCommands, AValueThatCannotBeKeptIsToldAndHolds)
{
    TestHost test({L"SETVAR FILEDIA 0"},
                  {Typist::Person, false, false, QStringLiteral("en"), SettingsAccess::ReadOnly});
    const Rows rows = answersOf(test);
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_NE(rows[2].find("settings.db"), std::string::npos) << rows[2];
    EXPECT_EQ(std::get<std::int16_t>(*test.host->variables.find(QStringLiteral("FILEDIA"))), 0);
}
