#include "refhost/console/consolesignals.h"

#include <atomic>
#include <cerrno>
#include <cstdint>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace quelhost {

namespace {

static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler may set nothing else");
std::atomic<bool> interrupted{false};
std::atomic<bool> resized{false};
std::atomic<bool> continued{false};

struct KeptModes
{
    std::atomic<bool> valid{false};
    int terminal = -1;
    termios modes = {};
};
KeptModes kept;

// Becomes readable with each note, so that whoever waits for input wakes up, in whichever thread
// the system runs the handler. It stays open as long as the process lives.
std::atomic<int> wakeUp{-1};

void note(std::atomic<bool>& what)
{
    const int error = errno;
    what = true;
    const std::uint64_t one = 1;
    static_cast<void>(::write(wakeUp, &one, sizeof one) == sizeof one);
    errno = error;
}

void noteInterrupt(int)
{
    note(interrupted);
}

void noteResize(int)
{
    note(resized);
}

void noteContinue(int)
{
    note(continued);
}

void prepareWakeUp()
{
    if (wakeUp < 0)
        wakeUp = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
}

void restoreModes(int action)
{
    if (kept.valid)
        ::tcsetattr(kept.terminal, action, &kept.modes);
}

// In the background the terminal is somebody else's.
void restoreOwnTerminal()
{
    if (kept.valid && ::tcgetpgrp(kept.terminal) == ::getpgrp())
        restoreModes(TCSANOW);
}

// Runs with every signal blocked and its own action already the default one, which therefore ends
// the process as soon as this returns.
void restoreAndEnd(int signal)
{
    restoreOwnTerminal();
    ::raise(signal);
}

// Stops as the default action does, which a process group without a shell does not, and goes on
// from there.
void restoreAndStop(int signal)
{
    const int error = errno;
    restoreOwnTerminal();
    struct sigaction standard = {};
    struct sigaction own = {};
    sigset_t stop;
    sigset_t before;
    sigemptyset(&stop);
    sigaddset(&stop, signal);
    standard.sa_handler = SIG_DFL;
    ::sigaction(signal, &standard, &own);
    ::raise(signal);
    ::pthread_sigmask(SIG_UNBLOCK, &stop, &before);
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    ::sigaction(signal, &own, nullptr);
    note(continued);
    errno = error;
}

bool somethingNoted()
{
    return interrupted || resized || continued;
}

} // namespace

SignalAction::SignalAction(int signal, void (*handler)(int), int flags)
    : m_signal(signal)
{
    ::sigaction(signal, nullptr, &m_previous);
    const bool isDefault =
        (m_previous.sa_flags & SA_SIGINFO) == 0 && m_previous.sa_handler == SIG_DFL;
    if (!isDefault)
        return;
    prepareWakeUp();
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = flags;
    sigfillset(&action.sa_mask);
    m_installed = ::sigaction(signal, &action, nullptr) == 0;
}

SignalAction::~SignalAction()
{
    if (m_installed)
        ::sigaction(m_signal, &m_previous, nullptr);
}

InterruptHandler::InterruptHandler()
    : m_action(SIGINT, noteInterrupt, SA_RESTART)
{}

std::unique_ptr<InterruptHandler> installInterruptHandler()
{
    return std::make_unique<InterruptHandler>();
}

TerminalGuard::TerminalGuard(int terminal)
{
    kept.terminal = terminal;
    kept.valid = ::tcgetattr(terminal, &kept.modes) == 0;
    const auto take = [this](int signal, void (*handler)(int), int flags) {
        m_actions.push_back(std::make_unique<SignalAction>(signal, handler, flags));
    };
    take(SIGINT, noteInterrupt, SA_RESTART);
    take(SIGWINCH, noteResize, SA_RESTART);
    take(SIGCONT, noteContinue, SA_RESTART);
    take(SIGTSTP, restoreAndStop, SA_RESTART);
    for (const int ending : {SIGTERM, SIGHUP, SIGQUIT, SIGABRT, SIGSEGV, SIGBUS, SIGFPE, SIGILL})
        take(ending, restoreAndEnd, static_cast<int>(SA_RESETHAND));
}

TerminalGuard::~TerminalGuard()
{
    restoreModes(TCSADRAIN);
    kept.valid = false;
}

bool takeInterrupt()
{
    return interrupted.exchange(false);
}

bool takeResize()
{
    return resized.exchange(false);
}

bool takeContinue()
{
    return continued.exchange(false);
}

InputState waitForInput(int descriptor, int timeoutMs)
{
    for (;;) {
        pollfd requests[] = {{descriptor, POLLIN, 0}, {wakeUp, POLLIN, 0}};
        const int count = ::poll(requests, 2, timeoutMs);
        if (count == 0)
            return InputState::TimedOut;
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0 || requests[0].revents != 0)
            return InputState::Ready;
        std::uint64_t notes = 0;
        static_cast<void>(::read(wakeUp, &notes, sizeof notes) == sizeof notes);
        if (somethingNoted())
            return InputState::Signalled;
    }
}

} // namespace quelhost
