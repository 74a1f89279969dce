// REINIT: the question, whose answer decides whether the alias list is made anew.
#include "commands/reinitcommand.h"

#include "refhost/core/widetext.h"
#include "tests/support/recordinghost.h"
#include "tests/support/thrownerror.h"
#include "tests/support/tracetext.h"

#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <stdexcept>

using quelhost::toUtf8;
using recording::host;
using recording::shown;
using Lines = std::vector<std::string>;

namespace {

constexpr wchar_t kModuleFile[] = L"VxCuiCmdsRes.dll";
const std::string kText = "\"Re-Load QUELD.pgp?\"";
const std::string kManager = "quCmdAliasManagerPtr() -> manager";
const std::string kNoManager = "quCmdAliasManagerPtr() -> null";

struct Reinit : testing::Test
{
    recording::Context context;
    Quel6935Command command;

    int run() { return command.execute(&context); }

    // The question of a run with that resource text and that alias file; the user declines.
    std::string question(const recording::MaybeText& text, const recording::MaybeText& file)
    {
        recording::reset();
        host().resources[kModuleFile][6700] = text;
        return questionAbout(file);
    }
    // The same with the module's own text.
    std::string questionAbout(const recording::MaybeText& file)
    {
        host().aliasFile = file;
        host().boxes.usually(2);
        EXPECT_EQ(run(), -5001);
        const Lines boxes = host().calls("AfxMessageBox");
        return boxes.empty() ? "none" : boxes.front();
    }

    // How a box of that question stands in the trace.
    static std::string box(const std::wstring& text, int answer = 2)
    {
        return "AfxMessageBox(" + shown(text) + ", 0x1, 0) -> " + std::to_string(answer);
    }
};

Lines runWith(const Lines& calls)
{
    Lines lines = {"enterResourceScope(\"VxCuiCmdsRes.dll\") -> true",
                   "qumdQuResourceString(6700, " + kText + ") -> " + kText};
    lines.insert(lines.end(), calls.begin(), calls.end());
    lines.push_back("leaveResourceScope(0)");
    return lines;
}

} // namespace

TEST_F(Reinit, MakesTheAliasListAnewInThisOrder)
{
    host().aliasFile = L"site.pgp";
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(host().trace, runWith({kManager, "getCurValidPgpFileName() -> \"site.pgp\"",
                                     box(L"Re-Load site.pgp?", 1), kManager,
                                     "uninitAliasNameList()", "initAliasNameList(true) -> true"}));
    EXPECT_EQ(host().printed, L"");
}

TEST_F(Reinit, LeavesTheListAloneWhenTheUserDeclines)
{
    for (const int answer : {2, 0, 6, 7, -1, 5100, -5002, INT_MIN, INT_MAX}) {
        recording::reset();
        host().boxes.usually(answer);
        EXPECT_EQ(run(), -5001) << answer;
        EXPECT_EQ(host().trace, runWith({kManager, "getCurValidPgpFileName() -> \"QUELD.pgp\"",
                                         box(L"Re-Load QUELD.pgp?", answer)}));
    }
}

TEST_F(Reinit, ReportsARebuildThatFailedBehindTheDiscardedList)
{
    host().aliasesRead.next(false);
    EXPECT_EQ(run(), -5001);
    EXPECT_EQ(host().trace, runWith({kManager, "getCurValidPgpFileName() -> \"QUELD.pgp\"",
                                     box(L"Re-Load QUELD.pgp?", 1), kManager,
                                     "uninitAliasNameList()", "initAliasNameList(true) -> false"}));
    EXPECT_EQ(run(), 5100);
}

TEST_F(Reinit, NamesTheUsualFileWithoutAManagerAndReloadsNothing)
{
    for (const int answer : {1, 2}) {
        recording::reset();
        host().aliasFile = L"site.pgp";
        host().aliasManagerIsThere.usually(false);
        host().boxes.usually(answer);
        EXPECT_EQ(run(), -5001) << answer;
        Lines calls = {kNoManager, box(L"Re-Load QUELD.pgp?", answer)};
        if (answer == 1)
            calls.push_back(kNoManager);
        EXPECT_EQ(host().trace, runWith(calls)) << answer;
    }
}

