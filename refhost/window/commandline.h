// The command line of the window: what was said so far, the current prompt, and the line that is
// being typed.
#pragma once

#include "refhost/core/linecompletion.h"
#include "refhost/core/linehistory.h"
#include "refhost/core/linesource.h"
#include "refhost/core/output.h"

#include <QPointer>
#include <QWidget>

#include <optional>

class QKeyEvent;
class QLineEdit;

namespace quelhost {

class KeywordButtons;
class PromptLabel;
class SaidRows;
class SuggestionList;

// Enter always hands over the line as it stands in sight. Up and Down go through the history, Page
// Up and Page Down through the rows above, and Ctrl+C cancels where nothing is selected that it
// could copy.
//
// While a word is typed a list shows what it can be completed to. It leaves Enter and Up alone.
// Down goes into it, and from then on Down, Up, Tab and Shift+Tab go from one suggestion to the
// next, each of which stands in the line at once; typing goes on behind it, Right looks into a
// folder, and a click takes one. Tab completes as far as only one text is possible, shows the list
// where there are several, and goes into it when there is nothing to add. Esc closes the list and
// brings back what was typed; only when no list is open it is left to the window, to cancel.
//
// At a prompt for a keyword there is a button for each, which Shift+Tab goes to.
class CommandLine final : public QWidget
{
    Q_OBJECT

public:
    // What is remembered is kept in `historyFile`; an empty name keeps it for this run only.
    explicit CommandLine(const QString& historyFile, QWidget* parent = nullptr);
    ~CommandLine() override;

    // Adds to what was said, as it stands.
    void append(const QString& text, TextKind kind = TextKind::Said);

    // Shows a prompt, of which the last row stands beside the line. A line that was begun stays.
    void ask(const LineRequest& request);
    // There is no prompt any more: nothing can be typed until the next.
    void endPrompt();
    [[nodiscard]] bool isAsking() const { return m_request.has_value(); }
    // Drops the line that was begun: it was an answer to a prompt that is cancelled.
    void dropLine();
    // Puts a line into the history.
    void remember(const std::wstring& line);
    // Why the history is not kept, as a sentence for the user, once; empty when it is.
    [[nodiscard]] QString takeHistoryProblem() { return m_history.takeProblem(); }

    // Puts the keyboard focus into the line.
    void focusLine();

signals:
    // A line was typed. Text of several rows that was pasted comes row by row.
    void lineEntered(const QString& line);
    void cancelled();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    // A line and where the cursor stands in it.
    struct Begun
    {
        QString text;
        int cursor = 0;
    };

    void arrange();
    void useFixedFont();
    void showKeywords();
    [[nodiscard]] bool lineEvent(QEvent* event);
    void copyOrCancel(const QKeyEvent& key);
    [[nodiscard]] bool takesBeforeOthers(const QKeyEvent& key) const;
    [[nodiscard]] bool handleKey(const QKeyEvent& key);
    [[nodiscard]] bool handleListKey(int key);
    [[nodiscard]] bool passToLine(const QKeyEvent& key);
    void enter();
    void answer(const QString& keyword);
    void recall(int step);
    void complete();
    void suggest(Suggest when);
    void stepSuggestion(int by);
    void showSuggestion();
    void takeSuggestion();
    void closeSuggestions();
    [[nodiscard]] Begun begun() const;
    void setLine(const QString& beforeCursor, const QString& behind);

    SaidRows* const m_said;
    KeywordButtons* const m_keywords;
    PromptLabel* const m_prompt;
    QLineEdit* const m_line;
    QPointer<SuggestionList> m_suggestions; // lies in the window while it is open
    LineHistory m_history;
    std::optional<LineRequest> m_request;
    bool m_hadFocus = true;     // before the last prompt ended; who works elsewhere stays there
    std::size_t m_recalled = 0; // how far back in the history; 0 for the line being typed
    QString m_typed;            // that line, while the history is looked at
    Begun m_begun;              // what the suggestions are for
};

} // namespace quelhost
