// VxStreamBufPos: a remembered place in a byte stream buffer.
#pragma once

#include <cstdint>

class VxStreamBuf;

// Two pointer-sized fields and nothing else, so that it is passed and returned in registers. It
// owns nothing and is copied freely.
struct VxStreamBufPos
{
    // What the store makes of it: an offset, an address, an index. 0 in a store that gives its
    // places no reference of their own. Only the store that made it can tell what it means.
    std::uintptr_t reference = 0;

    // The buffer that the place belongs to; borrowed, and not to be used when that buffer is gone.
    // Null for a place that belongs to none.
    const VxStreamBuf* buffer = nullptr;
};
