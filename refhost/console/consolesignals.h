// The signals of the console face, all installed and undone here, and waiting for input in a way
// that misses none of them.
//
// A signal that the process already handles or ignores is left as it is: who ignores hang-ups, or
// catches crashes, keeps doing so.
#pragma once

#include <csignal>
#include <memory>
#include <termios.h>
#include <vector>

namespace quelhost {

// Takes over one signal as long as it lives.
class SignalAction
{
public:
    SignalAction(int signal, void (*handler)(int), int flags);
    ~SignalAction();
    SignalAction(const SignalAction&) = delete;
    SignalAction& operator=(const SignalAction&) = delete;

private:
    const int m_signal;
    bool m_installed = false;
    struct sigaction m_previous = {};
};

// As long as it lives, an interrupt (Ctrl-C) ends no process: it cancels the line that is being
// read or, between two lines, the next one.
class InterruptHandler
{
public:
    InterruptHandler();

private:
    SignalAction m_action;
};
[[nodiscard]] std::unique_ptr<InterruptHandler> installInterruptHandler();

// Keeps the modes that a terminal had, and gives them back at the end of its life and before a
// signal ends or stops the process. Also notes interrupts, changes of the window's size, and that
// the process goes on after a stop.
//
// REQUIRES: one at a time.
class TerminalGuard
{
public:
    // `terminal` is borrowed. When it is no terminal, there are no modes to keep.
    explicit TerminalGuard(int terminal);
    ~TerminalGuard();
    TerminalGuard(const TerminalGuard&) = delete;
    TerminalGuard& operator=(const TerminalGuard&) = delete;

private:
    std::vector<std::unique_ptr<SignalAction>> m_actions;
};

// Each tells whether it happened since it was asked last.
[[nodiscard]] bool takeInterrupt();
[[nodiscard]] bool takeResize();
[[nodiscard]] bool takeContinue();

enum class InputState {
    Ready,     // reading does not block; it may find the end or an error
    TimedOut,  // nothing came
    Signalled, // one of the three above waits to be taken
};

// Waits until there is something to read; `timeoutMs` below 0 waits without limit.
[[nodiscard]] InputState waitForInput(int descriptor, int timeoutMs);

} // namespace quelhost
