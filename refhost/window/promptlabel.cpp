#include "refhost/window/promptlabel.h"

#include "refhost/window/plaintip.h"

#include <QPainter>
#include <QStyle>

namespace quelhost {

namespace {

constexpr int kFewestCharacters = 8;

} // namespace

PromptLabel::PromptLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

void PromptLabel::showPrompt(const QString& text)
{
    setText(text);
    setToolTip(plainTip(text));
}

QSize PromptLabel::minimumSizeHint() const
{
    const int fewest = fontMetrics().averageCharWidth() * kFewestCharacters;
    const QSize whole = QLabel::minimumSizeHint();
    return {qMin(fewest, whole.width()), whole.height()};
}

void PromptLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect room = contentsRect();
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, room.width());
    style()->drawItemText(&painter, room, static_cast<int>(Qt::AlignVCenter | Qt::AlignLeft),
                          palette(), isEnabled(), shown, foregroundRole());
}

} // namespace quelhost
