// What copies and transfers ask of the heap: the same however long the streams are.
#include "tests/stream/streampair.h"
#include "tests/support/memorywatch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <new>
#include <stdexcept>

using recording::MemoryWatch;
using streams::Bytes;
using streams::Lines;
using streams::pattern;
using streams::StreamPair;

namespace {

// A stream without bytes of its own, so that it can be of any length: it only counts, and remembers
// the largest piece.
class EmptyRoad final : public streams::Store
{
public:
    explicit EmptyRoad(unsigned long length)
        : m_length(length)
    {}

    unsigned long length() const override { return m_length; }
    unsigned int read(void*, unsigned int count) override { return move(count); }
    unsigned int write(const void*, unsigned int count) override { return move(count); }

    unsigned int largestPiece = 0;
    unsigned long moved = 0;
    bool throws = false;

private:
    unsigned int move(unsigned int count)
    {
        if (throws)
            throw std::runtime_error("no way");
        largestPiece = std::max(largestPiece, count);
        moved += count;
        m_position += count;
        return count;
    }

    unsigned long m_length;
};

constexpr unsigned long kGiB = 1UL << 30;
constexpr unsigned int kMost = 0xFFFFFFFFU;

} // namespace

TEST(StreamMemory, CopiesTakeNothingFromTheHeap)
{
    for (const unsigned long length : {1UL, 4096UL, 4097UL, 64UL << 20, 5 * kGiB}) {
        EmptyRoad source(length);
        EmptyRoad target(length);
        MemoryWatch watch;
        watch.run([&] {
            source.copyTo(&target, 0, length);
            target.copyFrom(&source, 0, 0);
        });
        EXPECT_EQ(watch.requests(), 0) << length;
        EXPECT_EQ(source.moved, 2 * length);
        EXPECT_EQ(target.moved, 2 * length);
        EXPECT_LE(source.largestPiece, 4096U);
    }
}

TEST(StreamMemory, SmallTransfersTakeNothingFromTheHeap)
{
    for (const unsigned int size : {0U, 1U, 1023U, 1024U}) {
        EmptyRoad source(size);
        EmptyRoad target(size);
        MemoryWatch watch;
        watch.run([&] {
            source.readBytes(&target, size);
            target.writeBytes(&source, size);
        });
        EXPECT_EQ(watch.requests(), 0) << size;
        EXPECT_EQ(source.moved, 2 * size);
    }
}

TEST(StreamMemory, LargerTransfersTakeWhatTheyMoveUpToALimit)
{
    for (const unsigned int size :
         {1025U, 4096U, 1048575U, 1048576U, 1048577U, 64U << 20, 1U << 31, kMost}) {
        EmptyRoad source(size);
        EmptyRoad target(size);
        const unsigned int room = std::min(size, 1048576U);
        MemoryWatch watch;
        watch.run([&] { source.readBytes(&target, size); });
        EXPECT_EQ(watch.requests(), 1) << size;
        EXPECT_EQ(watch.bytes(), room) << size;
        EXPECT_EQ(watch.live(), Lines{}) << size;
        watch.run([&] { target.writeBytes(&source, size); });
        EXPECT_EQ(watch.requests(), 2) << size;
        EXPECT_EQ(watch.bytes(), std::size_t{2} * room) << size;
        EXPECT_EQ(watch.live(), Lines{}) << size;
        EXPECT_EQ(source.moved, 2UL * size);
        EXPECT_EQ(target.moved, 2UL * size);
        EXPECT_EQ(target.largestPiece, room);
    }
}

TEST(StreamMemory, IsGivenBackWhenAStoreThrows)
{
    EmptyRoad source(5000);
    EmptyRoad target(5000);
    target.throws = true;
    MemoryWatch watch;
    EXPECT_THROW(watch.run([&] { source.readBytes(&target, 5000); }), std::runtime_error);
    EXPECT_GE(watch.bytes(), 5000U);
    EXPECT_EQ(watch.live(), Lines{});
}

TEST(StreamMemory, EndsATransferThatFindsNone)
{
    StreamPair pair(pattern(5000), 3, pattern(10), 6);
    MemoryWatch watch(recording::Refusal::ofAtLeast(4000));
    EXPECT_THROW(watch.run([&] { pair.a.readBytes(&pair.b, 4500); }), std::bad_alloc);
    EXPECT_EQ(pair.storeA.position(), 3U);
    EXPECT_EQ(pair.storeB.position(), 0U);
    pair.storeB.seek(6, VxStreamBuf::kFromStart);
    EXPECT_THROW(watch.run([&] { pair.b.writeBytes(&pair.a, 4500); }), std::bad_alloc);
    EXPECT_EQ(pair.storeA.position(), 0U);
    EXPECT_EQ(pair.storeB.position(), 6U);
    EXPECT_EQ(pair.pieces(), Lines{});
    watch.run([&] { pair.a.copyTo(&pair.b, 20, 40); });
    EXPECT_EQ(watch.refused(), 2);
    EXPECT_EQ(pair.pieces(), (Lines{"A.read(20) -> 20", "B.write(20) -> 20"}));
}
