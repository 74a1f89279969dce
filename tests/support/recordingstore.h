// A byte stream that notes what is asked of it and does it, or not, as a test says.
#pragma once

#include "tests/support/streamstore.h"

#include <limits>
#include <set>
#include <string>
#include <vector>

namespace streams {

// One operation of the five that the defaults are made of.
struct Call
{
    char store;
    enum Operation { Position, Length, Seek, Read, Write } operation;
    unsigned long argument; // an offset or a count
    unsigned long result;
};
bool operator==(const Call& one, const Call& other);

using Trace = std::vector<Call>;

// As text, for example
//
//     A.position -> 3        A.length -> 10        A.seek(3) -> 3        A.seek(9) -> refused
//     A.read(1024) -> 7      B.write(1024) -> 1024
std::vector<std::string> lines(const Trace& trace);

// Hands everything on to another store. Several may note into one trace.
class RecordingStore final : public VxStreamBuf
{
public:
    static constexpr unsigned long kRefused = std::numeric_limits<unsigned long>::max();

    // `inner` and `trace` are borrowed.
    RecordingStore(char name, VxStreamBuf& inner, Trace& trace);

    // The most bytes that one read or write moves.
    unsigned int readLimit = std::numeric_limits<unsigned int>::max();
    unsigned int writeLimit = std::numeric_limits<unsigned int>::max();
    // The seeks, counted from 1, that stay where they are, and what they return.
    std::set<int> refusedSeeks;
    unsigned long refusal = kRefused;
    // The read and the write, counted from 1, that throws std::runtime_error; 0 for none.
    int throwingRead = 0;
    int throwingWrite = 0;
    // Seeks from elsewhere than the start.
    int otherSeeks = 0;
    // Where each read went to and each write came from.
    std::vector<const void*> readBuffers;
    std::vector<const void*> writeBuffers;

    unsigned long position() const override;
    unsigned long length() const override;
    unsigned long seek(long offset, int origin) override;
    int readByte() override;
    bool writeByte(unsigned char byte) override;
    unsigned int read(void* buffer, unsigned int count) override;
    unsigned int write(const void* buffer, unsigned int count) override;
    bool flush() override;

private:
    unsigned long noted(Call::Operation operation, unsigned long argument,
                        unsigned long result) const;

    char m_name;
    VxStreamBuf& m_inner;
    Trace& m_trace;
    int m_seeks = 0;
};

} // namespace streams
