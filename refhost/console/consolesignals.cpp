#include "refhost/console/consolesignals.h"

#include <atomic>
#include <cerrno>
#include <poll.h>
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

void noteInterrupt(int)
{
    interrupted = true;
}

void noteResize(int)
{
    resized = true;
}

void noteContinue(int)
{
    continued = true;
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
    continued = true;
    errno = error;
}

bool somethingNoted()
{
    return interrupted || resized || continued;
}

// Blocks the noted signals as long as it lives.
class Blocked
{
public:
    Blocked()
    {
        sigset_t noted;
        sigemptyset(&noted);
        for (const int signal : {SIGINT, SIGWINCH, SIGCONT, SIGTSTP})
            sigaddset(&noted, signal);
        ::pthread_sigmask(SIG_BLOCK, &noted, &m_before);
    }
    ~Blocked() { ::pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }
    Blocked(const Blocked&) = delete;
    Blocked& operator=(const Blocked&) = delete;

    [[nodiscard]] const sigset_t* before() const { return &m_before; }

private:
    sigset_t m_before = {};
};

} // namespace

SignalAction::SignalAction(int signal, void (*handler)(int), int flags)
    : m_signal(signal)
{
    ::sigaction(signal, nullptr, &m_previous);
    const bool isDefault =
        (m_previous.sa_flags & SA_SIGINFO) == 0 && m_previous.sa_handler == SIG_DFL;
    if (!isDefault)
        return;
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
    pollfd request = {descriptor, POLLIN, 0};
    if (::poll(&request, 1, 0) > 0)
        return InputState::Ready;
    // A signal between the look at the notes and the wait would be slept through otherwise.
    const Blocked blocked;
    const timespec time = {timeoutMs / 1000, (timeoutMs % 1000) * 1'000'000L};
    while (!somethingNoted()) {
        const int count = ::ppoll(&request, 1, timeoutMs < 0 ? nullptr : &time, blocked.before());
        if (count == 0)
            return InputState::TimedOut;
        if (count > 0 || errno != EINTR)
            return InputState::Ready;
    }
    return InputState::Signalled;
}

} // namespace quelhost
