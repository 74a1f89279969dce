#include "tests/window/ownmemory.h"

#include <algorithm>
#include <cstdint>
#include <malloc.h>
#include <mutex>
#include <new>
#include <sstream>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define QUEL_SANITIZED
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

// The program's own code lies between them.
extern "C" const char __executable_start;
extern "C" const char etext;

namespace windowtest {

namespace {

struct Callers
{
    std::mutex mutex;
    Account<const void*> ofBlocks;
};

// Never destroyed: memory is given back until the very end.
Callers& callers()
{
    static Callers& only = *new (std::malloc(sizeof(Callers))) Callers;
    return only;
}

} // namespace

void OwnMemory::note()
{
    Account<int> counts;
    {
        const std::lock_guard<std::mutex> lock(callers().mutex);
        for (const auto& [block, caller] : callers().ofBlocks)
            ++counts[caller];
    }
    ++m_notes;
    for (const auto& [caller, count] : counts) {
        Place& place = m_places[caller];
        if (count <= place.most)
            continue;
        place.most = count;
        place.times += m_notes > 1 ? 1 : 0;
    }
}

std::string OwnMemory::grown() const
{
    const int most = std::max(2, m_notes / 10);
    std::ostringstream rows;
    for (const auto& [caller, place] : m_places) {
        if (place.times > most)
            rows << "at 0x" << std::hex << static_cast<const char*>(caller) - &__executable_start
                 << std::dec << ": " << place.most << " blocks, more than before " << place.times
                 << " times out of " << m_notes << '\n';
    }
    return rows.str();
}

std::size_t liveMemory()
{
#if defined(QUEL_SANITIZED)
    return __sanitizer_get_current_allocated_bytes();
#else
    const struct mallinfo2 heap = ::mallinfo2();
    return heap.uordblks + heap.hblkhd;
#endif
}

} // namespace windowtest

#if !defined(QUEL_SANITIZED)

namespace {

bool isOwn(const void* caller)
{
    const auto place = reinterpret_cast<std::uintptr_t>(caller);
    return place >= reinterpret_cast<std::uintptr_t>(&__executable_start) &&
           place < reinterpret_cast<std::uintptr_t>(&etext);
}

void* noted(void* memory, const void* caller)
{
    if (memory != nullptr && isOwn(caller)) {
        windowtest::Callers& callers = windowtest::callers();
        const std::lock_guard<std::mutex> lock(callers.mutex);
        callers.ofBlocks[memory] = caller;
    }
    return memory;
}

void* orThrow(void* memory)
{
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

void giveBack(void* memory)
{
    if (memory == nullptr)
        return;
    {
        windowtest::Callers& callers = windowtest::callers();
        const std::lock_guard<std::mutex> lock(callers.mutex);
        callers.ofBlocks.erase(memory);
    }
    std::free(memory);
}

} // namespace

// The other forms come back to these.
void* operator new(std::size_t size)
{
    return noted(orThrow(std::malloc(size == 0 ? 1 : size)), __builtin_return_address(0));
}
void* operator new[](std::size_t size)
{
    return noted(orThrow(std::malloc(size == 0 ? 1 : size)), __builtin_return_address(0));
}
void operator delete(void* memory) noexcept
{
    giveBack(memory);
}
void operator delete[](void* memory) noexcept
{
    giveBack(memory);
}
void operator delete(void* memory, std::size_t) noexcept
{
    giveBack(memory);
}
void operator delete[](void* memory, std::size_t) noexcept
{
    giveBack(memory);
}

#endif
