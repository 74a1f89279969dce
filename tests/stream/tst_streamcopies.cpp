// Bounded copies: copyFrom between two positions of its source, copyTo between two of its target.
#include "tests/stream/streampair.h"

#include <gtest/gtest.h>

using streams::Bytes;
using streams::Call;
using streams::Lines;
using streams::part;
using streams::pattern;
using streams::piecesOf;
using streams::StreamPair;

namespace {

constexpr unsigned long kSizes[]{0,    1,    1023, 1024,    1025,    4095,   4096,
                                 4097, 8192, 8193, 1048575, 1048576, 1048577};

// A copy with its bounds, the positions of both streams, and what comes of it. Both are 10 bytes
// long, this stream's bytes are 1 to 10 and the other's 101 to 110.
struct CopyRow
{
    const char* name;
    unsigned long position;
    unsigned long otherPosition;
    unsigned long start;
    unsigned long end;
    Bytes written; // to where the writing stream was, or had been sought to
    unsigned long writtenAt;
    unsigned long positionAfter;
    unsigned long otherPositionAfter;
};

Bytes overwritten(Bytes bytes, unsigned long position, const Bytes& written)
{
    if (!written.empty() && bytes.size() < position + written.size())
        bytes.resize(position + written.size());
    for (unsigned long i = 0; i < written.size(); ++i)
        bytes[position + i] = written[i];
    return bytes;
}

} // namespace

TEST(StreamCopyFrom, TakesItsBoundsAsPositionsOfTheSource)
{
    const std::vector<CopyRow> rows{
        {"both 0, in the middle", 2, 7, 0, 0, {108, 109, 110}, 2, 5, 7},
        {"both 0, at the start", 2, 0, 0, 0, part(pattern(10, 101), 0, 10), 2, 12, 0},
        {"both 0, before the end", 2, 9, 0, 0, {110}, 2, 3, 9},
        {"both 0, at the end", 2, 10, 0, 0, {}, 2, 2, 10},
        {"both 0, past the end", 2, 12, 0, 0, {}, 2, 2, 12},
        {"upwards", 2, 7, 4, 6, {105, 106}, 2, 4, 7},
        {"upwards from the start", 2, 7, 0, 3, {101, 102, 103}, 2, 5, 7},
        {"downwards", 2, 7, 10, 4, {105, 106, 107, 108, 109, 110}, 2, 8, 7},
        {"downwards to the start", 2, 7, 3, 0, {101, 102, 103}, 2, 5, 7},
        {"equal", 2, 7, 4, 4, {}, 2, 2, 7},
        {"equal past the end", 2, 7, 14, 14, {}, 2, 2, 7},
        {"equal bounds of 1", 2, 7, 1, 1, {}, 2, 2, 7},
        {"across the end", 2, 7, 9, 12, {110, 0, 0}, 2, 5, 7},
        {"past the end", 2, 7, 12, 14, {0, 0}, 2, 4, 7},
        {"from past the end", 2, 13, 4, 6, {105, 106}, 2, 4, 13},
        {"to this stream's end", 10, 7, 4, 6, {105, 106}, 10, 12, 7},
        {"to past this stream's end", 12, 7, 4, 6, {105, 106}, 12, 14, 7},
    };
    for (const CopyRow& row : rows) {
        StreamPair pair(pattern(10, 1), row.position, pattern(10, 101), row.otherPosition);
        pair.a.copyFrom(&pair.b, row.start, row.end);
        EXPECT_EQ(pair.storeA.bytes(), overwritten(pattern(10, 1), row.writtenAt, row.written))
            << row.name;
        EXPECT_EQ(pair.storeB.bytes(), pattern(10, 101)) << row.name;
        EXPECT_EQ(pair.storeA.position(), row.positionAfter) << row.name;
        EXPECT_EQ(pair.storeB.position(), row.otherPositionAfter) << row.name;
        EXPECT_EQ(pair.pieces().empty(), row.written.empty()) << row.name;
        EXPECT_EQ(pair.a.otherSeeks + pair.b.otherSeeks, 0) << row.name;
    }
}

