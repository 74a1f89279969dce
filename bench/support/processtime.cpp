#include "bench/support/processtime.h"

#include <QProcess>

#include <chrono>

namespace ratios {

namespace {

int runIn(QProcess& process, const QString& program, const QStringList& arguments)
{
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(program, arguments);
    if (!process.waitForFinished(-1) || process.exitStatus() != QProcess::NormalExit)
        return -1;
    return process.exitCode();
}

} // namespace

int runQuietly(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setStandardOutputFile(QProcess::nullDevice());
    return runIn(process, program, arguments);
}

QByteArray outputOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    return runIn(process, program, arguments) == 0 ? process.readAllStandardOutput() : QByteArray();
}

Work process(const QString& program, const std::function<QStringList()>& arguments)
{
    return [program, arguments](benchmark::State& state) {
        for (auto _ : state) {
            const QStringList given = arguments();
            const auto begin = std::chrono::steady_clock::now();
            const int status = runQuietly(program, given);
            const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begin;
            state.SetIterationTime(time.count());
            if (status != 0)
                return state.SkipWithError("the program failed");
        }
    };
}

} // namespace ratios
