#include "refhost/window/keywordbuttons.h"

#include "refhost/core/menutext.h"
#include "refhost/window/plaintip.h"

#include <QEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QStyle>
#include <QToolButton>

#include <algorithm>

namespace quelhost {

namespace {

constexpr int kMostRows = 3; // in sight
constexpr int kGap = 2;

} // namespace

KeywordButtons::KeywordButtons(QWidget* parent)
    : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAccessibleName(qtTrId("window-keywords"));
    setWidget(new QWidget);
    m_buttons.push_back(addButton()); // now, so that the Tab key comes to all of them in this place
    hide();
}

void KeywordButtons::setKeywords(const QStringList& keywords, const QString& byEnter)
{
    m_keywords = keywords.mid(0, kMostKeywords);
    m_byEnter = byEnter.isEmpty() ? -1 : m_keywords.indexOf(byEnter);
    const std::size_t count = static_cast<std::size_t>(m_keywords.size());
    while (m_buttons.size() < count)
        m_buttons.push_back(addButton());
    for (std::size_t i = 0; i < m_buttons.size(); ++i) {
        const int index = static_cast<int>(i);
        if (i < count)
            label(*m_buttons[i], m_keywords.at(index), index == m_byEnter);
        m_buttons[i]->setVisible(i < count);
    }
    setVisible(count > 0);
    verticalScrollBar()->setValue(0);
    place();
}

void KeywordButtons::takeFocus()
{
    static_cast<void>(goTo(std::max(m_byEnter, 0)));
}

bool KeywordButtons::eventFilter(QObject* watched, QEvent* event)
{
    const auto found = std::find(m_buttons.begin(), m_buttons.end(), watched);
    if (event->type() != QEvent::KeyPress || found == m_buttons.end())
        return QScrollArea::eventFilter(watched, event);
    const int index = static_cast<int>(found - m_buttons.begin());
    const int onward = isRightToLeft() ? -1 : 1;
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Left:
        return goTo(index - onward);
    case Qt::Key_Right:
        return goTo(index + onward);
    case Qt::Key_Home:
        return goTo(0);
    case Qt::Key_End:
        return goTo(m_keywords.size() - 1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        (*found)->click();
        return true;
    default:
        return false;
    }
}

void KeywordButtons::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    place();
}

void KeywordButtons::changeEvent(QEvent* event)
{
    QScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        place();
}

QToolButton* KeywordButtons::addButton()
{
    auto* const button = new QToolButton(widget());
    button->setAutoRaise(true);
    button->setCursor(Qt::PointingHandCursor);
    button->setFocusPolicy(Qt::TabFocus); // a click leaves the keyboard at the line
    button->installEventFilter(this);
    if (!m_buttons.empty())
        setTabOrder(m_buttons.back(), button);
    const int index = static_cast<int>(m_buttons.size());
    connect(button, &QToolButton::clicked, this, [this, index] {
        if (index < m_keywords.size())
            emit chosen(m_keywords.at(index));
    });
    return button;
}

void KeywordButtons::label(QToolButton& button, const QString& keyword, bool isByEnter)
{
    button.setText(unmarkedMenuText(keyword));
    QFont underlined;
    underlined.setUnderline(true); // it looks like a text else, until the mouse comes
    underlined.setBold(isByEnter);
    button.setFont(underlined);
    const QString help =
        (isByEnter ? qtTrId("window-keyword-by-enter") : qtTrId("window-keyword")).arg(keyword);
    button.setToolTip(plainTip(help));
    button.setAccessibleName(keyword);
    button.setAccessibleDescription(help);
}

// Stays where there is no such button.
bool KeywordButtons::goTo(int index)
{
    if (index >= 0 && index < m_keywords.size()) {
        QToolButton* const button = m_buttons[static_cast<std::size_t>(index)];
        button->setFocus(Qt::TabFocusReason);
        ensureWidgetVisible(button, 0, 0);
    }
    return true;
}

void KeywordButtons::place()
{
    if (m_keywords.isEmpty())
        return;
    const int rowHeight = m_buttons.front()->sizeHint().height();
    int rows = placeWithin(width());
    if (rows > kMostRows)
        rows = placeWithin(width() - verticalScrollBar()->sizeHint().width());
    widget()->resize(width(), rows * rowHeight);
    setFixedHeight(std::min(rows, kMostRows) * rowHeight);
}

// Returns the number of rows.
int KeywordButtons::placeWithin(int width)
{
    const QRect all(0, 0, width, 1);
    int left = 0;
    int row = 0;
    for (int i = 0; i < m_keywords.size(); ++i) {
        QToolButton& button = *m_buttons[static_cast<std::size_t>(i)];
        const QSize size = button.sizeHint().boundedTo(QSize(width, button.sizeHint().height()));
        if (left > 0 && left + size.width() > width) {
            left = 0;
            ++row;
        }
        const QRect place(QPoint(left, row * size.height()), size);
        button.setGeometry(QStyle::visualRect(layoutDirection(), all, place));
        left += size.width() + kGap;
    }
    return row + 1;
}

} // namespace quelhost
