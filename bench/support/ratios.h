// Cases that are measured beside what they are compared with.
#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <string>
#include <vector>

namespace ratios {

// One run of the work that is measured, with whatever it checks of its result. Made ready before,
// so that only the work itself counts.
using Work = std::function<void(benchmark::State&)>;

enum class Clock {
    Processor, // this process's processor time
    Wall,      // for work that waits for a disk
    ByHand,    // each work says itself how long each round took (SetIterationTime)
};

struct Comparison
{
    std::string name;
    Work work;
    std::string against; // what the other work is, in a few words
    Work other;
    // How many times as fast as the other the work is to be at least: 20 for "twenty times faster",
    // 0.9 for "nine tenths of its throughput", 1 / 1.5 for "at most one and a half times its time".
    double leastSpeed;
    Clock clock = Clock::Processor;
    int repetitions = 9;
};

inline constexpr int kNothingRun = 3;

// Runs all of them with Google Benchmark, whose options `argc` and `argv` are, and prints a table
// behind its report:
//
//     | case     | times as fast | half of the runs | at least |     | as                      |
//     |----------|--------------:|-----------------:|---------:|-----|-------------------------|
//     | copyFrom |          0.98 |      0.97 - 1.01 |     0.90 | met | a loop by hand          |
//
// Each work is repeated, in an order that changes by chance, so that what else the machine does
// reaches both alike. The first repetition of one is compared with the first of the other, and so
// on; the table has the median of these ratios and between which two the middle half of them lies.
// What the options leave out is not told of. Returns the program's exit status: 0 when all targets
// are met, 1 when one is missed or a work said that it failed, 2 for wrong options, kNothingRun
// when the options left everything out.
int run(int argc, char** argv, const std::vector<Comparison>& comparisons);

} // namespace ratios
