// The base of the host's dialogs, with small dialogs derived from it.
#include "host/messageboxes.h"
#include "refhost/dialogs/modalrun.h"
#include "tests/dialogs/modalscript.h"
#include "tests/dialogs/smalldialog.h"
#include "tests/dialogs/testservices.h"
#include "tests/support/recordinghost.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QtTest/QTest>

#include <climits>

using dialogtest::services;
using dialogtest::SmallDialog;
using Steps = std::vector<std::string>;

namespace {

struct BaseDialog : testing::Test
{
    BaseDialog() { folder.write("IDD_SMALL", dialogtest::smallDescription()); }

    static void click(QDialog& dialog, const char* name)
    {
        QTest::mouseClick(dialog.findChild<QPushButton*>(QLatin1String(name)), Qt::LeftButton);
    }
    // Shows the dialog, clicks that button in it, and returns the dialog's result.
    int runAndClick(SmallDialog& dialog, const char* name)
    {
        script.next([name](QDialog& shown) { click(shown, name); });
        return dialog.DoModal();
    }

    dialogtest::DescriptionFolder folder;
    dialogtest::ModalScript script;
};

std::vector<int> edges(const RECT& rect)
{
    return {rect.left, rect.top, rect.right, rect.bottom};
}

} // namespace

TEST_F(BaseDialog, OkGivesOneAndEverythingElseTwo)
{
    SmallDialog dialog;
    EXPECT_EQ(runAndClick(dialog, "IDOK"), 1);
    EXPECT_EQ(runAndClick(dialog, "IDCANCEL"), 2);
    script.next([](QDialog& shown) { QTest::keyClick(&shown, Qt::Key_Escape); });
    EXPECT_EQ(dialog.DoModal(), 2);
    script.next([](QDialog& shown) { shown.close(); });
    EXPECT_EQ(dialog.DoModal(), 2);
    script.next([](QDialog& shown) { shown.done(7); });
    EXPECT_EQ(dialog.DoModal(), 2);
    EXPECT_EQ(runAndClick(dialog, "IDOK"), 1);
}

TEST_F(BaseDialog, IsNotShownWithoutADisplay)
{
    services().hasDisplay = false;
    SmallDialog dialog;
    EXPECT_TRUE(dialog.built());
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_TRUE(dialog.steps.empty());
    EXPECT_EQ(services().sentences.size(), 1);
}

TEST_F(BaseDialog, IsNotShownWithoutControls)
{
    QuUiBaseDialog dialog;
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_EQ(services().sentences,
              QStringList{QStringLiteral("The dialog cannot be shown, because its controls are "
                                         "missing.")});
    EXPECT_EQ(script.shown(), 0);
}

TEST_F(BaseDialog, HearsItsDesignedSizeThenIsInitializedBeforeItIsShown)
{
    SmallDialog dialog;
    dialog.atInit = [&] { EXPECT_FALSE(dialog.isVisible()); };
    script.next([&](QDialog& shown) {
        EXPECT_EQ(Steps(dialog.steps.begin(), dialog.steps.begin() + 3),
                  (Steps{"size 300x200", "init", "bind"}));
        dialog.steps.clear();
        shown.resize(340, 230);
        shown.resize(340, 230);
        shown.resize(20, 10);
        EXPECT_EQ(dialog.steps, (Steps{"size 340x230", "size 20x10"}));
        shown.reject();
    });
    dialog.DoModal();
}

TEST_F(BaseDialog, HearsOfNoSizeBeforeItRuns)
{
    SmallDialog dialog;
    dialog.show();
    dialog.resize(340, 230);
    dialog.hide();
    EXPECT_TRUE(dialog.steps.empty());
    EXPECT_EQ(runAndClick(dialog, "IDOK"), 1);
    EXPECT_EQ(dialog.steps.front(), "size 340x230");
}

TEST_F(BaseDialog, ASizeGivenWhileItIsInitializedIsHeardAfterTheDesignedOne)
{
    SmallDialog dialog;
    dialog.atInit = [&] { dialog.MoveWindow({50, 60, 450, 360}, true); };
    EXPECT_EQ(runAndClick(dialog, "IDOK"), 1);
    EXPECT_EQ(dialog.steps, (Steps{"size 300x200", "init", "bind", "size 400x300", "ok"}));
    EXPECT_EQ(dialog.geometry(), QRect(50, 60, 400, 300));
}