TEST_F(Reinit, DiscardsNothingWhenTheManagerHasGoneMeanwhile)
{
    host().aliasManagerIsThere.next(true);
    host().aliasManagerIsThere.next(false);
    host().aliasFile = L"site.pgp";
    EXPECT_EQ(run(), -5001);
    EXPECT_EQ(host().trace, runWith({kManager, "getCurValidPgpFileName() -> \"site.pgp\"",
                                     box(L"Re-Load site.pgp?", 1), kNoManager}));
}

TEST_F(Reinit, ReloadsThroughAManagerThatHasComeMeanwhile)
{
    host().aliasManagerIsThere.next(false);
    host().aliasManagerIsThere.next(true);
    host().aliasFile = L"site.pgp";
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(host().trace, runWith({kNoManager, box(L"Re-Load QUELD.pgp?", 1), kManager,
                                     "uninitAliasNameList()", "initAliasNameList(true) -> true"}));
}

TEST_F(Reinit, AsksAboutTheFileInForce)
{
    struct Row
    {
        recording::MaybeText file;
        std::wstring named;
    };
    const std::wstring longName(3000, L'n');
    for (const Row& row : {Row{L"QUELD.pgp", L"QUELD.pgp"},
                           Row{L"site.pgp", L"site.pgp"},
                           Row{L"site.PGP", L"site.PGP"},
                           Row{L"site.pGp", L"site.pGp"},
                           Row{L"site.txt", L"site.txt.pgp"},
                           Row{L"site.pgp.bak", L"site.pgp.bak.pgp"},
                           Row{L"site.pgp ", L"site.pgp .pgp"},
                           Row{L"site", L"site.pgp"},
                           Row{L"sitepgp", L"sitepgp.pgp"},
                           Row{L"site.", L"site..pgp"},
                           Row{L"a", L"a.pgp"},
                           Row{L"pgp", L"pgp.pgp"},
                           Row{L"abcd", L"abcd.pgp"},
                           Row{L"", L".pgp"},
                           Row{std::nullopt, L".pgp"},
                           Row{L".pgp", L".pgp"},
                           Row{L".PGP", L".PGP"},
                           Row{L"x.pgp", L"x.pgp"},
                           Row{L"queld.pgp", L"queld.pgp"},
                           Row{L"MyQUELD.pgp", L"MyQUELD.pgp"},
                           Row{L"QUELD.pgpQUELD.pgp", L"QUELD.pgpQUELD.pgp"},
                           Row{L"QUELD.pgp.old", L"QUELD.pgp.old.pgp"},
                           Row{L"100%s.pgp", L"100%s.pgp"},
                           Row{L"%n%%%d", L"%n%%%d.pgp"},
                           Row{L"two words.pgp", L"two words.pgp"},
                           Row{L"caf\u00E9\U0001F600.pgp", L"caf\u00E9\U0001F600.pgp"},
                           Row{longName, longName + L".pgp"}}) {
        recording::reset();
        EXPECT_EQ(questionAbout(row.file), box(L"Re-Load " + row.named + L"?"));
    }
}

TEST_F(Reinit, PutsTheNameInEveryPlaceOfTheText)
{
    struct Row
    {
        const char* name;
        recording::MaybeText text;
        const wchar_t* file;
        std::wstring question;
    };
    const std::wstring longName = std::wstring(2000, L'l') + L".pgp";
    for (const Row& row :
         {Row{"no place", L"Read again?", L"site.pgp", L"Read again?"},
          Row{"another case", L"queld.pgp QUELD.PGP?", L"site.pgp", L"queld.pgp QUELD.PGP?"},
          Row{"half a place", L"QUELD. pgp QUELD.pg", L"site.pgp", L"QUELD. pgp QUELD.pg"},
          Row{"two places", L"QUELD.pgp: read QUELD.pgp?", L"site.pgp",
              L"site.pgp: read site.pgp?"},
          Row{"a longer name", L"QUELD.pgp: read QUELD.pgp?", L"MyQUELD.pgp",
              L"MyQUELD.pgp: read MyQUELD.pgp?"},
          Row{"a shorter name", L"QUELD.pgp: read QUELD.pgp?", L"a", L"a.pgp: read a.pgp?"},
          Row{"the same name", L"QUELD.pgp: read QUELD.pgp?", L"QUELD.pgp",
              L"QUELD.pgp: read QUELD.pgp?"},
          Row{"side by side", L"QUELD.pgpQUELD.pgpQUELD.pgp", L"ab.pgp", L"ab.pgpab.pgpab.pgp"},
          Row{"the place alone", L"QUELD.pgp", L"site.pgp", L"site.pgp"},
          Row{"after a false start", L"QUELD.pgQUELD.pgp", L"b", L"QUELD.pgb.pgp"},
          Row{"a place that the name completes", L"QQUELD.pgpUELD.pgp", L"QUELD.pgp",
              L"QQUELD.pgpUELD.pgp"},
          Row{"a place made by a shorter name", L"QUEQUELD.pgpD.pgp", L"L", L"QUEL.pgpD.pgp"},
          Row{"a very long name", L"QUELD.pgp, QUELD.pgp.", longName.c_str(),
              longName + L", " + longName + L"."},
          Row{"an empty text", L"", L"site.pgp", L""},
          Row{"a null text", std::nullopt, L"site.pgp", L""},
          Row{"a long text", std::wstring(1000, L't') + L"QUELD.pgp", L"a",
              std::wstring(1000, L't') + L"a.pgp"}}) {
        EXPECT_EQ(question(row.text, row.file), box(row.question)) << row.name;
    }
}

