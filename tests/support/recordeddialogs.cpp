// Dialogs and controls of the recording host: real widgets without any show.
#include "host/dialogs.h"
#include "host/messageboxes.h"

#include "tests/support/hostcode.h"
#include "tests/support/recordinghost.h"
#include "tests/support/tracetext.h"

#include "refhost/core/widetext.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>

#include <algorithm>

using recording::CalledCode;
using recording::hexadecimal;
using recording::host;
using recording::HostCode;
using recording::list;
using recording::shown;

namespace {

// The wrapper of a control that its dialog owns.
struct DialogItem : QObject
{
    DialogItem(QObject* dialog, QWidget* widget)
        : QObject(dialog)
        , window(widget)
    {}
    CWnd window;
};

// Counts who listens to a signal, which an object tells only to its own class.
struct Listeners : QObject
{
    static int count(const QObject& object, const char* signal)
    {
        return (object.*(&Listeners::receivers))(signal);
    }
};

// The guard lives until what is made of the parent has been made.
QWidget* byHost(QWidget* parent, const HostCode&)
{
    return parent;
}

std::string nameOf(const QWidget* widget)
{
    return widget == nullptr ? "null" : widget->objectName().toStdString();
}

QListWidget* listOf(const CListBox& box)
{
    return qobject_cast<QListWidget*>(box.widget());
}

std::string shownRect(const RECT& rect)
{
    return "[" + list(shown(rect.left), shown(rect.top), shown(rect.right), shown(rect.bottom)) +
           "]";
}

RECT screenRect(const QWidget& widget)
{
    const QPoint corner = widget.mapToGlobal(QPoint(0, 0));
    return {corner.x(), corner.y(), corner.x() + widget.width(), corner.y() + widget.height()};
}

// The nearest place that a widget can have: a caller's edges may be any numbers.
QRect toQRect(const RECT& rect)
{
    constexpr int limit = 1 << 20;
    const auto edge = [limit](int value) { return std::clamp(value, -limit, limit); };
    return {edge(rect.left), edge(rect.top), edge(rect.right) - edge(rect.left),
            edge(rect.bottom) - edge(rect.top)};
}

} // namespace

CWnd::CWnd(QWidget* widget)
    : m_widget(widget)
{}
CWnd::~CWnd() = default;
CButton::CButton() = default;
CButton::~CButton() = default;
CListBox::CListBox() = default;
CListBox::~CListBox() = default;

void CWnd::EnableWindow(bool enable)
{
    const HostCode here;
    host().called("EnableWindow", list(nameOf(m_widget), shown(enable)));
    if (m_widget != nullptr)
        m_widget->setEnabled(enable);
}

void CWnd::GetWindowText(CStdStr<wchar_t>& text) const
{
    const HostCode here;
    QString result;
    if (const auto* edit = qobject_cast<QLineEdit*>(m_widget))
        result = edit->text();
    else if (const auto* button = qobject_cast<QAbstractButton*>(m_widget))
        result = button->text();
    else if (const auto* label = qobject_cast<QLabel*>(m_widget))
        result = label->text();
    text = quelhost::toWide(result);
    host().called("GetWindowText", nameOf(m_widget), shown(text));
}

void CWnd::SetWindowText(const wchar_t* text)
{
    const HostCode here;
    host().called("SetWindowText", list(nameOf(m_widget), shown(text)));
    const QString shownText = quelhost::toQString(text == nullptr ? L"" : text);
    if (auto* edit = qobject_cast<QLineEdit*>(m_widget))
        edit->setText(shownText);
    else if (auto* button = qobject_cast<QAbstractButton*>(m_widget))
        button->setText(shownText);
    else if (auto* label = qobject_cast<QLabel*>(m_widget))
        label->setText(shownText);
}

void CWnd::GetWindowRect(RECT* rect) const
{
    const HostCode here;
    if (m_widget != nullptr)
        *rect = screenRect(*m_widget);
    host().called("GetWindowRect", nameOf(m_widget), shownRect(*rect));
}

void CWnd::MoveWindow(const RECT& rect, bool repaint)
{
    const HostCode here;
    host().called("MoveWindow", list(nameOf(m_widget), shownRect(rect), shown(repaint)));
    if (m_widget != nullptr)
        m_widget->setGeometry(toQRect(rect));
}

