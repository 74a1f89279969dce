// A session: commands as they are typed, and what happens around each run.
#include "refhost/core/host.h"

#include "refhost/core/widetext.h"
#include "tests/support/functioncommand.h"
#include "tests/support/testhost.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

using namespace quelhost;
using namespace quelhost::test;

namespace {

bool writeAliases(TestHost& test, const QByteArray& text)
{
    return setBytes(test.profile.file("QUELD.pgp"), text) &&
           test.host->aliases.initAliasNameList(true);
}

// Notes its runs.
FunctionCommand::Function counting(int& runs)
{
    return [&runs](IQuelBuildInCommandContext&) {
        ++runs;
        return QuelStatus::kNormal;
    };
}

} // namespace

TEST(Host, IsTheOneThatTheInterfaceServes)
{
    EXPECT_EQ(Host::current(), nullptr);
    {
        const TestHost test;
        EXPECT_EQ(Host::current(), test.host.get());
    }
    EXPECT_EQ(Host::current(), nullptr);
}

TEST(Host, RunsCommandsByBothNamesAndByAliasInAnyCase)
{
    TestHost test{L"pump", L"Pumpe", L"PU", L"pu"};
    int runs = 0;
    FunctionCommand pump(L"PUMP", L"PUMPE", counting(runs));
    ASSERT_EQ(test.host->commands.addCommand(&pump, 0), 0);
    ASSERT_TRUE(writeAliases(test, "Pu = Pump\n"));
    EXPECT_EQ(test.run(), "Command: pump\nCommand: Pumpe\nCommand: PU\nCommand: pu\nCommand: \n");
    EXPECT_EQ(runs, 4);
    EXPECT_EQ(pump.created, 4);
    EXPECT_EQ(pump.released, 4);
}

TEST(Host, ACommandsNameGoesBeforeAnAlias)
{
    TestHost test{L"PUMP"};
    int runs = 0;
    FunctionCommand pump(L"PUMP", counting(runs));
    ASSERT_EQ(test.host->commands.addCommand(&pump, 0), 0);
    ASSERT_TRUE(writeAliases(test, "PUMP = QUIT\n"));
    test.run();
    EXPECT_EQ(runs, 1);
}

TEST(Host, AnAliasNeverLeadsToAnotherAlias)
{
    TestHost test{L"A", L"B"};
    int runs = 0;
    FunctionCommand pump(L"PUMP", counting(runs));
    ASSERT_EQ(test.host->commands.addCommand(&pump, 0), 0);
    ASSERT_TRUE(writeAliases(test, "A = B\nB = PUMP\n"));
    const std::vector<std::string> rows = rowsOf(test.run());
    ASSERT_GE(rows.size(), 2U);
    EXPECT_EQ(rows[1].rfind("Unknown command B.", 0), 0U) << rows[1];
    EXPECT_EQ(rows[1].find("Did you mean B"), std::string::npos) << rows[1];
    EXPECT_EQ(runs, 1);
}

TEST(Host, AnUnknownNameGetsOneLineWithTheNearest)
{
    struct Row
    {
        const char* name;
        const wchar_t* typed;
        const char* answer;
    };
    const Row rows[] = {
        {"a slip", L"gruops", "Unknown command gruops. Did you mean GROUPS?"},
        {"nothing like it", L"xyzzyx", "Unknown command xyzzyx. HELP lists the commands."},
        {"with answers behind", L"xyzzyx QUIT /t/a.cuix",
         "Unknown command xyzzyx. HELP lists the commands."},
        {"what looks like a placeholder", L"%1%2xyzzyx",
         "Unknown command %1%2xyzzyx. HELP lists the commands."},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        TestHost test{row.typed};
        EXPECT_EQ(test.run(),
                  "Command: " + toUtf8(row.typed) + "\n" + row.answer + "\nCommand: \n");
    }
}

