// Byte streams over files: longer than 32 bits can count, and where the system gives or takes less.
#include "tests/stream/streampair.h"
#include "tests/support/filestore.h"
#include "tests/support/temporaryfile.h"

#include "host/errors.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>
#include <csignal>
#include <memory>
#include <system_error>

using streams::Bytes;
using streams::FileStore;
using streams::Lines;
using streams::MemoryStore;
using streams::part;
using streams::pattern;
using streams::TemporaryFile;

namespace {

constexpr unsigned long kFourGiB = 1UL << 32;

Bytes bytesAt(VxStreamBuf& stream, unsigned long start, unsigned int count)
{
    Bytes bytes(count);
    stream.seek(static_cast<long>(start), VxStreamBuf::kFromStart);
    bytes.resize(stream.read(bytes.data(), count));
    return bytes;
}

void put(VxStreamBuf& stream, unsigned long start, const Bytes& bytes)
{
    stream.seek(static_cast<long>(start), VxStreamBuf::kFromStart);
    const auto count = static_cast<unsigned int>(bytes.size());
    if (stream.write(bytes.data(), count) != count)
        throw std::runtime_error("cannot write");
}

unsigned long blocksOnDisk(const std::string& path)
{
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0)
        throw std::runtime_error("cannot see " + path);
    return static_cast<unsigned long>(status.st_blocks) * 512;
}

// While one lives, no file of the process grows beyond `bytes`: writes are short there.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(unsigned long bytes)
        : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit lower = m_before;
        lower.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &lower);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    void (*m_handler)(int);
    rlimit m_before = {};
};

// A file of 5 GiB with nothing in it but 10,000 bytes across the first 4 GiB's end.
class LongFile
{
public:
    LongFile()
        : store(file.path())
    {
        store.setlength(5 * (kFourGiB / 4));
        put(store, kFourGiB - 5000, middle);
        store.seek(0, VxStreamBuf::kFromStart);
    }

    const Bytes middle = pattern(10000, 3);
    TemporaryFile file;
    FileStore store;
};

} // namespace

TEST(StreamFiles, AreCountedPastFourGiB)
{
    LongFile file;
    EXPECT_EQ(file.store.length(), 5 * (kFourGiB / 4));
    EXPECT_LT(blocksOnDisk(file.file.path()), 1UL << 20);
    EXPECT_FALSE(file.store.isEOS());
    file.store.seek(static_cast<long>(5 * (kFourGiB / 4)), VxStreamBuf::kFromStart);
    EXPECT_TRUE(file.store.isEOS());
    EXPECT_EQ(file.store.rewind(), 0U);
}

TEST(StreamFiles, AreCopiedFromAcrossFourGiB)
{
    LongFile file;
    MemoryStore memory;
    file.store.seek(static_cast<long>(kFourGiB + 7), VxStreamBuf::kFromStart);
    memory.copyFrom(&file.store, kFourGiB - 5000, kFourGiB + 5000);
    EXPECT_TRUE(memory.bytes() == file.middle);
    EXPECT_EQ(file.store.position(), kFourGiB + 7);

    MemoryStore downwards;
    downwards.copyFrom(&file.store, kFourGiB + 5000, kFourGiB - 4999);
    EXPECT_TRUE(downwards.bytes() == part(file.middle, 1, 10000));
}

TEST(StreamFiles, AreCopiedToAcrossFourGiB)
{
    LongFile file;
    MemoryStore memory(pattern(9000, 50));
    memory.copyTo(&file.store, kFourGiB - 4500, kFourGiB + 4500);
    EXPECT_EQ(file.store.position(), kFourGiB + 4500);
    EXPECT_TRUE(bytesAt(file.store, kFourGiB - 4500, 9000) == pattern(9000, 50));
    EXPECT_TRUE(bytesAt(file.store, kFourGiB - 5000, 500) == part(file.middle, 0, 500));
    EXPECT_TRUE(bytesAt(file.store, kFourGiB + 4500, 500) == part(file.middle, 9500, 10000));
    EXPECT_EQ(file.store.length(), 5 * (kFourGiB / 4));
}

