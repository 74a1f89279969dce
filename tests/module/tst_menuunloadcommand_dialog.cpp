// MENUUNLOAD's dialog: opened by the variable or by a tilde, and what follows when it is closed.
#include "tests/module/menuloaddialogfixture.h"
#include "tests/module/menuunloadfixture.h"

#include <QPointer>

using namespace loaddialog;

namespace {

// The fixture's list, with controls in the dialog.
struct MenuUnloadDialog : MenuUnload
{
    // The ways into the dialog; the host forbids dialogs where a tilde asks for one.
    static constexpr const wchar_t* kAnswers[] = {nullptr, L"~", L"~~", L"~ ", L"~/t/plant.cuix"};

    void open(const wchar_t* answer) const
    {
        startAnew(all);
        describeControls();
        if (answer == nullptr) {
            host().useDialog.usually(true);
            host().setVariable(L"FILEDIA", short{1});
        } else {
            type(answer);
        }
    }

    static void unloadRowWhileShown(int row)
    {
        host().whileModal = [row](QuUiBaseDialog& dialog) {
            widgetOf<QListWidget>(dialog, kList).setCurrentRow(row);
            widgetOf<QPushButton>(dialog, kUnload).click();
        };
    }

    // The calls behind the dialog.
    static Lines behindTheDialog()
    {
        const Lines& trace = host().trace;
        std::size_t begin = trace.size();
        for (std::size_t line = 0; line < trace.size(); ++line) {
            if (trace[line].rfind("setValue(", 0) == 0 || trace[line].rfind("DoModal(", 0) == 0)
                begin = line + 1;
        }
        return Lines(trace.begin() + static_cast<std::ptrdiff_t>(begin), trace.end());
    }
};

const Lines kRefreshed = {"GetQuelAppInterface() -> application",
                          "customizationManager() -> manager", "refresh()",
                          "leaveResourceScope(0)"};

} // namespace

TEST_F(MenuUnloadDialog, IsAllThereIsWhenDialogsAreOn)
{
    for (const int modalResult : {1, 2, -1, 0, 5100, -5002}) {
        open(nullptr);
        host().controlsGenerated.usually(false);
        host().modalResults.usually(modalResult);
        EXPECT_EQ(run(), 5100);
        EXPECT_EQ(
            host().trace,
            (Lines{"enterResourceScope(\"VxCuiCmdsRes.dll\") -> true",
                   "commandShouldUseDialog(context) -> true", "quedGetVar(\"FILEDIA\") -> 5100",
                   "generateUICtrls(\"IDD_MENU_LOAD_DLG\", \"VxCuiCmdsRes/VxMenuCmdRes\", 1, "
                   "0, 0) -> false",
                   "DoModal() -> " + std::to_string(modalResult), "leaveResourceScope(0)"}));
    }
}

TEST_F(MenuUnloadDialog, OpensForAnAnswerThatBeginsWithATilde)
{
    for (const wchar_t* answer : {L"~", L"~~", L"~ ", L"~/t/plant.cuix"}) {
        open(answer);
        host().controlsGenerated.usually(false);
        EXPECT_EQ(run(), 5100);
        const std::string prompt = "\"Enter the name of a Menu Group to unload:\"";
        EXPECT_EQ(host().trace,
                  (Lines{"enterResourceScope(\"VxCuiCmdsRes.dll\") -> true",
                         "commandShouldUseDialog(context) -> false",
                         "quedGetVar(\"FILEDIA\") -> 5100", "quedInitGet(0, null) -> 5100",
                         "qumdQuResourceString(11067, " + prompt + ") -> " + prompt,
                         "quedGetString(0, " + prompt + ") -> 5100 " + recording::shown(answer),
                         "quedInitGet(0, null) -> 5100",
                         "generateUICtrls(\"IDD_MENU_LOAD_DLG\", \"VxCuiCmdsRes/VxMenuCmdRes\", 1, "
                         "0, 0) -> false",
                         "DoModal() -> 2", "leaveResourceScope(0)"}));
    }
}

