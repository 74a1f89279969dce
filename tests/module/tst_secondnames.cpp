// CUILOAD and CUIUNLOAD: the other command's run inside a scope of their own.
#include "commands/menuunloadcommand.h"
#include "menuload/menuloadcommand.h"
#include "module/cuiloadcommand.h"
#include "module/cuiunloadcommand.h"

#include "tests/support/menufolder.h"
#include "tests/support/recordinghost.h"
#include "tests/support/thrownerror.h"

#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <memory>
#include <stdexcept>

using recording::host;
using Lines = std::vector<std::string>;

namespace {

const char* const kEntered = "enterResourceScope(\"VxCuiCmdsRes.dll\") -> true";
const char* const kNotEntered = "enterResourceScope(\"VxCuiCmdsRes.dll\") -> false";
const char* const kLeft = "leaveResourceScope(0)";

using NewCommand = IQuelBuildInCommand* (*)();

template<typename Command>
IQuelBuildInCommand* newCommand()
{
    return new Command;
}

// A way of the first name through its run. The list is main;plant, and the prompt, the host's
// store and so on are as `prepare` makes them.
struct Way
{
    const char* name;
    bool ofLoad;
    int status; // of the first name
    std::function<void(const recording::MenuFolder&)> prepare;
};

void type(const std::wstring& text)
{
    host().strings.next({5100, text});
}

void openDialog()
{
    host().controlsGenerated.usually(false);
    host().useDialog.usually(true);
    host().setVariable(L"FILEDIA", short{1});
}

const std::vector<Way>& ways()
{
    using Folder = recording::MenuFolder;
    static const std::vector<Way> all{
        {"Loaded", true, 5100, [](const Folder& folder) { type(folder.path(L"survey.cuix")); }},
        {"LoadedAlready", true, 0, [](const Folder& folder) { type(folder.path(L"plant.cuix")); }},
        {"LoadWithoutStore", true, 0,
         [](const Folder& folder) {
             host().storeIsThere.usually(false);
             type(folder.path(L"survey.cuix"));
         }},
        {"LoadCancelled", true, -5002, [](const Folder&) {}},
        {"LoadAskedAgain", true, -5002, [](const Folder&) { type(L"nowhere.cuix"); }},
        {"LoadInTheDialog", true, 5100, [](const Folder&) { openDialog(); }},
        {"Unloaded", false, 5100, [](const Folder& folder) { type(folder.path(L"plant.cuix")); }},
        {"NotLoaded", false, 5100, [](const Folder& folder) { type(folder.path(L"survey.cuix")); }},
        {"MainFile", false, 0, [](const Folder& folder) { type(folder.path(L"main.cuix")); }},
        {"UnloadWithoutStore", false, 0,
         [](const Folder& folder) {
             host().storeIsThere.usually(false);
             type(folder.path(L"plant.cuix"));
         }},
        {"UnloadUnreadable", false, 5100,
         [](const Folder& folder) {
             host().readFailures.usually(1);
             type(folder.path(L"plant.cuix"));
         }},
        {"UnloadRefused", false, 5100, [](const Folder&) { type(L"nowhere.cuix"); }},
        {"UnloadCancelled", false, -5002, [](const Folder&) {}},
        {"UnloadEmpty", false, 5000,
         [](const Folder&) {
             host().strings.next({5000, std::nullopt});
         }},
        {"UnloadFailed", false, -5001,
         [](const Folder&) {
             host().strings.next({-5001, std::nullopt});
         }},
        {"UnloadInTheDialog", false, 5100, [](const Folder&) { openDialog(); }},
        {"UnloadByTilde", false, 5100,
         [](const Folder&) {
             host().controlsGenerated.usually(false);
             type(L"~");
         }},
    };
    return all;
}

struct SecondName : testing::TestWithParam<Way>
{
    recording::MenuFolder folder;
    recording::Context context;
    std::unique_ptr<IQuelBuildInCommand> first;
    std::unique_ptr<IQuelBuildInCommand> second;

    SecondName()
        : first(GetParam().ofLoad ? newCommand<Quel6916Command>() : newCommand<Quel6917Command>())
        , second(GetParam().ofLoad ? newCommand<Quel6940Command>() : newCommand<Quel6941Command>())
    {
        for (const wchar_t* name : {L"main.cuix", L"plant.cuix", L"survey.cuix"})
            folder.file(name);
        startAnew();
    }

