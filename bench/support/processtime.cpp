#include "bench/support/processtime.h"

#include <QProcess>

#include <chrono>

namespace ratios {

int runQuietly(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.start(program, arguments);
    if (!process.waitForFinished(-1) || process.exitStatus() != QProcess::NormalExit)
        return -1;
    return process.exitCode();
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