void CWnd::Invalidate(bool erase)
{
    const HostCode here;
    host().called("Invalidate", list(nameOf(m_widget), shown(erase)));
}

void CListBox::ResetContent()
{
    const HostCode here;
    host().called("ResetContent", nameOf(widget()));
    if (QListWidget* rows = listOf(*this))
        rows->clear();
}

int CListBox::AddString(const wchar_t* text)
{
    const HostCode here;
    QListWidget* const rows = listOf(*this);
    if (rows != nullptr)
        rows->addItem(quelhost::toQString(text));
    const int row = rows == nullptr ? -1 : rows->count() - 1;
    host().called("AddString", list(nameOf(widget()), shown(text)), shown(row));
    return row;
}

int CListBox::GetCount() const
{
    const HostCode here;
    const QListWidget* const rows = listOf(*this);
    const int count = rows == nullptr ? 0 : rows->count();
    host().called("GetCount", nameOf(widget()), shown(count));
    return count;
}

int CListBox::GetCurSel() const
{
    const HostCode here;
    const QListWidget* const rows = listOf(*this);
    const int row = rows == nullptr ? -1 : rows->currentRow();
    host().called("GetCurSel", nameOf(widget()), shown(row));
    return row;
}

int CListBox::SetCurSel(int row)
{
    const HostCode here;
    QListWidget* const rows = listOf(*this);
    if (rows != nullptr)
        rows->setCurrentRow(row);
    const int result = rows == nullptr ? -1 : rows->currentRow();
    host().called("SetCurSel", list(nameOf(widget()), shown(row)), shown(result));
    return result;
}

int CListBox::GetText(int row, CStdStr<wchar_t>& text) const
{
    const HostCode here;
    const QListWidget* const rows = listOf(*this);
    const QListWidgetItem* const item = rows == nullptr ? nullptr : rows->item(row);
    if (item != nullptr)
        text = quelhost::toWide(item->text());
    const int length = item == nullptr ? -1 : static_cast<int>(text.size());
    host().called("GetText", list(nameOf(widget()), shown(row)), shown(length));
    return length;
}

int CListBox::DeleteString(int row)
{
    const HostCode here;
    QListWidget* const rows = listOf(*this);
    int left = -1;
    if (rows != nullptr && rows->item(row) != nullptr) {
        const bool selected = rows->currentRow() == row;
        delete rows->takeItem(row);
        if (selected)
            rows->setCurrentRow(-1);
        left = rows->count();
    }
    host().called("DeleteString", list(nameOf(widget()), shown(row)), shown(left));
    return left;
}

struct QuUiBaseDialog::Private
{};

QuUiBaseDialog::QuUiBaseDialog(QWidget* parent)
    : QDialog(byHost(parent, HostCode()))
    , m_private(std::make_unique<Private>())
{}
// The controls would go with the widget below, but nothing there tells whose work that is.
QuUiBaseDialog::~QuUiBaseDialog()
{
    const HostCode here;
    qDeleteAll(findChildren<QObject*>(QString(), Qt::FindDirectChildrenOnly));
}

int QuUiBaseDialog::DoModal()
{
    const HostCode here;
    const int result = host().modalResults.take();
    host().called("DoModal", "", shown(result));
    const CalledCode there;
    if (m_controlsGenerated)
        OnInitDialog();
    if (host().whileModal)
        host().whileModal(*this);
    return result;
}

void QuUiBaseDialog::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
}

void QuUiBaseDialog::OnOK()
{
    const HostCode here;
    host().called("OnOK", "");
    done(Accepted);
}

bool QuUiBaseDialog::OnInitDialog()
{
    const HostCode here;
    host().called("OnInitDialog", "", "true");
    const CalledCode there;
    DoDataExchange(nullptr);
    return true;
}

void QuUiBaseDialog::DoDataExchange(CDataExchange*)
{
    const HostCode here;
    host().called("DoDataExchange", "");
}

