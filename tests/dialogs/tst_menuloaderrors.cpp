// The menu load dialog when something goes wrong: errors that travel as pointers, no store, no
// display, no description. MENULOAD or MENUUNLOAD runs around it.
#include "commands/menuunloadcommand.h"
#include "menuload/menuloadcommand.h"

#include "tests/dialogs/menuloaddialogtest.h"
#include "tests/support/thrownerror.h"

#include <QTemporaryDir>

using dialogtest::click;
using dialogtest::Controls;
using dialogtest::services;
using recording::errorThrownBy;
using recording::host;
using Lines = std::vector<std::string>;

namespace {

struct MenuLoadErrors : dialogtest::MenuLoadDialog
{
    MenuLoadErrors()
    {
        host().resourceStack.resize(1);
        host().useDialog.usually(true);
        host().setVariable(L"FILEDIA", short{1});
    }

    int menuload() { return Quel6916Command().execute(&context); }

    const std::wstring main = folder.file(L"QUELD.cuix");
    const std::wstring plant = folder.file(L"plant.cuix");
};

} // namespace

TEST_F(MenuLoadErrors, MenuloadRefreshesOnceAfterTheDialogHasClosed)
{
    next([&](const Controls& controls) {
        controls.type(plant);
        click(controls.load);
        EXPECT_EQ(host().count("refresh"), 0);
        controls.pressEscape();
    });
    EXPECT_EQ(menuload(), 5100);
    EXPECT_EQ(host().count("refresh"), 1);
    EXPECT_EQ(host().count("loadMenuFile"), 0);
    EXPECT_EQ(host().trace.back(), "leaveResourceScope(0)");
}

TEST_F(MenuLoadErrors, MenuloadWithoutAChangeRefreshesNothing)
{
    next([](const Controls& controls) { click(controls.ok); });
    EXPECT_EQ(menuload(), 5100);
    EXPECT_EQ(host().count("refresh"), 0);
}

TEST_F(MenuLoadErrors, AnErrorOutOfLoadLeavesMenuload)
{
    const VxErrorStatus* const thrown = host().throwOnCall("setValue");
    next([&](const Controls& controls) {
        controls.type(plant);
        click(controls.load);
        EXPECT_FALSE(controls.dialog.isVisible());
    });
    const auto error = errorThrownBy([&] { menuload(); });
    EXPECT_EQ(error.get(), thrown);
    EXPECT_EQ(host().calls("leaveResourceScope"), Lines{"leaveResourceScope(0)"});
    EXPECT_EQ(host().count("refresh"), 0);
    EXPECT_EQ(host().resourceStack.size(), 1U);

    next([&](const Controls& controls) {
        EXPECT_TRUE(controls.dialog.isVisible());
        controls.type(plant);
        click(controls.load);
        EXPECT_EQ(controls.groups.count(), 1);
        click(controls.ok);
    });
    EXPECT_EQ(menuload(), 5100);
    EXPECT_EQ(list(), L";" + plant);
}

TEST_F(MenuLoadErrors, AnErrorOutOfUnloadLeavesMenuload)
{
    setList(main + L";" + plant);
    answerBoxes(1);
    const VxErrorStatus* const thrown = host().throwOnCall("setValue");
    next([&](const Controls& controls) {
        controls.select(1);
        click(controls.unload);
    });
    EXPECT_EQ(errorThrownBy([&] { menuload(); }).get(), thrown);
    EXPECT_EQ(host().trace.back(), "leaveResourceScope(0)");
}

TEST_F(MenuLoadErrors, AnErrorOutOfOkLeavesMenuload)
{
    const VxErrorStatus* const thrown = host().throwOnCall("setValue", 2);
    next([](const Controls& controls) { QTest::keyClick(&controls.file, Qt::Key_Return); });
    EXPECT_EQ(errorThrownBy([&] { menuload(); }).get(), thrown);
    EXPECT_EQ(writes(), 2);
}

TEST_F(MenuLoadErrors, AnErrorWhileTheListIsFilledLeavesMenuloadBeforeAnythingIsShown)
{
    const VxErrorStatus* const thrown = host().throwOnCall("getValue");
    EXPECT_EQ(errorThrownBy([&] { menuload(); }).get(), thrown);
    EXPECT_EQ(script.shown(), 0);
    EXPECT_EQ(host().trace.back(), "leaveResourceScope(0)");
}