TEST(StreamFiles, AreTransferredAcrossFourGiB)
{
    LongFile file;
    MemoryStore memory;
    file.store.seek(static_cast<long>(kFourGiB - 5000), VxStreamBuf::kFromStart);
    file.store.readBytes(&memory, 10000);
    EXPECT_TRUE(memory.bytes() == file.middle);
    EXPECT_EQ(file.store.position(), kFourGiB + 5000);

    MemoryStore source(pattern(3000, 77));
    EXPECT_EQ(file.store.writeBytes(&source, 3000), 0U);
    EXPECT_TRUE(bytesAt(file.store, kFourGiB + 5000, 3000) == pattern(3000, 77));
}

TEST(StreamFiles, AreReadWithinBoundsPastFourGiB)
{
    LongFile file;
    Bytes buffer(100);
    const unsigned long end = file.store.length();
    file.store.seek(static_cast<long>(end - 100), VxStreamBuf::kFromStart);
    EXPECT_EQ(file.store.getBytes(buffer.data(), 100), 100U);
    file.store.seek(static_cast<long>(end - 99), VxStreamBuf::kFromStart);
    std::unique_ptr<VxExceptionWithMsg> error;
    try {
        file.store.getBytes(buffer.data(), 100);
    } catch (VxExceptionWithMsg* caught) {
        error.reset(caught);
    }
    EXPECT_NE(error, nullptr);
    EXPECT_EQ(file.store.position(), end - 99);
}

TEST(StreamFiles, GiveLessAtTheirEnd)
{
    const TemporaryFile file;
    FileStore store(file.path());
    put(store, 0, pattern(10));
    EXPECT_EQ(bytesAt(store, 8, 5), part(pattern(10), 8, 10));
    EXPECT_EQ(store.position(), 10U);
    EXPECT_EQ(bytesAt(store, 10, 5), Bytes());
    EXPECT_EQ(bytesAt(store, 99, 5), Bytes());
    MemoryStore memory;
    memory.copyFrom(&store, 8, 12);
    EXPECT_EQ(memory.bytes(), (Bytes{9, 10, 0, 0}));
}

TEST(StreamFiles, TakeLessWhereTheyMayNotGrow)
{
    const TemporaryFile file;
    FileStore store(file.path());
    MemoryStore memory(pattern(10000));
    {
        const FileSizeLimit limit(5000);
        memory.copyTo(&store, 0, 10000);
    }
    EXPECT_EQ(store.length(), 5000U);
    EXPECT_EQ(store.position(), 5000U);
    EXPECT_TRUE(bytesAt(store, 0, 5000) == part(pattern(10000), 0, 5000));
    EXPECT_EQ(memory.position(), 0U);
}

TEST(StreamFiles, TakeNothingWhenTheyAreOpenForReading)
{
    const TemporaryFile file;
    {
        FileStore writable(file.path());
        put(writable, 0, pattern(10));
        EXPECT_TRUE(writable.flush());
    }
    FileStore store(file.path(), FileStore::Access::Read);
    MemoryStore memory(pattern(10, 101));
    store.copyFrom(&memory, 0, 0);
    EXPECT_FALSE(store.writeByte(1));
    EXPECT_EQ(store.position(), 0U);
    EXPECT_EQ(bytesAt(store, 0, 20), pattern(10));
    EXPECT_THROW(store.setlength(3), std::system_error);
}

TEST(StreamFiles, ThatAreNotThereAreNotOpened)
{
    EXPECT_THROW(FileStore("/no/such/folder/file"), std::system_error);
}

TEST(StreamFiles, ChangeTheirLength)
{
    const TemporaryFile file;
    FileStore store(file.path());
    put(store, 0, pattern(10));
    store.seek(4, VxStreamBuf::kFromStart);
    store.truncate();
    EXPECT_EQ(store.length(), 4U);
    store.setlength(6);
    EXPECT_EQ(bytesAt(store, 0, 10), (Bytes{1, 2, 3, 4, 0, 0}));
    store.seek(20, VxStreamBuf::kFromStart);
    store.truncate();
    EXPECT_EQ(store.length(), 6U);
}
