#include "tests/support/pseudoterminal.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcessEnvironment>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utmp.h>
#include <vector>

namespace {

winsize windowSize(TerminalSize size)
{
    return {size.rows, size.columns, 0, 0};
}

// Strings as exec takes them.
class CStrings
{
public:
    explicit CStrings(QList<QByteArray> strings)
        : m_strings(std::move(strings))
    {
        for (QByteArray& string : m_strings)
            m_pointers.push_back(string.data());
        m_pointers.push_back(nullptr);
    }
    [[nodiscard]] char** data() { return m_pointers.data(); }

private:
    QList<QByteArray> m_strings;
    std::vector<char*> m_pointers;
};

CStrings argumentStrings(const QStringList& args)
{
    QList<QByteArray> strings;
    for (const QString& argument : args)
        strings += QFile::encodeName(argument);
    return CStrings(strings);
}

CStrings environmentStrings(const QMap<QString, QString>& environment)
{
    QMap<QString, QString> whole = environment;
    const QProcessEnvironment own = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"PATH", "HOME", "ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS",
                             "TSAN_OPTIONS", "GCOV_PREFIX", "GCOV_PREFIX_STRIP"}) {
        const QString key = QLatin1String(name);
        if (own.contains(key) && !whole.contains(key))
            whole[key] = own.value(key);
    }
    QList<QByteArray> strings;
    for (auto it = whole.cbegin(); it != whole.cend(); ++it)
        strings += QFile::encodeName(it.key() + QLatin1Char('=') + it.value());
    return CStrings(strings);
}

void closeDescriptor(int& descriptor)
{
    if (descriptor >= 0)
        ::close(descriptor);
    descriptor = -1;
}

} // namespace

PseudoTerminal::PseudoTerminal(TerminalSize size)
{
    const winsize window = windowSize(size);
    if (::openpty(&m_master, &m_slave, nullptr, nullptr, &window) != 0)
        return;
    ::fcntl(m_master, F_SETFD, FD_CLOEXEC);
    ::fcntl(m_master, F_SETFL, O_NONBLOCK);
    ::tcgetattr(m_slave, &m_initialModes);
}

PseudoTerminal::~PseudoTerminal()
{
    if (m_process > 0) {
        ::kill(m_process, SIGKILL);
        ::waitpid(m_process, nullptr, 0);
    }
    closeDescriptor(m_processHandle);
    closeDescriptor(m_slave);
    closeDescriptor(m_master);
}

testing::AssertionResult PseudoTerminal::spawn(const QStringList& args,
                                               const QMap<QString, QString>& environment)
{
    if (m_slave < 0)
        return testing::AssertionFailure() << "there is no pseudo terminal";
    CStrings arguments = argumentStrings(args);
    CStrings variables = environmentStrings(environment);
    m_process = ::fork();
    if (m_process == 0) {
        ::login_tty(m_slave);
        ::execve(arguments.data()[0], arguments.data(), variables.data());
        ::_exit(127);
    }
    closeDescriptor(m_slave);
    if (m_process < 0)
        return testing::AssertionFailure() << "no process could be started";
    m_processHandle = static_cast<int>(::syscall(SYS_pidfd_open, m_process, 0));
    return testing::AssertionSuccess();
}

// Waits for something shown, for the other descriptor's readiness, or for the time to pass. Returns
// whether something may be shown yet.
bool PseudoTerminal::readShown(int timeoutMs, int alsoFor)
{
    pollfd requests[] = {{m_master, POLLIN, 0}, {alsoFor, POLLIN, 0}};
    ::poll(requests, 2, timeoutMs);
    char bytes[4096];
    const ssize_t count = ::read(m_master, bytes, sizeof bytes);
    if (count > 0) {
        m_transcript.append(bytes, static_cast<int>(count));
        return true;
    }
    return count < 0 && (errno == EAGAIN || errno == EINTR);
}

void PseudoTerminal::write(const QByteArray& bytes)
{
    int written = 0;
    QElapsedTimer timer;
    timer.start();
    while (written < bytes.size() && timer.elapsed() < kPatienceMs) {
        pollfd request = {m_master, POLLIN | POLLOUT, 0};
        ::poll(&request, 1, kPatienceMs);
        if ((request.revents & POLLIN) != 0)
            static_cast<void>(readShown(0, -1));
        const ssize_t count = ::write(m_master, bytes.constData() + written,
                                      static_cast<std::size_t>(bytes.size() - written));
        if (count > 0)
            written += static_cast<int>(count);
        else if (errno != EAGAIN && errno != EINTR)
            return;
    }
}

testing::AssertionResult PseudoTerminal::expect(const QByteArray& text, int timeoutMs)
{
    QElapsedTimer timer;
    timer.start();
    bool isOpen = true;
    for (;;) {
        const int found = m_transcript.indexOf(text, m_expected);
        if (found >= 0) {
            m_expected = found + text.size();
            return testing::AssertionSuccess();
        }
        const auto left = timeoutMs - static_cast<int>(timer.elapsed());
        if (!isOpen || left <= 0)
            break;
        isOpen = readShown(left, -1);
    }
    return testing::AssertionFailure()
           << "\"" << text.toStdString() << "\" was not shown"
           << (isOpen ? " in time" : " before the terminal was closed") << ". All that was shown:\n"
           << shownTranscript().toStdString();
}

QByteArray PseudoTerminal::shownTranscript() const
{
    QByteArray shown;
    for (const char byte : m_transcript) {
        const bool isControl = static_cast<unsigned char>(byte) < 0x20 && byte != '\n';
        if (isControl)
            shown += QByteArray("\\x") + QByteArray(1, byte).toHex();
        else
            shown += byte;
    }
    return shown;
}

void PseudoTerminal::resize(TerminalSize size)
{
    const winsize window = windowSize(size);
    ::ioctl(m_master, TIOCSWINSZ, &window);
}

void PseudoTerminal::close()
{
    closeDescriptor(m_master);
}

void PseudoTerminal::signal(int number) const
{
    if (m_process > 0)
        ::kill(m_process, number);
}

void PseudoTerminal::drain()
{
    pollfd request = {m_master, POLLIN, 0};
    while (::poll(&request, 1, 0) > 0 && (request.revents & POLLIN) != 0 && readShown(0, -1)) {
    }
}

std::optional<int> PseudoTerminal::waitExit(int timeoutMs)
{
    QElapsedTimer timer;
    timer.start();
    while (m_process > 0) {
        int status = 0;
        if (::waitpid(m_process, &status, WNOHANG) == m_process) {
            m_process = -1;
            drain();
            return status;
        }
        const auto left = timeoutMs - static_cast<int>(timer.elapsed());
        if (left <= 0)
            break;
        // A program that writes more than the terminal holds would never end if nobody read it.
        static_cast<void>(readShown(left, m_processHandle));
    }
    return std::nullopt;
}

termios PseudoTerminal::modes() const
{
    termios modes = {};
    ::tcgetattr(m_master, &modes);
    return modes;
}

bool operator==(const termios& left, const termios& right)
{
    return left.c_iflag == right.c_iflag && left.c_oflag == right.c_oflag &&
           left.c_cflag == right.c_cflag && left.c_lflag == right.c_lflag &&
           std::equal(std::begin(left.c_cc), std::end(left.c_cc), std::begin(right.c_cc));
}
