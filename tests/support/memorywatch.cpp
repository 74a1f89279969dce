#include "tests/support/memorywatch.h"

#include <array>
#include <cerrno>
#include <new>
#include <stdexcept>

// The functions below run before a sanitizer has made itself ready, so they are not checked.
#define UNCHECKED __attribute__((no_sanitize("address", "thread", "undefined")))

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define SYSTEM(function) __interceptor_##function
#else
#define SYSTEM(function) __libc_##function
#endif

extern "C" {
void* SYSTEM(malloc)(std::size_t size);
void* SYSTEM(calloc)(std::size_t count, std::size_t size);
void* SYSTEM(realloc)(void* memory, std::size_t size);
void* SYSTEM(memalign)(std::size_t alignment, std::size_t size);
void SYSTEM(free)(void* memory);
}

namespace {

struct Block
{
    void* memory;
    std::size_t size;
    int number;
};

// No container: what keeps the account must not allocate.
constexpr int kMostBlocks = 4096;
Block blocks[kMostBlocks];
int blockCount = 0;
int lostBlocks = 0; // that did not fit

int requestCount = 0;
std::size_t requestedBytes = 0;
int refusedCount = 0;
recording::Refusal inForce;

thread_local bool threadWatches = false; // from the watch's beginning to its end
thread_local bool threadCounts = false;  // inside run()

UNCHECKED bool counts()
{
    return threadCounts && !recording::hostCodeRuns;
}

// Counts a request; false when it is to be refused.
UNCHECKED bool mayHave(std::size_t size)
{
    if (!counts())
        return true;
    ++requestCount;
    requestedBytes += size;
    if ((requestCount < inForce.first || requestCount > inForce.last) &&
        (size < inForce.smallest || size > inForce.largest))
        return true;
    ++refusedCount;
    errno = ENOMEM;
    return false;
}

UNCHECKED void* noted(void* memory, std::size_t size)
{
    if (memory == nullptr || !counts())
        return memory;
    if (blockCount < kMostBlocks) {
        blocks[blockCount].memory = memory;
        blocks[blockCount].size = size;
        blocks[blockCount].number = requestCount;
        ++blockCount;
    } else {
        ++lostBlocks;
    }
    return memory;
}

// What was allocated last is freed first, mostly.
UNCHECKED void forget(const void* memory)
{
    if (!threadWatches || memory == nullptr)
        return;
    int at = blockCount - 1;
    while (at >= 0 && blocks[at].memory != memory)
        --at;
    if (at < 0)
        return;
    --blockCount;
    for (; at < blockCount; ++at)
        blocks[at] = blocks[at + 1];
}

UNCHECKED void* allocate(std::size_t size)
{
    return mayHave(size) ? noted(SYSTEM(malloc)(size), size) : nullptr;
}

UNCHECKED void* allocateAligned(std::size_t alignment, std::size_t size)
{
    return mayHave(size) ? noted(SYSTEM(memalign)(alignment, size), size) : nullptr;
}

void* orThrow(void* memory)
{
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

std::size_t alignmentOf(std::align_val_t alignment)
{
    return static_cast<std::size_t>(alignment);
}

} // namespace

namespace recording {

MemoryWatch::MemoryWatch(Refusal refusal)
{
    if (threadWatches)
        throw std::logic_error("two watches at a time");
    blockCount = 0;
    lostBlocks = 0;
    requestCount = 0;
    requestedBytes = 0;
    refusedCount = 0;
    inForce = refusal;
    threadWatches = true;
}

MemoryWatch::~MemoryWatch()
{
    threadWatches = false;
}

int MemoryWatch::requests() const
{
    return requestCount;
}

std::size_t MemoryWatch::bytes() const
{
    return requestedBytes;
}

int MemoryWatch::refused() const
{
    return refusedCount;
}

std::vector<std::string> MemoryWatch::live() const
{
    std::vector<std::string> result;
    for (int at = 0; at < blockCount; ++at) {
        result.push_back("request " + std::to_string(blocks[at].number) + " of " +
                         std::to_string(blocks[at].size) + " bytes");
    }
    if (lostBlocks > 0)
        result.push_back(std::to_string(lostBlocks) + " that are not accounted for");
    return result;
}

MemoryWatch::Running::Running()
{
    threadCounts = true;
}

MemoryWatch::Running::~Running()
{
    threadCounts = false;
}

} // namespace recording

#define REPLACED extern "C" __attribute__((visibility("default"))) UNCHECKED

REPLACED void* malloc(std::size_t size) noexcept
{
    return allocate(size);
}

REPLACED void* calloc(std::size_t count, std::size_t size) noexcept
{
    return mayHave(count * size) ? noted(SYSTEM(calloc)(count, size), count * size) : nullptr;
}

REPLACED void* realloc(void* memory, std::size_t size) noexcept
{
    if (!mayHave(size))
        return nullptr;
    void* const moved = SYSTEM(realloc)(memory, size);
    if (moved != nullptr || size == 0)
        forget(memory);
    return noted(moved, size);
}

REPLACED void* memalign(std::size_t alignment, std::size_t size) noexcept
{
    return allocateAligned(alignment, size);
}

REPLACED void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept
{
    return allocateAligned(alignment, size);
}

REPLACED int posix_memalign(void** result, std::size_t alignment, std::size_t size) noexcept
{
    void* const memory = allocateAligned(alignment, size);
    if (memory == nullptr)
        return ENOMEM;
    *result = memory;
    return 0;
}

REPLACED void free(void* memory) noexcept
{
    forget(memory);
    SYSTEM(free)(memory);
}

// Each form of its own: not every library brings the forms back to one.
void* operator new(std::size_t size)
{
    return orThrow(allocate(size));
}
void* operator new[](std::size_t size)
{
    return orThrow(allocate(size));
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    return allocate(size);
}
void* operator new(std::size_t size, std::align_val_t alignment)
{
    return orThrow(allocateAligned(alignmentOf(alignment), size));
}
void* operator new[](std::size_t size, std::align_val_t alignment)
{
    return orThrow(allocateAligned(alignmentOf(alignment), size));
}
void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept
{
    return allocateAligned(alignmentOf(alignment), size);
}
void* operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept
{
    return allocateAligned(alignmentOf(alignment), size);
}

void operator delete(void* memory) noexcept
{
    free(memory);
}
void operator delete[](void* memory) noexcept
{
    free(memory);
}
void operator delete(void* memory, std::size_t) noexcept
{
    free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept
{
    free(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept
{
    free(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept
{
    free(memory);
}
void operator delete(void* memory, std::align_val_t) noexcept
{
    free(memory);
}
void operator delete[](void* memory, std::align_val_t) noexcept
{
    free(memory);
}
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept
{
    free(memory);
}
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept
{
    free(memory);
}