TEST(Host, EnterRepeatsTheLastCommand)
{
    TestHost test{L"", L"PUMP 1", L"", L"   ", L"nonsense", L""};
    int runs = 0;
    FunctionCommand pump(L"PUMP", [&](IQuelBuildInCommandContext&) {
        ++runs;
        return static_cast<void>(test.host->prompts.takeTypedAhead()), QuelStatus::kNormal;
    });
    ASSERT_EQ(test.host->commands.addCommand(&pump, 0), 0);
    test.run();
    EXPECT_EQ(runs, 4);
}

TEST(Host, AScriptsBlankLinesRepeatNothing)
{
    TestHost test({L"PUMP", L"", L"; PUMP", L"   "}, {Typist::Script});
    int runs = 0;
    FunctionCommand pump(L"PUMP", counting(runs));
    ASSERT_EQ(test.host->commands.addCommand(&pump, 0), 0);
    test.run();
    EXPECT_EQ(runs, 1);
}

TEST(Host, TellsWhatACommandThrewAndGoesOn)
{
    TestHost test{L"BREAK", L"PUMP"};
    int runs = 0;
    FunctionCommand bad(L"BREAK", [](IQuelBuildInCommandContext&) -> int {
        throw new VxExceptionWithMsg(L"here", 1, L"The %1 pump is gone.");
    });
    FunctionCommand pump(L"PUMP", counting(runs));
    ASSERT_EQ(test.host->commands.addCommand(&bad, 0), 0);
    ASSERT_EQ(test.host->commands.addCommand(&pump, 0), 0);
    EXPECT_EQ(test.run(), "Command: BREAK\nThe command BREAK failed: The %1 pump is gone.\n"
                          "Command: PUMP\nCommand: \n");
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(bad.released, 1);
}

TEST(Host, ClosesTheScopesThatACommandLeftOpen)
{
    TestHost test{L"LEAVE", L"BREAK", L"PUMP"};
    const auto open = [](IQuelBuildInCommandContext& context) {
        EXPECT_TRUE(context.enterResourceScope(L"VxCuiCmdsRes.dll"));
        EXPECT_TRUE(SetCurrentResourceName(L"VxCuiCmdsRes.dll"));
    };
    std::size_t depth = 99;
    FunctionCommand leave(L"LEAVE", [&](IQuelBuildInCommandContext& context) {
        open(context);
        return QuelStatus::kNormal;
    });
    FunctionCommand bad(L"BREAK", [&](IQuelBuildInCommandContext& context) -> int {
        open(context);
        throw std::runtime_error("left open");
    });
    FunctionCommand pump(L"PUMP", [&](IQuelBuildInCommandContext&) {
        depth = test.host->resources.depth();
        return QuelStatus::kNormal;
    });
    for (FunctionCommand* command : {&leave, &bad, &pump})
        ASSERT_EQ(test.host->commands.addCommand(command, 0), 0);
    test.run();
    EXPECT_EQ(depth, 0U);
    EXPECT_EQ(test.host->resources.depth(), 0U);
}

TEST(Host, KeywordsThatACommandLeftBehindAreNotTheNextOnes)
{
    TestHost test{L"SET", L"ASK a"};
    FunctionCommand set(
        L"SET", [](IQuelBuildInCommandContext&) { return quedInitGet(0, L"Accelerator Toolbar"); });
    int status = 0;
    FunctionCommand ask(L"ASK", [&](IQuelBuildInCommandContext&) {
        wchar_t answer[kQuelKeywordAnswerRoom] = {};
        return status = quedGetKword(L"Which: ", answer);
    });
    ASSERT_EQ(test.host->commands.addCommand(&set, 0) + test.host->commands.addCommand(&ask, 0), 0);
    test.run();
    EXPECT_EQ(status, -5002);
}

