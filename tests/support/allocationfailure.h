// Lets memory run out at a chosen moment.
//
// Reaches the calls of malloc in what is linked into the test binary (link option --wrap=malloc)
// and every plain operator new of the process; the rest of the process goes on.
#pragma once

#include <cstddef>
#include <cstdint>

namespace recording {

// While one lives, calls of malloc for at least that many bytes, and at most so many, give null.
class MallocFails
{
public:
    explicit MallocFails(std::size_t fromBytes, std::size_t toBytes = SIZE_MAX);
    ~MallocFails();
    MallocFails(const MallocFails&) = delete;
    MallocFails& operator=(const MallocFails&) = delete;

    // The size of the last request that failed, 0 for none.
    [[nodiscard]] std::size_t refused() const;
};

// The same, and operator new throws std::bad_alloc.
class MemoryExhausted
{
public:
    explicit MemoryExhausted(std::size_t fromBytes);
    ~MemoryExhausted();
    MemoryExhausted(const MemoryExhausted&) = delete;
    MemoryExhausted& operator=(const MemoryExhausted&) = delete;

private:
    MallocFails m_malloc;
};

} // namespace recording
