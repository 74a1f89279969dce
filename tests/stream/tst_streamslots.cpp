// The table of a byte stream buffer, called by position as a host compiled elsewhere does.
#include "stream/vxstreambuf.h"

#include "tests/support/rawslots.h"

#include <gtest/gtest.h>

#include <array>
#include <new>
#include <string>
#include <type_traits>

namespace {

// A store whose every operation notes its name, and whose own ones are told apart by their results.
class NotingStore final : public VxStreamBuf
{
public:
    static int deleted;
    static int destroyed;
    static void operator delete(void* memory)
    {
        ++deleted;
        ::operator delete(memory);
    }

    mutable std::string called;

    ~NotingStore() override { ++destroyed; }
    bool isEOS() const override { return note("isEOS"), true; }
    unsigned long position() const override { return note("position"), 1UL << 40; }
    unsigned long length() const override { return note("length"), 1UL << 41; }
    void setlength(unsigned long length) override { note("setlength " + std::to_string(length)); }
    void truncate() override { note("truncate"); }
    unsigned long rewind() override { return note("rewind"), 1UL << 42; }
    unsigned long seek(long offset, int origin) override
    {
        note("seek " + std::to_string(offset) + " " + std::to_string(origin));
        return 1UL << 43;
    }
    int readByte() override { return note("readByte"), -1; }
    bool writeByte(unsigned char byte) override
    {
        return note("writeByte " + std::to_string(byte)), true;
    }
    unsigned int read(void*, unsigned int count) override
    {
        return note("read " + std::to_string(count)), 12;
    }
    unsigned long readBytes(VxStreamBuf*, unsigned int count) override
    {
        return note("readBytes " + std::to_string(count)), 1UL << 44;
    }
    unsigned int write(const void*, unsigned int count) override
    {
        return note("write " + std::to_string(count)), 14;
    }
    unsigned long writeBytes(VxStreamBuf*, unsigned int count) override
    {
        return note("writeBytes " + std::to_string(count)), 1UL << 45;
    }
    void copyFrom(VxStreamBuf*, unsigned long, unsigned long end) override
    {
        note("copyFrom " + std::to_string(end));
    }
    void copyTo(VxStreamBuf*, unsigned long, unsigned long end) override
    {
        note("copyTo " + std::to_string(end));
    }
    bool flush() override { return note("flush"), true; }
    VxStreamBufPos currentStreamBufPosition() const override
    {
        return note("currentStreamBufPosition"), VxStreamBufPos{19, this};
    }
    unsigned char getByteByPos(const VxStreamBufPos&) override { return note("getByteByPos"), 20; }
    void setByteByPos(const VxStreamBufPos&, unsigned char byte) override
    {
        note("setByteByPos " + std::to_string(byte));
    }
    void getBytesByPos(const VxStreamBufPos&, unsigned char*, unsigned int) override
    {
        note("getBytesByPos memory");
    }
    void getBytesByPos(const VxStreamBufPos&, VxStreamBuf*, unsigned int) override
    {
        note("getBytesByPos stream");
    }
    void setBytesByPos(const VxStreamBufPos&, const unsigned char*, unsigned int) override
    {
        note("setBytesByPos memory");
    }
    void setBytesByPos(const VxStreamBufPos&, VxStreamBuf*, unsigned int) override
    {
        note("setBytesByPos stream");
    }
    unsigned long getStreamPosition(const VxStreamBufPos*) const override
    {
        return note("getStreamPosition"), 26;
    }
    void setStreamPosition(VxStreamBufPos*, unsigned long offset) const override
    {
        note("setStreamPosition " + std::to_string(offset));
    }
    void moveStreamPosition(VxStreamBufPos*, long distance) const override
    {
        note("moveStreamPosition " + std::to_string(distance));
    }
    unsigned int getBytes(unsigned char*, unsigned int count) override
    {
        return note("getBytes " + std::to_string(count)), 29;
    }

private:
    void note(const std::string& text) const { called += text + ";"; }
};

int NotingStore::deleted = 0;
int NotingStore::destroyed = 0;

} // namespace

TEST(StreamSlots, ABufferIsItsTableAndNothingElse)
{
    EXPECT_EQ(sizeof(VxStreamBuf), sizeof(void*));
    EXPECT_TRUE(std::is_abstract_v<VxStreamBuf>);
    EXPECT_TRUE(std::has_virtual_destructor_v<VxStreamBuf>);
}

TEST(StreamSlots, APlaceIsAReferenceAndABufferInRegisters)
{
    EXPECT_EQ(sizeof(VxStreamBufPos), 2 * sizeof(void*));
    EXPECT_EQ(offsetof(VxStreamBufPos, reference), 0U);
    EXPECT_EQ(offsetof(VxStreamBufPos, buffer), sizeof(void*));
    EXPECT_TRUE(std::is_trivially_copyable_v<VxStreamBufPos>);
}

