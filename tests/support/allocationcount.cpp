#include "tests/support/allocationcount.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace {

std::atomic<bool> counts{false};
std::atomic<std::size_t> requestCount{0};
std::atomic<std::size_t> requestedBytes{0};
std::atomic<std::size_t> releaseCount{0};
std::atomic<std::size_t> failsFrom{SIZE_MAX};

void* allocate(std::size_t size)
{
    if (counts) {
        ++requestCount;
        requestedBytes += size;
    }
    void* const memory = size < failsFrom ? std::malloc(size == 0 ? 1 : size) : nullptr;
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

void release(void* memory)
{
    if (counts && memory != nullptr)
        ++releaseCount;
    std::free(memory);
}

} // namespace

namespace recording {

AllocationCount::AllocationCount()
{
    requestCount = 0;
    requestedBytes = 0;
    releaseCount = 0;
    counts = true;
}

AllocationCount::~AllocationCount()
{
    counts = false;
}

std::size_t AllocationCount::requests() const
{
    return requestCount;
}

std::size_t AllocationCount::bytes() const
{
    return requestedBytes;
}

std::size_t AllocationCount::releases() const
{
    return releaseCount;
}

NewFails::NewFails(std::size_t fromBytes)
{
    failsFrom = fromBytes;
}

NewFails::~NewFails()
{
    failsFrom = SIZE_MAX;
}

} // namespace recording

void* operator new(std::size_t size)
{
    return allocate(size);
}

void* operator new[](std::size_t size)
{
    return allocate(size);
}

void operator delete(void* memory) noexcept
{
    release(memory);
}

void operator delete[](void* memory) noexcept
{
    release(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    release(memory);
}

void operator delete[](void* memory, std::size_t) noexcept
{
    release(memory);
}
