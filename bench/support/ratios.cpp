#include "bench/support/ratios.h"

#include <algorithm>
#include <cstdio>
#include <map>

namespace ratios {

namespace {

const char* const kOther = "/other";
const char* const kFastest = "fastest";

double fastest(const std::vector<double>& times)
{
    return *std::min_element(times.begin(), times.end());
}

// The usual report, which also keeps the fastest repetition of each work.
class FastestRuns final : public benchmark::ConsoleReporter
{
public:
    FastestRuns()
        : ConsoleReporter(OO_Tabular)
    {}

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            m_failed = m_failed || run.error_occurred;
            if (run.aggregate_name == kFastest)
                m_times[run.run_name.function_name] = run.run_name.time_type.empty()
                                                          ? run.GetAdjustedCPUTime()
                                                          : run.GetAdjustedRealTime();
        }
        ConsoleReporter::ReportRuns(runs);
    }

    [[nodiscard]] bool failed() const { return m_failed; }

    // 0 when nothing was run under that name.
    [[nodiscard]] double timeOf(const std::string& name) const
    {
        const auto found = m_times.find(name);
        return found == m_times.end() ? 0 : found->second;
    }

private:
    std::map<std::string, double> m_times;
    bool m_failed = false;
};

void add(const std::string& name, const Work& work, bool isTimedByHand)
{
    auto* const added = benchmark::RegisterBenchmark(name.c_str(), work);
    added->ComputeStatistics(kFastest, fastest)->Unit(benchmark::kMillisecond);
    if (isTimedByHand)
        added->UseManualTime();
}

enum class Verdict { Met, Missed, NotRun };

Verdict printRatio(const Comparison& comparison, const FastestRuns& runs)
{
    const double time = runs.timeOf(comparison.name);
    const double otherTime = runs.timeOf(comparison.name + kOther);
    if (time <= 0 || otherTime <= 0)
        return Verdict::NotRun;
    const double speed = otherTime / time;
    const bool met = speed >= comparison.leastSpeed;
    std::printf("%-24s %7.2f   at least %6.2f   %-6s  against %s\n", comparison.name.c_str(), speed,
                comparison.leastSpeed, met ? "met" : "MISSED", comparison.against.c_str());
    return met ? Verdict::Met : Verdict::Missed;
}

} // namespace

int run(int argc, char** argv, const std::vector<Comparison>& comparisons)
{
    // Ours come first, so that the caller's may replace them.
    std::string repetitions = "--benchmark_repetitions=9";
    std::string interleaving = "--benchmark_enable_random_interleaving=true";
    std::string shortReport = "--benchmark_display_aggregates_only=true";
    std::vector<char*> options{argv[0], repetitions.data(), interleaving.data(),
                               shortReport.data()};
    options.insert(options.end(), argv + 1, argv + argc);
    int count = static_cast<int>(options.size());
    benchmark::Initialize(&count, options.data());
    if (benchmark::ReportUnrecognizedArguments(count, options.data()))
        return 2;

    for (const Comparison& comparison : comparisons) {
        add(comparison.name, comparison.work, comparison.isTimedByHand);
        add(comparison.name + kOther, comparison.other, comparison.isTimedByHand);
    }
    FastestRuns runs;
    benchmark::RunSpecifiedBenchmarks(&runs);

    std::printf("\nRatios: how many times as fast\n");
    int printed = 0;
    bool missed = runs.failed();
    for (const Comparison& comparison : comparisons) {
        const Verdict verdict = printRatio(comparison, runs);
        printed += verdict == Verdict::NotRun ? 0 : 1;
        missed = missed || verdict == Verdict::Missed;
    }
    return missed || printed == 0 ? 1 : 0;
}

} // namespace ratios
