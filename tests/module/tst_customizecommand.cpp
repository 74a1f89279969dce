// CUSTOMIZE: the question, whose answer decides which editor opens.
#include "commands/customizecommand.h"

#include "tests/support/recordinghost.h"
#include "tests/support/thrownerror.h"
#include "tests/support/tracetext.h"

#include <gtest/gtest.h>

#include <climits>
#include <stdexcept>

using recording::host;
using recording::MaybeText;
using recording::shown;
using Lines = std::vector<std::string>;

namespace {

constexpr wchar_t kModuleFile[] = L"VxCuiCmdsRes.dll";
const std::string kAccelerators = "vxExcuteWSCommand(1, null, null) -> 5100";
const std::string kToolbars = "vxExcuteWSCommand(2, null, null) -> 5100";

struct Customize : testing::Test
{
    recording::Context context;
    Quel60005Command command;

    Customize() { startAnew(); }

    static void startAnew()
    {
        recording::reset();
        host().resources[kModuleFile] = {{8051, L"Which? "}, {8052, L"Accelerator Toolbar"}};
    }
    int run() { return command.execute(&context); }
    int runWith(int status, const MaybeText& text)
    {
        startAnew();
        host().keywords.next({status, text});
        return run();
    }
};

// All calls of a run whose prompt gets that answer, with those behind it.
Lines traceOf(const std::string& answer, const Lines& behind)
{
    Lines lines = {"enterResourceScope(\"VxCuiCmdsRes.dll\") -> true", "loadString(8052) -> true",
                   "quedInitGet(0, \"Accelerator Toolbar\") -> 5100", "loadString(8051) -> true",
                   "quedGetKword(\"Which? \") -> " + answer};
    lines.insert(lines.end(), behind.begin(), behind.end());
    lines.push_back("leaveResourceScope(0)");
    return lines;
}

std::string toldAnswer(int status, const MaybeText& text)
{
    return text ? shown(status) + " " + shown(*text) : shown(status);
}

} // namespace

TEST_F(Customize, EnterOpensTheAcceleratorEditor)
{
    EXPECT_EQ(runWith(5000, std::nullopt), 5100);
    EXPECT_EQ(host().trace, traceOf("5000", {kAccelerators}));
}

TEST_F(Customize, ToolbarInSmallLettersOpensTheToolbarEditor)
{
    EXPECT_EQ(runWith(5100, L"toolbar"), 5100);
    EXPECT_EQ(host().trace, traceOf("5100 \"toolbar\"", {kToolbars}));
}

TEST_F(Customize, CancelOpensNothingAndCompletes)
{
    EXPECT_EQ(runWith(-5002, std::nullopt), 5100);
    EXPECT_EQ(host().trace, traceOf("-5002", {}));
}

TEST_F(Customize, OpensTheEditorThatTheAnswerNames)
{
    struct Row
    {
        const char* name;
        MaybeText text;
        Lines opened;
    };
    for (const Row& row : {
             Row{"as offered", L"Accelerator", {kAccelerators}},
             Row{"in small letters", L"accelerator", {kAccelerators}},
             Row{"in capitals", L"ACCELERATOR", {kAccelerators}},
             Row{"in mixed case", L"aCCELERATOr", {kAccelerators}},
             Row{"the other as offered", L"Toolbar", {kToolbars}},
             Row{"the other in capitals", L"TOOLBAR", {kToolbars}},
             Row{"the other in mixed case", L"tOOLbAR", {kToolbars}},
             Row{"nothing", std::nullopt, {}},
             Row{"an empty text", L"", {}},
             Row{"a beginning", L"T", {}},
             Row{"all but the end", L"Accelerato", {}},
             Row{"one letter more", L"Accelerators", {}},
             Row{"the other with one letter more", L"Toolbars", {}},
             Row{"a blank before", L" Toolbar", {}},
             Row{"a blank behind", L"Toolbar ", {}},
             Row{"both", L"Accelerator Toolbar", {}},
             Row{"letters of other scripts", L"\u0422oolbar", {}},
             Row{"wide letters", L"\uFF34oolbar", {}},
             Row{"something else", L"Menu", {}},
             Row{"a conversion", L"%s%n", {}},
             Row{"all that fits", std::wstring(1023, L'T'), {}},
         }) {
        EXPECT_EQ(runWith(5100, row.text), 5100) << row.name;
        EXPECT_EQ(host().trace, traceOf(toldAnswer(5100, row.text), row.opened)) << row.name;
    }
}

TEST_F(Customize, LooksAtNoStatusButEnter)
{
    struct Row
    {
        MaybeText text;
        Lines opened;
    };
    for (const int status : {-5002, -5001, 0, 1, 5101, 4999, 5001, INT_MIN, INT_MAX}) {
        for (const Row& row : {Row{L"Toolbar", {kToolbars}}, Row{L"Accelerator", {kAccelerators}},
                               Row{L"Menu", {}}, Row{std::nullopt, {}}}) {
            EXPECT_EQ(runWith(status, row.text), 5100) << status;
            EXPECT_EQ(host().trace, traceOf(toldAnswer(status, row.text), row.opened)) << status;
        }
    }
}

TEST_F(Customize, EnterCountsMoreThanWhatTheAnswerHolds)
{
    for (const wchar_t* const text : {L"Toolbar", L"toolbar", L"Menu", L""}) {
        EXPECT_EQ(runWith(5000, text), 5100);
        EXPECT_EQ(host().trace, traceOf(toldAnswer(5000, text), {kAccelerators}));
    }
}