TEST_F(BaseDialog, MembersAreBoundWhenTheBaseHasInitialized)
{
    SmallDialog dialog;
    EXPECT_EQ(dialog.rows.widget(), nullptr);
    dialog.atInit = [&] { EXPECT_EQ(dialog.rows.AddString(L"row"), 0); };
    EXPECT_EQ(runAndClick(dialog, "IDOK"), 1);
    EXPECT_EQ(dialog.rows.widget(), dialog.getWidgetsFromOrignal(L"IDC_LIST"));
}

TEST_F(BaseDialog, AnUnknownNameBindsNothing)
{
    const SmallDialog dialog;
    CListBox member;
    const_cast<SmallDialog&>(dialog).DDX_Control(nullptr, L"IDC_LIST", member);
    EXPECT_EQ(member.widget(), dialog.getWidgetsFromOrignal(L"IDC_LIST"));
    const_cast<SmallDialog&>(dialog).DDX_Control(nullptr, L"IDC_OTHER", member);
    EXPECT_EQ(member.widget(), nullptr);
    EXPECT_EQ(member.AddString(L"row"), -1);
}

TEST_F(BaseDialog, FindsControlsByName)
{
    const SmallDialog dialog;
    EXPECT_EQ(dialog.getWidgetsFromOrignal(L"IDC_OTHER"), nullptr);
    EXPECT_EQ(dialog.getWidgetsFromOrignal(L""), nullptr);
    EXPECT_EQ(dialog.GetDlgItem(L"IDC_OTHER"), nullptr);
    EXPECT_EQ(dialog.GetDlgItem(L""), nullptr);
    EXPECT_EQ(dialog.GetDlgItem(L"idok"), nullptr);
    CWnd* const edit = dialog.GetDlgItem(L"IDC_EDIT");
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(edit, dialog.GetDlgItem(L"IDC_EDIT"));
    EXPECT_NE(edit, dialog.GetDlgItem(L"IDC_LIST"));
    CStdStr<wchar_t> text;
    edit->GetWindowText(text);
    EXPECT_EQ(text, L"typed");
}

TEST_F(BaseDialog, KnowsWhoseClickIsConnected)
{
    folder.write("IDD_PLAIN", dialogtest::describe("IDD_PLAIN", {{"QPushButton", "IDC_A", {}},
                                                                 {"QLineEdit", "IDC_B", {}}}));
    const SmallDialog dialog(L"IDD_PLAIN");
    auto* const button = qobject_cast<QPushButton*>(dialog.getWidgetsFromOrignal(L"IDC_A"));
    ASSERT_NE(button, nullptr);
    EXPECT_FALSE(dialog.CheckIfConnected(L"IDC_A"));
    const auto wire = QObject::connect(button, &QPushButton::clicked, [] {});
    EXPECT_TRUE(dialog.CheckIfConnected(L"IDC_A"));
    QObject::disconnect(wire);
    EXPECT_FALSE(dialog.CheckIfConnected(L"IDC_A"));
    EXPECT_FALSE(dialog.CheckIfConnected(L"IDC_B"));
    EXPECT_FALSE(dialog.CheckIfConnected(L"IDC_OTHER"));
}

TEST_F(BaseDialog, WiresOkAndCancelOnce)
{
    SmallDialog dialog;
    EXPECT_TRUE(dialog.CheckIfConnected(L"IDOK"));
    EXPECT_TRUE(dialog.CheckIfConnected(L"IDCANCEL"));
    dialog.bindSingals();
    dialog.bindSingals();
    int rejections = 0;
    QObject::connect(&dialog, &QDialog::rejected, [&] { ++rejections; });
    EXPECT_EQ(runAndClick(dialog, "IDOK"), 1);
    EXPECT_EQ(std::count(dialog.steps.begin(), dialog.steps.end(), "ok"), 1);
    EXPECT_EQ(runAndClick(dialog, "IDCANCEL"), 2);
    EXPECT_EQ(rejections, 1);
}

TEST_F(BaseDialog, RectanglesEndBehindTheLastPixel)
{
    SmallDialog dialog;
    RECT rect{1, 2, 3, 4};
    dialog.GetClientRect(&rect);
    EXPECT_EQ(edges(rect), (std::vector<int>{0, 0, 300, 200}));
    dialog.MoveWindow({50, 60, 450, 360}, false);
    EXPECT_EQ(dialog.geometry(), QRect(50, 60, 400, 300));
    dialog.GetWindowRect(&rect);
    EXPECT_EQ(edges(rect), (std::vector<int>{50, 60, 450, 360}));
    dialog.GetDlgItem(L"IDC_EDIT")->GetWindowRect(&rect);
    EXPECT_EQ(edges(rect), (std::vector<int>{60, 70, 260, 100}));
    dialog.ScreenToClient(&rect);
    EXPECT_EQ(edges(rect), (std::vector<int>{10, 10, 210, 40}));
}