    void startAnew() const
    {
        recording::reset();
        host().setVariable(L"FILEDIA", short{0});
        host().setStringSetting(L"CUIX/LoadedCuix",
                                folder.path(L"main.cuix") + L";" + folder.path(L"plant.cuix"));
        GetParam().prepare(folder);
    }

    int run() { return second->execute(&context); }
};

INSTANTIATE_TEST_SUITE_P(Ways, SecondName, testing::ValuesIn(ways()),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

TEST_P(SecondName, RunsTheFirstInsideItsScopeAndCompletes)
{
    EXPECT_EQ(first->execute(&context), GetParam().status);
    Lines expected = host().trace;
    expected.insert(expected.begin(), kEntered);
    expected.push_back(kLeft);
    const std::wstring stored = host().stringSetting(L"CUIX/LoadedCuix");
    const std::wstring printed = host().printed;

    startAnew();
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(host().trace, expected);
    EXPECT_EQ(host().stringSetting(L"CUIX/LoadedCuix"), stored);
    EXPECT_EQ(host().printed, printed);
    EXPECT_EQ(host().lastContext, &context);
    EXPECT_EQ(host().resourceStack.size(), 1U);
}

TEST_P(SecondName, LeavesExactlyWhatWasEntered)
{
    struct Row
    {
        const char* name;
        bool outer;
        bool inner;
    };
    for (const Row& row :
         {Row{"neither", false, false}, Row{"outer", true, false}, Row{"inner", false, true}}) {
        startAnew();
        host().contextScope.next(row.outer);
        host().contextScope.next(row.inner);
        EXPECT_EQ(run(), 5100) << row.name;
        EXPECT_EQ(host().calls("enterResourceScope"),
                  (Lines{row.outer ? kEntered : kNotEntered, row.inner ? kEntered : kNotEntered}))
            << row.name;
        const bool entered = row.outer || row.inner;
        EXPECT_EQ(host().calls("leaveResourceScope"), (Lines(entered ? 1 : 0, kLeft))) << row.name;
        EXPECT_EQ(host().count("commandShouldUseDialog"), 1) << row.name;
        EXPECT_EQ(host().resourceStack.size(), 1U) << row.name;
        EXPECT_EQ(host().leavesWithoutEnter, 0) << row.name;
    }
}

TEST_P(SecondName, NestsItsScopeAroundTheFirstNames)
{
    std::vector<std::size_t> depths;
    const auto note = [&depths] { depths.push_back(host().resourceStack.size()); };
    host().onCall("enterResourceScope", 1, note);
    host().onCall("enterResourceScope", 2, note);
    host().onCall("commandShouldUseDialog", 1, note);
    host().onCall("leaveResourceScope", 1, note);
    host().onCall("leaveResourceScope", 2, note);
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(depths, (std::vector<std::size_t>{1, 2, 3, 3, 2}));
}

TEST_P(SecondName, LetsEveryErrorOfTheHostPassAndLeavesBothScopes)
{
    ASSERT_EQ(run(), 5100);
    const auto calls = recording::callsThatMayThrow(host().trace);
    ASSERT_GE(calls.size(), 5U);
    for (const auto& call : calls) {
        for (const bool enters : {true, false}) {
            startAnew();
            host().contextScope.usually(enters);
            const VxErrorStatus* const thrown = host().throwOnCall(call.function, call.which);
            const auto error = recording::errorThrownBy([this] { run(); });
            EXPECT_EQ(error.get(), thrown) << call.function << call.which;
            EXPECT_TRUE(recording::onlyGivesBackBehind(host().trace, call.line))
                << call.function << call.which;
            const int entered = call.function == "enterResourceScope" ? call.which - 1 : 2;
            EXPECT_EQ(host().count("leaveResourceScope"), enters ? entered : 0)
                << call.function << call.which;
            EXPECT_EQ(host().resourceStack.size(), 1U) << call.function << call.which;
            EXPECT_EQ(host().leavesWithoutEnter, 0) << call.function << call.which;
        }
    }
}

TEST_P(SecondName, LetsErrorsOfOtherKindsPassToo)
{
    host().onCall("commandShouldUseDialog", 1, [] { throw std::runtime_error("broken"); });
    EXPECT_THROW(run(), std::runtime_error);
    EXPECT_EQ(Lines(host().trace.end() - 2, host().trace.end()), (Lines{kLeft, kLeft}));
    startAnew();
    host().onCall("quedGetVar", 1, [] { throw 17; });
    EXPECT_THROW(run(), int);
    EXPECT_EQ(Lines(host().trace.end() - 2, host().trace.end()), (Lines{kLeft, kLeft}));
}

TEST_P(SecondName, RunsAgainWithTheSameObject)
{
    EXPECT_EQ(run(), 5100);
    const Lines before = host().trace;
    startAnew();
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(host().trace, before);
}

TEST(SecondNameOfMenuUnload, CompletesWhateverThePromptReports)
{
    recording::Context context;
    for (const int status : {-5002, 5000, 0, 1, -1, -5001, 5101, INT_MIN, INT_MAX}) {
        host().strings.next({status, std::nullopt});
        Quel6917Command first;
        EXPECT_EQ(first.execute(&context), status);
        host().strings.next({status, std::nullopt});
        Quel6941Command second;
        EXPECT_EQ(second.execute(&context), 5100) << status;
    }
}

TEST(SecondNames, EachRunsItsOwnFirstName)
{
    recording::Context context;
    Quel6940Command load;
    EXPECT_EQ(load.execute(&context), 5100);
    Quel6941Command unload;
    EXPECT_EQ(unload.execute(&context), 5100);
    EXPECT_EQ(host().calls("quedGetString"),
              (Lines{"quedGetString(0, \"Enter name of menu file to load:\") -> -5002",
                     "quedGetString(0, \"Enter the name of a Menu Group to unload:\") -> -5002"}));
}

namespace {

struct LeaveRow
{
    const char* name;
    NewCommand newCommand;
    int leave;          // the call that throws: 1 is the first name's, 2 the second name's own
    bool whileThrowing; // on the way of another error
};

struct LeaveThatThrows : testing::TestWithParam<LeaveRow>
{};
using SecondNameDeathTest = LeaveThatThrows;

INSTANTIATE_TEST_SUITE_P(
    Leaves, SecondNameDeathTest,
    testing::Values(LeaveRow{"LoadInner", newCommand<Quel6940Command>, 1, false},
                    LeaveRow{"LoadOuter", newCommand<Quel6940Command>, 2, false},
                    LeaveRow{"LoadInnerWhileThrowing", newCommand<Quel6940Command>, 1, true},
                    LeaveRow{"LoadOuterWhileThrowing", newCommand<Quel6940Command>, 2, true},
                    LeaveRow{"UnloadInner", newCommand<Quel6941Command>, 1, false},
                    LeaveRow{"UnloadOuter", newCommand<Quel6941Command>, 2, false},
                    LeaveRow{"UnloadInnerWhileThrowing", newCommand<Quel6941Command>, 1, true},
                    LeaveRow{"UnloadOuterWhileThrowing", newCommand<Quel6941Command>, 2, true}),
    [](const auto& row) { return std::string(row.param.name); });

// Runs the command, which says what it calls, and exits with 0 unless the process ended before.
[[noreturn]] void runToTheEnd(const LeaveRow& row)
{
    recording::Context context;
    host().announce = true;
    host().throwOnCall("leaveResourceScope", row.leave);
    if (row.whileThrowing)
        host().throwOnCall("quedGetString");
    const std::unique_ptr<IQuelBuildInCommand> command(row.newCommand());
    const auto error = recording::errorThrownBy([&] { command->execute(&context); });
    std::exit(0);
}

} // namespace

TEST_P(SecondNameDeathTest, EndsTheProcess)
{
    // The calls from the prompt on, with the leaves before the one that throws and itself.
    std::string said = "quedGetString\\([^\n]*\n";
    said += GetParam().whileThrowing ? "" : "quedInitGet\\(0, null\\)\n";
    for (int leave = 0; leave < GetParam().leave; ++leave)
        said += "leaveResourceScope\\(0\\)\n";
    EXPECT_EXIT(runToTheEnd(GetParam()), testing::KilledBySignal(SIGABRT),
                said + "terminate called");
}
