#include "refhost/window/commandline.h"

#include "refhost/core/keywords.h"
#include "refhost/core/widetext.h"
#include "refhost/window/keywordbuttons.h"
#include "refhost/window/promptlabel.h"
#include "refhost/window/saidrows.h"
#include "refhost/window/suggestionlist.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpression>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace quelhost {

namespace {

constexpr QMargins kAroundLine(6, 0, 6, 6);
constexpr int kFewestCharacters = 24; // of the line that a long prompt leaves in sight

QString lastRow(const QString& prompt)
{
    return prompt.mid(prompt.lastIndexOf(QLatin1Char('\n')) + 1);
}

// The keyword that Enter alone stands for: the one that the prompt has in <...>.
QString keywordByEnter(const QString& prompt, const QStringList& keywords)
{
    static const QRegularExpression inBrackets(QStringLiteral("<([^<>]*)>[^<>]*$"));
    return matchKeyword(keywords, inBrackets.match(prompt).captured(1));
}

bool isChord(const QKeyEvent& key)
{
    return (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
}

// What a key types, if that can be seen. A character beyond the first plane comes as two halves.
bool isVisibleText(const QKeyEvent& key)
{
    const QString text = key.text();
    return !isChord(key) && !text.isEmpty() && (text.at(0).isPrint() || text.at(0).isSurrogate());
}

// Keys that the line always takes and that edit no text: the line of the toolkit leaves them to
// who wants them as accelerators.
bool worksTheLine(int key)
{
    constexpr std::array kKeys = {Qt::Key_Return, Qt::Key_Enter,   Qt::Key_Up,
                                  Qt::Key_Down,   Qt::Key_Tab,     Qt::Key_Backtab,
                                  Qt::Key_PageUp, Qt::Key_PageDown};
    return std::find(kKeys.begin(), kKeys.end(), key) != kKeys.end();
}

} // namespace

CommandLine::CommandLine(const QString& historyFile, QWidget* parent)
    : QWidget(parent)
    , m_said(new SaidRows(this))
    , m_keywords(new KeywordButtons(this))
    , m_prompt(new PromptLabel(this))
    , m_line(new QLineEdit(this))
    , m_suggestions(new SuggestionList(m_line))
    , m_history(historyFile)
{
    m_said->setObjectName(QStringLiteral("said"));
    m_keywords->setObjectName(QStringLiteral("keywords"));
    m_prompt->setObjectName(QStringLiteral("prompt"));
    m_line->setObjectName(QStringLiteral("line"));
    m_suggestions->setObjectName(QStringLiteral("suggestions"));
    for (QWidget* part : {static_cast<QWidget*>(m_line), static_cast<QWidget*>(m_said),
                          static_cast<QWidget*>(m_keywords)})
        part->installEventFilter(this);
    connect(m_line, &QLineEdit::textEdited, this, [this] { suggest(Suggest::WhileTyping); });
    connect(m_suggestions, &SuggestionList::taken, this, &CommandLine::takeSuggestion);
    connect(m_keywords, &KeywordButtons::chosen, this, &CommandLine::answer);
    arrange();
    useFixedFont();
    setFocusProxy(m_line);
    endPrompt();
}

// The list goes back to the line, so that it goes with it.
CommandLine::~CommandLine()
{
    if (m_suggestions != nullptr)
        m_suggestions->close();
}

void CommandLine::arrange()
{
    auto* const row = new QHBoxLayout;
    row->setContentsMargins(kAroundLine);
    row->addWidget(m_prompt);
    row->addWidget(m_line, 1);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(m_said, 1);
    rows->addWidget(m_keywords);
    rows->addLayout(row);
}

void CommandLine::useFixedFont()
{
    const QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    m_said->setFont(font);
    m_prompt->setFont(font);
    m_line->setFont(font);
    m_line->setMinimumWidth(QFontMetrics(font).averageCharWidth() * kFewestCharacters);
}

void CommandLine::append(const QString& text, TextKind kind)
{
    m_said->add(text, kind);
}

void CommandLine::ask(const LineRequest& request)
{
    m_request = request;
    m_recalled = 0;
    const QString prompt = lastRow(toQString(request.prompt));
    m_prompt->showPrompt(prompt);
    m_line->setAccessibleName(prompt);
    m_line->setEnabled(true);
    showKeywords();
    if (m_hadFocus || window()->focusWidget() == nullptr)
        focusLine();
}

void CommandLine::endPrompt()
{
    closeSuggestions();
    m_request.reset();
    m_prompt->showPrompt({});
    const QWidget* const focus = window()->focusWidget();
    m_hadFocus = focus == nullptr || isAncestorOf(focus);
    m_line->setEnabled(false);
    m_keywords->setKeywords({}, {});
}

void CommandLine::showKeywords()
{
    const bool forKeyword = m_request->completion == Completion::Keywords;
    const QStringList keywords = forKeyword ? m_request->words : QStringList();
    m_keywords->setKeywords(keywords, keywordByEnter(m_prompt->text(), keywords));
    const QString help = qtTrId("window-line-help");
    m_line->setAccessibleDescription(
        keywords.isEmpty() ? help : help + QLatin1Char(' ') + qtTrId("window-line-keywords"));
}

void CommandLine::focusLine()
{
    m_line->setFocus();
}

bool CommandLine::eventFilter(QObject* watched, QEvent* event)
{
    bool handled = false;
    if (event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
        copyOrCancel(*static_cast<QKeyEvent*>(event));
        handled = true;
    } else if (watched == m_line) {
        handled = lineEvent(event);
    } else if (event->type() == QEvent::KeyPress) {
        handled = passToLine(*static_cast<QKeyEvent*>(event));
    }
    return handled || QWidget::eventFilter(watched, event);
}

bool CommandLine::lineEvent(QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        return handleKey(*static_cast<QKeyEvent*>(event));
    case QEvent::ShortcutOverride:
        if (!takesBeforeOthers(*static_cast<QKeyEvent*>(event)))
            return false;
        event->accept();
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::FocusOut:
    case QEvent::Hide:
        closeSuggestions();
        return false;
    default:
        return false;
    }
}

