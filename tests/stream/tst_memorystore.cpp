// The store in memory that the other tests rely on.
#include "tests/stream/streampair.h"

#include <gtest/gtest.h>

using streams::Bytes;
using streams::MemoryStore;
using streams::pattern;

namespace {

unsigned int write(VxStreamBuf& stream, const Bytes& bytes)
{
    return stream.write(bytes.data(), static_cast<unsigned int>(bytes.size()));
}

} // namespace

TEST(MemoryStore, GoesWhereItIsTold)
{
    MemoryStore store(pattern(10));
    EXPECT_EQ(store.seek(4, VxStreamBuf::kFromStart), 4U);
    EXPECT_EQ(store.seek(3, VxStreamBuf::kFromCurrent), 7U);
    EXPECT_EQ(store.seek(-2, VxStreamBuf::kFromCurrent), 5U);
    EXPECT_EQ(store.seek(-10, VxStreamBuf::kFromEnd), 0U);
    EXPECT_EQ(store.seek(2, VxStreamBuf::kFromEnd), 12U);
    EXPECT_EQ(store.seek(-11, VxStreamBuf::kFromEnd), 12U) << "refused";
    EXPECT_EQ(store.seek(-13, VxStreamBuf::kFromCurrent), 12U) << "refused";
    EXPECT_EQ(store.seek(-1, VxStreamBuf::kFromStart), 0xFFFFFFFFFFFFFFFFUL);
    EXPECT_EQ(store.position(), 0xFFFFFFFFFFFFFFFFUL);
}

TEST(MemoryStore, GrowsByWhatIsWrittenUpToItsLimit)
{
    MemoryStore store(pattern(2), 6);
    store.seek(3, VxStreamBuf::kFromStart);
    EXPECT_EQ(write(store, {7, 8}), 2U);
    EXPECT_EQ(store.bytes(), (Bytes{1, 2, 0, 7, 8}));
    EXPECT_EQ(write(store, {9, 9, 9}), 1U);
    EXPECT_EQ(write(store, {9}), 0U);
    EXPECT_EQ(store.bytes(), (Bytes{1, 2, 0, 7, 8, 9}));
    EXPECT_EQ(store.position(), 6U);
}

TEST(MemoryStore, MovesNothingForNothing)
{
    MemoryStore store;
    store.seek(5, VxStreamBuf::kFromStart);
    EXPECT_EQ(write(store, {}), 0U);
    EXPECT_EQ(store.read(nullptr, 0), 0U);
    EXPECT_EQ(store.length(), 0U);
}

TEST(MemoryStore, ChangesItsLength)
{
    MemoryStore store(pattern(10), 12);
    store.seek(4, VxStreamBuf::kFromStart);
    store.truncate();
    EXPECT_EQ(store.bytes(), pattern(4));
    store.setlength(99);
    EXPECT_EQ(store.length(), 12U);
    store.seek(20, VxStreamBuf::kFromStart);
    store.truncate();
    EXPECT_EQ(store.length(), 12U);
    EXPECT_TRUE(store.flush());
}

TEST(MemoryStore, ReadsAndWritesSingleBytes)
{
    MemoryStore store(Bytes{200}, 1);
    EXPECT_EQ(store.readByte(), 200);
    EXPECT_EQ(store.readByte(), -1);
    EXPECT_FALSE(store.writeByte(5));
    EXPECT_EQ(store.rewind(), 0U);
    EXPECT_TRUE(store.writeByte(5));
    EXPECT_EQ(store.bytes(), Bytes{5});
}
