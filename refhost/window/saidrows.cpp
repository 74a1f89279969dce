#include "refhost/window/saidrows.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>

namespace quelhost {

namespace {

void copyText(const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
}

// Where the newest rows begin, as many as are kept; 0 when there are not more.
int startOfNewest(const QString& text)
{
    int start = text.size();
    for (int rows = 0; rows < SaidRows::kMostRows && start > 0; ++rows)
        start = text.lastIndexOf(QLatin1Char('\n'), start - 1);
    return std::max(start, 0);
}

} // namespace

SaidRows::SaidRows(QWidget* parent)
    : QPlainTextEdit(parent)
{
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setMaximumBlockCount(kMostRows);
    setTabChangesFocus(true);
    setAccessibleName(qtTrId("window-said"));
    setAccessibleDescription(qtTrId("window-said-help"));
}

void SaidRows::add(const QString& text, TextKind kind)
{
    const bool follow = showsNewest();
    QTextCharFormat format;
    if (kind == TextKind::Answer)
        format.setFontWeight(QFont::Bold);
    const int kept = startOfNewest(text);
    if (kept > 0)
        clear(); // which takes far less time than to let the rows go one by one
    QTextCursor end(document());
    end.movePosition(QTextCursor::End);
    end.insertText(text.mid(kept), format);
    if (follow)
        showNewest();
}

void SaidRows::showNewest()
{
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

void SaidRows::scrollPages(int pages)
{
    QScrollBar* const bar = verticalScrollBar();
    bar->setValue(bar->value() + pages * bar->pageStep());
}

void SaidRows::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() == QContextMenuEvent::Keyboard)
        openMenu(textCursor().block().text(), viewport()->mapToGlobal(cursorRect().bottomLeft()));
    else
        openMenu(cursorForPosition(event->pos()).block().text(), event->globalPos());
}

void SaidRows::resizeEvent(QResizeEvent* event)
{
    const bool follow = showsNewest();
    QPlainTextEdit::resizeEvent(event);
    if (follow)
        showNewest();
}

bool SaidRows::showsNewest() const
{
    return verticalScrollBar()->value() >= verticalScrollBar()->maximum();
}

void SaidRows::openMenu(const QString& row, const QPoint& place)
{
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const QString& text, bool possible, auto action) {
        menu->addAction(text, this, action)->setEnabled(possible);
    };
    const bool isAnything = !document()->isEmpty();
    add(qtTrId("window-copy"), textCursor().hasSelection(), [this] { copy(); });
    add(qtTrId("window-copy-row"), !row.isEmpty(), [row] { copyText(row); });
    add(qtTrId("window-copy-all"), isAnything, [this] { copyText(toPlainText()); });
    menu->addSeparator();
    add(qtTrId("window-select-all"), isAnything, [this] { selectAll(); });
    menu->popup(place);
}

} // namespace quelhost