TEST_F(Customize, PassesTheStatusOfTheEditorOn)
{
    struct Row
    {
        int answered;
        MaybeText text;
        int editor;
    };
    for (const int status : {5100, -5002, -5001, 0, 5000, -1, INT_MIN, INT_MAX}) {
        for (const Row& row :
             {Row{5100, L"Accelerator", 1}, Row{5100, L"Toolbar", 2}, Row{5000, std::nullopt, 1}}) {
            startAnew();
            host().keywords.next({row.answered, row.text});
            host().editors.next(status);
            EXPECT_EQ(run(), status);
            EXPECT_EQ(host().calls("vxExcuteWSCommand"),
                      Lines{"vxExcuteWSCommand(" + std::to_string(row.editor) +
                            ", null, null) -> " + shown(status)});
        }
    }
}

TEST_F(Customize, GivesThePromptAnEmptyAnswerEachTime)
{
    host().keywords.next({5100, L"Toolbar"});
    host().keywords.next({-5002, std::nullopt});
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(host().answerWasZeroed, (std::vector<bool>{true, true}));
    EXPECT_EQ(host().calls("vxExcuteWSCommand"), Lines{kToolbars});
    EXPECT_EQ(host().count("quedInitGet"), 2);
    EXPECT_EQ(host().count("leaveResourceScope"), 2);
}

TEST_F(Customize, TakesTheTextsOfTheModulesFile)
{
    host().resources[L"QUELDRes.dll"] = {{8051, L"wrong file"}, {8052, L"wrong list"}};
    host().resources[kModuleFile] = {{8051, L"100%s? "}, {8052, L"Accelerator Toolbar Menu"}};
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(host().calls("quedInitGet"),
              Lines{"quedInitGet(0, \"Accelerator Toolbar Menu\") -> 5100"});
    EXPECT_EQ(host().calls("quedGetKword"), Lines{"quedGetKword(\"100%s? \") -> -5002"});
}

TEST_F(Customize, AsksWithEmptyTextsWhenThereAreNone)
{
    host().resources[kModuleFile] = {};
    host().keywords.next({5000, std::nullopt});
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(host().calls("quedInitGet"), Lines{"quedInitGet(0, \"\") -> 5100"});
    EXPECT_EQ(host().calls("quedGetKword"), Lines{"quedGetKword(\"\") -> 5000"});
    EXPECT_EQ(host().calls("vxExcuteWSCommand"), Lines{kAccelerators});
}

TEST_F(Customize, PrintsNothingOnAnyWay)
{
    struct Row
    {
        const char* name;
        int status;
        MaybeText text;
        int editor;
    };
    for (const Row& row :
         {Row{"opened", 5100, L"Toolbar", 5100}, Row{"editor cancelled", 5100, L"Toolbar", -5002},
          Row{"editor failed", 5000, std::nullopt, -5001},
          Row{"cancelled", -5002, std::nullopt, 5100}, Row{"unknown", 5100, L"Menu", 5100}}) {
        startAnew();
        host().keywords.next({row.status, row.text});
        host().editors.next(row.editor);
        run();
        EXPECT_EQ(host().printed, L"") << row.name;
        for (const char* function : {"quutPrintf", "promptf", "MessageBoxW", "AfxMessageBox"})
            EXPECT_EQ(host().count(function), 0) << row.name << function;
        EXPECT_EQ(host().count("quedGetKword"), 1) << row.name;
        EXPECT_EQ(host().resourceStack.size(), 1U) << row.name;
    }
}

TEST_F(Customize, RunsWithoutAScopeWhenThereIsNone)
{
    struct Row
    {
        MaybeText text;
        Lines opened;
    };
    for (const Row& row :
         {Row{L"Accelerator", {kAccelerators}}, Row{L"Toolbar", {kToolbars}}, Row{L"Menu", {}}}) {
        startAnew();
        host().contextScope.usually(false);
        host().keywords.next({5100, row.text});
        EXPECT_EQ(run(), 5100);
        EXPECT_EQ(host().calls("vxExcuteWSCommand"), row.opened);
        EXPECT_EQ(host().count("quedGetKword"), 1);
        EXPECT_EQ(host().count("leaveResourceScope"), 0);
        EXPECT_EQ(host().leavesWithoutEnter, 0);
    }
}

TEST_F(Customize, LetsEveryErrorOfTheHostPassAndLeavesItsScope)
{
    for (const wchar_t* const text : {L"Accelerator", L"Toolbar"}) {
        ASSERT_EQ(runWith(5100, text), 5100);
        const auto calls = recording::callsThatMayThrow(host().trace);
        ASSERT_EQ(calls.size(), 6U);
        for (const auto& call : calls) {
            for (const bool enters : {true, false}) {
                startAnew();
                host().keywords.next({5100, text});
                host().contextScope.usually(enters);
                const VxErrorStatus* const thrown = host().throwOnCall(call.function, call.which);
                const auto error = recording::errorThrownBy([this] { run(); });
                EXPECT_EQ(error.get(), thrown) << call.function << call.which;
                EXPECT_TRUE(recording::onlyGivesBackBehind(host().trace, call.line))
                    << call.function << call.which;
                const bool entered = enters && call.function != "enterResourceScope";
                EXPECT_EQ(host().count("leaveResourceScope"), entered ? 1 : 0)
                    << call.function << call.which;
                EXPECT_EQ(host().resourceStack.size(), 1U) << call.function << call.which;
            }
        }
    }
}

TEST_F(Customize, LetsErrorsOfOtherKindsPassToo)
{
    host().keywords.usually({5000, std::nullopt});
    host().onCall("quedGetKword", 1, [] { throw std::runtime_error("broken"); });
    EXPECT_THROW(run(), std::runtime_error);
    host().onCall("vxExcuteWSCommand", 1, [] { throw 17; });
    EXPECT_THROW(run(), int);
    EXPECT_EQ(host().count("leaveResourceScope"), 2);
    EXPECT_EQ(run(), 5100);
}
