#include "menuload/menuloaddialog.h"

#include "host/status.h"
#include "menuload/customizationmanager.h"

VxMenuLoadDlg::VxMenuLoadDlg(IQuelBuildInCommandContext* context, CWnd* parent)
    : QuUiBaseDialog(parent == nullptr ? nullptr : parent->widget())
    , m_context(context)
{}

VxMenuLoadDlg::~VxMenuLoadDlg() = default;

void VxMenuLoadDlg::OnOK()
{
    QuUiBaseDialog::OnOK();
}

void VxMenuLoadDlg::OnBtnUnLoadMenu() {}

void VxMenuLoadDlg::OnBtnLoadMenu() {}

void VxMenuLoadDlg::OnBtnBrowse() {}

void VxMenuLoadDlg::OnHelp() {}

void VxMenuLoadDlg::OnMenuPathChange() {}

void VxMenuLoadDlg::OnGetMinMaxInfo(tagMINMAXINFO*) {}

void VxMenuLoadDlg::OnSize(unsigned int, int, int) {}

bool VxMenuLoadDlg::OnInitDialog()
{
    return QuUiBaseDialog::OnInitDialog();
}

void VxMenuLoadDlg::DoDataExchange(CDataExchange* exchange)
{
    QuUiBaseDialog::DoDataExchange(exchange);
}

void VxMenuLoadDlg::bindSingals() {}

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
