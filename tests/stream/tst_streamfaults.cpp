// Stores that give or take less than they are asked for, or throw.
#include "tests/stream/streampair.h"

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>

using streams::Bytes;
using streams::Lines;
using streams::part;
using streams::pattern;
using streams::StreamPair;

namespace {

// Leaves bytes other than zero on the part of the stack that the next call uses.
[[gnu::noinline]] void soilTheStack()
{
    std::array<unsigned char, 32768> soil;
    for (volatile unsigned char& byte : soil)
        byte = 0xEE;
}

} // namespace

TEST(StreamShortReads, AreWrittenAsIfTheyWereWhole)
{
    StreamPair pair(pattern(10), 0, {}, 0);
    pair.a.readLimit = 2;
    pair.a.readBytes(&pair.b, 5);
    EXPECT_EQ(pair.pieces(), (Lines{"A.read(5) -> 2", "B.write(5) -> 5"}));
    EXPECT_EQ(pair.storeB.bytes(), (Bytes{1, 2, 0, 0, 0}));
    EXPECT_EQ(pair.storeA.position(), 2U);
}

TEST(StreamShortReads, NeverLetForeignBytesOut)
{
    struct Row
    {
        const char* name;
        void (*copy)(StreamPair&, unsigned int);
    };
    const std::vector<Row> rows{
        {"readBytes", [](StreamPair& p, unsigned int n) { p.a.readBytes(&p.b, n); }},
        {"writeBytes", [](StreamPair& p, unsigned int n) { p.b.writeBytes(&p.a, n); }},
        {"copyFrom", [](StreamPair& p, unsigned int n) { p.b.copyFrom(&p.a, 0, n); }},
        {"copyTo", [](StreamPair& p, unsigned int n) { p.a.copyTo(&p.b, 0, n); }},
    };
    for (const Row& row : rows) {
        for (const unsigned int count : {1U, 1000U, 1024U, 1025U, 4096U, 1048576U, 1048577U}) {
            StreamPair pair(pattern(count), 0, {}, 0);
            pair.a.readLimit = 0;
            soilTheStack();
            row.copy(pair, count);
            EXPECT_TRUE(pair.storeB.bytes() == Bytes(count)) << row.name << " of " << count;
        }
    }
}

TEST(StreamShortReads, LeaveTheBytesOfThePieceBefore)
{
    StreamPair pair({}, 0, pattern(4098), 0);
    pair.a.copyFrom(&pair.b, 0, 8192);
    EXPECT_EQ(pair.pieces(), (Lines{"B.read(4096) -> 4096", "A.write(4096) -> 4096",
                                    "B.read(4096) -> 2", "A.write(4096) -> 4096"}));
    Bytes expected = pattern(4098);
    const Bytes stale = part(pattern(4096), 2, 4096);
    expected.insert(expected.end(), stale.begin(), stale.end());
    EXPECT_TRUE(pair.storeA.bytes() == expected);
}

TEST(StreamShortWrites, AreNotMadeUpFor)
{
    StreamPair pair(pattern(5000), 0, {}, 0);
    pair.b.writeLimit = 3;
    pair.a.copyTo(&pair.b, 0, 5000);
    EXPECT_EQ(pair.pieces(), (Lines{"A.read(4096) -> 4096", "B.write(4096) -> 3",
                                    "A.read(904) -> 904", "B.write(904) -> 3"}));
    EXPECT_EQ(pair.storeB.bytes(),
              (Bytes{1, 2, 3, pattern(5000)[4096], pattern(5000)[4097], pattern(5000)[4098]}));
    EXPECT_EQ(pair.storeA.position(), 0U);
    EXPECT_EQ(pair.storeB.position(), 6U);
}

TEST(StreamShortWrites, LeaveAFullStoreAsItIs)
{
    streams::MemoryStore full(pattern(10), 10);
    StreamPair pair(pattern(20), 0, {}, 0);
    full.seek(8, VxStreamBuf::kFromStart);
    full.copyFrom(&pair.a, 0, 20);
    EXPECT_EQ(part(full.bytes(), 0, 8), pattern(8));
    EXPECT_EQ(part(full.bytes(), 8, 10), pattern(2));
    EXPECT_EQ(full.bytes().size(), 10U);
    EXPECT_EQ(pair.pieces(), (Lines{"A.read(20) -> 20"}));
}

TEST(StreamErrors, OfAStorePassThroughAndEndTheCopy)
{
    StreamPair reading(pattern(9000), 4, pattern(5), 3);
    reading.a.throwingRead = 2;
    EXPECT_THROW(reading.b.copyFrom(&reading.a, 1, 9000), std::runtime_error);
    EXPECT_EQ(reading.pieces(), (Lines{"A.read(4096) -> 4096", "B.write(4096) -> 4096"}));
    EXPECT_EQ(reading.storeA.position(), 4097U);
    EXPECT_EQ(reading.storeB.position(), 4099U);

    StreamPair writing(pattern(9000), 4, pattern(5), 3);
    writing.b.throwingWrite = 1;
    EXPECT_THROW(writing.a.readBytes(&writing.b, 9), std::runtime_error);
    EXPECT_EQ(writing.pieces(), Lines{"A.read(9) -> 9"});
    EXPECT_EQ(writing.storeA.position(), 13U);
    EXPECT_EQ(writing.storeB.position(), 0U);
}

TEST(StreamErrors, LeaveThePositionsWhereTheyWereAtThatMoment)
{
    StreamPair transferred(pattern(20), 6, pattern(9000), 3);
    transferred.a.throwingWrite = 1;
    EXPECT_THROW(transferred.a.writeBytes(&transferred.b, 9), std::runtime_error);
    EXPECT_EQ(transferred.pieces(), Lines{"B.read(9) -> 9"});
    EXPECT_EQ(transferred.storeA.position(), 6U);
    EXPECT_EQ(transferred.storeB.position(), 9U);

    StreamPair unread(pattern(20), 6, pattern(9000), 3);
    unread.b.throwingRead = 1;
    EXPECT_THROW(unread.a.writeBytes(&unread.b, 9), std::runtime_error);
    EXPECT_EQ(unread.pieces(), Lines{});
    EXPECT_EQ(unread.storeA.position(), 6U);
    EXPECT_EQ(unread.storeB.position(), 0U);

    StreamPair copied(pattern(9000), 4, pattern(5), 3);
    copied.b.throwingWrite = 2;
    EXPECT_THROW(copied.a.copyTo(&copied.b, 1, 9000), std::runtime_error);
    EXPECT_EQ(copied.pieces(),
              (Lines{"A.read(4096) -> 4096", "B.write(4096) -> 4096", "A.read(4096) -> 4096"}));
    EXPECT_EQ(copied.storeA.position(), 8196U);
    EXPECT_EQ(copied.storeB.position(), 4097U);
}
