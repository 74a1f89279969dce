#include "menuload/menuloaddialog.h"

#include "host/messageboxes.h"
#include "host/output.h"
#include "host/prompts.h"
#include "host/status.h"
#include "menufile/menufilepath.h"
#include "menuload/customizationmanager.h"
#include "menuload/loadedmenufilelist.h"
#include "menuload/menuloadcontrols.h"
#include "menuload/menuloadmessages.h"
#include "module/resourcestring.h"
#include "settings/systemvariables.h"

#include <QAbstractButton>
#include <QLineEdit>

#include <optional>

namespace {

constexpr wchar_t kDescription[] = L"IDD_MENU_LOAD_DLG";
constexpr wchar_t kDescriptionResource[] = L"VxCuiCmdsRes/VxMenuCmdRes";

constexpr unsigned int kUnloadQuestionId = 11071;
constexpr wchar_t kUnloadQuestion[] = L"Do you want to unload menu?";

// Nothing without a store, or when it cannot read the list.
std::optional<LoadedMenuFileList> readList(QueldConfig* store)
{
    return store == nullptr ? std::nullopt : LoadedMenuFileList::read(*store);
}

struct ButtonWire
{
    const wchar_t* control;
    void (VxMenuLoadDlg::*slot)();
};

constexpr ButtonWire kButtonWires[] = {
    {MenuLoadControl::kUnload, &VxMenuLoadDlg::OnBtnUnLoadMenu},
    {MenuLoadControl::kLoad, &VxMenuLoadDlg::OnBtnLoadMenu},
    {MenuLoadControl::kBrowse, &VxMenuLoadDlg::OnBtnBrowse},
    {MenuLoadControl::kOk, &VxMenuLoadDlg::OnOK},
    {MenuLoadControl::kHelp, &VxMenuLoadDlg::OnHelp},
};

} // namespace

// Virtual functions do not reach this class from the base's constructor, so both wirings are run
// here, this class's first: the base leaves alone what is connected.
VxMenuLoadDlg::VxMenuLoadDlg(IQuelBuildInCommandContext* context, CWnd* parent)
    : QuUiBaseDialog(parent == nullptr ? nullptr : parent->widget())
    , m_context(context)
{
    m_controlsGenerated = generateUICtrls(kDescription, kDescriptionResource, 1, 0, 0);
    if (m_controlsGenerated) { // GCOVR_EXCL_BR_LINE: sanitizer
        VxMenuLoadDlg::bindSingals();
        QuUiBaseDialog::bindSingals();
    }
}

VxMenuLoadDlg::~VxMenuLoadDlg() = default;

void VxMenuLoadDlg::bindSingals()
{
    for (const ButtonWire& wire : kButtonWires) {
        const auto* const button =
            qobject_cast<QAbstractButton*>(getWidgetsFromOrignal(wire.control));
        if (button != nullptr && !CheckIfConnected(wire.control))
            connect(button, &QAbstractButton::clicked, this, wire.slot);
    }
    // Connected whether the host has connected it or not: Load follows what is typed either way.
    const auto* const file =
        qobject_cast<QLineEdit*>(getWidgetsFromOrignal(MenuLoadControl::kFile));
    if (file != nullptr)
        connect(file, &QLineEdit::textChanged, this, &VxMenuLoadDlg::OnMenuPathChange);
}

void VxMenuLoadDlg::DoDataExchange(CDataExchange* exchange)
{
    QuUiBaseDialog::DoDataExchange(exchange);
    DDX_Control(exchange, MenuLoadControl::kLoad, m_load);
    DDX_Control(exchange, MenuLoadControl::kGroups, m_groups);
    DDX_Control(exchange, MenuLoadControl::kUnload, m_unload);
}

bool VxMenuLoadDlg::OnInitDialog()
{
    restorePlacement();
    QuUiBaseDialog::OnInitDialog();
    UpdateMenuGroupList();
    const bool hasGroups = m_groups.GetCount() > 0;
    if (hasGroups)
        m_groups.SetCurSel(0);
    m_unload.EnableWindow(hasGroups);
    m_load.EnableWindow(false);
    return true;
}

