#include "tests/support/allocationfailure.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> mallocFailsFrom{SIZE_MAX};
std::atomic<std::size_t> mallocFailsTo{SIZE_MAX};
std::atomic<std::size_t> newFailsFrom{SIZE_MAX};
std::atomic<std::size_t> lastRefused{0};

} // namespace

namespace recording {

MallocFails::MallocFails(std::size_t fromBytes, std::size_t toBytes)
{
    lastRefused = 0;
    mallocFailsTo = toBytes;
    mallocFailsFrom = fromBytes;
}

MallocFails::~MallocFails()
{
    mallocFailsFrom = SIZE_MAX;
}

std::size_t MallocFails::refused() const
{
    return lastRefused;
}

MemoryExhausted::MemoryExhausted(std::size_t fromBytes)
    : m_malloc(fromBytes)
{
    newFailsFrom = fromBytes;
}

MemoryExhausted::~MemoryExhausted()
{
    newFailsFrom = SIZE_MAX;
}

} // namespace recording

extern "C" {
void* __real_malloc(std::size_t size);
void* __wrap_malloc(std::size_t size);

void* __wrap_malloc(std::size_t size)
{
    if (size < mallocFailsFrom || size > mallocFailsTo)
        return __real_malloc(size);
    lastRefused = size;
    return nullptr;
}
}

void* operator new(std::size_t size)
{
    void* const memory = size < newFailsFrom ? __real_malloc(size == 0 ? 1 : size) : nullptr;
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}
