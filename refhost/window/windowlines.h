// Lines that come from the window: typed at its command line, or by an item of its menus.
#pragma once

#include "refhost/core/linesource.h"
#include "refhost/core/macro.h"
#include "refhost/core/output.h"
#include "refhost/window/commandline.h"

#include <QObject>

#include <deque>

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
    void add(Typed typed);
    void wake();

    CommandLine& m_commandLine;
    Output& m_output;
    std::deque<Typed> m_typed;
    QEventLoop* m_loop = nullptr; // of the prompt that waits
    bool m_ended = false;
};

// What the window's user reads goes to its command line.
class WindowOutput final : public Output
{
public:
    explicit WindowOutput(CommandLine& commandLine)
        : m_commandLine(commandLine)
    {}

protected:
    void put(const std::string& utf8) override;

private:
    CommandLine& m_commandLine;
};

} // namespace quelhost
