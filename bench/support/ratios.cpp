#include "bench/support/ratios.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <optional>

namespace ratios {

namespace {

const char* const kOther = "/other";

// The usual report of medians and the like, which also keeps the time of every repetition.
class Repetitions final : public benchmark::ConsoleReporter
{
public:
    Repetitions()
        : ConsoleReporter(OO_Tabular)
    {}

    void ReportRuns(const std::vector<Run>& runs) override
    {
        std::vector<Run> told;
        for (const Run& run : runs) {
            m_failed = m_failed || run.error_occurred;
            if (run.run_type == Run::RT_Iteration && !run.error_occurred)
                m_times[run.run_name.function_name].push_back(timeOf(run));
            if (run.run_type == Run::RT_Aggregate || run.error_occurred)
                told.push_back(run);
        }
        if (!told.empty())
            ConsoleReporter::ReportRuns(told);
    }

    [[nodiscard]] bool failed() const { return m_failed; }

    // In the order in which they were run; empty when nothing was run under that name.
    [[nodiscard]] std::vector<double> of(const std::string& name) const
    {
        const auto found = m_times.find(name);
        return found == m_times.end() ? std::vector<double>() : found->second;
    }

private:
    // The name tells the clock: "real_time" and "manual_time" are no processor time.
    static double timeOf(const Run& run)
    {
        return run.run_name.time_type.empty() ? run.GetAdjustedCPUTime()
                                              : run.GetAdjustedRealTime();
    }

    std::map<std::string, std::vector<double>> m_times;
    bool m_failed = false;
};

void add(const std::string& name, const Work& work, const Comparison& comparison)
{
    auto* const added = benchmark::RegisterBenchmark(name.c_str(), work);
    added->Unit(benchmark::kMillisecond)->Repetitions(comparison.repetitions);
    if (comparison.clock == Clock::Wall)
        added->UseRealTime();
    if (comparison.clock == Clock::ByHand)
        added->UseManualTime();
}

// The value below which `part` of the sorted values lie, between two of them if need be.
double quantile(const std::vector<double>& sorted, double part)
{
    const double place = part * static_cast<double>(sorted.size() - 1);
    const auto below = static_cast<std::size_t>(place);
    const std::size_t above = std::min(below + 1, sorted.size() - 1);
    return sorted[below] + (sorted[above] - sorted[below]) * (place - static_cast<double>(below));
}

struct Row
{
    const Comparison* comparison;
    double lower;
    double median;
    double upper;

    [[nodiscard]] bool met() const { return median >= comparison->leastSpeed; }
};

// Nothing when one of the two was not run.
std::optional<Row> rowOf(const Comparison& comparison, const Repetitions& repetitions)
{
    const std::vector<double> times = repetitions.of(comparison.name);
    const std::vector<double> others = repetitions.of(comparison.name + kOther);
    std::vector<double> speeds;
    for (std::size_t i = 0; i < std::min(times.size(), others.size()); ++i)
        speeds.push_back(others[i] / times[i]);
    if (speeds.empty())
        return std::nullopt;
    std::sort(speeds.begin(), speeds.end());
    return Row{&comparison, quantile(speeds, 0.25), quantile(speeds, 0.5), quantile(speeds, 0.75)};
}

void print(const std::vector<Row>& rows)
{
    std::printf("\n| %-24s | times as fast | half of the runs | at least | %-6s | %-44s |\n",
                "case", "", "as");
    std::printf("|%s|--------------:|-----------------:|---------:|--------|%s|\n",
                std::string(26, '-').c_str(), std::string(46, '-').c_str());
    for (const Row& row : rows) {
        std::printf("| %-24s | %13.2f | %7.2f -%7.2f | %8.2f | %-6s | %-44s |\n",
                    row.comparison->name.c_str(), row.median, row.lower, row.upper,
                    row.comparison->leastSpeed, row.met() ? "met" : "MISSED",
                    row.comparison->against.c_str());
    }
}

} // namespace

int run(int argc, char** argv, const std::vector<Comparison>& comparisons)
{
    // Ours comes first, so that the caller's may replace it.
    std::string interleaving = "--benchmark_enable_random_interleaving=true";
    std::vector<char*> options{argv[0], interleaving.data()};
    options.insert(options.end(), argv + 1, argv + argc);
    int count = static_cast<int>(options.size());
    benchmark::Initialize(&count, options.data());
    if (benchmark::ReportUnrecognizedArguments(count, options.data()))
        return 2;

    for (const Comparison& comparison : comparisons) {
        add(comparison.name, comparison.work, comparison);
        add(comparison.name + kOther, comparison.other, comparison);
    }
    Repetitions repetitions;
    benchmark::RunSpecifiedBenchmarks(&repetitions);

    std::vector<Row> rows;
    for (const Comparison& comparison : comparisons) {
        if (const std::optional<Row> row = rowOf(comparison, repetitions))
            rows.push_back(*row);
    }
    print(rows);
    const bool allMet =
        std::all_of(rows.begin(), rows.end(), [](const Row& row) { return row.met(); });
    if (!allMet || repetitions.failed())
        return 1;
    return rows.empty() ? kNothingRun : 0;
}

} // namespace ratios