TEST_F(Reinit, FormatsTheTextButNotTheName)
{
    EXPECT_EQ(question(L"100%% of QUELD.pgp?", L"50%%d.pgp"), box(L"100% of 50%%d.pgp?"));
    EXPECT_EQ(question(L"%%s QUELD.pgp", L"%ls.pgp"), box(L"%s %ls.pgp"));
}

TEST_F(Reinit, TakesTheTextOfTheModulesFile)
{
    host().resources[kModuleFile][6700] = L"QUELD.pgp neu laden?";
    host().resources[L"QUELDRes.dll"][6700] = L"wrong file";
    host().aliasFile = L"site.pgp";
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(host().calls("AfxMessageBox"), Lines{box(L"site.pgp neu laden?", 1)});
    EXPECT_EQ(host().defaultTexts[6700], L"Re-Load QUELD.pgp?");
}

TEST_F(Reinit, PrintsNothingOnAnyWay)
{
    struct Row
    {
        const char* name;
        int answer;
        bool manager;
        bool read;
    };
    for (const Row& row : {Row{"reloaded", 1, true, true}, Row{"failed", 1, true, false},
                           Row{"declined", 2, true, true}, Row{"no manager", 1, false, true}}) {
        recording::reset();
        host().boxes.usually(row.answer);
        host().aliasManagerIsThere.usually(row.manager);
        host().aliasesRead.usually(row.read);
        run();
        for (const char* function : {"quutPrintf", "promptf", "MessageBoxW", "quedGetString"})
            EXPECT_EQ(host().count(function), 0) << row.name << function;
        EXPECT_EQ(host().count("AfxMessageBox"), 1) << row.name;
        EXPECT_EQ(host().resourceStack.size(), 1U) << row.name;
    }
}

TEST_F(Reinit, RunsWithoutAScopeWhenThereIsNone)
{
    host().contextScope.usually(false);
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(host().count("uninitAliasNameList"), 1);
    EXPECT_EQ(host().count("leaveResourceScope"), 0);
    EXPECT_EQ(host().leavesWithoutEnter, 0);
}

TEST_F(Reinit, RunsAgainWithTheSameObject)
{
    host().boxes.next(2);
    EXPECT_EQ(run(), -5001);
    host().aliasesRead.next(false);
    EXPECT_EQ(run(), -5001);
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(host().count("leaveResourceScope"), 3);
}

TEST_F(Reinit, LetsEveryErrorOfTheHostPassAndLeavesItsScope)
{
    ASSERT_EQ(run(), 5100);
    const auto calls = recording::callsThatMayThrow(host().trace);
    ASSERT_EQ(calls.size(), 8U);
    for (const auto& call : calls) {
        for (const bool enters : {true, false}) {
            recording::reset();
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

TEST_F(Reinit, LetsErrorsOfOtherKindsPassToo)
{
    host().onCall("AfxMessageBox", 1, [] { throw std::runtime_error("broken"); });
    EXPECT_THROW(run(), std::runtime_error);
    host().onCall("initAliasNameList", 1, [] { throw 17; });
    EXPECT_THROW(run(), int);
    EXPECT_EQ(host().count("leaveResourceScope"), 2);
    EXPECT_EQ(run(), 5100);
}