TEST(Host, DialogsNeedADisplayAPersonAndACallThatMayHaveThem)
{
    struct Row
    {
        const char* name;
        bool display;
        Typist typist;
        bool commandLineOnly;
        bool allowed;
    };
    const Row rows[] = {
        {"a person at a display", true, Typist::Person, false, true},
        {"a person without one", false, Typist::Person, false, false},
        {"a script at a display", true, Typist::Script, false, false},
        {"a command-line-only call", true, Typist::Person, true, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        TestHost test({L"ASK"}, {row.typist, row.display});
        bool allowed = false;
        bool flagged = false;
        bool commandLineOnly = false;
        FunctionCommand ask(L"ASK", [&](IQuelBuildInCommandContext& context) {
            allowed = commandShouldUseDialog(&context);
            flagged = (GetQuelAppCtxActiveDocData()->flags & QuelDocumentData::kNoDialogs) != 0;
            commandLineOnly = context.isCommandLineOnly();
            return QuelStatus::kNormal;
        });
        ASSERT_EQ(test.host->commands.addCommand(&ask, 0), 0);
        if (row.commandLineOnly)
            EXPECT_EQ(test.runPrepared("ASK", {}), 5100);
        else
            test.run();
        EXPECT_EQ(ask.released, 1);
        EXPECT_EQ(allowed, row.allowed);
        EXPECT_EQ(flagged, !row.allowed);
        EXPECT_EQ(commandLineOnly, row.commandLineOnly);
        EXPECT_EQ(test.host->hasDisplay(), row.display);
    }
}

TEST(Host, ACommandLineOnlyCallIsAnsweredAndThenCancelled)
{
    TestHost test{L"typed"};
    std::wstring first;
    int second = 0;
    FunctionCommand ask(L"ASK", [&](IQuelBuildInCommandContext&) {
        wchar_t answer[kQuelStringAnswerRoom] = {};
        EXPECT_EQ(quedGetString(0, L"1: ", answer), 5100);
        first = answer;
        return second = quedGetString(0, L"2: ", answer);
    });
    ASSERT_EQ(test.host->commands.addCommand(&ask, 0), 0);
    EXPECT_EQ(test.runPrepared("ask", {L"/t/a b.cuix"}), -5002);
    EXPECT_EQ(first, L"/t/a b.cuix");
    EXPECT_EQ(second, -5002);
    EXPECT_TRUE(test.lines.requests.empty());
    EXPECT_EQ(test.runPrepared("LOST", {}), -5001);
    EXPECT_NE(test.output.text().find("Unknown command LOST."), std::string::npos);
}

TEST(Host, ReportsTheStatusOfEveryCommandByItsGlobalName)
{
    TestHost test({L"PUMPE", L"ECHO hi", L"BREAK", L"nonsense"}, {Typist::Person, false, true});
    FunctionCommand pump(L"P\u00DCMP", L"PUMPE",
                         [](IQuelBuildInCommandContext&) { return 123456; });
    FunctionCommand bad(L"BREAK", [](IQuelBuildInCommandContext&) -> int { throw 7; });
    ASSERT_EQ(test.host->commands.addCommand(&pump, 0) + test.host->commands.addCommand(&bad, 0),
              0);
    testing::internal::CaptureStderr();
    test.run();
    test.runPrepared("PUMPE", {});
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "P\xC3\x9CMP\t123456\nECHO\t5100\nBREAK\t-5001\nP\xC3\x9CMP\t123456\n");
}

TEST(Host, OffersEveryNameForCompletion)
{
    TestHost test{L"QUIT"};
    FunctionCommand pump(L"PUMP", L"PUMPE", {});
    ASSERT_EQ(test.host->commands.addCommand(&pump, 0), 0);
    ASSERT_TRUE(writeAliases(test, "PU = PUMP\n"));
    test.run();
    ASSERT_EQ(test.lines.requests.size(), 1U);
    EXPECT_EQ(test.lines.requests[0].completion, Completion::Commands);
    for (const char* word : {"PUMP", "PUMPE", "PU", "ECHO", "QUIT"})
        EXPECT_TRUE(test.lines.requests[0].words.contains(QString::fromLatin1(word))) << word;
}
