// What the stores of tests and benchmarks have in common: a position, and single bytes as reads and
// writes of one.
#pragma once

#include "stream/vxstreambuf.h"

namespace streams {

class Store : public VxStreamBuf
{
public:
    unsigned long position() const override { return m_position; }

    // Any position can be gone to, also past the end; one before the start is refused.
    unsigned long seek(long offset, int origin) override
    {
        const unsigned long base = origin == kFromStart     ? 0
                                   : origin == kFromCurrent ? m_position
                                                            : length();
        const unsigned long distance = static_cast<unsigned long>(offset);
        const bool isBeforeStart = origin != kFromStart && offset < 0 && base < 0 - distance;
        if (!isBeforeStart)
            m_position = base + distance;
        return m_position;
    }

    int readByte() override
    {
        unsigned char byte = 0;
        return read(&byte, 1) == 1 ? byte : -1;
    }

    bool writeByte(unsigned char byte) override { return write(&byte, 1) == 1; }

    bool flush() override { return true; }

protected:
    unsigned long m_position = 0;
};

} // namespace streams
