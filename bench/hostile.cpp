// What it costs to refuse hostile packages, each beside plainly inflating and parsing the same
// bytes, in one process, both from a file as the host has them. The fastest of many short rounds of
// each counts, which alternate, so that what else the machine does reaches both alike.
#include "bench/support/plainreading.h"
#include "refhost/core/package.h"
#include "refhost/core/resources.h"
#include "tests/support/hostilepackages.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <limits>
#include <vector>

namespace {

constexpr double kMost = 3;      // times the plain reading
constexpr double kRound = 0.001; // seconds at least
constexpr int kMostRounds = 15;
constexpr int kLeastRounds = 2;
constexpr double kEnough = 0.2;    // seconds of rounds
constexpr std::size_t kShown = 12; // of the dearest

struct Cost
{
    std::string name;
    double refusing = 0; // seconds
    double plain = 0;

    [[nodiscard]] double ratio() const { return refusing / plain; }
};

[[nodiscard]] double processorTime()
{
    timespec now = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

// Seconds that `count` runs of `work` take, for each.
[[nodiscard]] double timeOf(const std::function<void()>& work, int count)
{
    const double begin = processorTime();
    for (int i = 0; i < count; ++i)
        work();
    return (processorTime() - begin) / count;
}

// How many runs make a round.
[[nodiscard]] int runsOf(const std::function<void()>& work)
{
    const double once = timeOf(work, 1);
    return std::max(1, static_cast<int>(kRound / once));
}

[[nodiscard]] QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

[[nodiscard]] bool write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

[[nodiscard]] Cost measure(const packages::HostilePackage& package, const QString& path)
{
    bool refused = write(path, package.make());
    long parsed = 0;
    const auto refuse = [&] { refused = refused && !quelhost::readPackage(path); };
    const auto readPlainly = [&] { parsed += plainreading::read(contentOf(path)); };
    const int refusals = runsOf(refuse);
    const int readings = runsOf(readPlainly);
    Cost cost{package.name, std::numeric_limits<double>::max(), std::numeric_limits<double>::max()};
    const double begin = processorTime();
    for (int i = 0; i < kMostRounds; ++i) {
        cost.refusing = std::min(cost.refusing, timeOf(refuse, refusals));
        cost.plain = std::min(cost.plain, timeOf(readPlainly, readings));
        if (i + 1 >= kLeastRounds && processorTime() - begin > kEnough)
            break;
    }
    if (!refused)
        cost.refusing = std::numeric_limits<double>::infinity();
    return cost;
}

void print(const Cost& cost)
{
    std::printf("%7.2f  %12.6f ms  %12.6f ms  %s\n", cost.ratio(), 1000 * cost.refusing,
                1000 * cost.plain, cost.name.c_str());
}

// What a decoder says of each bad image would be longer than the report.
void saySilently(QtMsgType, const QMessageLogContext&, const QString&) {}

} // namespace

// bench_hostile [PART]: all packages, or those whose names contain PART.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (!quelhost::installHostTexts(QStringLiteral(QUEL_RESOURCES), QStringLiteral("en")))
        return 2;
    qInstallMessageHandler(saySilently);
    const QTemporaryDir folder;
    std::vector<Cost> costs;
    for (const packages::HostilePackage& package : packages::hostilePackages()) {
        if (argc < 2 || package.name.find(argv[1]) != std::string::npos)
            costs.push_back(measure(package, folder.filePath(QStringLiteral("p.cuix"))));
    }
    std::sort(costs.begin(), costs.end(),
              [](const Cost& a, const Cost& b) { return a.ratio() > b.ratio(); });
    const auto missed = std::count_if(costs.begin(), costs.end(),
                                      [](const Cost& cost) { return !(cost.ratio() <= kMost); });
    std::printf("  times      refused in      read plainly  package\n");
    const auto shown = std::max<std::size_t>(kShown, static_cast<std::size_t>(missed));
    for (std::size_t i = 0; i < std::min(shown, costs.size()); ++i)
        print(costs[i]);
    if (costs.empty())
        return 1;
    std::printf("%zu hostile packages, %.2f times at worst (%s), %td above %g times  %s\n",
                costs.size(), costs.front().ratio(), costs.front().name.c_str(), missed, kMost,
                missed == 0 ? "met" : "MISSED");
    return missed == 0 ? 0 : 1;
}
