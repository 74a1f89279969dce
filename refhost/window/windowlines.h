// Lines that come from the window: typed at its command line, or by an item of its menus.
#pragma once

#include "refhost/core/linesource.h"
#include "refhost/core/macro.h"
#include "refhost/core/output.h"
#include "refhost/window/commandline.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <deque>
#include <functional>
#include <vector>

class QEventLoop;

namespace quelhost {

// Waits in an event loop of its own, so that the window stays alive at a prompt.
class WindowLines final : public QObject, public LineSource
{
    Q_OBJECT

public:
    // REQUIRES: both outlive this object.
    WindowLines(CommandLine& commandLine, Output& output);

    [[nodiscard]] Line readLine(const LineRequest& request) override;
    [[nodiscard]] bool isScript() const override { return false; }

    // Types a macro. One that begins with a cancel first lets the command that is asking end,
    // whatever it asks, and is typed at the command prompt then.
    void type(const std::vector<MacroStep>& macro);
    // Lets `job` run at the command prompt that waits, in the place of a command and not inside the
    // event that is handled now; then the prompt asks again. Returns whether it will: while a
    // command runs or asks, nothing is done. The end drops a job that has not begun.
    [[nodiscard]] bool runAtCommandPrompt(std::function<void()> job);
    // Cancels the current prompt and drops what was to be typed.
    void cancel();
    // Cancels every prompt from now on: the window is closed.
    void end();

signals:
    // A prompt waits for a line: for a command, or for an answer to a command that runs.
    void waiting(bool forCommand);

private:
    // What is typed next.
    struct Typed
    {
        enum class Kind {
            LetEnd, // lets a command that asks end
            ByItem, // a line that an item of the menus types
            ByHand, // a line of the user's, or a cancel
        };
        Kind kind = Kind::LetEnd;
        Line line;
    };

    [[nodiscard]] Line nextLine(const LineRequest& request);
    void wait(const LineRequest& request);
    void runJob();
    void tellHistoryProblem();
    void add(Typed typed);
    void wake();

    CommandLine& m_commandLine;
    Output& m_output;
    std::deque<Typed> m_typed;
    std::deque<std::function<void()>> m_jobs; // of the command prompt that waits
    QEventLoop* m_loop = nullptr;             // of the prompt that waits
    bool m_forCommand = false;                // that prompt
    bool m_ended = false;
};

// What the window's user reads goes to its command line, in pieces as large as can be. However much
// a command writes, the window is painted again and again meanwhile; keys and the mouse wait until
// the command asks or is done.
class WindowOutput final : public Output
{
public:
    static constexpr int kPaintMs = 50; // from one painting to the next, at least

    // REQUIRES: `commandLine` outlives this object.
    explicit WindowOutput(CommandLine& commandLine);

    void flush() override;

protected:
    void put(const std::string& utf8) override;

private:
    void letPaint();

    struct Piece
    {
        QString text;
        TextKind kind = TextKind::Said;
    };

    CommandLine& m_commandLine;
    std::vector<Piece> m_pieces; // that are not at the command line yet
    int m_length = 0;            // of these
    QTimer m_flush;              // for whoever runs an event loop next
    QElapsedTimer m_painted;
    bool m_isPainting = false;
};

} // namespace quelhost
