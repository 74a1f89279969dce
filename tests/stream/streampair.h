// Two recorded stores in memory, A and B, and what tests compare them with.
#pragma once

#include "tests/support/memorystore.h"
#include "tests/support/recordingstore.h"

#include <string>
#include <vector>

namespace streams {

using Lines = std::vector<std::string>;

// `size` bytes of which no two neighbours are alike and no period is a power of two.
inline Bytes pattern(unsigned long size, unsigned int start = 1)
{
    Bytes bytes(size);
    for (unsigned long i = 0; i < size; ++i)
        bytes[i] = static_cast<unsigned char>(start + i % 251);
    return bytes;
}

// The bytes from `start` to before `end`.
inline Bytes part(const Bytes& bytes, unsigned long start, unsigned long end)
{
    return Bytes(bytes.begin() + static_cast<std::ptrdiff_t>(start),
                 bytes.begin() + static_cast<std::ptrdiff_t>(end));
}

struct StreamPair
{
    // The stores are at these positions, and nothing is noted yet.
    StreamPair(Bytes bytesOfA, unsigned long positionOfA, Bytes bytesOfB, unsigned long positionOfB)
        : storeA(std::move(bytesOfA))
        , storeB(std::move(bytesOfB))
    {
        storeA.seek(static_cast<long>(positionOfA), VxStreamBuf::kFromStart);
        storeB.seek(static_cast<long>(positionOfB), VxStreamBuf::kFromStart);
    }

    // The noted operations, or those of one kind.
    [[nodiscard]] Lines calls() const { return lines(trace); }
    [[nodiscard]] Lines calls(std::initializer_list<Call::Operation> operations) const
    {
        Trace chosen;
        for (const Call& call : trace) {
            for (const Call::Operation operation : operations) {
                if (call.operation == operation)
                    chosen.push_back(call);
            }
        }
        return lines(chosen);
    }
    [[nodiscard]] Lines pieces() const { return calls({Call::Read, Call::Write}); }

    MemoryStore storeA;
    MemoryStore storeB;
    Trace trace;
    RecordingStore a{'A', storeA, trace};
    RecordingStore b{'B', storeB, trace};
};

// Reads from one store and writes to the other in pieces of at most `room`, `count` bytes in all.
inline Lines piecesOf(char from, char to, unsigned long count, unsigned long room)
{
    Trace trace;
    for (unsigned long done = 0; done < count;) {
        const unsigned long piece = count - done < room ? count - done : room;
        trace.push_back({from, Call::Read, piece, piece});
        trace.push_back({to, Call::Write, piece, piece});
        done += piece;
    }
    return lines(trace);
}

} // namespace streams
