// Commands that only enter and leave their scope so far, and the dialog that does nothing yet.
#include "menuload/menuloaddialog.h"
#include "module/customizationcommandapp.h"

#include "tests/support/privatemember.h"
#include "tests/support/rawslots.h"
#include "tests/support/recordinghost.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QMetaMethod>
#include <QPointer>

#include <memory>

using recording::host;
using Lines = std::vector<std::string>;

PRIVATE_MEMBER(ChangedFlag, VxMenuLoadDlg, int, m_changed)

namespace {

struct StubRow
{
    const char* name;
    IQuelBuildInCommand* (*newCommand)();
};

template<typename Command>
IQuelBuildInCommand* newCommand()
{
    return new Command;
}

struct EachStub : testing::TestWithParam<StubRow>
{
    std::unique_ptr<IQuelBuildInCommand> command{GetParam().newCommand()};
    recording::Context context;
};

INSTANTIATE_TEST_SUITE_P(Commands, EachStub,
                         testing::Values(StubRow{"CUILOAD", newCommand<Quel6940Command>},
                                         StubRow{"CUIUNLOAD", newCommand<Quel6941Command>},
                                         StubRow{"MENUUNLOAD", newCommand<Quel6917Command>},
                                         StubRow{"CUSTOMIZE", newCommand<Quel60005Command>},
                                         StubRow{"REINIT", newCommand<Quel6935Command>}),
                         [](const auto& row) { return std::string(row.param.name); });

void markChanged(QuUiBaseDialog& dialog)
{
    ChangedFlag::of(static_cast<VxMenuLoadDlg&>(dialog)) = 1;
}

} // namespace

TEST_P(EachStub, EntersAndLeavesItsScopeAndCompletes)
{
    EXPECT_EQ(command->execute(&context), 5100);
    EXPECT_EQ(host().trace,
              (Lines{"enterResourceScope(\"VxCuiCmdsRes.dll\") -> true", "leaveResourceScope(0)"}));
}

TEST_P(EachStub, CompletesWithoutAScopeWhenThereIsNone)
{
    host().contextScope.usually(false);
    EXPECT_EQ(command->execute(&context), 5100);
    EXPECT_EQ(host().trace, Lines{"enterResourceScope(\"VxCuiCmdsRes.dll\") -> false"});
}

TEST_P(EachStub, RunsAgainWithTheSameObject)
{
    EXPECT_EQ(command->execute(&context), 5100);
    EXPECT_EQ(command->execute(&context), 5100);
    EXPECT_EQ(host().count("enterResourceScope"), 2);
    EXPECT_EQ(host().count("leaveResourceScope"), 2);
}

TEST_P(EachStub, LetsAnErrorOutOfEnteringPassUnchanged)
{
    const VxErrorStatus* const thrown = host().throwOnCall("enterResourceScope");
    const VxErrorStatus* caught = nullptr;
    try {
        command->execute(&context);
    } catch (VxErrorStatus* error) {
        caught = error;
    }
    EXPECT_EQ(caught, thrown);
    EXPECT_EQ(host().count("leaveResourceScope"), 0);
    delete caught;
}

TEST(StubCommandDeathTest, AnErrorOutOfLeavingASecondNameEndsTheProcess)
{
    const auto run = [](IQuelBuildInCommand& command) {
        recording::Context context;
        host().throwOnCall("leaveResourceScope");
        try {
            command.execute(&context);
        } catch (VxErrorStatus* error) {
            delete error;
        }
        std::exit(0);
    };
    Quel6940Command load;
    Quel6941Command unload;
    EXPECT_EXIT(run(load), testing::KilledBySignal(SIGABRT), "terminate called");
    EXPECT_EXIT(run(unload), testing::KilledBySignal(SIGABRT), "terminate called");
}

TEST(MenuLoadDialogStub, HasEightSlotsInTheirOrder)
{
    const QMetaObject& meta = VxMenuLoadDlg::staticMetaObject;
    EXPECT_STREQ(meta.className(), "VxMenuLoadDlg");
    EXPECT_STREQ(meta.superClass()->className(), "QuUiBaseDialog");
    Lines slotNames;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        EXPECT_EQ(meta.method(i).methodType(), QMetaMethod::Slot) << i;
        slotNames.push_back(meta.method(i).methodSignature().toStdString());
    }
    EXPECT_EQ(slotNames, (Lines{"OnOK()", "OnBtnUnLoadMenu()", "OnBtnLoadMenu()", "OnBtnBrowse()",
                                "OnHelp()", "OnMenuPathChange()", "OnGetMinMaxInfo(tagMINMAXINFO*)",
                                "OnSize(uint,int,int)"}));
    EXPECT_EQ(meta.propertyCount(), meta.superClass()->propertyCount());
}

TEST(MenuLoadDialogStub, IsAHostDialogToTheMetaObjectSystem)
{
    recording::Context context;
    VxMenuLoadDlg dialog(&context, nullptr);
    QObject* const object = &dialog;
    EXPECT_EQ(qobject_cast<QuUiBaseDialog*>(object), &dialog);
    EXPECT_EQ(qobject_cast<VxMenuLoadDlg*>(object), &dialog);
    EXPECT_EQ(qobject_cast<QLineEdit*>(object), nullptr);
    EXPECT_EQ(object->metaObject(), &VxMenuLoadDlg::staticMetaObject);
}

