// The menu load dialog: how it is made, wired and initialised, and what its meta-object tells.
#include "tests/module/menuloaddialogfixture.h"

#include <QMetaMethod>

#include <cstring>

namespace loaddialog {

namespace {

constexpr const char* kWiredButtons[] = {kUnload, kLoad, kBrowse, kOk, kHelp};

const std::string kGenerated =
    R"(generateUICtrls("IDD_MENU_LOAD_DLG", "VxCuiCmdsRes/VxMenuCmdRes", 1, 0, 0) -> )";

std::string found(const std::string& name, bool there = true)
{
    return "getWidgetsFromOrignal(\"" + name + "\") -> " + (there ? name : "null");
}

std::string asked(const std::string& name, bool connected = false)
{
    return "CheckIfConnected(\"" + name + "\") -> " + shown(connected);
}

// The wiring of a dialog that lacks a control, has another connected already, or neither.
Lines wiring(const std::string& missing, const std::string& connected)
{
    Lines lines;
    for (const std::string button : kWiredButtons) {
        lines.push_back(found(button, button != missing));
        if (button != missing)
            lines.push_back(asked(button, button == connected));
    }
    lines.push_back(found(kEdit, kEdit != missing));
    return lines;
}

Lines construction(const std::string& missing = {}, const std::string& connected = {})
{
    Lines lines = joined({{kGenerated + "true"}, wiring(missing, connected), {"bindSingals()"}});
    if (missing != kOk)
        lines.push_back(asked(kOk, true));
    return lines;
}

// What a click on each button calls first, with nothing typed, no row selected and no store.
Lines clickTrace(const std::string& button)
{
    if (button == kUnload)
        return {"GetCurSel(IDC_MENULOAD_LIST) -> -1"};
    if (button == kLoad)
        return {kEditFound, editRead(L"")};
    if (button == kBrowse)
        return {kEditFound, editRead(L""), kNoStore};
    if (button == kOk)
        return {"QuUiBaseDialog::GetWindowRect() -> [50, 60, 470, 360]", kNoStore, "OnOK()"};
    return {"quelInvokeHelp(dialog)"};
}

const Lines kBound{"DoDataExchange()", "DDX_Control(\"IDC_MENULOAD_LOAD\") -> IDC_MENULOAD_LOAD",
                   "DDX_Control(\"IDC_MENULOAD_LIST\") -> IDC_MENULOAD_LIST",
                   "DDX_Control(\"IDC_MENULOAD_BTNUNLOAD\") -> IDC_MENULOAD_BTNUNLOAD"};

// What initialising starts with when no placement is stored.
const Lines kPlaceAsked{"GetClientRect() -> [0, 0, 420, 300]", kStore,
                        R"(isItemExist(4, "UserInterfaceSettings\\MenuLoadDlg") -> false)",
                        "OnInitDialog() -> true"};

// The position of a virtual function in the table of its class, in bytes.
template<typename Function>
std::size_t tablePosition(Function function)
{
    std::size_t position = 0;
    std::memcpy(&position, &function, sizeof position);
    return position;
}

} // namespace

TEST_F(LoadDialog, GeneratesItsControlsThenWiresThemThenLetsTheHostWire)
{
    make();
    EXPECT_EQ(host().trace, construction());
}

TEST_F(LoadDialog, WiresNothingWithoutControls)
{
    host().controlsGenerated.next(false);
    make();
    EXPECT_EQ(host().trace, Lines{kGenerated + "false"});
}

TEST_F(LoadDialog, IsInitialisedByItsHostOnlyWithControls)
{
    for (const bool generated : {true, false}) {
        startAnew();
        host().controlsGenerated.usually(generated);
        make();
        dialog->DoModal();
        EXPECT_EQ(host().count("OnInitDialog"), generated ? 1 : 0);
    }
}

TEST_F(LoadDialog, WiresEachButtonToItsSlotOnce)
{
    for (const char* button : kWiredButtons) {
        startAnew();
        make();
        initialise(*dialog);
        for (const char* each : kWiredButtons)
            control<QPushButton>(each).setEnabled(true);
        select(-1);
        host().storeIsThere.usually(false);
        host().forgetCalls();
        control<QPushButton>(button).click();
        EXPECT_EQ(host().trace, clickTrace(button)) << button;
    }
}

TEST_F(LoadDialog, LeavesAloneWhatTheHostHasConnected)
{
    for (const char* button : kWiredButtons) {
        startAnew();
        host().connectedControls = {QString::fromLatin1(button).toStdWString()};
        make();
        EXPECT_EQ(host().trace, construction({}, button)) << button;
        host().forgetCalls();
        control<QPushButton>(button).click();
        EXPECT_EQ(host().trace, Lines{}) << button;
    }
}

TEST_F(LoadDialog, ConnectsTheEditWhetherTheHostHasConnectedItOrNot)
{
    for (const bool connected : {true, false}) {
        startAnew();
        if (connected)
            host().connectedControls = {L"IDC_MENULOAD_EDITCMD"};
        make();
        EXPECT_EQ(host().trace, construction()) << connected;
        host().forgetCalls();
        control<QLineEdit>(kEdit).setText(QStringLiteral("a"));
        EXPECT_EQ(host().count("GetWindowText"), 1) << connected;
    }
}

TEST_F(LoadDialog, PassesOverControlsThatItsDescriptionLacks)
{
    for (const Design& design : designs()) {
        startAnew();
        describeControls({design.name});
        make();
        EXPECT_EQ(host().trace, construction(design.name)) << design.name;
    }
}

TEST_F(LoadDialog, BindsItsThreeMembersAfterTheHostsOwn)
{
    make();
    host().forgetCalls();
    QuUiBaseDialog& base = *dialog;
    (base.*(&HostSide::DoDataExchange))(nullptr);
    EXPECT_EQ(host().trace, kBound);
}

TEST_F(LoadDialog, ShowsTheLoadedGroupsWhenItOpens)
{
    const std::wstring list = folder.file(L"main.cuix") + L";" + folder.file(L"plant.cuix");
    setList(list);
    make();
    host().forgetCalls();
    EXPECT_TRUE(initialise(*dialog));
    EXPECT_EQ(host().trace,
              joined({kPlaceAsked,
                      kBound,
                      {kEmptied, kStore, listRead(list), added("main", 0), added("plant", 1),
                       kFirstSelected, "GetCount(IDC_MENULOAD_LIST) -> 2", kFirstSelected,
                       enabled(kUnload, true), enabled(kLoad, false)}}));
    EXPECT_EQ(rows(), (Lines{"main", "plant"}));
    EXPECT_EQ(selected(), 0);
    EXPECT_TRUE(isEnabled(kUnload));
    EXPECT_FALSE(isEnabled(kLoad));
}

TEST_F(LoadDialog, OpensOnAnEmptyListWithBothButtonsOff)
{
    make();
    host().forgetCalls();
    EXPECT_TRUE(initialise(*dialog));
    EXPECT_EQ(host().trace,
              joined({kPlaceAsked,
                      kBound,
                      {kEmptied, kStore, listRead(L""), "SetCurSel(IDC_MENULOAD_LIST, 0) -> -1",
                       "GetCount(IDC_MENULOAD_LIST) -> 0", enabled(kUnload, false),
                       enabled(kLoad, false)}}));
    EXPECT_EQ(selected(), -1);
    EXPECT_FALSE(isEnabled(kUnload));
}

TEST_F(LoadDialog, OpensWithoutAStore)
{
    host().storeIsThere.usually(false);
    make();
    host().forgetCalls();
    EXPECT_TRUE(initialise(*dialog));
    EXPECT_EQ(host().trace,
              joined({{"GetClientRect() -> [0, 0, 420, 300]", kNoStore, "OnInitDialog() -> true"},
                      kBound,
                      {kEmptied, kNoStore, "GetCount(IDC_MENULOAD_LIST) -> 0",
                       enabled(kUnload, false), enabled(kLoad, false)}}));
}

TEST_F(LoadDialog, HasItsMembersBoundBeforeItUsesThem)
{
    const std::wstring list = folder.file(L"main.cuix");
    open(list);
    dialog->UpdateMenuGroupList();
    EXPECT_EQ(host().trace,
              (Lines{kEmptied, kStore, listRead(list), added("main", 0), kFirstSelected}));
}

TEST_F(LoadDialog, GetsAlongWithoutAnyControl)
{
    host().makeControls = nullptr;
    make();
    EXPECT_TRUE(initialise(*dialog));
    dialog->OnBtnUnLoadMenu();
    dialog->OnBtnLoadMenu();
    dialog->OnBtnBrowse();
    dialog->OnMenuPathChange();
    dialog->OnSize(0, 10, 10);
    EXPECT_FALSE(dialog->isChanged());
    EXPECT_EQ(host().count("setValue"), 0);
    EXPECT_EQ(host().count("vxGetFileDialog"), 1);
}

TEST_F(LoadDialog, TakesTheWidgetOfItsParent)
{
    QWidget window;
    CWnd parent(&window);
    CWnd nothing;
    const VxMenuLoadDlg inside(&context, &parent);
    const VxMenuLoadDlg insideNothing(&context, &nothing);
    const VxMenuLoadDlg alone(&context, nullptr);
    EXPECT_EQ(inside.parentWidget(), &window);
    EXPECT_EQ(insideNothing.parentWidget(), nullptr);
    EXPECT_EQ(alone.parentWidget(), nullptr);
}

TEST_F(LoadDialog, IsUnchangedUntilSomethingIsLoaded)
{
    make();
    EXPECT_FALSE(dialog->isChanged());
    initialise(*dialog);
    EXPECT_FALSE(dialog->isChanged());
}

TEST_F(LoadDialog, LetsErrorsOutOfInitialisingPass)
{
    const std::wstring list = folder.file(L"main.cuix");
    setList(list);
    make();
    host().forgetCalls();
    initialise(*dialog);
    const std::vector<NumberedCall> calls = numbered(host().trace);
    ASSERT_EQ(calls.size(), 17U);
    for (const NumberedCall& call : calls) {
        startAnew();
        setList(list);
        make();
        host().forgetCalls();
        const VxErrorStatus* const thrown = host().throwOnCall(call.function, call.which);
        const auto caught = errorOutOf([this] { initialise(*dialog); });
        EXPECT_EQ(caught.get(), thrown) << call.function << " " << call.which;
    }
}

TEST(LoadDialogMeta, HasEightSlotsInTheirOrder)
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
    EXPECT_EQ(meta.enumeratorCount(), meta.superClass()->enumeratorCount());
}

