// The command line of the window: what was said so far, the current prompt, and the line that is
// being typed.
#pragma once

#include "refhost/core/linehistory.h"
#include "refhost/core/linesource.h"

#include <QWidget>

#include <optional>

class QKeyEvent;
class QLineEdit;
class QPlainTextEdit;

namespace quelhost {

class PromptLabel;

// Enter hands the line over, Up and Down go through the history, Tab completes, and Ctrl+C cancels
// where nothing is selected that it could copy.
class CommandLine final : public QWidget
{
    Q_OBJECT

public:
    // What is remembered is kept in `historyFile`; an empty name keeps it for this run only.
    explicit CommandLine(const QString& historyFile, QWidget* parent = nullptr);

    // Adds to what was said, as it stands.
    void append(const QString& text);

    // Shows a prompt, of which the last row stands beside the line. A line that was begun stays.
    void ask(const LineRequest& request);
    // There is no prompt any more: nothing can be typed until the next.
    void endPrompt();
    [[nodiscard]] bool isAsking() const { return m_request.has_value(); }
    // Drops the line that was begun: it was an answer to a prompt that is cancelled.
    void dropLine();
    // Puts a line into the history.
    void remember(const std::wstring& line);

    // Puts the keyboard focus into the line.
    void focusLine();

signals:
    // A line was typed. Text of several rows that was pasted comes row by row.
    void lineEntered(const QString& line);
    void cancelled();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void copyOrCancel(const QKeyEvent& key);
    bool handleKey(int key);
    bool passToLine(const QKeyEvent& key);
    void enter();
    void tellHistoryProblem();
    void recall(int step);
    void complete();

    QPlainTextEdit* const m_said;
    PromptLabel* const m_prompt;
    QLineEdit* const m_line;
    LineHistory m_history;
    std::optional<LineRequest> m_request;
    std::size_t m_recalled = 0; // how far back in the history; 0 for the line being typed
    QString m_typed;            // that line, while the history is looked at
};

} // namespace quelhost
