// The warning before a template is loaded.
#include "menufile/menufilekinds.h"

#include "host/dialogs.h"
#include "tests/support/globallocale.h"
#include "tests/support/recordinghost.h"
#include "tests/support/thrownerror.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using recording::host;
using Lines = std::vector<std::string>;

constexpr wchar_t kHostFile[] = L"QUELDRes.dll";

const std::string kWarning =
    "Loading a template menu file will result in the loss of any toolbar customization changes "
    "that have been made.";
const std::string kQuestion = " Continue loading?";

std::string quoted(const std::string& text)
{
    return '"' + text + '"';
}

std::string lookup(int id, const std::string& text)
{
    return "qumdQuResourceString(" + std::to_string(id) + ", " + quoted(text) + ") -> " +
           quoted(text);
}

// The trace without what the box is given. That is fetched in either order.
Lines traceWithoutBoxArguments()
{
    Lines result = host().trace;
    const auto isArgument = [](const std::string& line) {
        return line.rfind("AfxGetMainWnd(", 0) == 0 || line.rfind("GetOemProductName(", 0) == 0;
    };
    result.erase(std::remove_if(result.begin(), result.end(), isArgument), result.end());
    return result;
}

struct ReplaceWarning : testing::Test
{
    CWnd window;

    ReplaceWarning() { prepare(1); }
    void prepare(short fileDialogs)
    {
        recording::reset();
        host().setVariable(L"FILEDIA", fileDialogs);
        host().productName = L"Product";
        host().mainWindow = &window;
    }
};

struct NameRow
{
    const char* name;
    const wchar_t* path;
    bool warned;
};

class ReplaceWarningFor : public ReplaceWarning, public testing::WithParamInterface<NameRow>
{};

