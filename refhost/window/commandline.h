// The command line of the window: what was said so far, the current prompt, and the line that is
// being typed.
#pragma once

#include "refhost/core/linehistory.h"
#include "refhost/core/linesource.h"

#include <QWidget>

#include <optional>

class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace quelhost {

// Enter hands the line over, Up and Down go through the history, Tab completes, and Ctrl+C cancels
// where nothing is selected that it could copy.
class CommandLine final : public QWidget
{
    Q_OBJECT

public:
    // Lines of Completion::Commands are kept in `historyFile`; an empty name keeps them for this
    // run only.
    explicit CommandLine(const QString& historyFile, QWidget* parent = nullptr);

    // Adds to what was said, as it stands.
    void append(const QString& text);

    // Shows a prompt, of which the last row stands beside the line. A line that was begun stays.
    void ask(const LineRequest& request);
    // There is no prompt any more: nothing can be typed until the next.
    void endPrompt();
    [[nodiscard]] bool isAsking() const { return m_request.has_value(); }

    // Puts the keyboard focus into the line.
    void focusLine();

signals:
    void lineEntered(const QString& line);
    void cancelled();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool hasSelection() const;
    bool handleKey(int key);
    void enter();
    void recall(int step);
    void complete();

    QPlainTextEdit* const m_said;
    QLabel* const m_prompt;
    QLineEdit* const m_line;
    LineHistory m_history;
    std::optional<LineRequest> m_request;
    std::size_t m_recalled = 0; // how far back in the history; 0 for the line being typed
    QString m_typed;            // that line, while the history is looked at
};

} // namespace quelhost
