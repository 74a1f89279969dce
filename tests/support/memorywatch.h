// Counts what the code under test allocates, refuses what a test says, and finds what it leaves
// behind.
//
// Replaces malloc and its kin and every form of operator new of the whole program, for the
// libraries in it too: the toolkit, the standard library and modules that are loaded. With the
// address sanitizer as well, which then checks the blocks as usual. What counts is what the
// watching thread asks for inside run(), but for the recording host's own code
// (tests/support/hostcode.h).
#pragma once

#include "tests/support/hostcode.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace recording {

// Which requests are refused: null from malloc and its kin, std::bad_alloc from operator new.
// Requests count from 1.
struct Refusal
{
    int first = 0; // 0: none
    int last = 0;
    // Besides, any request of that many bytes.
    std::size_t smallest = SIZE_MAX;
    std::size_t largest = SIZE_MAX;

    static Refusal one(int request) { return {request, request}; }
    static Refusal from(int request) { return {request, INT32_MAX}; }
    static Refusal ofSize(std::size_t bytes) { return {0, 0, bytes, bytes}; }
    static Refusal ofAtLeast(std::size_t bytes) { return {0, 0, bytes, SIZE_MAX}; }
};

// One at a time.
class MemoryWatch
{
public:
    explicit MemoryWatch(Refusal refusal = {});
    ~MemoryWatch();
    MemoryWatch(const MemoryWatch&) = delete;
    MemoryWatch& operator=(const MemoryWatch&) = delete;

    // Runs `code` with its allocations counted and refused; an exception passes.
    template<typename Code>
    auto run(const Code& code)
    {
        const Running running;
        const CalledCode there;
        return code();
    }

    [[nodiscard]] int requests() const;
    [[nodiscard]] std::size_t bytes() const; // of all requests
    [[nodiscard]] int refused() const;
    // What was allocated inside run() and has not been freed, here or outside: a line for each
    // block with its number among the requests and its size.
    [[nodiscard]] std::vector<std::string> live() const;

private:
    class Running
    {
    public:
        Running();
        ~Running();
        Running(const Running&) = delete;
        Running& operator=(const Running&) = delete;
    };
};

} // namespace recording
