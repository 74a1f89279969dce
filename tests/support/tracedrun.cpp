#include "tests/support/tracedrun.h"

#include "tests/support/programrun.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTemporaryFile>

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <vector>

#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using SystemCall = __ptrace_syscall_info;

constexpr int kCannotBeTraced = 98;
constexpr int kCallStop = SIGTRAP | 0x80;

// Files rather than pipes: nobody reads while the program runs.
struct Streams
{
    QTemporaryFile input;
    QTemporaryFile output;
    QTemporaryFile diagnostics;

    bool open(const QByteArray& text)
    {
        return input.open() && input.write(text) == text.size() && input.seek(0) && output.open() &&
               diagnostics.open();
    }
};

QString contentOf(QTemporaryFile& file)
{
    file.seek(0);
    return QString::fromUtf8(file.readAll());
}

// The strings of a started program, ending with a null pointer.
class StringVector
{
public:
    explicit StringVector(const QStringList& strings)
    {
        for (const QString& string : strings)
            m_bytes.push_back(QFile::encodeName(string));
        for (QByteArray& bytes : m_bytes)
            m_pointers.push_back(bytes.data());
        m_pointers.push_back(nullptr);
    }

    char* const* get() const { return m_pointers.data(); }

private:
    std::vector<QByteArray> m_bytes;
    std::vector<char*> m_pointers;
};