void CommandLine::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    closeSuggestions();
}

void CommandLine::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ApplicationFontChange)
        useFixedFont();
}

// Of the line and the text above only one has the focus, and the other may hold the selection.
void CommandLine::copyOrCancel(const QKeyEvent& key)
{
    if (m_line->hasSelectedText())
        m_line->copy();
    else if (m_said->textCursor().hasSelection())
        m_said->copy();
    else if (key.key() == Qt::Key_C)
        emit cancelled();
}

// What is typed while another part has the focus is meant for the line.
bool CommandLine::passToLine(const QKeyEvent& key)
{
    if (!isVisibleText(key) || !isAsking())
        return false;
    focusLine();
    m_line->insert(key.text());
    suggest(Suggest::WhileTyping);
    return true;
}

// Esc is the window's own key, but for a list that it closes first.
bool CommandLine::takesBeforeOthers(const QKeyEvent& key) const
{
    return !isChord(key) && isAsking() &&
           (worksTheLine(key.key()) || (key.key() == Qt::Key_Escape && m_suggestions->isOpen()));
}

bool CommandLine::handleKey(const QKeyEvent& key)
{
    if (!isAsking() || isChord(key))
        return false;
    if (m_suggestions->isOpen() && handleListKey(key.key()))
        return true;
    switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        enter();
        return true;
    case Qt::Key_Up:
        recall(1);
        return true;
    case Qt::Key_Down:
        recall(-1);
        return true;
    case Qt::Key_Tab:
        complete();
        return true;
    case Qt::Key_Backtab:
        if (m_keywords->isHidden())
            return false;
        m_keywords->takeFocus();
        return true;
    case Qt::Key_PageUp:
        m_said->scrollPages(-1);
        return true;
    case Qt::Key_PageDown:
        m_said->scrollPages(1);
        return true;
    default:
        return false;
    }
}

// What a key does to the list that is open. Returns whether that is all that it does.
bool CommandLine::handleListKey(int key)
{
    const bool isInside = m_suggestions->chosen() != nullptr;
    switch (key) {
    case Qt::Key_Down:
        stepSuggestion(1);
        return true;
    case Qt::Key_Tab:
        if (isInside)
            stepSuggestion(1);
        return isInside;
    case Qt::Key_Up:
    case Qt::Key_Backtab:
        if (isInside)
            stepSuggestion(-1);
        return isInside;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        if (isInside)
            m_suggestions->stepPages(key == Qt::Key_PageUp ? -1 : 1);
        if (isInside)
            showSuggestion();
        return isInside;
    case Qt::Key_Right:
        if (isInside)
            takeSuggestion();
        else
            closeSuggestions();
        return isInside;
    case Qt::Key_Escape:
        setLine(m_begun.text.left(m_begun.cursor), m_begun.text.mid(m_begun.cursor));
        closeSuggestions();
        return true;
    case Qt::Key_Left:
    case Qt::Key_Home:
    case Qt::Key_End:
        closeSuggestions();
        return false;
    default:
        return false;
    }
}

