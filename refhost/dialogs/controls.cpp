// The controls of dialogs over the toolkit's widgets.
#include "host/dialogs.h"

#include "refhost/core/widetext.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QVariant>

using quelhost::toQString;
using quelhost::toWide;

namespace {

constexpr int kNone = -1;

// A widget is never smaller than nothing. The size that was asked for is kept beside it, so that
// what shrank below nothing grows back to where it came from.
constexpr char kAskedSize[] = "quelAskedSize";

QSize sizeOf(const QWidget& widget)
{
    const QVariant asked = widget.property(kAskedSize);
    const bool stillHolds =
        asked.isValid() && asked.toSize().expandedTo(widget.minimumSize()) == widget.size();
    return stillHolds ? asked.toSize() : widget.size();
}

// What stands between "<" and ">" is a part of the text.
void showPlain(QLabel& label, const QString& text)
{
    label.setTextFormat(Qt::PlainText);
    label.setText(text);
}

QListWidget* rowsOf(const CListBox& box)
{
    return qobject_cast<QListWidget*>(box.widget());
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
    if (m_widget != nullptr)
        m_widget->setEnabled(enable);
}

void CWnd::GetWindowText(CStdStr<wchar_t>& text) const
{
    QString shown;
    if (const auto* edit = qobject_cast<const QLineEdit*>(m_widget))
        shown = edit->text();
    else if (const auto* button = qobject_cast<const QAbstractButton*>(m_widget))
        shown = button->text();
    else if (const auto* label = qobject_cast<const QLabel*>(m_widget))
        shown = label->text();
    else if (const auto* frame = qobject_cast<const QGroupBox*>(m_widget))
        shown = frame->title();
    else if (m_widget != nullptr)
        shown = m_widget->windowTitle();
    text = toWide(shown);
}

void CWnd::SetWindowText(const wchar_t* text)
{
    const QString shown = text == nullptr ? QString() : toQString(text);
    if (auto* edit = qobject_cast<QLineEdit*>(m_widget))
        edit->setText(shown);
    else if (auto* button = qobject_cast<QAbstractButton*>(m_widget))
        button->setText(shown);
    else if (auto* label = qobject_cast<QLabel*>(m_widget))
        showPlain(*label, shown);
    else if (auto* frame = qobject_cast<QGroupBox*>(m_widget))
        frame->setTitle(shown);
    else if (m_widget != nullptr)
        m_widget->setWindowTitle(shown);
}

void CWnd::GetWindowRect(RECT* rect) const
{
    if (m_widget == nullptr) {
        *rect = {};
        return;
    }
    const QPoint corner = m_widget->mapToGlobal(QPoint(0, 0));
    const QSize size = sizeOf(*m_widget);
    *rect = {corner.x(), corner.y(), corner.x() + size.width(), corner.y() + size.height()};
}

void CWnd::MoveWindow(const RECT& rect, bool repaint)
{
    if (m_widget == nullptr)
        return;
    const QSize size(rect.right - rect.left, rect.bottom - rect.top);
    m_widget->setProperty(kAskedSize, size);
    m_widget->setGeometry(QRect(QPoint(rect.left, rect.top), size.expandedTo(QSize(0, 0))));
    if (repaint)
        m_widget->update();
}

// The toolkit always paints the background first.
void CWnd::Invalidate(bool)
{
    if (m_widget != nullptr)
        m_widget->update();
}

void CListBox::ResetContent()
{
    if (QListWidget* rows = rowsOf(*this))
        rows->clear();
}

int CListBox::AddString(const wchar_t* text)
{
    QListWidget* const rows = rowsOf(*this);
    if (rows == nullptr || text == nullptr)
        return kNone;
    rows->addItem(toQString(text));
    return rows->count() - 1;
}

int CListBox::GetCount() const
{
    const QListWidget* const rows = rowsOf(*this);
    return rows == nullptr ? 0 : rows->count();
}

int CListBox::GetCurSel() const
{
    const QListWidget* const rows = rowsOf(*this);
    return rows == nullptr ? kNone : rows->currentRow();
}

int CListBox::SetCurSel(int row)
{
    QListWidget* const rows = rowsOf(*this);
    if (rows == nullptr)
        return kNone;
    rows->setCurrentRow(row < rows->count() ? row : kNone);
    return rows->currentRow();
}

int CListBox::GetText(int row, CStdStr<wchar_t>& text) const
{
    const QListWidget* const rows = rowsOf(*this);
    const QListWidgetItem* const item = rows == nullptr ? nullptr : rows->item(row);
    if (item == nullptr)
        return kNone;
    text = toWide(item->text());
    return static_cast<int>(text.size());
}

// The toolkit would select a neighbour of a selected row that goes.
int CListBox::DeleteString(int row)
{
    QListWidget* const rows = rowsOf(*this);
    if (rows == nullptr || rows->item(row) == nullptr)
        return kNone;
    const bool selected = rows->currentRow() == row;
    delete rows->takeItem(row);
    if (selected)
        rows->setCurrentRow(kNone);
    return rows->count();
}