void VxMenuLoadDlg::UpdateMenuGroupList()
{
    m_groups.ResetContent();
    const std::optional<LoadedMenuFileList> list = readList(quelConfig());
    if (!list)
        return;
    for (const std::wstring& name : list->shownNames())
        m_groups.AddString(name.c_str());
    m_groups.SetCurSel(0);
}

CStdStr<wchar_t> VxMenuLoadDlg::typedPath() const
{
    CStdStr<wchar_t> path;
    if (const CWnd* file = GetDlgItem(MenuLoadControl::kFile))
        file->GetWindowText(path);
    return path;
}

void VxMenuLoadDlg::enableLoadFor(const std::wstring& path)
{
    m_load.EnableWindow(!path.empty());
}

void VxMenuLoadDlg::OnMenuPathChange()
{
    enableLoadFor(typedPath());
}

void VxMenuLoadDlg::OnBtnBrowse()
{
    CStdStr<wchar_t> path;
    if (getMenuFilePathByDialog(path, typedPath()) != QuelStatus::kNormal)
        return;
    if (CWnd* file = GetDlgItem(MenuLoadControl::kFile))
        file->SetWindowText(path.c_str());
    enableLoadFor(path);
}

// A missing file is told in a box and one already loaded on the command line, the other way round
// than MENULOAD does it on the command line: on purpose.
void VxMenuLoadDlg::OnBtnLoadMenu()
{
    const CStdStr<wchar_t> path = typedPath();
    if (path.empty())
        return;
    const wchar_t* const productName = GetOemProductName();
    if (!isCustomizationFile(path)) {
        MessageBoxW(menuFileNotFoundMessage(path.c_str()).c_str(), productName,
                    QuelBox::kExclamation);
        return;
    }
    QueldConfig* store = quelConfig();
    std::optional<LoadedMenuFileList> list = readList(store);
    if (!list)
        return;
    if (list->isLoaded(path)) {
        quutPrintf(menuFileAlreadyLoadedMessage(path.c_str()).c_str());
        return;
    }
    list->append(path);
    list->write(*store);
    m_changed = 1;
    UpdateMenuGroupList();
}

void VxMenuLoadDlg::OnBtnUnLoadMenu()
{
    // Row 0 is never unloaded from here, on purpose: it is the main file's.
    const int row = m_groups.GetCurSel();
    if (row <= 0 || row >= m_groups.GetCount())
        return;
    CStdStr<wchar_t> name;
    m_groups.GetText(row, name);
    if (name.empty())
        return;
    const QuString question = qumdQuResourceString(kUnloadQuestionId, kUnloadQuestion);
    if (MessageBoxW(question.kwszPtr(), nullptr, QuelBox::kExclamation | QuelBox::kOkCancel) !=
        QuelBox::kAnswerOk)
        return;
    QueldConfig* store = quelConfig();
    std::optional<LoadedMenuFileList> list = readList(store);
    if (!list)
        return;
    const int removed = list->removeNamed(name);
    if (removed == 0)
        return;
    // Made before a row goes: without memory for it the rows stay those of the stored list.
    const QuelVariant value = list->value();
    // One row goes for each entry, always at the same place, so with two entries of one name the
    // row below goes too. The next time the list is filled it is back.
    for (int entry = 0; entry < removed; ++entry)
        m_groups.DeleteString(row);
    m_changed = 1;
    LoadedMenuFileList::write(*store, value);
}

void VxMenuLoadDlg::OnHelp()
{
    quelInvokeHelp(this);
}

// Only closing by OK keeps the placement.
void VxMenuLoadDlg::OnOK()
{
    RECT window;
    GetWindowRect(&window);
    SetMenuLoadDlgSize(
        {window.left, window.top, window.right - window.left, window.bottom - window.top});
    QuUiBaseDialog::OnOK();
}

bool menuLoadDialogWanted(IQuelBuildInCommandContext* context)
{
    const bool allowed = commandShouldUseDialog(context);
    const bool wanted = fileDialogsEnabled();
    return allowed && wanted;
}

int runMenuLoadDialog(IQuelBuildInCommandContext* context)
{
    VxMenuLoadDlg dialog(context, nullptr);
    dialog.DoModal();
    if (dialog.isChanged()) {
        if (QuelCustomizationManager* manager = customizationManagerOrNull())
            manager->refresh();
    }
    return QuelStatus::kNormal;
}
