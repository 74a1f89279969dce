#include "tests/support/programrun.h"

#include <QProcess>
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

ProgramResult ProgramRun::run() const
{
    const QTemporaryDir home;
    QProcessEnvironment surroundings;
    for (const char* name : {"PATH", "LD_LIBRARY_PATH", "ASAN_OPTIONS", "LSAN_OPTIONS"}) {
        if (qEnvironmentVariableIsSet(name))
            surroundings.insert(QLatin1String(name), qEnvironmentVariable(name));
    }
    surroundings.insert(QStringLiteral("HOME"), home.path());
    surroundings.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    for (auto each = environment.begin(); each != environment.end(); ++each)
        surroundings.insert(each.key(), each.value());

    LimitedProcess process(runAsUser, fileSizeLimit);
    process.setProcessEnvironment(surroundings);
    process.setWorkingDirectory(folder.isEmpty() ? home.path() : folder);
    process.start(QStringLiteral(QUELHOST_PROGRAM), arguments);
    process.write(input);
    process.closeWriteChannel();
    ProgramResult result;
    result.ended =
        process.waitForFinished(timeLimitMs) && process.exitStatus() == QProcess::NormalExit;
    if (process.state() != QProcess::NotRunning) {
        process.kill();
        process.waitForFinished();
    }
    result.exitStatus = result.ended ? process.exitCode() : -1;
    result.output = QString::fromUtf8(process.readAllStandardOutput());
    result.diagnostics = QString::fromUtf8(process.readAllStandardError());
    return result;
}
