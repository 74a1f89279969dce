// Showing the menu load dialog: from MENULOAD's first call to the refresh behind the dialog.
#include "tests/module/menuloaddialogfixture.h"

#include "menuload/menuloadcommand.h"

#include <QPointer>

namespace loaddialog {

namespace {

const std::string kNotGenerated =
    R"(generateUICtrls("IDD_MENU_LOAD_DLG", "VxCuiCmdsRes/VxMenuCmdRes", 1, 0, 0) -> false)";

// The dialog without controls: who shows it does not look at them.
struct RunMenuLoadDialog : testing::Test
{
    recording::MenuFolder folder;
    recording::Context context;
    const std::wstring path = folder.file(L"plant.cuix");

    RunMenuLoadDialog() { startAnew(); }

    static void startAnew()
    {
        recording::reset();
        host().controlsGenerated.usually(false);
        setList(L"");
    }
};

// The dialog with its controls, shown by the command.
struct MenuLoadDialogMode : testing::Test
{
    recording::MenuFolder folder;
    recording::Context context;
    Quel6916Command command;
    const std::wstring main = folder.file(L"main.cuix");
    const std::wstring path = folder.file(L"plant.cuix");

    MenuLoadDialogMode() { startAnew(); }

    void startAnew() const
    {
        recording::reset();
        describeControls();
        setList(main);
        host().useDialog.usually(true);
        host().setVariable(L"FILEDIA", short{1});
    }

    int run() { return command.execute(&context); }