TEST(MenuLoadDialogStub, ItsSlotsDoNothingButOk)
{
    recording::Context context;
    VxMenuLoadDlg dialog(&context, nullptr);
    tagMINMAXINFO info;
    for (const char* slot :
         {"OnBtnUnLoadMenu", "OnBtnLoadMenu", "OnBtnBrowse", "OnHelp", "OnMenuPathChange"})
        EXPECT_TRUE(QMetaObject::invokeMethod(&dialog, slot)) << slot;
    EXPECT_TRUE(
        QMetaObject::invokeMethod(&dialog, "OnGetMinMaxInfo", Q_ARG(tagMINMAXINFO*, &info)));
    EXPECT_TRUE(QMetaObject::invokeMethod(&dialog, "OnSize", Q_ARG(unsigned int, 0), Q_ARG(int, 5),
                                          Q_ARG(int, 6)));
    EXPECT_EQ(host().trace, Lines{});
    EXPECT_EQ(info.ptMinTrackSize.x, 0);
    EXPECT_FALSE(dialog.isChanged());
}

TEST(MenuLoadDialogStub, OkClosesThroughTheBase)
{
    recording::Context context;
    VxMenuLoadDlg dialog(&context, nullptr);
    EXPECT_TRUE(QMetaObject::invokeMethod(&dialog, "OnOK"));
    EXPECT_EQ(host().trace, Lines{"OnOK()"});
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
}

TEST(MenuLoadDialogStub, TakesTheWidgetOfItsParent)
{
    recording::Context context;
    QWidget window;
    CWnd parent(&window);
    const VxMenuLoadDlg inside(&context, &parent);
    const VxMenuLoadDlg alone(&context, nullptr);
    EXPECT_EQ(inside.parentWidget(), &window);
    EXPECT_EQ(alone.parentWidget(), nullptr);
}

TEST(MenuLoadDialogStub, InitialisesThroughTheBase)
{
    recording::Context context;
    struct Opened : QuUiBaseDialog
    {
        using QuUiBaseDialog::bindSingals;
        using QuUiBaseDialog::OnInitDialog;
    };
    VxMenuLoadDlg dialog(&context, nullptr);
    QuUiBaseDialog& base = dialog;
    EXPECT_TRUE((base.*(&Opened::OnInitDialog))());
    (base.*(&Opened::bindSingals))();
    EXPECT_EQ(host().trace, (Lines{"OnInitDialog() -> true", "DoDataExchange()"}));
}

TEST(RunMenuLoadDialog, CompletesWhateverTheUserDid)
{
    recording::Context context;
    for (const int modalResult : {1, 2, -1, 5100, -5002}) {
        recording::reset();
        host().modalResults.usually(modalResult);
        EXPECT_EQ(runMenuLoadDialog(&context), 5100);
        EXPECT_EQ(host().trace, Lines{"DoModal() -> " + std::to_string(modalResult)});
    }
}

TEST(RunMenuLoadDialog, RefreshesWhenTheDialogChangedTheList)
{
    recording::Context context;
    host().whileModal = markChanged;
    EXPECT_EQ(runMenuLoadDialog(&context), 5100);
    EXPECT_EQ(host().trace, (Lines{"DoModal() -> 2", "GetQuelAppInterface() -> application",
                                   "customizationManager() -> manager", "refresh()"}));
}

TEST(RunMenuLoadDialog, RefreshesNothingWithoutApplicationOrManager)
{
    recording::Context context;
    host().whileModal = markChanged;
    host().applicationIsThere.next(false);
    EXPECT_EQ(runMenuLoadDialog(&context), 5100);
    host().managerIsThere.next(false);
    EXPECT_EQ(runMenuLoadDialog(&context), 5100);
    EXPECT_EQ(host().trace,
              (Lines{"DoModal() -> 2", "GetQuelAppInterface() -> null", "DoModal() -> 2",
                     "GetQuelAppInterface() -> application", "customizationManager() -> null"}));
}

TEST(RunMenuLoadDialog, RefreshesWhileTheDialogIsStillThere)
{
    recording::Context context;
    QPointer<QuUiBaseDialog> dialog;
    host().whileModal = [&dialog](QuUiBaseDialog& shown) {
        markChanged(shown);
        dialog = &shown;
    };
    bool wasThere = false;
    host().onCall("refresh", 1, [&] { wasThere = !dialog.isNull(); });
    runMenuLoadDialog(&context);
    EXPECT_TRUE(wasThere);
    EXPECT_TRUE(dialog.isNull());
}

TEST(RunMenuLoadDialog, ShowsADialogWithoutParent)
{
    recording::Context context;
    bool shown = false;
    host().whileModal = [&shown](QuUiBaseDialog& dialog) {
        shown = true;
        EXPECT_NE(qobject_cast<VxMenuLoadDlg*>(&dialog), nullptr);
        EXPECT_EQ(dialog.parent(), nullptr);
    };
    runMenuLoadDialog(&context);
    EXPECT_TRUE(shown);
}

TEST(RunMenuLoadDialog, LetsAnErrorOutOfTheDialogPassAndDestroysIt)
{
    recording::Context context;
    QPointer<QuUiBaseDialog> dialog;
    auto* const thrown = new VxErrorStatus(Quel::eNoMemory, L"", 0);
    host().whileModal = [&](QuUiBaseDialog& shown) {
        dialog = &shown;
        throw thrown;
    };
    const VxErrorStatus* caught = nullptr;
    try {
        runMenuLoadDialog(&context);
    } catch (VxErrorStatus* error) {
        caught = error;
    }
    EXPECT_EQ(caught, thrown);
    EXPECT_TRUE(dialog.isNull());
    delete caught;
}
