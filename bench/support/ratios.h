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

struct Comparison
{
    std::string name;
    Work work;
    std::string against; // what the other work is, in a few words
    Work other;
    // How many times as fast as the other the work is to be at least: 20 for "twenty times faster",
    // 0.9 for "nine tenths of its throughput", 1 / 1.5 for "at most one and a half times its time".
    double leastSpeed;
    // Both works say themselves how long each round took (SetIterationTime), because other
    // processes do what is measured. Otherwise this process's processor time counts.
    bool isTimedByHand = false;
};

// Runs all of them with Google Benchmark, whose options `argc` and `argv` are, and prints one line
// for each behind its report:
//
//     Ratios: how many times as fast
//     copyFrom   0.98   at least 0.90   met      against a loop by hand
//
// Each work is repeated, in an order that changes by chance, so that what else the machine does
// reaches both alike. The time of the fastest repetition of each counts.
// What the options leave out is not told of. Returns the program's exit status: 0 when all targets
// are met, 1 when one is missed, a work said that it failed, or nothing was run, 2 for wrong
// options.
int run(int argc, char** argv, const std::vector<Comparison>& comparisons);

} // namespace ratios
