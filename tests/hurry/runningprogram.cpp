#include "tests/hurry/runningprogram.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcessEnvironment>
#include <QRegularExpression>

namespace hurry {

namespace {

constexpr int kSilentMs = 60'000; // a hang, not a measure
constexpr int kMostSaid = 512 * 1024 * 1024;

} // namespace

RunningProgram::RunningProgram(const QStringList& arguments, const QString& folder)
{
    QProcessEnvironment surroundings;
    for (const char* name : {"PATH", "LD_LIBRARY_PATH", "GCOV_PREFIX", "GCOV_PREFIX_STRIP"}) {
        if (qEnvironmentVariableIsSet(name))
            surroundings.insert(QLatin1String(name), qEnvironmentVariable(name));
    }
    surroundings.insert(QStringLiteral("HOME"), folder);
    surroundings.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    // What is freed goes back to the system, whatever sizes were asked for before: by themselves
    // the allocator's thresholds grow with the longest lines.
    for (const char* name : {"MALLOC_MMAP_THRESHOLD_", "MALLOC_TRIM_THRESHOLD_"})
        surroundings.insert(QLatin1String(name), QStringLiteral("65536"));
    m_process.setProcessEnvironment(surroundings);
    m_process.setWorkingDirectory(folder);
    m_process.start(QStringLiteral(QUELHOST_PROGRAM), arguments);
    m_process.waitForStarted();
}

RunningProgram::~RunningProgram()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.kill();
    m_process.waitForFinished();
}

// Waits until it says something, on either channel. Returns whether it did.
bool RunningProgram::hear()
{
    constexpr int kPauseMs = 10;
    QElapsedTimer silence;
    silence.start();
    while (silence.elapsed() < kSilentMs) {
        const bool hasEnded = m_process.state() == QProcess::NotRunning;
        m_process.waitForReadyRead(kPauseMs);
        const QByteArray said = m_process.readAllStandardOutput();
        const QByteArray diagnostics = m_process.readAllStandardError();
        m_said += said;
        m_diagnostics += diagnostics;
        if (!said.isEmpty() || !diagnostics.isEmpty())
            return true;
        if (hasEnded)
            return false;
    }
    return false;
}

QByteArray RunningProgram::readUntil(const QByteArray& text)
{
    int seen = 0;
    for (;;) {
        const int at = m_said.indexOf(text, seen);
        if (at >= 0) {
            const QByteArray said = m_said.left(at + text.size());
            m_said.remove(0, said.size());
            return said;
        }
        seen = std::max(0, m_said.size() - text.size());
        if (m_said.size() > kMostSaid || !hear())
            return {};
    }
}

std::string RunningProgram::end()
{
    m_process.closeWriteChannel();
    while (m_process.state() != QProcess::NotRunning) {
        if (!hear() && m_process.state() != QProcess::NotRunning)
            return "it hangs";
        m_said.clear();
    }
    m_diagnostics += m_process.readAllStandardError();
    if (m_process.exitStatus() != QProcess::NormalExit)
        return "it crashed: " + m_diagnostics.toStdString();
    return m_process.exitCode() == 0 ? "" : "status " + std::to_string(m_process.exitCode());
}

std::vector<std::string> RunningProgram::takeDiagnostics(std::size_t rows)
{
    while (static_cast<std::size_t>(m_diagnostics.count('\n')) < rows && hear()) {
    }
    std::vector<std::string> taken;
    for (int end = m_diagnostics.indexOf('\n'); end >= 0; end = m_diagnostics.indexOf('\n')) {
        taken.push_back(m_diagnostics.left(end).toStdString());
        m_diagnostics.remove(0, end + 1);
    }
    return taken;
}

long RunningProgram::ownMemory() const
{
    QFile status(QStringLiteral("/proc/%1/status").arg(m_process.processId()));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QRegularExpression row(QStringLiteral("RssAnon:\\s*(\\d+) kB"));
    return row.match(QString::fromUtf8(status.readAll())).captured(1).toLong();
}

} // namespace hurry
