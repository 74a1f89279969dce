// Counts what a piece of code asks of operator new. Replaces the operators of the whole program.
#pragma once

#include <cstddef>

namespace recording {

// The requests since it was made. One at a time.
class AllocationCount
{
public:
    AllocationCount();
    ~AllocationCount();
    AllocationCount(const AllocationCount&) = delete;
    AllocationCount& operator=(const AllocationCount&) = delete;

    [[nodiscard]] std::size_t requests() const;
    [[nodiscard]] std::size_t bytes() const;
    [[nodiscard]] std::size_t releases() const;
};

// While one lives, operator new throws std::bad_alloc for requests of at least that many bytes.
class NewFails
{
public:
    explicit NewFails(std::size_t fromBytes);
    ~NewFails();
    NewFails(const NewFails&) = delete;
    NewFails& operator=(const NewFails&) = delete;
};

} // namespace recording
