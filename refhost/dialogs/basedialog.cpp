#include "host/dialogs.h"

#include "refhost/core/host.h"
#include "refhost/core/widetext.h"

using quelhost::Host;

namespace {

constexpr int kNotShown = -1;

} // namespace

QuUiBaseDialog::QuUiBaseDialog(QWidget* parent)
    : QDialog(parent)
{}

QuUiBaseDialog::~QuUiBaseDialog() = default;

int QuUiBaseDialog::DoModal()
{
    Host& host = *Host::current();
    const char* why = host.hasDisplay() ? "dialog-no-controls" : "dialog-no-display";
    host.output.writeRow(quelhost::toWide(qtTrId(why)));
    return kNotShown;
}

void QuUiBaseDialog::OnOK()
{
    accept();
}

bool QuUiBaseDialog::OnInitDialog()
{
    DoDataExchange(nullptr);
    return true;
}

void QuUiBaseDialog::DoDataExchange(CDataExchange*) {}

void QuUiBaseDialog::bindSingals() {}

CWnd::CWnd(QWidget* widget)
    : m_widget(widget)
{}

CWnd::~CWnd() = default;

CButton::CButton() = default;
CButton::~CButton() = default;

CListBox::CListBox() = default;
CListBox::~CListBox() = default;
