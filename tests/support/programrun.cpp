#include "tests/support/programrun.h"

#include <QTemporaryDir>

#include <csignal>
#include <grp.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

// The started program's side of the fork: takes rights and room away before the program begins.
class LimitedProcess final : public QProcess
{
public:
    LimitedProcess(int user, qint64 fileSize)
        : m_user(user)
        , m_fileSize(fileSize)
    {}

protected:
    void setupChildProcess() override
    {
        if (m_fileSize > 0) {
            const auto most = static_cast<rlim_t>(m_fileSize);
            const rlimit limit{most, most};
            ::setrlimit(RLIMIT_FSIZE, &limit);
            std::signal(SIGXFSZ, SIG_IGN); // a write then fails as on a full disk
        }
        const auto user = static_cast<uid_t>(m_user);
        if (user != 0 && ::geteuid() == 0 &&
            (::setgroups(0, nullptr) != 0 || ::setgid(user) != 0 || ::setuid(user) != 0))
            ::_exit(99);
    }

private:
    const int m_user;
    const qint64 m_fileSize;
};

} // namespace

QProcessEnvironment programEnvironment(const QString& home, LeakSearch leakSearch)
{
    QProcessEnvironment surroundings;
    for (const char* name : {"PATH", "LD_LIBRARY_PATH", "ASAN_OPTIONS", "LSAN_OPTIONS"}) {
        if (qEnvironmentVariableIsSet(name))
            surroundings.insert(QLatin1String(name), qEnvironmentVariable(name));
    }
    if (leakSearch == LeakSearch::None)
        surroundings.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
    surroundings.insert(QStringLiteral("HOME"), home);
    surroundings.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    return surroundings;
}

ProgramResult ProgramRun::run() const
{
    LiveProgram program(*this);
    program.waitForEnd();
    return program.result();
}

LiveProgram::LiveProgram(const ProgramRun& run, bool moreInput)
    : m_timeLimitMs(run.timeLimitMs)
    , m_process(std::make_unique<LimitedProcess>(run.runAsUser, run.fileSizeLimit))
{
    QProcessEnvironment surroundings = programEnvironment(m_home.path(), run.leakSearch);
    for (auto each = run.environment.begin(); each != run.environment.end(); ++each)
        surroundings.insert(each.key(), each.value());
    m_process->setProcessEnvironment(surroundings);
    m_process->setWorkingDirectory(run.folder.isEmpty() ? m_home.path() : run.folder);
    m_process->start(QStringLiteral(QUELHOST_PROGRAM), run.arguments);
    m_process->setReadChannel(QProcess::StandardError);
    m_process->write(run.input);
    if (!moreInput)
        m_process->closeWriteChannel();
    m_process->waitForBytesWritten(m_timeLimitMs);
}

LiveProgram::~LiveProgram()
{
    kill();
}

void LiveProgram::type(const QString& lines)
{
    m_process->write(lines.toUtf8());
    m_process->waitForBytesWritten(m_timeLimitMs);
}

bool LiveProgram::waitForStatuses(int count)
{
    while (statuses().size() < count) {
        if (!m_process->waitForReadyRead(m_timeLimitMs))
            return statuses().size() >= count;
    }
    return true;
}

QString LiveProgram::output()
{
    readAll();
    return QString::fromUtf8(m_output);
}

QStringList LiveProgram::statuses()
{
    readAll();
    QStringList rows = QString::fromUtf8(m_diagnostics).split(QLatin1Char('\n'));
    rows.removeLast();
    return rows;
}

bool LiveProgram::kill()
{
    if (m_process->state() == QProcess::NotRunning)
        return false;
    m_process->kill();
    m_process->waitForFinished(m_timeLimitMs);
    return m_process->exitStatus() == QProcess::CrashExit;
}

bool LiveProgram::waitForEnd()
{
    m_process->closeWriteChannel();
    return m_process->state() == QProcess::NotRunning || m_process->waitForFinished(m_timeLimitMs);
}

ProgramResult LiveProgram::result()
{
    ProgramResult result;
    result.ended = m_process->state() == QProcess::NotRunning &&
                   m_process->exitStatus() == QProcess::NormalExit &&
                   m_process->error() != QProcess::FailedToStart;
    kill();
    result.exitStatus = result.ended ? m_process->exitCode() : -1;
    result.output = output();
    result.diagnostics = QString::fromUtf8(m_diagnostics);
    return result;
}

void LiveProgram::readAll()
{
    m_output += m_process->readAllStandardOutput();
    m_diagnostics += m_process->readAllStandardError();
}