void CommandLine::enter()
{
    static const QRegularExpression rowEnd(QStringLiteral("\r\n|[\n\r\\x{2028}\\x{2029}]"));
    QStringList rows = m_line->text().split(rowEnd);
    if (rows.size() > 1 && rows.last().isEmpty())
        rows.removeLast();
    dropLine();
    m_said->showNewest();
    for (const QString& row : rows)
        emit lineEntered(row);
}

// A keyword with a blank in it is typed in quotes.
void CommandLine::answer(const QString& keyword)
{
    if (!isAsking())
        return;
    const LineRequest typed{{}, Completion::Keywords, {keyword}, false};
    m_line->setText(completeLine({}, true, typed).beforeCursor);
    enter();
}

void CommandLine::dropLine()
{
    closeSuggestions();
    m_line->clear();
    m_recalled = 0;
}

void CommandLine::remember(const std::wstring& line)
{
    m_history.add(line);
}

void CommandLine::recall(int step)
{
    closeSuggestions();
    const std::size_t count = m_history.lines().size();
    const std::size_t wanted =
        step > 0 ? std::min(m_recalled + 1, count) : std::max<std::size_t>(m_recalled, 1) - 1;
    if (wanted == m_recalled)
        return;
    if (m_recalled == 0)
        m_typed = m_line->text();
    m_recalled = wanted;
    m_line->setText(wanted == 0 ? m_typed : toQString(m_history.lines()[count - wanted]));
}

void CommandLine::complete()
{
    const Begun line = begun();
    const QString before = line.text.left(line.cursor);
    const QString behind = line.text.mid(line.cursor);
    const bool blankFollows = !behind.isEmpty() && behind.at(0).isSpace();
    const CompletedLine completed = completeLine(before, blankFollows, *m_request);
    if (!completed.found)
        return;
    const bool isAdded = completed.beforeCursor != before;
    setLine(completed.beforeCursor, behind);
    if (completed.candidates.isEmpty())
        suggest(Suggest::WhileTyping);
    else if (isAdded || !m_suggestions->isOpen())
        suggest(Suggest::OnDemand);
    else
        stepSuggestion(1);
}

// Inside a word nothing is suggested: the rest of it stands behind the cursor.
void CommandLine::suggest(Suggest when)
{
    m_begun = begun();
    const QString behind = m_begun.text.mid(m_begun.cursor);
    const bool blankFollows = !behind.isEmpty() && behind.at(0).isSpace();
    if (!isAsking() || (when == Suggest::WhileTyping && !behind.isEmpty() && !blankFollows))
        return closeSuggestions();
    m_suggestions->open(
        suggestLines(m_begun.text.left(m_begun.cursor), blankFollows, *m_request, when));
}

void CommandLine::stepSuggestion(int by)
{
    m_suggestions->step(by);
    showSuggestion();
}

// The chosen one stands in the line, or else what was typed.
void CommandLine::showSuggestion()
{
    const Suggestion* const chosen = m_suggestions->chosen();
    setLine(chosen == nullptr ? m_begun.text.left(m_begun.cursor) : chosen->beforeCursor,
            m_begun.text.mid(m_begun.cursor));
}

// What there is to suggest now is what a folder holds.
void CommandLine::takeSuggestion()
{
    const QString before = m_suggestions->chosen()->beforeCursor;
    setLine(before, m_begun.text.mid(m_begun.cursor));
    suggest(Suggest::WhileTyping);
}

void CommandLine::closeSuggestions()
{
    m_suggestions->close();
}

CommandLine::Begun CommandLine::begun() const
{
    return {m_line->text(), m_line->cursorPosition()};
}

void CommandLine::setLine(const QString& beforeCursor, const QString& behind)
{
    m_line->setText(beforeCursor + behind);
    m_line->setCursorPosition(beforeCursor.size());
}

} // namespace quelhost