void QuUiBaseDialog::bindSingals()
{
    const HostCode here;
    host().called("bindSingals", "");
    auto* const ok = findChild<QAbstractButton*>(QStringLiteral("IDOK"));
    if (ok != nullptr && !CheckIfConnected(L"IDOK"))
        connect(ok, &QAbstractButton::clicked, this, [this] { OnOK(); });
    auto* const cancel = findChild<QAbstractButton*>(QStringLiteral("IDCANCEL"));
    if (cancel != nullptr && !CheckIfConnected(L"IDCANCEL"))
        connect(cancel, &QAbstractButton::clicked, this, &QDialog::reject);
}

bool QuUiBaseDialog::generateUICtrls(const wchar_t* dialogName, const wchar_t* resourceName,
                                     int option1, int option2, int option3)
{
    const HostCode here;
    const bool result = host().controlsGenerated.take();
    host().called("generateUICtrls",
                  list(shown(dialogName), shown(resourceName), shown(option1), shown(option2),
                       shown(option3)),
                  shown(result));
    if (result && host().makeControls)
        host().makeControls(*this);
    return result;
}

QWidget* QuUiBaseDialog::getWidgetsFromOrignal(const wchar_t* objectName) const
{
    const HostCode here;
    auto* const widget = findChild<QWidget*>(quelhost::toQString(objectName));
    host().called("getWidgetsFromOrignal", shown(objectName), nameOf(widget));
    return widget;
}

bool QuUiBaseDialog::CheckIfConnected(const wchar_t* objectName) const
{
    const HostCode here;
    const auto* const button = findChild<QAbstractButton*>(quelhost::toQString(objectName));
    const bool result = host().connectedControls.count(objectName) > 0 ||
                        (button != nullptr && Listeners::count(*button, SIGNAL(clicked(bool))) > 0);
    host().called("CheckIfConnected", shown(objectName), shown(result));
    return result;
}

CWnd* QuUiBaseDialog::GetDlgItem(const wchar_t* objectName) const
{
    const HostCode here;
    auto* const widget = findChild<QWidget*>(quelhost::toQString(objectName));
    host().called("GetDlgItem", shown(objectName), nameOf(widget));
    if (widget == nullptr)
        return nullptr;
    return &(new DialogItem(widget, widget))->window;
}

void QuUiBaseDialog::DDX_Control(CDataExchange*, const wchar_t* objectName, CWnd& member)
{
    const HostCode here;
    auto* const widget = findChild<QWidget*>(quelhost::toQString(objectName));
    host().called("DDX_Control", shown(objectName), nameOf(widget));
    member.attach(widget);
}

int QuUiBaseDialog::MessageBoxW(const wchar_t* text, const wchar_t* caption, unsigned int flags)
{
    const HostCode here;
    const int result = host().boxes.take();
    host().called("QuUiBaseDialog::MessageBoxW",
                  list(shown(text), shown(caption), hexadecimal(flags)), shown(result));
    return result;
}

void QuUiBaseDialog::GetClientRect(RECT* rect) const
{
    const HostCode here;
    *rect = {0, 0, width(), height()};
    host().called("GetClientRect", "", shownRect(*rect));
}

void QuUiBaseDialog::GetWindowRect(RECT* rect) const
{
    const HostCode here;
    *rect = screenRect(*this);
    host().called("QuUiBaseDialog::GetWindowRect", "", shownRect(*rect));
}

void QuUiBaseDialog::MoveWindow(const RECT& rect, bool repaint)
{
    const HostCode here;
    host().called("QuUiBaseDialog::MoveWindow", list(shownRect(rect), shown(repaint)));
    setGeometry(toQRect(rect));
}

void QuUiBaseDialog::ScreenToClient(RECT* rect) const
{
    const HostCode here;
    const QPoint corner = mapToGlobal(QPoint(0, 0));
    const RECT before = *rect;
    *rect = {rect->left - corner.x(), rect->top - corner.y(), rect->right - corner.x(),
             rect->bottom - corner.y()};
    host().called("ScreenToClient", shownRect(before), shownRect(*rect));
}

void quelInvokeHelp(QuUiBaseDialog* dialog)
{
    const HostCode here;
    host().called("quelInvokeHelp", dialog == nullptr ? "null" : "dialog");
}
