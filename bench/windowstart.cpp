// From the start of the program to its window's first paint, beside an empty window that is linked
// with the same libraries. Needs a display.
#include "bench/support/processtime.h"
#include "bench/support/ratios.h"

#include <QTemporaryDir>

int main(int argc, char** argv)
{
    const QTemporaryDir profile;
    const QString program = QStringLiteral(QUELHOST_PROGRAM);
    const QStringList window{QStringLiteral("--window"), QStringLiteral("--profile"),
                             profile.path()};
    // Both end by themselves after the first paint.
    qputenv("LD_PRELOAD", QUEL_FIRST_PAINT);
    // The first start makes the profile.
    if (ratios::runQuietly(program, window) != 0)
        return 1;
    ratios::Comparison start{
        "startOfTheWindow", ratios::process(program, [&] { return window; }),
        "an empty window with the same libraries",
        ratios::process(QStringLiteral(QUEL_BARE_WINDOW), [] { return QStringList(); }), 1 / 1.5};
    start.clock = ratios::Clock::ByHand;
    start.repetitions = 20;
    return ratios::run(argc, argv, {start});
}