TEST_F(LoadDialog, CallsTheSlotOfEachIndex)
{
    open(L"");
    const char* const firstCalls[] = {"QuUiBaseDialog::GetWindowRect",
                                      "GetCurSel",
                                      "GetDlgItem",
                                      "GetDlgItem",
                                      "quelInvokeHelp",
                                      "GetDlgItem"};
    const QMetaObject& meta = VxMenuLoadDlg::staticMetaObject;
    for (int slot = 0; slot < 6; ++slot) {
        host().forgetCalls();
        EXPECT_TRUE(meta.method(meta.methodOffset() + slot).invoke(dialog.get()));
        ASSERT_FALSE(host().trace.empty()) << slot;
        EXPECT_EQ(numbered(host().trace).front().function, firstCalls[slot]) << slot;
    }
    host().forgetCalls();
    EXPECT_TRUE(QMetaObject::invokeMethod(dialog.get(), "OnSize", Q_ARG(unsigned int, 0),
                                          Q_ARG(int, 5), Q_ARG(int, 6)));
    EXPECT_EQ(host().count("GetDlgItem"), 12);
}

TEST_F(LoadDialog, SetsNoLimitsToItsSize)
{
    open(L"");
    tagMINMAXINFO info{{1, 2}, {3, 4}, {5, 6}};
    EXPECT_TRUE(
        QMetaObject::invokeMethod(dialog.get(), "OnGetMinMaxInfo", Q_ARG(tagMINMAXINFO*, &info)));
    dialog->OnGetMinMaxInfo(nullptr);
    EXPECT_EQ(host().trace, Lines{});
    EXPECT_EQ(info.ptMaxSize.x, 1);
    EXPECT_EQ(info.ptMinTrackSize.y, 4);
    EXPECT_EQ(info.ptMaxTrackSize.x, 5);
}

