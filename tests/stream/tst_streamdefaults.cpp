// What a store does that overrides nothing but what it must: ends, places, and reads within bounds.
#include "tests/stream/streampair.h"
#include "tests/support/memorywatch.h"
#include "tests/support/rawslots.h"
#include "tests/support/recordinghost.h"

#include <gtest/gtest.h>

#include <memory>

using recording::host;
using streams::Bytes;
using streams::Call;
using streams::Lines;
using streams::part;
using streams::pattern;
using streams::StreamPair;
using streams::Trace;

namespace {

constexpr unsigned long kNoPosition = 0xFFFFFFFFFFFFFFFFUL;

// The error that came out of getBytes, the caller's now; null when none did.
std::unique_ptr<VxExceptionWithMsg> errorOfGetBytes(VxStreamBuf& stream, unsigned int count)
{
    Bytes buffer(count + 1);
    try {
        stream.getBytes(buffer.data(), count);
    } catch (VxExceptionWithMsg* error) {
        return std::unique_ptr<VxExceptionWithMsg>(error);
    }
    return nullptr;
}

} // namespace

TEST(StreamEnd, IsReachedAtTheLengthAndPastIt)
{
    struct Row
    {
        unsigned long length;
        unsigned long position;
        bool atEnd;
    };
    for (const Row& row : {Row{0, 0, true}, Row{0, 5, true}, Row{3, 0, false}, Row{3, 2, false},
                           Row{3, 3, true}, Row{3, 4, true}, Row{3, kNoPosition, true}}) {
        StreamPair pair(pattern(row.length), row.position, {}, 0);
        EXPECT_EQ(pair.a.isEOS(), row.atEnd) << row.position << " of " << row.length;
        EXPECT_EQ(pair.calls({Call::Seek, Call::Read, Call::Write}), Lines{});
    }
}

TEST(StreamRewind, GoesToTheStartAndSaysWhatTheSeekSaid)
{
    StreamPair pair(pattern(10), 7, {}, 0);
    EXPECT_EQ(pair.a.rewind(), 0U);
    EXPECT_EQ(pair.storeA.position(), 0U);
    EXPECT_EQ(pair.calls(), Lines{"A.seek(0) -> 0"});
    EXPECT_EQ(pair.a.otherSeeks, 0);
    pair.a.refusedSeeks = {2};
    EXPECT_EQ(pair.a.rewind(), kNoPosition);
}

TEST(StreamLength, IsNotChangedByDefault)
{
    StreamPair pair(pattern(10), 7, {}, 0);
    pair.a.setlength(3);
    pair.a.setlength(kNoPosition);
    pair.a.truncate();
    EXPECT_EQ(pair.trace, Trace{});
    EXPECT_EQ(pair.storeA.bytes(), pattern(10));
    EXPECT_EQ(pair.storeA.position(), 7U);
}

TEST(StreamPlaces, NameTheirBufferAndNothingInIt)
{
    StreamPair pair(pattern(10), 7, {}, 0);
    const VxStreamBufPos place = pair.a.currentStreamBufPosition();
    EXPECT_EQ(place.reference, 0U);
    EXPECT_EQ(place.buffer, &pair.a);
    const auto raw = raw::call<VxStreamBufPos>(static_cast<const VxStreamBuf*>(&pair.a), 18);
    EXPECT_EQ(raw.reference, 0U);
    EXPECT_EQ(raw.buffer, &pair.a);
    EXPECT_EQ(VxStreamBufPos{}.buffer, nullptr);
    EXPECT_EQ(VxStreamBufPos{}.reference, 0U);
    EXPECT_EQ(pair.trace, Trace{});
}

TEST(StreamPlaces, HoldNoBytesAndTakeNone)
{
    StreamPair pair(pattern(10), 7, pattern(10), 2);
    const VxStreamBufPos place{3, &pair.a};
    const unsigned char byte = 0xEE;
    Bytes buffer(4, byte);
    EXPECT_EQ(pair.a.getByteByPos(place), 0);
    pair.a.setByteByPos(place, byte);
    pair.a.getBytesByPos(place, buffer.data(), 4);
    pair.a.getBytesByPos(place, &pair.b, 4);
    pair.a.setBytesByPos(place, &byte, 1);
    pair.a.setBytesByPos(place, &pair.b, 4);
    EXPECT_EQ(buffer, Bytes(4, byte));
    EXPECT_EQ(pair.trace, Trace{});
    EXPECT_EQ(pair.storeA.bytes(), pattern(10));
    EXPECT_EQ(pair.storeB.bytes(), pattern(10));
}