TEST_F(BaseDialog, MovingToTheReportedRectangleLeavesItWhereItIs)
{
    SmallDialog dialog;
    script.next([&](QDialog& shown) {
        const QRect before = shown.geometry();
        for (int round = 0; round < 5; ++round) {
            RECT rect;
            dialog.GetWindowRect(&rect);
            dialog.MoveWindow(rect, true);
        }
        EXPECT_EQ(shown.geometry(), before);
        shown.reject();
    });
    dialog.DoModal();
}

TEST_F(BaseDialog, ARectangleOfAnyNumbersIsTakenWithoutHarm)
{
    SmallDialog dialog;
    for (const RECT& rect :
         {RECT{INT_MAX, INT_MAX, INT_MIN, INT_MIN}, RECT{INT_MIN, INT_MIN, INT_MAX, INT_MAX},
          RECT{10, 10, 5, 5}, RECT{INT_MAX, 0, INT_MIN + 99, 50}}) {
        dialog.MoveWindow(rect, true);
        EXPECT_GE(dialog.width(), 0);
        EXPECT_GE(dialog.height(), 0);
    }
    EXPECT_EQ(dialog.width(), 100); // the far edge was summed up and has wrapped
}

TEST_F(BaseDialog, BoxesStandUnderTheProductsName)
{
    SmallDialog dialog;
    services().askBox = [](const quelhost::BoxRequest&) { return 6; };
    EXPECT_EQ(dialog.MessageBoxW(L"a <b>%s", nullptr, QuelBox::kYesNo), 6);
    dialog.MessageBoxW(nullptr, L"caption", QuelBox::kOk);
    ASSERT_EQ(services().boxes.size(), 2U);
    EXPECT_EQ(services().boxes[0].text, L"a <b>%s");
    EXPECT_EQ(services().boxes[0].caption, recording::host().productName);
    EXPECT_EQ(services().boxes[0].flags, QuelBox::kYesNo);
    EXPECT_EQ(services().boxes[1].text, L"");
    EXPECT_EQ(services().boxes[1].caption, L"caption");
}

TEST_F(BaseDialog, HelpIsThePageOfItsName)
{
    SmallDialog dialog;
    quelInvokeHelp(&dialog);
    EXPECT_EQ(services().helpPages, QStringList{QStringLiteral("IDD_SMALL")});
}

TEST_F(BaseDialog, DialogsOpenOverEachOtherAndCloseOneByOne)
{
    SmallDialog outer;
    SmallDialog inner;
    SmallDialog innermost;
    std::vector<int> results;
    outer.atAction = [&] { results.push_back(runAndClick(inner, "IDC_ACTION")); };
    inner.atAction = [&] {
        results.push_back(runAndClick(innermost, "IDOK"));
        inner.reject();
    };
    script.next([&](QDialog& shown) {
        click(shown, "IDC_ACTION");
        EXPECT_TRUE(shown.isVisible());
        click(shown, "IDC_ACTION");
        EXPECT_TRUE(shown.isVisible());
        click(shown, "IDOK");
    });
    EXPECT_EQ(outer.DoModal(), 1);
    EXPECT_EQ(results, (std::vector<int>{1, 2, 1, 2}));
    EXPECT_EQ(script.shown(), 5);
}

TEST_F(BaseDialog, StaysInFrontOfTheWindowBehindIt)
{
    QWidget behind;
    behind.show();
    services().windowBehind = &behind;
    SmallDialog dialog;
    script.next([&](QDialog& shown) {
        ASSERT_NE(shown.windowHandle(), nullptr);
        EXPECT_EQ(shown.windowHandle()->transientParent(), behind.windowHandle());
        shown.reject();
    });
    dialog.DoModal();
}

TEST_F(BaseDialog, AWindowBehindThatWasNeverShownDoesNoHarm)
{
    QWidget behind;
    services().windowBehind = &behind;
    SmallDialog dialog;
    EXPECT_EQ(runAndClick(dialog, "IDOK"), 1);
}

// The toolkit would otherwise close every later dialog at once.
TEST_F(BaseDialog, TheSessionDoesNotEndWithItsLastWindow)
{
    EXPECT_FALSE(QGuiApplication::quitOnLastWindowClosed());
}
