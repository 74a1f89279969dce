// Two threads that release copies of one vector at the same moment, over and over.
#include "stream/vxvector.h"

#include <gtest/gtest.h>

#include <atomic>
#include <numeric>
#include <thread>
#include <vector>

namespace {

constexpr int kRounds = 100000;

// On a busy machine each meeting may take a turn of the scheduler's, so they are few.
constexpr int kRoundsTogether = 10;

// Relaxed counts order nothing between the threads: a checker sees what the vector alone orders.
std::atomic<int> blocksFreed{0};
std::atomic<int> arraysDeleted{0};

template<typename T>
struct CountingAllocator
{
    static void* allocate(std::size_t bytes) { return VxDefaultMemAllocator<T>::allocate(bytes); }
    static void release(void* block)
    {
        blocksFreed.fetch_add(1, std::memory_order_relaxed);
        VxDefaultMemAllocator<T>::release(block);
    }
};

struct CountedInt
{
    int value = 0;
    ~CountedInt() { arraysDeleted.fetch_add(value, std::memory_order_relaxed); }
};

// Where two threads wait for each other, by turning on the spot, every so many rounds.
class MeetingPoint
{
public:
    void meet(int round)
    {
        if (round % kRoundsTogether != 0)
            return;
        m_arrivals.fetch_add(1, std::memory_order_relaxed);
        for (int turn = 1;
             m_arrivals.load(std::memory_order_relaxed) < 2 * (round / kRoundsTogether + 1);
             ++turn) {
            if (turn % kTurns == 0)
                std::this_thread::yield();
        }
    }

private:
    static constexpr int kTurns = 1000; // a few microseconds, the time that the other one may need
    std::atomic<int> m_arrivals{0};
};

// Two copies of each of kRounds vectors; two threads read and release one each, side by side.
// Returns the sum of what they read.
template<typename Vector, typename T>
long releaseInTwoThreads(const std::vector<T>& elements, int (*read)(const T&))
{
    std::vector<Vector> copies[2];
    for (int round = 0; round < kRounds; ++round) {
        copies[0].emplace_back(elements.data(), elements.size());
        copies[1].push_back(copies[0].back());
    }
    MeetingPoint point;
    long sums[2] = {0, 0};
    const auto release = [&](std::size_t which) {
        for (int round = 0; round < kRounds; ++round) {
            Vector& vector = copies[which][static_cast<std::size_t>(round)];
            point.meet(round);
            for (std::size_t i = 0; i < vector.size(); ++i)
                sums[which] += read(vector.data()[i]);
            vector = Vector();
        }
    };
    std::thread other(release, 1);
    release(0);
    other.join();
    return sums[0] + sums[1];
}

} // namespace

TEST(VectorThreads, ReleaseEachVectorOnce)
{
    const long sum = releaseInTwoThreads<VxVector<int>>(
        std::vector<int>{1, 2, 3}, +[](const int& element) { return element; });
    EXPECT_EQ(sum, 2L * 6 * kRounds);
}

TEST(VectorThreads, FreeEachBlockAndItsElementsOnce)
{
    blocksFreed = 0;
    {
        const std::vector<CountedInt> elements{{1}};
        arraysDeleted = 0;
        const long sum = releaseInTwoThreads<VxVector<CountedInt, CountingAllocator<CountedInt>>>(
            elements, +[](const CountedInt& element) { return element.value; });
        EXPECT_EQ(sum, 2L * kRounds);
        EXPECT_EQ(arraysDeleted, kRounds);
    }
    EXPECT_EQ(blocksFreed, kRounds);
}

TEST(VectorThreads, ReleaseInOneAndChangeInTheOther)
{
    std::vector<VxVector<int>> read(kRounds);
    std::vector<VxVector<int>> changed;
    for (VxVector<int>& vector : read) {
        for (const int number : {1, 2, 3}) // leaves room for a fourth
            vector.append(number);
        changed.push_back(vector);
    }
    MeetingPoint point;
    long sum = 0;
    std::thread other([&] {
        for (int round = 0; round < kRounds; ++round) {
            VxVector<int>& vector = read[static_cast<std::size_t>(round)];
            point.meet(round);
            sum += std::accumulate(vector.data(), vector.data() + vector.size(), 0L);
            vector = VxVector<int>();
        }
    });
    for (int round = 0; round < kRounds; ++round) {
        point.meet(round);
        changed[static_cast<std::size_t>(round)].append(4);
    }
    other.join();
    EXPECT_EQ(sum, 6L * kRounds);
    for (const VxVector<int>& vector : changed)
        ASSERT_EQ(std::accumulate(vector.data(), vector.data() + vector.size(), 0L), 10);
}

TEST(VectorThreads, CopyAndReleaseSideBySide)
{
    const std::vector<int> elements(100, 1);
    const VxVector<int> shared(elements.data(), elements.size());
    long sums[2] = {0, 0};
    MeetingPoint point;
    const auto copyAndChange = [&](std::size_t which) {
        for (int round = 0; round < kRounds / 10; ++round) {
            point.meet(round);
            VxVector<int> copy(shared);
            copy.append(1);
            sums[which] += std::accumulate(copy.data(), copy.data() + copy.size(), 0L);
        }
    };
    std::thread other(copyAndChange, 1);
    copyAndChange(0);
    other.join();
    EXPECT_EQ(sums[0] + sums[1], 2L * 101 * (kRounds / 10));
    EXPECT_EQ(shared.size(), 100U);
}