TEST_F(MenuUnloadDialog, RefreshesBehindAChangeHoweverItIsClosed)
{
    for (const wchar_t* answer : kAnswers) {
        for (const int modalResult : {1, 2, -1}) {
            open(answer);
            host().modalResults.usually(modalResult);
            unloadRowWhileShown(1);
            EXPECT_EQ(run(), 5100);
            EXPECT_EQ(stored(), main + L";" + survey);
            EXPECT_EQ(behindTheDialog(), kRefreshed);
            EXPECT_EQ(refreshes(), 1);
        }
    }
}

TEST_F(MenuUnloadDialog, RefreshesWhenAFileWasLoadedInIt)
{
    const std::wstring other = folder.file(L"other.cuix");
    for (const wchar_t* answer : kAnswers) {
        open(answer);
        host().whileModal = [&other](QuUiBaseDialog& dialog) {
            widgetOf<QLineEdit>(dialog, kEdit).setText(quelhost::toQString(other));
            widgetOf<QPushButton>(dialog, kLoad).click();
        };
        EXPECT_EQ(run(), 5100);
        EXPECT_EQ(stored(), all + L";" + other);
        EXPECT_EQ(refreshes(), 1);
        EXPECT_EQ(host().count("loadMenuFile"), 0);
    }
}

TEST_F(MenuUnloadDialog, RefreshesNothingWithoutAChange)
{
    for (const wchar_t* answer : kAnswers) {
        open(answer);
        unloadRowWhileShown(0); // the main file stays
        EXPECT_EQ(run(), 5100);
        EXPECT_EQ(stored(), all);
        EXPECT_EQ(host().count("GetQuelAppInterface"), 0);
        EXPECT_EQ(refreshes(), 0);
    }
}

TEST_F(MenuUnloadDialog, RefreshesNothingWithoutApplicationOrManager)
{
    for (const wchar_t* answer : kAnswers) {
        for (const bool application : {false, true}) {
            open(answer);
            unloadRowWhileShown(1);
            host().applicationIsThere.usually(application);
            host().managerIsThere.usually(false);
            EXPECT_EQ(run(), 5100);
            EXPECT_EQ(stored(), main + L";" + survey);
            EXPECT_EQ(host().count("customizationManager"), application ? 1 : 0);
            EXPECT_EQ(refreshes(), 0);
        }
    }
}

TEST_F(MenuUnloadDialog, HasNoParentAndLivesUntilTheRefreshIsDone)
{
    for (const wchar_t* answer : {static_cast<const wchar_t*>(nullptr), L"~"}) {
        open(answer);
        unloadRowWhileShown(1);
        QPointer<QuUiBaseDialog> seen;
        bool hadParent = true;
        const auto unloadRow = host().whileModal;
        host().whileModal = [&](QuUiBaseDialog& dialog) {
            seen = &dialog;
            hadParent = dialog.parent() != nullptr;
            unloadRow(dialog);
        };
        bool wasThere = false;
        host().onCall("refresh", 1, [&] { wasThere = !seen.isNull(); });
        bool wasGone = false;
        host().onCall("leaveResourceScope", 1, [&] { wasGone = seen.isNull(); });
        EXPECT_EQ(run(), 5100);
        EXPECT_FALSE(hadParent);
        EXPECT_TRUE(wasThere);
        EXPECT_TRUE(wasGone);
    }
}

TEST_F(MenuUnloadDialog, IsDestroyedInsideTheScopeWhenAnErrorComesOutOfIt)
{
    for (const wchar_t* answer : {static_cast<const wchar_t*>(nullptr), L"~"}) {
        open(answer);
        QPointer<QuUiBaseDialog> seen;
        auto* const thrown = new VxErrorStatus(Quel::eNoMemory, L"", 0);
        host().whileModal = [&](QuUiBaseDialog& dialog) {
            seen = &dialog;
            throw thrown;
        };
        bool wasGone = false;
        host().onCall("leaveResourceScope", 1, [&] { wasGone = seen.isNull(); });
        const auto error = errorOutOf([this] { run(); });
        EXPECT_EQ(error.get(), thrown);
        EXPECT_TRUE(wasGone);
        EXPECT_EQ(host().trace.back(), "leaveResourceScope(0)");
        EXPECT_EQ(host().count("leaveResourceScope"), 1);
    }
}