TEST(StreamCopyTo, TakesItsBoundsAsPositionsOfTheTarget)
{
    const std::vector<CopyRow> rows{
        {"both 0, the target has less left", 2, 7, 0, 0, {3, 4, 5}, 7, 2, 10},
        {"both 0, this stream has less left", 8, 2, 0, 0, {9, 10}, 2, 8, 4},
        {"both 0, this stream at its end", 10, 2, 0, 0, {}, 2, 10, 2},
        {"both 0, this stream past its end", 12, 2, 0, 0, {}, 2, 12, 2},
        {"both 0, the target at its end", 2, 10, 0, 0, {}, 10, 2, 10},
        {"both 0, the target past its end", 2, 12, 0, 0, {}, 12, 2, 12},
        {"both 0, all of it", 0, 0, 0, 0, pattern(10), 0, 0, 10},
        {"upwards", 2, 7, 4, 6, {3, 4}, 4, 2, 6},
        {"upwards from the start", 2, 7, 0, 3, {3, 4, 5}, 0, 2, 3},
        {"upwards, this stream has less left", 8, 7, 1, 6, {9, 10}, 1, 8, 3},
        {"upwards, this stream at its end", 10, 7, 1, 6, {}, 1, 10, 1},
        {"upwards, this stream past its end", 12, 7, 1, 6, {}, 1, 12, 1},
        {"downwards", 2, 7, 6, 4, {3, 4}, 4, 2, 6},
        {"downwards to the start", 2, 7, 3, 0, {3, 4, 5}, 0, 2, 3},
        {"downwards, this stream at its end", 10, 7, 6, 1, {}, 1, 10, 1},
        {"equal", 2, 7, 4, 4, {}, 7, 2, 7},
        {"equal bounds of 1", 2, 7, 1, 1, {}, 7, 2, 7},
        {"across the target's end", 2, 7, 9, 12, {3, 4, 5}, 9, 2, 12},
        {"past the target's end", 2, 7, 12, 14, {3, 4}, 12, 2, 14},
        {"from past the target's end", 2, 13, 4, 6, {3, 4}, 4, 2, 6},
    };
    for (const CopyRow& row : rows) {
        StreamPair pair(pattern(10, 1), row.position, pattern(10, 101), row.otherPosition);
        pair.a.copyTo(&pair.b, row.start, row.end);
        EXPECT_EQ(pair.storeB.bytes(), overwritten(pattern(10, 101), row.writtenAt, row.written))
            << row.name;
        EXPECT_EQ(pair.storeA.bytes(), pattern(10, 1)) << row.name;
        EXPECT_EQ(pair.storeA.position(), row.positionAfter) << row.name;
        EXPECT_EQ(pair.storeB.position(), row.otherPositionAfter) << row.name;
        EXPECT_EQ(pair.pieces().empty(), row.written.empty()) << row.name;
        EXPECT_EQ(pair.a.otherSeeks + pair.b.otherSeeks, 0) << row.name;
    }
}

TEST(StreamCopies, WithoutAnotherStreamDoNothing)
{
    StreamPair pair(pattern(10), 2, {}, 0);
    pair.a.copyFrom(nullptr, 0, 0);
    pair.a.copyFrom(nullptr, 1, 4);
    pair.a.copyTo(nullptr, 0, 0);
    pair.a.copyTo(nullptr, 4, 1);
    EXPECT_EQ(pair.trace, streams::Trace{});
}

TEST(StreamCopyFrom, MovesPiecesOf4096)
{
    for (const unsigned long size : kSizes) {
        StreamPair pair({}, 0, pattern(size + 3), 3);
        pair.a.copyFrom(&pair.b, 0, 0);
        EXPECT_EQ(pair.pieces(), piecesOf('B', 'A', size, 4096)) << size;
        EXPECT_TRUE(pair.storeA.bytes() == part(pattern(size + 3), 3, size + 3)) << size;
        EXPECT_EQ(pair.b.readBuffers, pair.a.writeBuffers);
        EXPECT_EQ(pair.storeB.position(), 3U);
    }
}

TEST(StreamCopyTo, MovesPiecesOf4096)
{
    for (const unsigned long size : kSizes) {
        StreamPair pair(pattern(size + 3), 3, {}, 0);
        pair.a.copyTo(&pair.b, 5, 5 + size + 1);
        EXPECT_EQ(pair.pieces(), piecesOf('A', 'B', size, 4096)) << size;
        EXPECT_TRUE(pair.storeB.bytes() == overwritten({}, 5, part(pattern(size + 3), 3, size + 3)))
            << size;
        EXPECT_EQ(pair.a.readBuffers, pair.b.writeBuffers);
        EXPECT_EQ(pair.storeA.position(), 3U);
    }
}

TEST(StreamCopyFrom, SeeksBeforeAndAfter)
{
    StreamPair pair({}, 0, pattern(10), 7);
    pair.a.copyFrom(&pair.b, 6, 4);
    EXPECT_EQ(pair.calls({Call::Seek, Call::Read, Call::Write}),
              (Lines{"B.seek(4) -> 4", "B.read(2) -> 2", "A.write(2) -> 2", "B.seek(7) -> 7"}));
    pair.trace.clear();
    pair.a.copyFrom(&pair.b, 0, 0);
    EXPECT_EQ(pair.calls({Call::Seek, Call::Read, Call::Write}),
              (Lines{"B.read(3) -> 3", "A.write(3) -> 3", "B.seek(7) -> 7"}));
}