[[noreturn]] void beTheProgram(const Streams& streams, const StringVector& arguments,
                               const StringVector& environment, const QByteArray& folder)
{
    if (::dup2(streams.input.handle(), 0) < 0 || ::dup2(streams.output.handle(), 1) < 0 ||
        ::dup2(streams.diagnostics.handle(), 2) < 0 || ::chdir(folder.constData()) != 0 ||
        ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
        ::_exit(kCannotBeTraced);
    ::raise(SIGSTOP);
    ::execve(QUELHOST_PROGRAM, arguments.get(), environment.get());
    ::_exit(kCannotBeTraced);
}

int waitFor(pid_t process)
{
    int status = 0;
    while (::waitpid(process, &status, 0) < 0) {
        if (errno != EINTR)
            return 0;
    }
    return status;
}

// The text at an address of the process, to its null character; the page after it may be missing.
std::string textAt(pid_t process, std::uint64_t address)
{
    constexpr std::size_t kPage = 4096;
    char buffer[kPage] = {};
    const std::size_t inPage = kPage - address % kPage;
    const iovec to = {buffer, sizeof buffer - 1};
    const iovec from[] = {{reinterpret_cast<void*>(address), inPage},
                          {reinterpret_cast<void*>(address + inPage), sizeof buffer - 1}};
    return ::process_vm_readv(process, &to, 1, from, 2, 0) > 0 ? buffer : "";
}

// Calls that leave every file as it is. One that is not listed counts as one that does not.
bool onlyLooks(std::uint64_t number)
{
    switch (number) {
#ifdef SYS_access
    case SYS_access:
    case SYS_readlink:
    case SYS_stat:
    case SYS_lstat:
#endif
    case SYS_close:
    case SYS_faccessat:
    case SYS_faccessat2:
    case SYS_fcntl:
    case SYS_fstat:
    case SYS_getdents64:
    case SYS_lseek:
    case SYS_newfstatat:
    case SYS_pread64:
    case SYS_read:
    case SYS_readlinkat:
    case SYS_statx:
        return true;
    default:
        return false;
    }
}

std::string nameOf(std::uint64_t number)
{
    switch (number) {
    case SYS_pwrite64:
        return "pwrite64";
    case SYS_write:
        return "write";
    case SYS_fsync:
        return "fsync";
    case SYS_fdatasync:
        return "fdatasync";
    case SYS_ftruncate:
        return "ftruncate";
    case SYS_openat:
        return "openat";
#ifdef SYS_rename
    case SYS_rename:
        return "rename";
    case SYS_unlink:
        return "unlink";
#endif
    case SYS_fcntl:
        return "fcntl";
    case SYS_close:
        return "close";
    default:
        return "call " + std::to_string(number);
    }
}

// Follows one process from call to call.
class Tracer
{
public:
    Tracer(const TracedRun& run, pid_t process)
        : m_run(run)
        , m_profile(QFile::encodeName(run.profile).toStdString())
        , m_process(process)
    {}

    // Runs the process to its end, by itself or by our hand.
    TracedEnd follow();

private:
    // Whether the process is to be ended here.
    bool enters(const SystemCall& call);
    bool leaves(const SystemCall& call);
    bool isMoment(const char* side);
    // The file of the profile, "." for its folder, or the stream that the call is about; else null.
    QString subjectOf(const SystemCall& call) const;
    QString inProfile(const std::string& path) const;

    const TracedRun& m_run;
    const std::string m_profile;
    const pid_t m_process;
    TracedEnd m_end;
    bool m_begun = false;
    bool m_inPart = false;
    bool m_counted = false; // the call that the process is in
    SystemCall m_entered = {};
    std::string m_call;
};

TracedEnd Tracer::follow()
{
    int status = waitFor(m_process);
    m_end.traced = WIFSTOPPED(status) && ::ptrace(PTRACE_SETOPTIONS, m_process, nullptr,
                                                  PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL) == 0;
    int signal = 0;
    while (WIFSTOPPED(status)) {
        ::ptrace(PTRACE_SYSCALL, m_process, nullptr, signal);
        status = waitFor(m_process);
        if (!WIFSTOPPED(status))
            break;
        signal =
            WSTOPSIG(status) == kCallStop || WSTOPSIG(status) == SIGTRAP ? 0 : WSTOPSIG(status);
        SystemCall call = {};
        if (WSTOPSIG(status) != kCallStop ||
            ::ptrace(PTRACE_GET_SYSCALL_INFO, m_process, sizeof call, &call) <= 0)
            continue;
        if (call.op == PTRACE_SYSCALL_INFO_ENTRY ? enters(call) : leaves(call)) {
            ::kill(m_process, SIGKILL);
            status = waitFor(m_process);
            m_end.killed = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
        }
    }
    m_end.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return m_end;
}

bool Tracer::enters(const SystemCall& call)
{
    m_entered = call;
    const bool readsInput = call.entry.nr == SYS_read && call.entry.args[0] == 0;
    m_inPart = m_inPart && !(readsInput && m_run.part != RunPart::End);
    const QString subject = subjectOf(call);
    if (m_run.part == RunPart::Start && !m_begun && !subject.isNull())
        m_begun = m_inPart = true;
    m_counted = m_inPart && (m_run.part == RunPart::Command ||
                             (!subject.isNull() && !onlyLooks(call.entry.nr)));
    m_call = nameOf(call.entry.nr) + ' ' + subject.toStdString();
    if (m_counted)
        m_end.calls << QString::fromStdString(m_call);
    return m_counted && isMoment(" before");
}

bool Tracer::leaves(const SystemCall& call)
{
    const bool readInput = m_entered.entry.nr == SYS_read && m_entered.entry.args[0] == 0;
    if (readInput && !m_begun) {
        const bool lineEnded =
            call.exit.rval == 1 && textAt(m_process, m_entered.entry.args[1])[0] == '\n';
        const bool begins = m_run.part == RunPart::Command ? lineEnded : call.exit.rval == 0;
        m_begun = m_inPart = begins && m_run.part != RunPart::Start;
    }
    return m_counted && isMoment(" after");
}

bool Tracer::isMoment(const char* side)
{
    ++m_end.moments;
    if (m_end.moments != m_run.killAt)
        return false;
    m_end.call = m_call + side;
    return true;
}

QString Tracer::inProfile(const std::string& path) const
{
    if (path == m_profile)
        return QStringLiteral(".");
    const std::string folder = m_profile + '/';
    return path.compare(0, folder.size(), folder) == 0
               ? QFile::decodeName(path.substr(folder.size()).c_str())
               : QString();
}

QString Tracer::subjectOf(const SystemCall& call) const
{
    for (const std::uint64_t argument : {call.entry.args[0], call.entry.args[1]}) {
        if (argument <= 4096)
            continue;
        if (const QString file = inProfile(textAt(m_process, argument)); !file.isNull())
            return file;
    }
    const auto descriptor = call.entry.args[0];
    if (call.entry.nr == SYS_write && (descriptor == 1 || descriptor == 2))
        return descriptor == 1 ? QStringLiteral("stdout") : QStringLiteral("stderr");
    const QString link = QStringLiteral("/proc/%1/fd/%2").arg(m_process).arg(descriptor);
    return descriptor > 4096
               ? QString()
               : inProfile(QFile::encodeName(QFile::symLinkTarget(link)).toStdString());
}

} // namespace

TracedEnd TracedRun::run() const
{
    const QTemporaryDir home;
    Streams streams;
    if (!streams.open(input))
        return {};
    const StringVector argumentStrings(QStringList{QStringLiteral(QUELHOST_PROGRAM)} + arguments);
    const StringVector environment(
        programEnvironment(home.path(), LeakSearch::None).toStringList());
    const QByteArray folder = QFile::encodeName(home.path());
    const pid_t process = ::fork();
    if (process == 0)
        beTheProgram(streams, argumentStrings, environment, folder);
    TracedEnd end = process > 0 ? Tracer(*this, process).follow() : TracedEnd();
    end.output = contentOf(streams.output);
    end.diagnostics = contentOf(streams.diagnostics);
    return end;
}