TEST_F(LoadDialog, IsAHostDialogToTheMetaObjectSystem)
{
    make();
    QObject* const object = dialog.get();
    EXPECT_EQ(qobject_cast<QuUiBaseDialog*>(object), dialog.get());
    EXPECT_EQ(qobject_cast<VxMenuLoadDlg*>(object), dialog.get());
    EXPECT_EQ(qobject_cast<QLineEdit*>(object), nullptr);
    EXPECT_EQ(object->metaObject(), &VxMenuLoadDlg::staticMetaObject);
}

TEST_F(LoadDialog, OverridesTheHostsFourFunctionsInTheirOrder)
{
    const std::size_t first = tablePosition(&HostSide::OnOK);
    EXPECT_EQ(tablePosition(&HostSide::OnInitDialog), first + 1 * sizeof(void*));
    EXPECT_EQ(tablePosition(&HostSide::DoDataExchange), first + 2 * sizeof(void*));
    EXPECT_EQ(tablePosition(&HostSide::bindSingals), first + 3 * sizeof(void*));
    make();
    QuUiBaseDialog& base = *dialog;
    host().forgetCalls();
    (base.*(&HostSide::bindSingals))();
    EXPECT_EQ(host().trace.front(), found(kUnload));
    host().forgetCalls();
    (base.*(&HostSide::OnOK))();
    EXPECT_EQ(host().count("QuUiBaseDialog::GetWindowRect"), 1);
    EXPECT_EQ(host().trace.back(), "OnOK()");
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
}

} // namespace loaddialog
