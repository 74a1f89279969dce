// From the start of the program to its window's first paint, beside an empty window that is linked
// with the same libraries. Needs a display.
#include "bench/support/ratios.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <chrono>

namespace {

using Arguments = std::function<QStringList()>;

// Both end by themselves after the first paint.
ratios::Work starts(const QString& program, const Arguments& arguments)
{
    return [program, arguments](benchmark::State& state) {
        for (auto _ : state) {
            const auto begin = std::chrono::steady_clock::now();
            const int status = QProcess::execute(program, arguments());
            const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begin;
            state.SetIterationTime(time.count());
            if (status != 0)
                return state.SkipWithError("the program failed");
        }
    };
}

} // namespace

int main(int argc, char** argv)
{
    const QTemporaryDir profile;
    const QStringList window{QStringLiteral("--window"), QStringLiteral("--profile"),
                             profile.path()};
    qputenv("LD_PRELOAD", QUEL_FIRST_PAINT);
    // The first start makes the profile.
    if (QProcess::execute(QStringLiteral(QUELHOST_PROGRAM), window) != 0)
        return 1;
    ratios::Comparison start{
        "startOfTheWindow", starts(QStringLiteral(QUELHOST_PROGRAM), [&] { return window; }),
        "an empty window with the same libraries",
        starts(QStringLiteral(QUEL_BARE_WINDOW), [] { return QStringList(); }), 1 / 1.5};
    start.isTimedByHand = true;
    return ratios::run(argc, argv, {start});
}