TEST(StreamSlots, TheFirstDestroysAndTheSecondDeletes)
{
    NotingStore::destroyed = 0;
    NotingStore::deleted = 0;
    alignas(NotingStore) std::array<unsigned char, sizeof(NotingStore)> memory;
    const VxStreamBuf* const inPlace = new (memory.data()) NotingStore;
    raw::call<void>(inPlace, 0);
    EXPECT_EQ(NotingStore::destroyed, 1);
    EXPECT_EQ(NotingStore::deleted, 0);

    const VxStreamBuf* const allocated = ::new NotingStore;
    raw::call<void>(allocated, 1);
    EXPECT_EQ(NotingStore::destroyed, 2);
    EXPECT_EQ(NotingStore::deleted, 1);
}

TEST(StreamSlots, HoldTheOperationsInOrder)
{
    const NotingStore store;
    const VxStreamBuf* const stream = &store;
    VxStreamBuf* const other = nullptr;
    unsigned char* const bytes = nullptr;
    const unsigned char* const constantBytes = nullptr;
    VxStreamBufPos place;
    const VxStreamBufPos* const constantPlace = &place;
    const auto seen = [&store] { return std::exchange(store.called, {}); };

    EXPECT_TRUE(raw::call<bool>(stream, 2));
    EXPECT_EQ(seen(), "isEOS;");
    EXPECT_EQ(raw::call<unsigned long>(stream, 3), 1UL << 40);
    EXPECT_EQ(seen(), "position;");
    EXPECT_EQ(raw::call<unsigned long>(stream, 4), 1UL << 41);
    EXPECT_EQ(seen(), "length;");
    raw::call<void>(stream, 5, 1UL << 33);
    EXPECT_EQ(seen(), "setlength 8589934592;");
    raw::call<void>(stream, 6);
    EXPECT_EQ(seen(), "truncate;");
    EXPECT_EQ(raw::call<unsigned long>(stream, 7), 1UL << 42);
    EXPECT_EQ(seen(), "rewind;");
    EXPECT_EQ(raw::call<unsigned long>(stream, 8, 1L << 33, 2), 1UL << 43);
    EXPECT_EQ(seen(), "seek 8589934592 2;");
    EXPECT_EQ(raw::call<int>(stream, 9), -1);
    EXPECT_EQ(seen(), "readByte;");
    EXPECT_TRUE(raw::call<bool>(stream, 10, static_cast<unsigned char>(9)));
    EXPECT_EQ(seen(), "writeByte 9;");
    EXPECT_EQ(raw::call<unsigned int>(stream, 11, static_cast<void*>(bytes), 7U), 12U);
    EXPECT_EQ(seen(), "read 7;");
    EXPECT_EQ(raw::call<unsigned long>(stream, 12, other, 8U), 1UL << 44);
    EXPECT_EQ(seen(), "readBytes 8;");
    EXPECT_EQ(raw::call<unsigned int>(stream, 13, static_cast<const void*>(bytes), 9U), 14U);
    EXPECT_EQ(seen(), "write 9;");
    EXPECT_EQ(raw::call<unsigned long>(stream, 14, other, 10U), 1UL << 45);
    EXPECT_EQ(seen(), "writeBytes 10;");
    raw::call<void>(stream, 15, other, 1UL, 1UL << 34);
    EXPECT_EQ(seen(), "copyFrom 17179869184;");
    raw::call<void>(stream, 16, other, 1UL, 1UL << 35);
    EXPECT_EQ(seen(), "copyTo 34359738368;");
    EXPECT_TRUE(raw::call<bool>(stream, 17));
    EXPECT_EQ(seen(), "flush;");
    EXPECT_EQ(raw::call<VxStreamBufPos>(stream, 18).reference, 19U);
    EXPECT_EQ(seen(), "currentStreamBufPosition;");
    EXPECT_EQ(raw::call<unsigned char>(stream, 19, constantPlace), 20);
    EXPECT_EQ(seen(), "getByteByPos;");
    raw::call<void>(stream, 20, constantPlace, static_cast<unsigned char>(21));
    EXPECT_EQ(seen(), "setByteByPos 21;");
    raw::call<void>(stream, 21, constantPlace, bytes, 1U);
    EXPECT_EQ(seen(), "getBytesByPos memory;");
    raw::call<void>(stream, 22, constantPlace, other, 1U);
    EXPECT_EQ(seen(), "getBytesByPos stream;");
    raw::call<void>(stream, 23, constantPlace, constantBytes, 1U);
    EXPECT_EQ(seen(), "setBytesByPos memory;");
    raw::call<void>(stream, 24, constantPlace, other, 1U);
    EXPECT_EQ(seen(), "setBytesByPos stream;");
    EXPECT_EQ(raw::call<unsigned long>(stream, 25, constantPlace), 26U);
    EXPECT_EQ(seen(), "getStreamPosition;");
    raw::call<void>(stream, 26, &place, 1UL << 36);
    EXPECT_EQ(seen(), "setStreamPosition 68719476736;");
    raw::call<void>(stream, 27, &place, -(1L << 36));
    EXPECT_EQ(seen(), "moveStreamPosition -68719476736;");
    EXPECT_EQ(raw::call<unsigned int>(stream, 28, bytes, 11U), 29U);
    EXPECT_EQ(seen(), "getBytes 11;");
}
