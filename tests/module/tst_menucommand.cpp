// MENU.
#include "menufile/menucommand.h"

#include "tests/support/recordinghost.h"

#include <gtest/gtest.h>

namespace {

using recording::host;

struct Menu : testing::Test
{
    recording::Context context;
    Quel6915Command command;

    Menu()
    {
        host().setVariable(L"FILEDIA", short{0});
        host().setVariable(L"MENUNAME", std::wstring(L"mymenu"));
    }

    int run() { return command.execute(&context); }
    int type(const wchar_t* answer)
    {
        host().strings.next({5100, answer});
        return run();
    }
};

} // namespace

TEST_F(Menu, FindsTheDefaultThroughTheKinds)
{
    host().filesToFind[L"mymenu.cuix"] = L"/full/mymenu.cuix";
    EXPECT_EQ(type(L""), 5100);
    EXPECT_EQ(host().printed, L"");
    EXPECT_EQ(host().count("loadMenuFile"), 0);
    EXPECT_EQ(host().count("setValue"), 0);
}

TEST_F(Menu, TellsAFileThatIsNotThereWithoutQuotes)
{
    EXPECT_EQ(type(L""), -5001);
    EXPECT_EQ(host().printed, L"Menu file load failed.  File not found:mymenu");
}

TEST_F(Menu, ADotMeansNone)
{
    EXPECT_EQ(type(L"."), 5100);
    EXPECT_EQ(host().printed, L"");
    EXPECT_EQ(host().count("findFile"), 0);
}

TEST_F(Menu, TakesQuotesAndBlanksAway)
{
    host().filesToFind[L"a b.cuix"] = L"/full/a b.cuix";
    EXPECT_EQ(type(L" \"\" a b.cuix \"\" "), 5100);
    EXPECT_EQ(host().calls("findFile").front().substr(0, 20), "findFile(\"a b.cuix\")");
}

TEST_F(Menu, OnlyQuotesAndBlanksAreAnEmptyName)
{
    EXPECT_EQ(type(L"\" \"\""), -5001);
    EXPECT_EQ(host().printed, L"Menu file load failed.  File not found:");
    EXPECT_EQ(host().calls("findFile"),
              (std::vector<std::string>{"findFile(\".cuix\") -> 1", "findFile(\".cuix.mnu\") -> 1",
                                        "findFile(\".cuix.mnu.mns\") -> 1"}));
}

TEST_F(Menu, PrintsWhatWasTypedAndDoesNotObeyIt)
{
    EXPECT_EQ(type(L"/t/%s%n%ls\u043C.cuix"), -5001);
    EXPECT_EQ(host().printed, L"Menu file load failed.  File not found:/t/%s%n%ls\u043C.cuix");
}

TEST_F(Menu, CutsALongNameInTheMessage)
{
    EXPECT_EQ(type(std::wstring(2000, L'n').c_str()), -5001);
    const std::wstring start = L"Menu file load failed.  File not found:";
    EXPECT_EQ(host().printed.substr(0, start.size() + 1), start + L"n");
    const std::size_t cut = start.size() + 2 + 1022;
    EXPECT_TRUE(host().printed.size() == cut || host().printed.size() == cut + 1)
        << host().printed.size();
}

TEST_F(Menu, PassesACancelOn)
{
    host().strings.next({-5002, std::nullopt});
    EXPECT_EQ(run(), -5002);
    EXPECT_EQ(host().printed, L"");
}

TEST_F(Menu, UsesTheDialogWhenFileDialogsAreOn)
{
    host().setVariable(L"FILEDIA", short{1});
    host().fileDialogs.next({5100, L"/d/x.cuix", 0, 0});
    host().filesToFind[L"/d/x.cuix"] = L"/d/x.cuix";
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(host().count("quedGetString"), 0);
    host().fileDialogs.next({-5002, std::nullopt, 0, 0});
    const int writes = host().count("setValue");
    EXPECT_EQ(run(), -5002);
    EXPECT_EQ(host().count("setValue"), writes);
}

TEST_F(Menu, EndsQuietlyInDialogModeWithoutAStore)
{
    host().setVariable(L"FILEDIA", short{1});
    host().storeIsThere.next(false);
    EXPECT_EQ(run(), -5001);
    EXPECT_EQ(host().printed, L"");
}

TEST_F(Menu, HoldsItsScopeForTheWholeRun)
{
    EXPECT_EQ(type(L"x"), -5001);
    EXPECT_EQ(host().trace.front(), "enterResourceScope(\"VxCuiCmdsRes.dll\") -> true");
    EXPECT_EQ(host().trace.back(), "leaveResourceScope(0)");
    EXPECT_EQ(host().count("leaveResourceScope"), 1);
}

TEST_F(Menu, LeavesNoScopeThatItDidNotEnter)
{
    host().contextScope.next(false);
    EXPECT_EQ(type(L"x"), -5001);
    EXPECT_EQ(host().count("leaveResourceScope"), 0);
}

TEST_F(Menu, LeavesItsScopeWhenTheHostThrows)
{
    const VxErrorStatus* expected = host().throwOnCall("findFile");
    try {
        type(L"x");
        ADD_FAILURE() << "nothing was thrown";
    } catch (VxErrorStatus* error) {
        EXPECT_EQ(error, expected);
        delete error;
    }
    EXPECT_EQ(host().count("leaveResourceScope"), 1);
    EXPECT_TRUE(host().buffers.empty());
}
