// What a fuzzer does when something that must hold does not.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace fuzzing {

// Ends the process with the sentence unless it holds: the fuzzer then keeps the input.
inline void mustHold(bool holds, const char* sentence)
{
    if (holds)
        return;
    std::fprintf(stderr, "This must hold and does not: %s\n", sentence);
    std::abort();
}

} // namespace fuzzing
