#include "refhost/window/suggestionlist.h"

#include <QEvent>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace quelhost {

namespace {

constexpr int kMostRows = 10; // in sight
constexpr int kFewestCharacters = 16;
constexpr int kMostMeasured = 200; // texts: there may be a hundred thousand

} // namespace

SuggestionList::SuggestionList(QWidget* line)
    : QListView(line)
    , m_line(line)
{
    setModel(&m_texts);
    setFocusPolicy(Qt::NoFocus);
    setEditTriggers(NoEditTriggers);
    setUniformItemSizes(true);
    setTextElideMode(Qt::ElideMiddle);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    setAccessibleName(qtTrId("window-suggestions"));
    hide();
    connect(this, &QListView::clicked, this, &SuggestionList::taken);
}

void SuggestionList::open(std::vector<Suggestion> suggestions)
{
    if (suggestions.empty())
        return close();
    m_suggestions = std::move(suggestions);
    QStringList texts;
    for (const Suggestion& each : m_suggestions)
        texts += each.text;
    m_texts.setStringList(texts);
    QWidget* const window = m_line->window();
    setFont(m_line->font());
    if (parentWidget() != window) {
        setParent(window);
        window->installEventFilter(this);
    }
    place(*window);
    scrollToTop();
    show();
    raise();
}

// It goes back to the line, so that it never outlives it.
void SuggestionList::close()
{
    if (!isOpen())
        return;
    hide();
    parentWidget()->removeEventFilter(this);
    setParent(m_line);
    m_texts.setStringList({});
    m_suggestions.clear();
}

void SuggestionList::step(int by)
{
    const int stops = m_texts.rowCount() + 1; // the last one stands for none
    const int row = currentIndex().isValid() ? currentIndex().row() : stops - 1;
    const QModelIndex wanted = m_texts.index((row + stops + by) % stops);
    setCurrentIndex(wanted); // an index that is not valid chooses none
}

void SuggestionList::stepPages(int by)
{
    const int wanted = currentIndex().row() + by * kMostRows;
    setCurrentIndex(m_texts.index(std::clamp(wanted, 0, m_texts.rowCount() - 1)));
}

const Suggestion* SuggestionList::chosen() const
{
    const QModelIndex current = currentIndex();
    return current.isValid() ? &m_suggestions[static_cast<std::size_t>(current.row())] : nullptr;
}

// The place beside the line is another when the window has another size.
bool SuggestionList::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parentWidget() && event->type() == QEvent::Resize)
        close();
    return QListView::eventFilter(watched, event);
}

void SuggestionList::place(QWidget& window)
{
    const QRect line(m_line->mapTo(&window, QPoint()), m_line->size());
    const QFontMetrics metrics(font());
    int widest = metrics.averageCharWidth() * kFewestCharacters;
    const std::size_t measured = std::min<std::size_t>(m_suggestions.size(), kMostMeasured);
    for (std::size_t i = 0; i < measured; ++i)
        widest = std::max(widest, metrics.horizontalAdvance(m_suggestions[i].text));
    const int frames = 2 * frameWidth();
    const int margins = 2 * metrics.averageCharWidth();
    const int width = widest + margins + frames + verticalScrollBar()->sizeHint().width();

    const int rowHeight = std::max(sizeHintForRow(0), 1);
    const int above = line.top();
    const int below = window.height() - line.bottom() - 1;
    const int room = std::max(above, below) - frames;
    const int rows = std::clamp(room / rowHeight, 1, std::min(m_texts.rowCount(), kMostRows));
    const int height = rows * rowHeight + frames;
    const bool isAbove = above >= height || above >= below;
    setGeometry(line.left(), isAbove ? line.top() - height : line.bottom() + 1,
                std::min(width, line.width()), height);
}

} // namespace quelhost