INSTANTIATE_TEST_SUITE_P(
    MenuFiles, ReplaceWarningFor,
    testing::Values(
        NameRow{"MenuSource", L"a.mns", false}, NameRow{"MenuSourceInCapitals", L"a.MNS", false},
        NameRow{"MenuSourceInAFolder", L"/d.cuix/a b.mNs", false},
        NameRow{"SecondExtensionMenuSource", L"a.cuix.mns", false},
        NameRow{"OnlyTheExtension", L".mns", true}, NameRow{"Empty", L"", true},
        NameRow{"ShorterThanTheExtension", L"mns", true},
        NameRow{"Customization", L"menu.cuix", true}, NameRow{"Template", L"menu.mnu", true},
        NameRow{"Compiled", L"menu.menuc", true}, NameRow{"MenuSourceAndABlank", L"a.mns ", true},
        NameRow{"NoDot", L"aamns", true}, NameRow{"FirstExtension", L"a.mns.cuix", true},
        NameRow{"LongS", L"a.mn\u017F", true}, NameRow{"WideN", L"a.m\uFF2Es", true}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace

TEST_P(ReplaceWarningFor, IsShownUnlessAMenuSourceIsLoaded)
{
    EXPECT_EQ(MenuLoadReplaceAll(GetParam().path), GetParam().warned ? 181 : 0);
    EXPECT_EQ(host().count("MessageBoxW"), GetParam().warned ? 1 : 0);
    EXPECT_EQ(host().printed, L"");
}

TEST_P(ReplaceWarningFor, IsShownAlikeInAnotherGlobalLocale)
{
    const recording::GlobalLocale changed("C.UTF-8");
    EXPECT_EQ(MenuLoadReplaceAll(GetParam().path), GetParam().warned ? 181 : 0);
}

TEST_F(ReplaceWarning, LooksNothingUpForAMenuSourceFile)
{
    EXPECT_EQ(MenuLoadReplaceAll(L"a.mns"), 0);
    EXPECT_EQ(host().trace, (Lines{"SetCurrentResourceName(\"QUELDRes.dll\") -> true",
                                   "RestorePreviousResource()"}));
}

TEST_F(ReplaceWarning, AsksOverTheMainWindowUnderTheProductsName)
{
    host().boxes.next(6);
    EXPECT_EQ(MenuLoadReplaceAll(L"menu.cuix"), 0);
    EXPECT_EQ(
        traceWithoutBoxArguments(),
        (Lines{"SetCurrentResourceName(\"QUELDRes.dll\") -> true", lookup(11006, kWarning),
               "GetQuelAppCtxActiveDocData() -> flags 0", "quedScriptAppRunning() -> false",
               "quedGetVar(\"FILEDIA\") -> 5100", lookup(11008, kQuestion),
               "MessageBoxW(window, " + quoted(kWarning + kQuestion) + ", \"Product\", 0x4) -> 6",
               "RestorePreviousResource()"}));
    EXPECT_EQ(host().count("AfxGetMainWnd"), 1);
    EXPECT_EQ(host().count("GetOemProductName"), 1);
}

TEST_F(ReplaceWarning, AsksWithoutAMainWindowToo)
{
    host().mainWindow = nullptr;
    EXPECT_EQ(MenuLoadReplaceAll(L"menu.cuix"), 181);
    ASSERT_EQ(host().count("MessageBoxW"), 1);
    EXPECT_EQ(host().calls("MessageBoxW").front().substr(0, 18), "MessageBoxW(null, ");
}

TEST_F(ReplaceWarning, TakesYesAloneForConsent)
{
    for (const int answer : {7, 2, 0, 1, 5, -1, 6 + 256, 6 + 0x10000}) {
        host().boxes.next(answer);
        EXPECT_EQ(MenuLoadReplaceAll(L"menu.cuix"), 181) << answer;
    }
}

TEST_F(ReplaceWarning, IsPrintedAndNotAskedOnTheCommandLine)
{
    prepare(0);
    EXPECT_EQ(MenuLoadReplaceAll(L"menu.cuix"), 0);
    EXPECT_EQ(host().trace,
              (Lines{"SetCurrentResourceName(\"QUELDRes.dll\") -> true", lookup(11006, kWarning),
                     "GetQuelAppCtxActiveDocData() -> flags 0", "quedScriptAppRunning() -> false",
                     "quedGetVar(\"FILEDIA\") -> 5100", "quutPrintf(" + quoted(kWarning) + ")",
                     "RestorePreviousResource()"}));
}

TEST_F(ReplaceWarning, IsPrintedInAScriptAndForADocumentWithoutDialogs)
{
    host().scriptRuns.next(true);
    EXPECT_EQ(MenuLoadReplaceAll(L"menu.cuix"), 0);
    EXPECT_EQ(host().count("quutPrintf"), 1);
    host().documentFlags = 1;
    EXPECT_EQ(MenuLoadReplaceAll(L"menu.cuix"), 0);
    EXPECT_EQ(host().count("quutPrintf"), 2);
    EXPECT_EQ(host().count("MessageBoxW"), 0);
}

TEST_F(ReplaceWarning, ComesFromTheHostsFileAndIsItselfTheFormat)
{
    host().resources[kHostFile] = {{11006, L"W%d%s"}, {11008, L"Q?"}};
    host().resources[L"VxCuiCmdsRes.dll"] = {{11006, L"wrong"}, {11008, L"wrong"}};
    host().resourceStack.push_back(L"VxCuiCmdsRes.dll");
    EXPECT_EQ(MenuLoadReplaceAll(L"menu.cuix"), 181);
    EXPECT_EQ(host().calls("MessageBoxW"),
              Lines{"MessageBoxW(window, \"W%d%sQ?\", \"Product\", 0x4) -> 1"});
    host().setVariable(L"FILEDIA", short{0});
    EXPECT_EQ(MenuLoadReplaceAll(L"menu.cuix"), 0);
    EXPECT_EQ(host().calls("quutPrintf"), Lines{"quutPrintf(\"W%d%s\")"});
    EXPECT_EQ(host().printed, L"W%d%s");
    EXPECT_EQ(host().resourceStack.back(), L"VxCuiCmdsRes.dll");
    EXPECT_EQ(host().resourceStack.size(), 2U);
}

TEST_F(ReplaceWarning, IsEmptyWithoutTexts)
{
    host().resources[kHostFile] = {{11006, std::nullopt}, {11008, std::nullopt}};
    EXPECT_EQ(MenuLoadReplaceAll(L"menu.cuix"), 181);
    EXPECT_EQ(host().calls("MessageBoxW"),
              Lines{"MessageBoxW(window, \"\", \"Product\", 0x4) -> 1"});
    host().setVariable(L"FILEDIA", short{0});
    EXPECT_EQ(MenuLoadReplaceAll(L"menu.cuix"), 0);
    EXPECT_EQ(host().calls("quutPrintf"), Lines{"quutPrintf(\"\")"});
}

TEST_F(ReplaceWarning, RestoresNothingThatItDidNotSelect)
{
    host().globalScope.usually(false);
    EXPECT_EQ(MenuLoadReplaceAll(L"menu.cuix"), 181);
    EXPECT_EQ(MenuLoadReplaceAll(L"menu.mns"), 0);
    host().setVariable(L"FILEDIA", short{0});
    EXPECT_EQ(MenuLoadReplaceAll(L"menu.cuix"), 0);
    EXPECT_EQ(host().count("RestorePreviousResource"), 0);
}

TEST_F(ReplaceWarning, LetsEveryErrorPassAndRestoresTheFile)
{
    for (const short fileDialogs : {short{1}, short{0}}) {
        prepare(fileDialogs);
        MenuLoadReplaceAll(L"menu.cuix");
        const auto calls = recording::callsThatMayThrow(host().trace);
        ASSERT_EQ(calls.size(), fileDialogs == 1 ? 9U : 6U);
        for (const auto& call : calls) {
            prepare(fileDialogs);
            const VxErrorStatus* const thrown = host().throwOnCall(call.function, call.which);
            const auto error =
                recording::errorThrownBy([] { return MenuLoadReplaceAll(L"menu.cuix"); });
            EXPECT_EQ(error.get(), thrown) << call.function << call.which;
            EXPECT_TRUE(recording::onlyGivesBackBehind(host().trace, call.line))
                << call.function << call.which;
            EXPECT_EQ(host().count("RestorePreviousResource"), call.line == 0 ? 0 : 1)
                << call.function << call.which;
            EXPECT_EQ(host().resourceStack.size(), 1U) << call.function << call.which;
        }
    }
}
