// Counted transfers: readBytes from a position to a start, writeBytes from a start to a position.
#include "tests/stream/streampair.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

using streams::Bytes;
using streams::Call;
using streams::Lines;
using streams::part;
using streams::pattern;
using streams::piecesOf;
using streams::StreamPair;

namespace {

const std::vector<unsigned int> kSizes{0,    1,       1023,    1024,    1025,    4095,    4096,
                                       4097, 1048575, 1048576, 1048577, 2097152, 2097153, 3145733};

// The pieces of a transfer.
Lines piecesOfTransfer(char from, char to, unsigned int count)
{
    return piecesOf(from, to, count, std::min(count, 1048576U));
}

Lines joined(Lines lines, const Lines& middle, const Lines& end)
{
    lines.insert(lines.end(), middle.begin(), middle.end());
    lines.insert(lines.end(), end.begin(), end.end());
    return lines;
}

// Whether every piece was written from where it was read to, and all from one place.
bool goesThroughOneRoom(const std::vector<const void*>& reads,
                        const std::vector<const void*>& writes)
{
    return reads == writes && std::set<const void*>(reads.begin(), reads.end()).size() == 1;
}

} // namespace

TEST(StreamReadBytes, AsksSeeksAndMovesInThisOrder)
{
    for (const unsigned int count : kSizes) {
        if (count == 0)
            continue;
        StreamPair pair(pattern(count + 5), 3, pattern(20), 6);
        EXPECT_EQ(pair.a.readBytes(&pair.b, count), 6U) << count;
        const Lines before{"B.position -> 6", "A.position -> 3", "A.seek(3) -> 3",
                           "B.seek(0) -> 0"};
        EXPECT_EQ(pair.calls(),
                  joined(before, piecesOfTransfer('A', 'B', count), {"B.seek(6) -> 6"}))
            << count;
        EXPECT_TRUE(goesThroughOneRoom(pair.a.readBuffers, pair.b.writeBuffers)) << count;
        EXPECT_EQ(pair.a.otherSeeks + pair.b.otherSeeks, 0);
    }
}

TEST(StreamWriteBytes, AsksSeeksAndMovesInThisOrder)
{
    for (const unsigned int count : kSizes) {
        if (count == 0)
            continue;
        StreamPair pair(pattern(20), 6, pattern(count + 5), 3);
        EXPECT_EQ(pair.a.writeBytes(&pair.b, count), 3U) << count;
        const Lines before{"B.position -> 3", "A.position -> 6", "B.seek(0) -> 0",
                           "A.seek(6) -> 6"};
        EXPECT_EQ(pair.calls(),
                  joined(before, piecesOfTransfer('B', 'A', count), {"B.seek(3) -> 3"}))
            << count;
        EXPECT_TRUE(goesThroughOneRoom(pair.b.readBuffers, pair.a.writeBuffers)) << count;
        EXPECT_EQ(pair.a.otherSeeks + pair.b.otherSeeks, 0);
    }
}

TEST(StreamReadBytes, LandsAtTheStartAndMovesOnByTheCount)
{
    for (const unsigned int count : kSizes) {
        const Bytes source = pattern(count + 5, 1);
        const Bytes target = pattern(20, 100);
        StreamPair pair(source, 3, target, 6);
        pair.a.readBytes(&pair.b, count);
        Bytes expected = part(source, 3, 3 + count);
        if (count < target.size())
            expected.insert(expected.end(), target.begin() + count, target.end());
        EXPECT_TRUE(pair.storeB.bytes() == expected) << count;
        EXPECT_TRUE(pair.storeA.bytes() == source) << count;
        EXPECT_EQ(pair.storeA.position(), 3U + count);
        EXPECT_EQ(pair.storeB.position(), 6U) << count;
    }
}

TEST(StreamWriteBytes, ComesFromTheStartAndMovesOnByTheCount)
{
    for (const unsigned int count : kSizes) {
        const Bytes target = pattern(20, 100);
        const Bytes source = pattern(count + 5, 1);
        StreamPair pair(target, 6, source, 3);
        pair.a.writeBytes(&pair.b, count);
        Bytes expected = part(target, 0, 6);
        expected.insert(expected.end(), source.begin(), source.begin() + count);
        if (6 + count < target.size())
            expected.insert(expected.end(), target.begin() + 6 + count, target.end());
        EXPECT_TRUE(pair.storeA.bytes() == expected) << count;
        EXPECT_TRUE(pair.storeB.bytes() == source) << count;
        EXPECT_EQ(pair.storeA.position(), 6U + count);
        EXPECT_EQ(pair.storeB.position(), 3U) << count;
    }
}

TEST(StreamTransfers, OfNothingOnlySeekBack)
{
    StreamPair pair(pattern(10), 3, pattern(10), 6);
    EXPECT_EQ(pair.a.readBytes(&pair.b, 0), 6U);
    EXPECT_EQ(pair.calls({Call::Seek, Call::Read, Call::Write}), Lines{"B.seek(6) -> 6"});
    pair.trace.clear();
    EXPECT_EQ(pair.a.writeBytes(&pair.b, 0), 6U);
    EXPECT_EQ(pair.calls({Call::Seek, Call::Read, Call::Write}), Lines{"B.seek(6) -> 6"});
}