TEST_F(MenuLoadErrors, AnErrorOutOfBrowseAndOfTheQuestionLeavesMenuload)
{
    setList(main + L";" + plant);
    const VxErrorStatus* const fromBrowse = host().throwOnCall("vxGetFileDialog");
    next([](const Controls& controls) { click(controls.browse); });
    EXPECT_EQ(errorThrownBy([&] { menuload(); }).get(), fromBrowse);

    auto* const fromBox = new VxErrorStatus(Quel::eNoMemory, L"box", 1);
    services().askBox = [fromBox](const quelhost::BoxRequest&) -> int { throw fromBox; };
    next([](const Controls& controls) {
        controls.select(1);
        click(controls.unload);
    });
    EXPECT_EQ(errorThrownBy([&] { menuload(); }).get(), fromBox);
    EXPECT_EQ(host().count("leaveResourceScope"), 2);
}

TEST_F(MenuLoadErrors, WithoutAStoreTheDialogWorksAndDoesNothing)
{
    host().storeIsThere.usually(false);
    const Outcome outcome = run([&](const Controls& controls) {
        EXPECT_EQ(controls.groups.count(), 0);
        controls.type(plant);
        click(controls.load);
        EXPECT_EQ(controls.groups.count(), 0);
        click(controls.ok);
    });
    EXPECT_EQ(outcome.result, 1);
    EXPECT_FALSE(outcome.changed);
    EXPECT_TRUE(boxes().empty());
    EXPECT_TRUE(host().printed.empty());
}

TEST_F(MenuLoadErrors, AListThatCannotBeReadIsShownEmptyAndLoadsNothing)
{
    setList(main);
    host().readFailures.usually(7);
    const Outcome outcome = run([&](const Controls& controls) {
        EXPECT_EQ(controls.groups.count(), 0);
        controls.type(plant);
        click(controls.load);
        controls.pressEscape();
    });
    EXPECT_FALSE(outcome.changed);
    EXPECT_EQ(list(), main);
    EXPECT_TRUE(boxes().empty());
}

TEST_F(MenuLoadErrors, WithoutADisplayOneSentenceIsToldAndTheCommandEnds)
{
    services().hasDisplay = false;
    EXPECT_EQ(menuload(), 5100);
    EXPECT_EQ(script.shown(), 0);
    EXPECT_EQ(services().sentences,
              QStringList{QStringLiteral("There is no display, so the dialog cannot be shown.")});
    EXPECT_EQ(host().count("refresh"), 0);
    EXPECT_EQ(VxMenuLoadDlg(&context, nullptr).DoModal(), -1);
}

TEST_F(MenuLoadErrors, WithoutADescriptionOneSentenceIsToldAndTheCommandEnds)
{
    const QTemporaryDir empty;
    services().resourceFolder = empty.path();
    EXPECT_EQ(menuload(), 5100);
    EXPECT_EQ(script.shown(), 0);
    EXPECT_EQ(services().sentences,
              QStringList{QStringLiteral("The dialog cannot be shown: its description "
                                         "VxCuiCmdsRes/VxMenuCmdRes/IDD_MENU_LOAD_DLG is not "
                                         "there.")});
    EXPECT_EQ(VxMenuLoadDlg(&context, nullptr).DoModal(), -1);
}

TEST_F(MenuLoadErrors, ATildeOpensTheDialogFromTheCommandLine)
{
    host().setVariable(L"FILEDIA", short{0});
    host().strings.next({5100, L"~"});
    next([](const Controls& controls) { click(controls.ok); });
    EXPECT_EQ(menuload(), 5100);
    EXPECT_EQ(script.shown(), 1);
}

TEST_F(MenuLoadErrors, TheSameDialogServesMenuunload)
{
    setList(main + L";" + plant);
    answerBoxes(1);
    next([](const Controls& controls) {
        controls.select(1);
        click(controls.unload);
        controls.pressEscape();
    });
    EXPECT_EQ(Quel6917Command().execute(&context), 5100);
    EXPECT_EQ(script.shown(), 1);
    EXPECT_EQ(list(), main);
    EXPECT_EQ(host().count("refresh"), 1);
}