TEST(StreamCopyTo, SeeksBeforeAndAfter)
{
    StreamPair pair(pattern(10), 7, pattern(10), 1);
    pair.a.copyTo(&pair.b, 6, 4);
    EXPECT_EQ(pair.calls({Call::Seek, Call::Read, Call::Write}),
              (Lines{"B.seek(4) -> 4", "A.read(2) -> 2", "B.write(2) -> 2", "A.seek(7) -> 7"}));
    pair.trace.clear();
    pair.a.copyTo(&pair.b, 0, 0);
    EXPECT_EQ(pair.calls({Call::Seek, Call::Read, Call::Write}),
              (Lines{"A.read(3) -> 3", "B.write(3) -> 3", "A.seek(7) -> 7"}));
}

TEST(StreamCopyTo, LeavesThisStreamAloneWhenNothingIsLeft)
{
    StreamPair pair(pattern(10), 10, pattern(10), 1);
    pair.a.copyTo(&pair.b, 4, 6);
    EXPECT_EQ(pair.calls({Call::Seek, Call::Read, Call::Write}), Lines{"B.seek(4) -> 4"});
}

TEST(StreamCopyTo, AsksForItsLengthWhenTheBoundsAreEqual)
{
    StreamPair pair(pattern(10), 3, pattern(10), 1);
    pair.a.copyTo(&pair.b, 4, 4);
    EXPECT_EQ(pair.calls({Call::Length}), Lines{"A.length -> 10"});
    EXPECT_EQ(pair.calls({Call::Seek, Call::Read, Call::Write}), Lines{});
}

TEST(StreamCopyFrom, IsNotLimitedByTheSource)
{
    StreamPair pair({}, 0, pattern(10), 7);
    pair.a.copyFrom(&pair.b, 5, 10005);
    EXPECT_EQ(pair.pieces(),
              (Lines{"B.read(4096) -> 5", "A.write(4096) -> 4096", "B.read(4096) -> 0",
                     "A.write(4096) -> 4096", "B.read(1808) -> 0", "A.write(1808) -> 1808"}));
    EXPECT_EQ(pair.storeA.bytes().size(), 10000U);
    EXPECT_EQ(pair.storeB.position(), 7U);
}

TEST(StreamCopies, GoOnWhereAStreamRefusesItsSeek)
{
    StreamPair from({}, 0, pattern(10), 7);
    from.b.refusedSeeks = {1, 2};
    from.a.copyFrom(&from.b, 2, 4);
    EXPECT_EQ(from.storeA.bytes(), part(pattern(10), 7, 9));
    EXPECT_EQ(from.storeB.position(), 9U);

    StreamPair to(pattern(10), 7, {}, 1);
    to.a.refusedSeeks = {1};
    to.b.refusedSeeks = {1};
    to.a.copyTo(&to.b, 4, 6);
    EXPECT_EQ(to.storeB.bytes(), (Bytes{0, 8, 9}));
    EXPECT_EQ(to.storeA.position(), 9U);
}

TEST(StreamCopies, WorkWithBoundsAtTheTopOfTheNumbers)
{
    constexpr unsigned long kTop = 0xFFFFFFFFFFFFFFFFUL;
    StreamPair pair({}, 0, pattern(10), 7);
    pair.a.copyFrom(&pair.b, kTop, kTop - 5);
    EXPECT_EQ(pair.calls({Call::Seek}),
              (Lines{"B.seek(18446744073709551610) -> 18446744073709551610", "B.seek(7) -> 7"}));
    EXPECT_EQ(pair.storeA.bytes(), Bytes(5));

    StreamPair to(pattern(10), 3, {}, 0);
    to.a.copyTo(&to.b, 0, kTop);
    EXPECT_EQ(to.storeB.bytes(), part(pattern(10), 3, 10));
}

TEST(StreamCopies, WorkWithinOneStream)
{
    StreamPair pair(pattern(10), 2, {}, 0);
    pair.a.copyFrom(&pair.a, 6, 8);
    EXPECT_EQ(pair.pieces(), (Lines{"A.read(2) -> 2", "A.write(2) -> 2"}));
    EXPECT_EQ(pair.storeA.bytes(), (Bytes{1, 2, 3, 4, 5, 6, 7, 8, 7, 8}));
    EXPECT_EQ(pair.storeA.position(), 2U);

    // The bounds place the target, and with it what is read.
    StreamPair to(pattern(10), 3, {}, 0);
    to.a.copyTo(&to.a, 6, 8);
    EXPECT_EQ(to.pieces(), (Lines{"A.read(2) -> 2", "A.write(2) -> 2"}));
    EXPECT_EQ(to.storeA.bytes(), (Bytes{1, 2, 3, 4, 5, 6, 7, 8, 7, 8}));
    EXPECT_EQ(to.storeA.position(), 3U);
}
