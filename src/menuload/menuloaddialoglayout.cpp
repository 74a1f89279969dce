// Where the menu load dialog stands and how its controls follow its size.
#include "menuload/menuloadcontrols.h"
#include "menuload/menuloaddialog.h"
#include "settings/settingskeys.h"

#include <array>
#include <cstddef>

namespace {

struct LayoutRow
{
    const wchar_t* control;
    void (VxMenuLoadDlg::*apply)(int control, int dx, int dy) const;
    bool followsWidth;
    bool followsHeight;
};

// Applied from top to bottom at every change of size. A row's index is the number by which
// ResizeControl and MoveControl know its control.
constexpr std::array<LayoutRow, 12> kLayout = {{
    {MenuLoadControl::kGroupsFrame, &VxMenuLoadDlg::ResizeControl, true, true},
    {MenuLoadControl::kGroups, &VxMenuLoadDlg::ResizeControl, true, true},
    {MenuLoadControl::kFileFrame, &VxMenuLoadDlg::ResizeControl, true, false},
    {MenuLoadControl::kFileFrame, &VxMenuLoadDlg::MoveControl, false, true},
    {MenuLoadControl::kFileLabel, &VxMenuLoadDlg::MoveControl, false, true},
    {MenuLoadControl::kFile, &VxMenuLoadDlg::ResizeControl, true, false},
    {MenuLoadControl::kFile, &VxMenuLoadDlg::MoveControl, false, true},
    {MenuLoadControl::kUnload, &VxMenuLoadDlg::MoveControl, true, false},
    {MenuLoadControl::kLoad, &VxMenuLoadDlg::MoveControl, true, true},
    {MenuLoadControl::kBrowse, &VxMenuLoadDlg::MoveControl, true, true},
    {MenuLoadControl::kOk, &VxMenuLoadDlg::MoveControl, true, true},
    {MenuLoadControl::kHelp, &VxMenuLoadDlg::MoveControl, true, true},
}};

// The name of a control by its row, or null for a number that is no row.
const wchar_t* controlName(int control)
{
    const auto row = static_cast<std::size_t>(control);
    return row < kLayout.size() ? kLayout[row].control : nullptr;
}

void readInteger(QueldConfig& store, const wchar_t* key, int& field)
{
    QuelVariant value;
    if (store.getValue(kSettingsPath, key, value) == 0)
        field = value.integerOrZero();
}

void storeInteger(QueldConfig& store, const wchar_t* key, int number)
{
    QuelVariant value;
    value.setInteger(number);
    store.setValue(kSettingsPath, key, value);
}

// A stored edge and size may be any numbers: their sum wraps, it never overflows.
int wrappingSum(int first, int second)
{
    return static_cast<int>(static_cast<unsigned int>(first) + static_cast<unsigned int>(second));
}

} // namespace

// The client size before anything was restored is the smallest that is restored.
void VxMenuLoadDlg::restorePlacement()
{
    RECT client;
    GetClientRect(&client);
    m_minimumWidth = client.right - client.left;
    m_minimumHeight = client.bottom - client.top;
    tagMenuloadDlgParam placement{-1, -1, -1, -1};
    if (GetMenuLoadDlgSize(placement) == -1)
        return;
    const RECT window{placement.X, placement.Y, wrappingSum(placement.X, placement.WIDTH),
                      wrappingSum(placement.Y, placement.HEIGHT)};
    MoveWindow(window, true);
}

int VxMenuLoadDlg::GetMenuLoadDlgSize(tagMenuloadDlgParam& param)
{
    QueldConfig* store = quelConfig();
    if (store == nullptr || !store->isItemExist(kSettingsPath, SettingsKey::kLoadDialog))
        return -1;
    readInteger(*store, SettingsKey::kLoadDialogX, param.X);
    readInteger(*store, SettingsKey::kLoadDialogY, param.Y);
    readInteger(*store, SettingsKey::kLoadDialogWidth, param.WIDTH);
    readInteger(*store, SettingsKey::kLoadDialogHeight, param.HEIGHT);
    const bool usable = param.X >= 0 && param.Y >= 0 && param.WIDTH >= m_minimumWidth &&
                        param.HEIGHT >= m_minimumHeight;
    return usable ? 0 : -1;
}

void VxMenuLoadDlg::SetMenuLoadDlgSize(tagMenuloadDlgParam param)
{
    QueldConfig* store = quelConfig();
    if (store == nullptr)
        return;
    if (!store->isItemExist(kSettingsPath, SettingsKey::kLoadDialog))
        store->addItem(kSettingsPath, SettingsKey::kLoadDialog);
    storeInteger(*store, SettingsKey::kLoadDialogX, param.X);
    storeInteger(*store, SettingsKey::kLoadDialogY, param.Y);
    storeInteger(*store, SettingsKey::kLoadDialogWidth, param.WIDTH);
    storeInteger(*store, SettingsKey::kLoadDialogHeight, param.HEIGHT);
}

// The first size only becomes the reference of later ones.
void VxMenuLoadDlg::OnSize(unsigned int, int cx, int cy)
{
    const int dx = m_firstSize != 0 ? 0 : cx - m_lastWidth;
    const int dy = m_firstSize != 0 ? 0 : cy - m_lastHeight;
    m_firstSize = 0;
    for (std::size_t row = 0; row < kLayout.size(); ++row) {
        const LayoutRow& layout = kLayout[row];
        // GCOVR_EXCL_BR_START: sanitizer
        (this->*layout.apply)(static_cast<int>(row), layout.followsWidth ? dx : 0,
                              layout.followsHeight ? dy : 0);
        // GCOVR_EXCL_BR_STOP
    }
    m_lastWidth = cx;
    m_lastHeight = cy;
}

// The dialog may become smaller than it was designed: no limit is set.
void VxMenuLoadDlg::OnGetMinMaxInfo(tagMINMAXINFO*) {}

void VxMenuLoadDlg::ResizeControl(int control, int dx, int dy) const
{
    const wchar_t* const name = controlName(control);
    CWnd* const item = name == nullptr ? nullptr : GetDlgItem(name);
    if (item == nullptr)
        return;
    RECT rect;
    item->GetWindowRect(&rect);
    ScreenToClient(&rect);
    rect.right += dx;
    rect.bottom += dy;
    item->MoveWindow(rect, true);
    item->Invalidate(true);
}

void VxMenuLoadDlg::MoveControl(int control, int, int) const
{
    ResizeControl(control, 0, 0);
}
