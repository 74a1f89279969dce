// VxVector: a vector whose copies share one block until the last of them is destroyed.
//
// The vector itself is one pointer, null while it has no elements. The block that it points to
// holds, in this order, a 32-bit count of the vectors that share it, the number of elements, the
// number of those that there is room for, and a pointer to the array of elements, which is apart
// and from new[]. Hosts and modules read and release each other's vectors and must agree on this.
//
// Threads: the count is atomic, so copies of one vector may be made and destroyed by several
// threads at once. Nothing else is: one vector is used by one thread at a time, and elements that
// are shared are only read.
#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>
#include <utility>

// The host's allocator: the C allocator, as for all blocks that a host and a module hand each
// other.
template<typename T>
struct VxDefaultMemAllocator
{
    // A new block for `bytes` bytes, left uninitialised. Throws std::bad_alloc.
    [[nodiscard]] static void* allocate(std::size_t bytes)
    {
        void* const block = std::malloc(bytes);
        if (block == nullptr)
            throw std::bad_alloc();
        return block;
    }
    // Frees a block of allocate().
    static void release(void* block) { std::free(block); }
};

// How many share a block. 32 bits, and nothing else.
class VxRefCounter
{
public:
    // One more. REQUIRES: the caller is one of those who share.
    void add() { m_count.fetch_add(1, std::memory_order_relaxed); }

    // One fewer. Returns true to exactly one of all who share, the last, whatever threads they are
    // in: to the one that found a count of 1. The block is that one's to free and nobody else's,
    // also where another thread reads a count of 0 behind its own decrement. What the others did
    // with the block has happened before.
    [[nodiscard]] bool removeLast() { return m_count.fetch_sub(1, std::memory_order_acq_rel) == 1; }

    // Whether there is more than one. Can change at any time while it is true.
    [[nodiscard]] bool isShared() const { return m_count.load(std::memory_order_acquire) > 1; }

private:
    std::atomic<std::int32_t> m_count{1};
};

// Grows by doubling, so that an element appended to a vector that shares with none costs a constant
// number of copies on average.
struct VxVectorDefaultGrowPolicy
{
    // The room to get for at least `needed` elements where there was room for `room`.
    static std::size_t grow(std::size_t room, std::size_t needed)
    {
        return std::max(needed, room * 2);
    }
};

// T: has a default and a copy constructor and can be assigned. Allocator: static allocate and
// release, as above, for the block. Counter: the operations of VxRefCounter. GrowPolicy: a static
// grow.
template<typename T, typename Allocator = VxDefaultMemAllocator<T>, typename Counter = VxRefCounter,
         typename GrowPolicy = VxVectorDefaultGrowPolicy>
class VxVector
{
public:
    VxVector() = default;
    // Copies `size` elements. Throws std::bad_alloc and what an element throws.
    VxVector(const T* elements, std::size_t size)
        : m_block(size == 0 ? nullptr : makeBlock(elements, size, size))
    {}
    // Shares the block of `other`; copies no elements.
    VxVector(const VxVector& other) noexcept
        : m_block(other.m_block)
    {
        if (m_block != nullptr)
            m_block->count.add();
    }
    VxVector(VxVector&& other) noexcept
        : m_block(std::exchange(other.m_block, nullptr))
    {}
    VxVector& operator=(VxVector other) noexcept
    {
        std::swap(m_block, other.m_block);
        return *this;
    }
    // Gives up its share. The last one deletes the elements and frees the block.
    ~VxVector();

    [[nodiscard]] std::size_t size() const { return m_block == nullptr ? 0 : m_block->size; }
    // The elements; null when there are none. Valid until this vector is changed or destroyed.
    [[nodiscard]] const T* data() const { return m_block == nullptr ? nullptr : m_block->elements; }

    // Adds a copy of `element`, which may be one of this vector's. Vectors that share the block do
    // not see it: this one gets a block of its own first. Throws std::bad_alloc and what an element
    // throws; then nothing has changed.
    void append(const T& element);

private:
    struct Block
    {
        Counter count; // first: others find it by the block's address
        std::size_t size;
        std::size_t room;
        T* elements; // of new[]
    };
    static_assert(sizeof(Counter) == sizeof(std::int32_t));

    // A block for one vector, with copies of `size` elements in an array of `room`.
    [[nodiscard]] static Block* makeBlock(const T* elements, std::size_t size, std::size_t room)
    {
        // Not counted in the coverage: the compiler's branches out of here on an exception.
        // GCOVR_EXCL_BR_START
        std::unique_ptr<T[]> copies(new T[room]);
        std::copy_n(elements, size, copies.get());
        void* const memory = Allocator::allocate(sizeof(Block));
        // GCOVR_EXCL_BR_STOP
        return new (memory) Block{{}, size, room, copies.release()};
    }

    Block* m_block = nullptr;
};

template<typename T, typename Allocator, typename Counter, typename GrowPolicy>
VxVector<T, Allocator, Counter, GrowPolicy>::~VxVector()
{
    if (m_block == nullptr || !m_block->count.removeLast())
        return;
    // The operator's own test for null is not counted: there is an array.
    delete[] std::exchange(m_block->elements, nullptr); // GCOVR_EXCL_BR_LINE
    Allocator::release(std::exchange(m_block, nullptr));
}

template<typename T, typename Allocator, typename Counter, typename GrowPolicy>
void VxVector<T, Allocator, Counter, GrowPolicy>::append(const T& element)
{
    T copy(element); // its place may go
    const std::size_t count = size();
    const std::size_t room = m_block == nullptr ? 0 : m_block->room;
    if (count == room || m_block->count.isShared()) {
        VxVector larger;
        // As above. GCOVR_EXCL_BR_START
        larger.m_block =
            makeBlock(data(), count, count == room ? GrowPolicy::grow(room, count + 1) : room);
        // GCOVR_EXCL_BR_STOP
        std::swap(m_block, larger.m_block);
    }
    m_block->elements[count] = std::move(copy); // GCOVR_EXCL_BR_LINE: as above
    ++m_block->size;
}
