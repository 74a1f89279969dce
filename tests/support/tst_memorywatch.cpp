// The watch itself: it counts, refuses and finds every kind of allocation, and no other's.
#include "tests/support/memorywatch.h"

#include <gtest/gtest.h>

#include <QString>

#include <malloc.h>

#include <cstdlib>
#include <functional>
#include <iterator>
#include <new>
#include <string>
#include <thread>
#include <vector>

using recording::MemoryWatch;
using recording::Refusal;

namespace {

constexpr std::align_val_t kPage{4096};

struct Kind
{
    const char* name;
    void* (*allocate)(); // null or std::bad_alloc when it is refused
    void (*release)(void*);
};

void* fromPosix()
{
    void* memory = nullptr;
    return posix_memalign(&memory, 64, 100) == 0 ? memory : nullptr;
}

// No compiler may leave these out: they are calls of the functions, not new expressions.
const Kind kKinds[] = {
    {"malloc", [] { return std::malloc(100); }, std::free},
    {"calloc", [] { return std::calloc(10, 10); }, std::free},
    {"realloc", [] { return std::realloc(nullptr, 100); }, std::free},
    {"memalign", [] { return memalign(64, 100); }, std::free},
    {"aligned_alloc", [] { return std::aligned_alloc(64, 128); }, std::free},
    {"posix_memalign", fromPosix, std::free},
    {"new", [] { return operator new(100); }, [](void* memory) { operator delete(memory); }},
    {"new[]", [] { return operator new[](100); }, [](void* memory) { operator delete[](memory); }},
    {"new that does not throw", [] { return operator new(100, std::nothrow); },
     [](void* memory) { operator delete(memory, std::nothrow); }},
    {"new[] that does not throw", [] { return operator new[](100, std::nothrow); },
     [](void* memory) { operator delete[](memory, std::nothrow); }},
    {"aligned new", [] { return operator new(100, kPage); },
     [](void* memory) { operator delete(memory, kPage); }},
    {"aligned new[]", [] { return operator new[](100, kPage); },
     [](void* memory) { operator delete[](memory, kPage); }},
    {"aligned new that does not throw", [] { return operator new(100, kPage, std::nothrow); },
     [](void* memory) { operator delete(memory, kPage); }},
    {"aligned new[] that does not throw", [] { return operator new[](100, kPage, std::nothrow); },
     [](void* memory) { operator delete[](memory, kPage); }},
};

// Runs it and returns what it allocated; null when that was refused in either way.
void* allocateIn(MemoryWatch& watch, const Kind& kind)
{
    try {
        return watch.run(kind.allocate);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

} // namespace

TEST(TheMemoryWatch, CountsAndFindsEveryKind)
{
    for (const Kind& kind : kKinds) {
        MemoryWatch watch;
        void* const memory = allocateIn(watch, kind);
        EXPECT_NE(memory, nullptr) << kind.name;
        EXPECT_EQ(watch.requests(), 1) << kind.name;
        EXPECT_EQ(watch.refused(), 0) << kind.name;
        EXPECT_EQ(watch.live().size(), 1U) << kind.name;
        kind.release(memory);
        EXPECT_TRUE(watch.live().empty()) << kind.name;
    }
}

TEST(TheMemoryWatch, RefusesEveryKind)
{
    for (const Kind& kind : kKinds) {
        MemoryWatch watch(Refusal::one(1));
        EXPECT_EQ(allocateIn(watch, kind), nullptr) << kind.name;
        EXPECT_EQ(watch.refused(), 1) << kind.name;
        EXPECT_TRUE(watch.live().empty()) << kind.name;
    }
}

TEST(TheMemoryWatch, RefusesTheRequestsThatItIsToldTo)
{
    const auto thrice = [](Refusal refusal) {
        MemoryWatch watch(refusal);
        std::string given;
        for (const std::size_t size : {10U, 20U, 30U}) {
            void* const memory = watch.run([size] { return std::malloc(size); });
            given += memory == nullptr ? '-' : '+';
            std::free(memory);
        }
        return given;
    };
    EXPECT_EQ(thrice({}), "+++");
    EXPECT_EQ(thrice(Refusal::one(2)), "+-+");
    EXPECT_EQ(thrice(Refusal::from(2)), "+--");
    EXPECT_EQ(thrice(Refusal::ofSize(20)), "+-+");
    EXPECT_EQ(thrice(Refusal::ofAtLeast(20)), "+--");
    EXPECT_EQ(thrice(Refusal::ofAtLeast(31)), "+++");
}

TEST(TheMemoryWatch, RefusesAndCountsInsideRunAlone)
{
    // A compiler that sees the function leaves out memory that nobody uses.
    void* (*volatile const allocate)(std::size_t) = std::malloc;
    MemoryWatch watch(Refusal::ofSize(100));
    for (int round = 1; round <= 2; ++round) {
        EXPECT_EQ(watch.run([&] { return allocate(100); }), nullptr);
        EXPECT_THROW(watch.run([] { throw 17; }), int);
        void* const memory = allocate(100);
        EXPECT_NE(memory, nullptr);
        EXPECT_EQ(watch.live(), std::vector<std::string>{});
        std::free(memory);
        EXPECT_EQ(watch.refused(), round);
    }
}

TEST(TheMemoryWatch, AddsUpTheBytesThatItIsAskedFor)
{
    for (const Refusal& refusal : {Refusal{}, Refusal::one(2)}) {
        MemoryWatch watch(refusal);
        for (const Kind& kind : kKinds)
            kind.release(allocateIn(watch, kind));
        EXPECT_EQ(watch.requests(), static_cast<int>(std::size(kKinds)));
        EXPECT_EQ(watch.bytes(), std::size(kKinds) * 100 + 28); // one of them asks for 128
        EXPECT_EQ(watch.live(), std::vector<std::string>{});
    }
}

TEST(TheMemoryWatch, KeepsABlockInSightWhenItMoves)
{
    // A compiler that sees the function warns of the block that it may have taken: it is refused.
    void* (*volatile const reallocate)(void*, std::size_t) = std::realloc;
    MemoryWatch watch(Refusal::one(3));
    void* memory = watch.run([] { return std::malloc(10); });
    memory = watch.run([&] { return reallocate(memory, 100000); });
    EXPECT_EQ(watch.live().size(), 1U);
    EXPECT_EQ(watch.run([&] { return reallocate(memory, 200000); }), nullptr);
    EXPECT_EQ(watch.live().size(), 1U);
    std::free(memory);
    EXPECT_TRUE(watch.live().empty());
}

TEST(TheMemoryWatch, ReachesTheToolkitAndTheStandardLibrary)
{
    const auto inToolkit = [] { QString(100, QLatin1Char('x')).size(); };
    const auto inLibrary = [] { static_cast<void>(std::string(1000, 'x')); };
    for (const auto& code : {std::function<void()>(inToolkit), std::function<void()>(inLibrary)}) {
        MemoryWatch watch(Refusal::from(1));
        EXPECT_THROW(watch.run(code), std::bad_alloc);
        EXPECT_GE(watch.refused(), 1);
    }
}

TEST(TheMemoryWatch, LeavesTheHostAndOtherThreadsAlone)
{
    // A compiler that sees the function leaves out memory that nobody uses.
    void* (*volatile const allocate)(std::size_t) = std::malloc;
    MemoryWatch watch(Refusal::from(1));
    int given = 0;
    std::thread other([&] {
        void* const memory = allocate(100);
        given += memory == nullptr ? 0 : 1;
        std::free(memory);
    });
    other.join();
    watch.run([&] {
        const recording::HostCode here;
        void* const memory = allocate(100);
        given += memory == nullptr ? 0 : 1;
        const recording::CalledCode there;
        given += allocate(100) == nullptr ? 1 : 0;
        std::free(memory);
    });
    EXPECT_EQ(given, 3);
    EXPECT_EQ(watch.requests(), 1);
}
