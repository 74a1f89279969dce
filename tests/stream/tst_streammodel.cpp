// Byte streams against a model of them: every small case, and many long ones by chance.
#include "tests/stream/streampair.h"
#include "tests/stream/streamside.h"
#include "tests/support/temporaryfile.h"
#include "tests/support/testrounds.h"

#include <gtest/gtest.h>

#include <array>
#include <iostream>
#include <random>

using streams::ModelStream;
using streams::Side;
using streams::Step;
using streams::Trace;

namespace {

constexpr unsigned int kUnlimited = 0xFFFFFFFFU;
constexpr unsigned long kLongest = 4UL << 20;

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr int kSequences = 10000; // each takes ten times as long
#else
constexpr int kSequences = 100000;
#endif

// Chooses lengths, positions, bounds and steps, mostly small and 1 in 25 at the edges of pieces.
class Chance
{
public:
    explicit Chance(unsigned int seed)
        : m_random(seed)
    {}

    unsigned long upTo(unsigned long most)
    {
        return std::uniform_int_distribution<unsigned long>(0, most)(m_random);
    }
    bool oneIn(unsigned long cases) { return upTo(cases - 1) == 0; }

    unsigned long size()
    {
        constexpr std::array<unsigned long, 12> edges{1023, 1024, 1025, 4095, 4096, 4097,
                                                      8191, 8192, 8193, 2048, 2047, 2049};
        if (oneIn(25))
            return edges[upTo(edges.size() - 1)];
        if (oneIn(100))
            return upTo(20000);
        return oneIn(4) ? upTo(300) : upTo(12);
    }

    ModelStream stream()
    {
        ModelStream model;
        model.bytes = streams::pattern(size(), static_cast<unsigned int>(upTo(255)));
        model.position = oneIn(20) ? farAway() : upTo(model.bytes.size() + 3);
        model.lengthLimit = oneIn(5) ? size() + model.bytes.size() : kLongest;
        model.readLimit = oneIn(5) ? static_cast<unsigned int>(size()) : kUnlimited;
        model.writeLimit = oneIn(5) ? static_cast<unsigned int>(size()) : kUnlimited;
        while (oneIn(4))
            model.refusedSeeks.insert(static_cast<int>(1 + upTo(12)));
        return model;
    }

    Step step()
    {
        Step step{static_cast<Step::Kind>(upTo(7)), size(), size()};
        const bool isCopy = step.kind == Step::CopyFrom || step.kind == Step::CopyTo;
        if (isCopy && oneIn(3))
            step.first = step.second = oneIn(2) ? 0 : step.first;
        if (isCopy && oneIn(30)) {
            step.first = farAway();
            step.second = step.first - upTo(20);
        }
        if (!isCopy && oneIn(3000))
            step.first = 1048575 + upTo(3);
        if (step.kind == Step::Seek && oneIn(20))
            step.first = farAway();
        return step;
    }

private:
    unsigned long farAway() { return 0xFFFFFFFFFFFFFFFEUL - upTo(30); }

    std::mt19937 m_random;
};

// A step and the numbers of the sides it ran on.
struct DoneStep
{
    Step step;
    unsigned long self;
    unsigned long other;
};

std::string shown(const std::vector<DoneStep>& steps)
{
    std::string text;
    for (const DoneStep& done : steps)
        text += std::to_string(done.self) + "." + streams::shown(done.step) + " with " +
                std::to_string(done.other) + "; ";
    return text;
}

// A few steps between the two sides, or within one. Nothing, or what went differently and where.
std::string sequenceDifference(Chance& chance, std::array<Side, 2>& sides, Trace& trace)
{
    std::vector<DoneStep> done;
    const unsigned long steps = 1 + chance.upTo(9);
    for (unsigned long i = 0; i < steps; ++i) {
        const Step step = chance.step();
        const unsigned long self = chance.upTo(1);
        const unsigned long other = chance.oneIn(10) ? self : 1 - self;
        done.push_back({step, self, other});
        const std::string found = streams::stepDifference(step, sides[self], sides[other], trace);
        if (!found.empty())
            return shown(done) + "differs in its " + found;
    }
    return {};
}

} // namespace

TEST(StreamModel, HoldsForEverySmallCopy)
{
    int copiesThatMoved = 0;
    Trace trace;
    for (unsigned long i = 0; i < 4 * 6 * 4 * 6 * 6 * 6 * 2; ++i) {
        unsigned long rest = i;
        const auto next = [&rest](unsigned long choices) {
            const unsigned long choice = rest % choices;
            rest /= choices;
            return choice;
        };
        std::array<ModelStream, 2> models;
        for (ModelStream& model : models) {
            model.bytes = streams::pattern(next(4), &model == models.data() ? 1 : 101);
            model.position = next(6);
            model.lengthLimit = kLongest;
            model.readLimit = model.writeLimit = kUnlimited;
        }
        Step step{next(2) == 0 ? Step::CopyFrom : Step::CopyTo, next(6), 0};
        step.second = next(6);
        Side self = streams::memorySide('A', models[0], trace);
        Side other = streams::memorySide('B', models[1], trace);
        ASSERT_EQ(streams::stepDifference(step, self, other, trace), "")
            << i << ": " << streams::shown(step);
        copiesThatMoved += streams::readsAndWrites(trace).empty() ? 0 : 1;
    }
    EXPECT_EQ(copiesThatMoved, 21780); // of 41472; the others have nothing to copy
}

TEST(StreamModel, HoldsForChanceSequencesInMemory)
{
    const unsigned int seed = wantedSeed();
    SCOPED_TRACE("QUELHOST_TEST_SEED=" + std::to_string(seed));
    std::cout << "QUELHOST_TEST_SEED=" << seed << "\n";
    Chance chance(seed);
    const int all = wantedRounds(kSequences);
    for (int round = 0; round < all; ++round) {
        Trace trace;
        std::array<Side, 2> sides{streams::memorySide('A', chance.stream(), trace),
                                  streams::memorySide('B', chance.stream(), trace)};
        ASSERT_EQ(sequenceDifference(chance, sides, trace), "") << "sequence " << round;
    }
}

TEST(StreamModel, HoldsForChanceSequencesOnFiles)
{
    const unsigned int seed = wantedSeed();
    SCOPED_TRACE("QUELHOST_TEST_SEED=" + std::to_string(seed));
    std::cout << "QUELHOST_TEST_SEED=" << seed << "\n";
    Chance chance(seed);
    const streams::TemporaryFile file;
    const int all = wantedRounds(kSequences / 100);
    for (int round = 0; round < all; ++round) {
        ModelStream ofFile = chance.stream();
        ofFile.lengthLimit = 0x7FFFFFFFFFFFFFFFUL; // of the system, which refuses what is behind
        if (ofFile.position > kLongest)
            ofFile.position = 5;
        Trace trace;
        std::array<Side, 2> sides{streams::fileSide('A', file.path(), ofFile, trace),
                                  streams::memorySide('B', chance.stream(), trace)};
        ASSERT_EQ(sequenceDifference(chance, sides, trace), "") << "sequence " << round;
    }
}