    void loadWhileShown() const
    {
        host().whileModal = [file = path](QuUiBaseDialog& dialog) {
            widgetOf<QLineEdit>(dialog, kEdit).setText(quelhost::toQString(file));
            widgetOf<QPushButton>(dialog, kLoad).click();
        };
    }
};

} // namespace

TEST_F(RunMenuLoadDialog, CompletesWhateverTheUserDid)
{
    for (const int modalResult : {1, 2, -1, 5100, -5002}) {
        startAnew();
        host().modalResults.usually(modalResult);
        EXPECT_EQ(runMenuLoadDialog(&context), 5100);
        EXPECT_EQ(host().trace,
                  (Lines{kNotGenerated, "DoModal() -> " + std::to_string(modalResult)}));
    }
}

TEST_F(RunMenuLoadDialog, ShowsADialogWithoutParent)
{
    bool wasShown = false;
    host().whileModal = [&wasShown](QuUiBaseDialog& dialog) {
        wasShown = true;
        EXPECT_NE(qobject_cast<VxMenuLoadDlg*>(&dialog), nullptr);
        EXPECT_EQ(dialog.parent(), nullptr);
    };
    runMenuLoadDialog(&context);
    EXPECT_TRUE(wasShown);
}

TEST_F(RunMenuLoadDialog, LetsAnErrorOutOfTheDialogPassAndDestroysIt)
{
    QPointer<QuUiBaseDialog> dialog;
    auto* const thrown = new VxErrorStatus(Quel::eNoMemory, L"", 0);
    host().whileModal = [&](QuUiBaseDialog& shownDialog) {
        dialog = &shownDialog;
        throw thrown;
    };
    const auto caught = errorOutOf([this] { runMenuLoadDialog(&context); });
    EXPECT_EQ(caught.get(), thrown);
    EXPECT_TRUE(dialog.isNull());
}

TEST_F(MenuLoadDialogMode, ShowsTheDialogAndNothingElse)
{
    host().controlsGenerated.usually(false);
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(host().trace,
              (Lines{"enterResourceScope(\"VxCuiCmdsRes.dll\") -> true",
                     "commandShouldUseDialog(context) -> true", "quedGetVar(\"FILEDIA\") -> 5100",
                     kNotGenerated, "DoModal() -> 2", "leaveResourceScope(0)"}));
}

TEST_F(MenuLoadDialogMode, RefreshesWhenTheUserHasLoadedAFile)
{
    loadWhileShown();
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(storedList(), main + L";" + path);
    const Lines& trace = host().trace;
    ASSERT_GT(trace.size(), 4U);
    EXPECT_EQ(Lines(trace.end() - 4, trace.end()),
              (Lines{"GetQuelAppInterface() -> application", "customizationManager() -> manager",
                     "refresh()", "leaveResourceScope(0)"}));
    EXPECT_EQ(host().count("loadMenuFile"), 0);
    EXPECT_EQ(host().count("promptf"), 0);
    EXPECT_EQ(host().count("quedGetString"), 0);
}

TEST_F(MenuLoadDialogMode, RefreshesWhenTheUserHasUnloadedAFile)
{
    setList(main + L";" + path);
    host().whileModal = [](QuUiBaseDialog& dialog) {
        widgetOf<QListWidget>(dialog, kList).setCurrentRow(1);
        widgetOf<QPushButton>(dialog, kUnload).click();
    };
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(storedList(), main);
    EXPECT_EQ(host().count("refresh"), 1);
}

TEST_F(MenuLoadDialogMode, RefreshesOnceForAnyNumberOfChangesHoweverTheDialogIsClosed)
{
    for (const int modalResult : {1, 2, -1}) {
        startAnew();
        host().modalResults.usually(modalResult);
        host().whileModal = [this](QuUiBaseDialog& dialog) {
            for (const wchar_t* name : {L"a.cuix", L"b.cuix"}) {
                widgetOf<QLineEdit>(dialog, kEdit).setText(quelhost::toQString(folder.file(name)));
                widgetOf<QPushButton>(dialog, kLoad).click();
            }
        };
        EXPECT_EQ(run(), 5100);
        EXPECT_EQ(host().count("setValue"), 2) << modalResult;
        EXPECT_EQ(host().count("refresh"), 1) << modalResult;
    }
}

TEST_F(MenuLoadDialogMode, RefreshesNothingWhenNothingWasChanged)
{
    host().whileModal = [this](QuUiBaseDialog& dialog) {
        for (const std::wstring& file : {main, folder.path(L"missing.cuix")}) {
            widgetOf<QLineEdit>(dialog, kEdit).setText(quelhost::toQString(file));
            widgetOf<QPushButton>(dialog, kLoad).click();
        }
        widgetOf<QPushButton>(dialog, kUnload).click(); // on the first row
        widgetOf<QPushButton>(dialog, kOk).click();
    };
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(storedList(), main);
    EXPECT_EQ(host().count("GetQuelAppInterface"), 0);
    EXPECT_EQ(host().count("refresh"), 0);
}

TEST_F(MenuLoadDialogMode, CompletesWithoutApplicationOrManager)
{
    for (const bool application : {false, true}) {
        startAnew();
        loadWhileShown();
        host().applicationIsThere.usually(application);
        host().managerIsThere.usually(false);
        EXPECT_EQ(run(), 5100) << application;
        EXPECT_EQ(storedList(), main + L";" + path) << application;
        EXPECT_EQ(host().count("GetQuelAppInterface"), 1) << application;
        EXPECT_EQ(host().count("customizationManager"), application ? 1 : 0);
        EXPECT_EQ(host().count("refresh"), 0) << application;
        EXPECT_EQ(host().trace.back(), "leaveResourceScope(0)") << application;
    }
}

TEST_F(MenuLoadDialogMode, RefreshesWhileTheDialogIsStillThere)
{
    QPointer<QuUiBaseDialog> dialog;
    loadWhileShown();
    host().whileModal = [&dialog, load = host().whileModal](QuUiBaseDialog& shownDialog) {
        dialog = &shownDialog;
        load(shownDialog);
    };
    bool wasThere = false;
    host().onCall("refresh", 1, [&] { wasThere = !dialog.isNull(); });
    run();
    EXPECT_TRUE(wasThere);
    EXPECT_TRUE(dialog.isNull());
}

TEST_F(MenuLoadDialogMode, ATildeOpensTheSameDialog)
{
    host().setVariable(L"FILEDIA", short{0});
    host().useDialog.usually(false);
    host().strings.next({5100, L"~"});
    loadWhileShown();
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(storedList(), main + L";" + path);
    EXPECT_EQ(host().count("quedGetString"), 1);
    EXPECT_EQ(host().count("DoModal"), 1);
    EXPECT_EQ(host().count("refresh"), 1);
    EXPECT_EQ(host().count("loadMenuFile"), 0);
    EXPECT_EQ(host().printed, L"");
    EXPECT_EQ(host().trace.back(), "leaveResourceScope(0)");
}

TEST_F(MenuLoadDialogMode, ShowsTheTextsOfTheModulesFile)
{
    host().resources[L"VxCuiCmdsRes.dll"] = {
        {11071, L"Entladen?"}, {11070, L"Fehlt: <%s>"}, {11065, L"Da: <%s>"}};
    host().resources[L"QUELDRes.dll"] = {{11071, L"wrong"}, {11070, L"wrong"}, {11065, L"wrong"}};
    setList(main + L";" + path);
    host().boxes.usually(2);
    host().whileModal = [this](QuUiBaseDialog& dialog) {
        for (const std::wstring& file : {std::wstring(L"nowhere"), path}) {
            widgetOf<QLineEdit>(dialog, kEdit).setText(quelhost::toQString(file));
            widgetOf<QPushButton>(dialog, kLoad).click();
        }
        widgetOf<QListWidget>(dialog, kList).setCurrentRow(1);
        widgetOf<QPushButton>(dialog, kUnload).click();
    };
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(host().calls("QuUiBaseDialog::MessageBoxW"),
              (Lines{"QuUiBaseDialog::MessageBoxW(\"Fehlt: <nowhere>\", \"Drafting Desk\", 0x30)"
                     " -> 2",
                     "QuUiBaseDialog::MessageBoxW(\"Entladen?\", null, 0x31) -> 2"}));
    EXPECT_EQ(host().printed, L"Da: <" + path + L">");
}

TEST_F(MenuLoadDialogMode, RestoresWhereItWasClosedByOk)
{
    std::vector<QRect> places;
    host().whileModal = [&places](QuUiBaseDialog& dialog) {
        places.push_back(dialog.geometry());
        if (places.size() == 1)
            dialog.setGeometry(70, 90, 500, 400);
        widgetOf<QPushButton>(dialog, kOk).click();
    };
    for (int round = 0; round < 5; ++round)
        EXPECT_EQ(run(), 5100);
    const QRect moved(70, 90, 500, 400);
    EXPECT_EQ(places, (std::vector<QRect>{kDialogPlace, moved, moved, moved, moved}));
    EXPECT_EQ(host().count("addItem"), 1);
}

TEST_F(MenuLoadDialogMode, LeavesItsScopeWhenALoadFails)
{
    loadWhileShown();
    host().whileModal = [this](QuUiBaseDialog& dialog) {
        widgetOf<QLineEdit>(dialog, kEdit).setText(quelhost::toQString(path));
        static_cast<VxMenuLoadDlg&>(dialog).OnBtnLoadMenu();
    };
    const VxErrorStatus* const thrown = host().throwOnCall("setValue");
    const auto caught = errorOutOf([this] { run(); });
    EXPECT_EQ(caught.get(), thrown);
    EXPECT_EQ(host().trace.back(), "leaveResourceScope(0)");
    EXPECT_EQ(host().count("refresh"), 0);
    EXPECT_EQ(host().resourceStack.size(), 1U);
}

} // namespace loaddialog
