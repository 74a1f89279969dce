// What byte streams are to do, told over plain vectors of bytes and as simply as possible.
#pragma once

#include "tests/support/memorystore.h"
#include "tests/support/recordingstore.h"

#include <optional>

namespace streams {

// A stream: bytes, a position, and in what it is weaker than memory.
struct ModelStream
{
    char name = '?';
    Bytes bytes;
    unsigned long position = 0;
    unsigned long lengthLimit = 0;
    unsigned int readLimit = 0;
    unsigned int writeLimit = 0;
    std::set<int> refusedSeeks;
    int seeks = 0;
};

// One operation between two streams, which may be one and the same.
struct Step
{
    enum Kind { IsEos, Rewind, Seek, GetBytes, ReadBytes, WriteBytes, CopyFrom, CopyTo } kind;
    unsigned long first = 0; // an offset, a count or a bound
    unsigned long second = 0;
};

// What an operation gave. Nothing for an error, and for one without a result 0.
struct Outcome
{
    std::optional<unsigned long> result = 0;
    Bytes got;    // by getBytes
    Trace pieces; // the reads and writes
};

// Runs a step on `self` with `other`.
Outcome run(const Step& step, ModelStream& self, ModelStream& other);

} // namespace streams
