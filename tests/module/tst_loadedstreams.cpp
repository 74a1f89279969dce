// The byte streams of the built module, used by a host that has nothing but the loaded file.
#include "host/errors.h"
#include "stream/vxstreambufpos.h"
#include "stream/vxvector.h"

#include "tests/support/rawslots.h"
#include "tests/support/recordinghost.h"

#include <gtest/gtest.h>

#include <dlfcn.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <vector>

using recording::host;
using Bytes = std::vector<unsigned char>;

namespace {

class LoadedFile
{
public:
    LoadedFile()
        : m_handle(dlopen(VXCUICMDS_PATH, RTLD_NOW | RTLD_LOCAL))
    {
        if (m_handle == nullptr)
            throw std::runtime_error(dlerror());
    }
    ~LoadedFile() { dlclose(m_handle); }
    LoadedFile(const LoadedFile&) = delete;
    LoadedFile& operator=(const LoadedFile&) = delete;

    [[nodiscard]] void* symbol(const char* name) const
    {
        void* const found = dlsym(m_handle, name);
        if (found == nullptr)
            throw std::runtime_error(dlerror());
        return found;
    }

private:
    void* m_handle;
};

// A store as a host makes it that derives from the module's class: the class's table with
// functions of its own in place of the pure ones.
class HostStore
{
public:
    explicit HostStore(const LoadedFile& file, Bytes content = {})
        : bytes(std::move(content))
    {
        // In front of the functions stand the offset to the whole object and the type.
        const auto* const table = static_cast<void* const*>(file.symbol("_ZTV11VxStreamBuf"));
        std::copy_n(table, m_table.size(), m_table.begin());
        m_functions = &m_table[2];
        set(
            3, +[](const HostStore* self) { return self->offset; });
        set(
            4,
            +[](const HostStore* self) { return static_cast<unsigned long>(self->bytes.size()); });
        set(
            8, +[](HostStore* self, long place, int) {
                return self->offset = static_cast<unsigned long>(place);
            });
        set(
            11, +[](HostStore* self, void* buffer, unsigned int count) {
                const auto left = static_cast<unsigned int>(self->bytes.size() - self->offset);
                const unsigned int moved = std::min(count, left);
                std::memcpy(buffer, self->bytes.data() + self->offset, moved);
                self->offset += moved;
                return moved;
            });
        set(
            13, +[](HostStore* self, const void* buffer, unsigned int count) {
                self->bytes.resize(std::max<std::size_t>(self->bytes.size(), self->offset + count));
                std::memcpy(self->bytes.data() + self->offset, buffer, count);
                self->offset += count;
                return count;
            });
    }
    HostStore(const HostStore&) = delete;
    HostStore& operator=(const HostStore&) = delete;

private:
    template<typename Result, typename Self, typename... Parameters>
    void set(std::size_t index, Result (*function)(Self*, Parameters...))
    {
        std::memcpy(&m_table[2 + index], &function, sizeof function);
    }

    const void* m_functions = nullptr; // where a compiler puts it: first
    std::array<void*, 2 + 29> m_table{};

public:
    Bytes bytes;
    unsigned long offset = 0;
};

Bytes counted(unsigned long size)
{
    Bytes bytes(size);
    for (unsigned long i = 0; i < size; ++i)
        bytes[i] = static_cast<unsigned char>(i % 251);
    return bytes;
}

// How many share the block that the vector's one pointer leads to: the block begins with that.
template<typename Vector>
std::int32_t countOf(const Vector& vector)
{
    const void* block = nullptr;
    std::memcpy(&block, &vector, sizeof block);
    std::int32_t count = 0;
    std::memcpy(&count, block, sizeof count);
    return count;
}

} // namespace

TEST(LoadedStreams, CopyAndTransferForStoresOfTheHost)
{
    const LoadedFile file;
    HostStore source(file, counted(5000));
    HostStore copied(file);
    raw::call<void>(&copied, 15, &source, 5000UL, 1000UL);
    EXPECT_EQ(copied.bytes, Bytes(source.bytes.begin() + 1000, source.bytes.end()));
    EXPECT_EQ(source.offset, 0U);
    EXPECT_TRUE(raw::call<bool>(&copied, 2));

    HostStore target(file);
    raw::call<void>(&source, 16, &target, 2UL, 5002UL);
    EXPECT_EQ(target.bytes.size(), 5002U);
    EXPECT_EQ(raw::call<unsigned long>(&target, 7), 0U);
    EXPECT_EQ(raw::call<unsigned long>(&source, 12, &target, 3000U), 0U);
    EXPECT_TRUE(
        std::equal(source.bytes.begin(), source.bytes.begin() + 3000, target.bytes.begin()));
    EXPECT_EQ(raw::call<unsigned long>(&source, 14, &copied, 1500U), 4000U);
    EXPECT_TRUE(
        std::equal(copied.bytes.begin(), copied.bytes.begin() + 1500, source.bytes.begin() + 3000));
    EXPECT_EQ(raw::call<VxStreamBufPos>(&source, 18).buffer, static_cast<void*>(&source));
    EXPECT_EQ(raw::call<unsigned long>(&source, 25, static_cast<VxStreamBufPos*>(nullptr)),
              0xFFFFFFFFFFFFFFFFUL);
}

TEST(LoadedStreams, ThrowErrorsThatCanBeReadWhenTheFileIsGone)
{
    std::unique_ptr<VxExceptionWithMsg> error;
    {
        const LoadedFile file;
        HostStore store(file, counted(10));
        std::array<unsigned char, 11> buffer{};
        EXPECT_EQ(raw::call<unsigned int>(&store, 28, buffer.data(), 4U), 4U);
        try {
            raw::call<unsigned int>(&store, 28, buffer.data(), 7U);
        } catch (VxExceptionWithMsg* caught) {
            error.reset(caught);
        }
        EXPECT_EQ(store.offset, 4U);
    }
    ASSERT_NE(error, nullptr);
    EXPECT_STREQ(error->message(), L"Out of stream buffer!");
    EXPECT_STREQ(error->context(), L"\"\"");
    ASSERT_EQ(host().crashes.size(), 1U);
    EXPECT_EQ(host().crashes[0].address, error.get());
}

TEST(LoadedStreams, ReleaseVectorsOfTheHost)
{
    using Vector =
        VxVector<int, VxDefaultMemAllocator<int>, VxRefCounter, VxVectorDefaultGrowPolicy>;
    const LoadedFile file;
    void* const symbol =
        file.symbol("_ZN8VxVectorIi21VxDefaultMemAllocatorIiE12VxRefCounter25VxVectorDefaultGrow"
                    "PolicyED1Ev");
    void (*destroy)(void*) = nullptr;
    std::memcpy(&destroy, &symbol, sizeof destroy);

    const int number = 7;
    alignas(Vector) std::array<unsigned char, sizeof(Vector)> first;
    alignas(Vector) std::array<unsigned char, sizeof(Vector)> second;
    const auto* const vector = new (first.data()) Vector(&number, 1);
    const auto* const copy = new (second.data()) Vector(*vector);
    EXPECT_EQ(countOf(*copy), 2);
    destroy(first.data());
    EXPECT_EQ(countOf(*copy), 1);
    EXPECT_EQ(*copy->data(), 7);
    destroy(second.data());
    alignas(Vector) std::array<unsigned char, sizeof(Vector)> empty;
    new (empty.data()) Vector;
    destroy(empty.data());
}