TEST(StreamTransfers, ReadOnPastTheEnd)
{
    StreamPair pair(pattern(10), 8, {}, 0);
    EXPECT_EQ(pair.a.readBytes(&pair.b, 5), 0U);
    EXPECT_EQ(pair.pieces(), (Lines{"A.read(5) -> 2", "B.write(5) -> 5"}));
    EXPECT_EQ(pair.storeA.position(), 10U);
    pair.trace.clear();
    EXPECT_EQ(pair.a.readBytes(&pair.b, 1), 0U);
    EXPECT_EQ(pair.pieces(), (Lines{"A.read(1) -> 0", "B.write(1) -> 1"}));
}

TEST(StreamTransfers, ReturnToAPositionPastTheEnd)
{
    StreamPair pair(pattern(10), 3, pattern(10), 99);
    EXPECT_EQ(pair.a.readBytes(&pair.b, 4), 99U);
    EXPECT_EQ(pair.storeB.position(), 99U);
    EXPECT_EQ(pair.a.writeBytes(&pair.b, 4), 99U);
    EXPECT_EQ(pair.storeB.position(), 99U);
}

TEST(StreamTransfers, WorkWithinOneStream)
{
    // Of the two seeks before the transfer, the later one decides where it reads and writes.
    StreamPair reading(pattern(10), 3, {}, 0);
    EXPECT_EQ(reading.a.readBytes(&reading.a, 4), 3U);
    EXPECT_EQ(reading.pieces(), (Lines{"A.read(4) -> 4", "A.write(4) -> 4"}));
    EXPECT_EQ(reading.storeA.bytes(), (Bytes{1, 2, 3, 4, 1, 2, 3, 4, 9, 10}));
    EXPECT_EQ(reading.storeA.position(), 3U);

    StreamPair writing(pattern(10), 3, {}, 0);
    EXPECT_EQ(writing.a.writeBytes(&writing.a, 3), 3U);
    EXPECT_EQ(writing.pieces(), (Lines{"A.read(3) -> 3", "A.write(3) -> 3"}));
    EXPECT_EQ(writing.storeA.bytes(), (Bytes{1, 2, 3, 4, 5, 6, 4, 5, 6, 10}));
    EXPECT_EQ(writing.storeA.position(), 3U);
}

TEST(StreamReadBytes, MovesNothingWhenAStreamRefusesItsSeek)
{
    StreamPair pair(pattern(10), 3, pattern(10), 6);
    pair.a.refusedSeeks = {1};
    EXPECT_EQ(pair.a.readBytes(&pair.b, 4), 6U);
    EXPECT_EQ(pair.calls({Call::Seek, Call::Read, Call::Write}),
              (Lines{"A.seek(3) -> refused", "B.seek(6) -> 6"}));

    pair.trace.clear();
    pair.b.refusedSeeks = {2};
    EXPECT_EQ(pair.a.readBytes(&pair.b, 4), 6U);
    EXPECT_EQ(pair.calls({Call::Seek, Call::Read, Call::Write}),
              (Lines{"A.seek(3) -> 3", "B.seek(0) -> refused", "B.seek(6) -> 6"}));
    EXPECT_EQ(pair.storeB.bytes(), pattern(10));
}

TEST(StreamWriteBytes, MovesNothingWhenAStreamRefusesItsSeek)
{
    StreamPair pair(pattern(10), 3, pattern(10), 6);
    pair.b.refusedSeeks = {1};
    EXPECT_EQ(pair.a.writeBytes(&pair.b, 4), 6U);
    EXPECT_EQ(pair.calls({Call::Seek, Call::Read, Call::Write}),
              (Lines{"B.seek(0) -> refused", "B.seek(6) -> 6"}));

    pair.trace.clear();
    pair.a.refusedSeeks = {1};
    EXPECT_EQ(pair.a.writeBytes(&pair.b, 4), 6U);
    EXPECT_EQ(pair.calls({Call::Seek, Call::Read, Call::Write}),
              (Lines{"B.seek(0) -> 0", "A.seek(3) -> refused", "B.seek(6) -> 6"}));
    EXPECT_EQ(pair.storeA.bytes(), pattern(10));
}

TEST(StreamTransfers, MoveNothingFromAnotherPlaceThanTheyAskedFor)
{
    StreamPair pair(pattern(10), 3, pattern(10), 6);
    pair.a.refusal = 4;
    pair.b.refusal = 1;
    pair.a.refusedSeeks = {1, 3};
    pair.b.refusedSeeks = {2, 4};
    pair.a.readBytes(&pair.b, 4);
    pair.a.readBytes(&pair.b, 4);
    pair.a.writeBytes(&pair.b, 4);
    pair.a.writeBytes(&pair.b, 4);
    EXPECT_EQ(pair.pieces(), Lines{});
    pair.a.writeBytes(&pair.b, 4);
    EXPECT_EQ(pair.pieces(), (Lines{"B.read(4) -> 4", "A.write(4) -> 4"}));
}

TEST(StreamTransfers, SayWhatTheSeekBackSaid)
{
    constexpr unsigned long kRefused = streams::RecordingStore::kRefused;
    StreamPair pair(pattern(10), 3, pattern(10), 6);
    pair.b.refusedSeeks = {2, 3, 5};
    EXPECT_EQ(pair.a.readBytes(&pair.b, 4), kRefused);
    EXPECT_EQ(pair.storeB.position(), 4U);
    EXPECT_EQ(pair.a.readBytes(&pair.b, 0), kRefused);
    EXPECT_EQ(pair.a.writeBytes(&pair.b, 4), kRefused);
    EXPECT_EQ(pair.storeB.position(), 4U);
}
