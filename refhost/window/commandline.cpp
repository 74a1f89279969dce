#include "refhost/window/commandline.h"

#include "refhost/core/linecompletion.h"
#include "refhost/core/widetext.h"
#include "refhost/window/promptlabel.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace quelhost {

namespace {

constexpr int kMostRows = 20000;
constexpr QMargins kAroundLine(6, 0, 6, 6);
constexpr int kFewestCharacters = 24; // of the line that a long prompt leaves in sight

QString lastRow(const QString& prompt)
{
    return prompt.mid(prompt.lastIndexOf(QLatin1Char('\n')) + 1);
}

// What a key types, if that can be seen. A character beyond the first plane comes as two halves.
bool isVisibleText(const QKeyEvent& key)
{
    const QString text = key.text();
    const bool isChord = (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0;
    return !isChord && !text.isEmpty() && (text.at(0).isPrint() || text.at(0).isSurrogate());
}

} // namespace

CommandLine::CommandLine(const QString& historyFile, QWidget* parent)
    : QWidget(parent)
    , m_said(new QPlainTextEdit(this))
    , m_prompt(new PromptLabel(this))
    , m_line(new QLineEdit(this))
    , m_history(historyFile)
{
    const QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    m_said->setReadOnly(true);
    m_said->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_said->setMaximumBlockCount(kMostRows);
    m_said->setFont(font);
    m_said->setObjectName(QStringLiteral("said"));
    m_said->setAccessibleName(qtTrId("window-said"));
    m_said->setTabChangesFocus(true);
    m_prompt->setFont(font);
    m_prompt->setObjectName(QStringLiteral("prompt"));
    m_line->setFont(font);
    m_line->setMinimumWidth(QFontMetrics(font).averageCharWidth() * kFewestCharacters);
    m_line->setObjectName(QStringLiteral("line"));
    m_line->installEventFilter(this);
    m_said->installEventFilter(this);

    auto* const row = new QHBoxLayout;
    row->setContentsMargins(kAroundLine);
    row->addWidget(m_prompt);
    row->addWidget(m_line, 1);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(m_said, 1);
    rows->addLayout(row);
    setFocusProxy(m_line);
    endPrompt();
    tellHistoryProblem();
}

void CommandLine::append(const QString& text)
{
    QTextCursor end(m_said->document());
    end.movePosition(QTextCursor::End);
    end.insertText(text);
    m_said->verticalScrollBar()->setValue(m_said->verticalScrollBar()->maximum());
}

void CommandLine::ask(const LineRequest& request)
{
    m_request = request;
    m_recalled = 0;
    const QString prompt = lastRow(toQString(request.prompt));
    m_prompt->showPrompt(prompt);
    m_line->setAccessibleName(prompt);
    m_line->setEnabled(true);
    focusLine();
}

void CommandLine::endPrompt()
{
    m_request.reset();
    m_prompt->showPrompt({});
    m_line->setEnabled(false);
}

void CommandLine::focusLine()
{
    m_line->setFocus();
}

bool CommandLine::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    auto* const key = static_cast<QKeyEvent*>(event);
    if (key->matches(QKeySequence::Copy)) {
        copyOrCancel(*key);
        return true;
    }
    const bool handled = watched == m_line ? handleKey(key->key()) : passToLine(*key);
    return handled || QWidget::eventFilter(watched, event);
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

// What is typed while the text above has the focus is meant for the line.
bool CommandLine::passToLine(const QKeyEvent& key)
{
    if (!isVisibleText(key) || !isAsking())
        return false;
    focusLine();
    m_line->insert(key.text());
    return true;
}

bool CommandLine::handleKey(int key)
{
    if (!isAsking())
        return false;
    switch (key) {
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
    m_line->clear();
    m_recalled = 0;
    for (const QString& row : rows)
        emit lineEntered(row);
}

void CommandLine::dropLine()
{
    m_line->clear();
    m_recalled = 0;
}

void CommandLine::remember(const std::wstring& line)
{
    m_history.add(line);
    tellHistoryProblem();
}

void CommandLine::tellHistoryProblem()
{
    const QString problem = m_history.takeProblem();
    if (!problem.isEmpty())
        append(problem + QLatin1Char('\n'));
}

void CommandLine::recall(int step)
{
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
    const QString line = m_line->text();
    const int cursor = m_line->cursorPosition();
    const bool blankFollows = cursor < line.size() && line.at(cursor).isSpace();
    const CompletedLine completed = completeLine(line.left(cursor), blankFollows, *m_request);
    if (!completed.found)
        return;
    m_line->setText(completed.beforeCursor + line.mid(cursor));
    m_line->setCursorPosition(completed.beforeCursor.size());
    if (!completed.candidates.isEmpty())
        append(completed.candidates.join(QStringLiteral("  ")) + QLatin1Char('\n'));
}

} // namespace quelhost