TEST(StreamPlaces, AreAtNoOffsetAndStay)
{
    StreamPair pair(pattern(10), 7, {}, 0);
    VxStreamBufPos place{3, &pair.a};
    EXPECT_EQ(pair.a.getStreamPosition(&place), kNoPosition);
    EXPECT_EQ(pair.a.getStreamPosition(nullptr), kNoPosition);
    pair.a.setStreamPosition(&place, 5);
    pair.a.moveStreamPosition(&place, -2);
    pair.a.setStreamPosition(nullptr, 5);
    pair.a.moveStreamPosition(nullptr, -2);
    EXPECT_EQ(place.reference, 3U);
    EXPECT_EQ(place.buffer, &pair.a);
    EXPECT_EQ(pair.trace, Trace{});
}

TEST(StreamGetBytes, ReadsExactlyWhatIsLeft)
{
    StreamPair pair(pattern(10), 4, {}, 0);
    Bytes buffer(7, 0xEE);
    EXPECT_EQ(pair.a.getBytes(buffer.data(), 6), 6U);
    EXPECT_EQ(part(buffer, 0, 6), part(pattern(10), 4, 10));
    EXPECT_EQ(buffer[6], 0xEE);
    EXPECT_EQ(pair.storeA.position(), 10U);
    EXPECT_EQ(pair.pieces(), Lines{"A.read(6) -> 6"});
    EXPECT_EQ(pair.a.readBuffers[0], buffer.data());
    EXPECT_EQ(host().trace, Lines{});
}

TEST(StreamGetBytes, SaysWhatTheStoreSaid)
{
    StreamPair pair(pattern(10), 0, {}, 0);
    pair.a.readLimit = 2;
    Bytes buffer(6);
    EXPECT_EQ(pair.a.getBytes(buffer.data(), 6), 2U);
    EXPECT_EQ(pair.storeA.position(), 2U);
}

TEST(StreamGetBytes, ReadsNothingAtTheEnd)
{
    StreamPair pair(pattern(10), 10, {}, 0);
    Bytes buffer(1);
    EXPECT_EQ(pair.a.getBytes(buffer.data(), 0), 0U);
    EXPECT_EQ(pair.pieces(), Lines{"A.read(0) -> 0"});
}

TEST(StreamGetBytes, RefusesOneByteMore)
{
    StreamPair pair(pattern(10), 4, {}, 0);
    const auto error = errorOfGetBytes(pair.a, 7);
    ASSERT_NE(error, nullptr);
    EXPECT_STREQ(error->message(), L"Out of stream buffer!");
    EXPECT_STREQ(error->context(), L"\"\"");
    EXPECT_EQ(error->code(), 0);
    EXPECT_EQ(pair.storeA.position(), 4U);
    EXPECT_EQ(pair.calls({Call::Seek, Call::Read, Call::Write}), Lines{});
}

TEST(StreamGetBytes, TellsTheCrashRecorderOnceOfTheErrorItThrows)
{
    StreamPair pair(pattern(10), 10, {}, 0);
    const auto error = errorOfGetBytes(pair.a, 1);
    ASSERT_NE(error, nullptr);
    EXPECT_EQ(host().trace,
              (Lines{"quelGetCrashRecorder() -> recorder", "record(\"Out of stream buffer!\")"}));
    ASSERT_EQ(host().crashes.size(), 1U);
    EXPECT_EQ(host().crashes[0].address, error.get());
    EXPECT_EQ(host().crashes[0].message, L"Out of stream buffer!");
    EXPECT_EQ(host().crashes[0].context, L"\"\"");
    EXPECT_EQ(host().crashes[0].code, 0);
}

TEST(StreamGetBytes, ThrowsWithoutACrashRecorderToo)
{
    host().recorderIsThere.next(false);
    StreamPair pair(pattern(10), 10, {}, 0);
    const auto error = errorOfGetBytes(pair.a, 1);
    ASSERT_NE(error, nullptr);
    EXPECT_STREQ(error->message(), L"Out of stream buffer!");
    EXPECT_EQ(host().trace, Lines{"quelGetCrashRecorder() -> null"});
}

TEST(StreamGetBytes, LeavesNothingBehindWhenTheCrashRecorderThrows)
{
    host().onCall("record", 1, [] { throw 17; });
    streams::MemoryStore store(pattern(10));
    store.seek(0, VxStreamBuf::kFromEnd);
    unsigned char byte = 0;
    recording::MemoryWatch watch;
    EXPECT_THROW(watch.run([&] { store.getBytes(&byte, 1); }), int);
    EXPECT_GT(watch.requests(), 0);
    EXPECT_EQ(watch.live(), Lines{});
}

TEST(StreamGetBytes, RefusesEverythingPastTheEnd)
{
    for (const unsigned long position : {11UL, kNoPosition - 3, kNoPosition}) {
        for (const unsigned int count : {0U, 1U, 5U}) {
            StreamPair pair(pattern(10), position, {}, 0);
            EXPECT_NE(errorOfGetBytes(pair.a, count), nullptr) << position << ", " << count;
            EXPECT_EQ(pair.pieces(), Lines{});
            EXPECT_EQ(pair.storeA.position(), position);
        }
    }
}
