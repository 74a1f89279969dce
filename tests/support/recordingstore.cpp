#include "tests/support/recordingstore.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace streams {

bool operator==(const Call& one, const Call& other)
{
    return one.store == other.store && one.operation == other.operation &&
           one.argument == other.argument && one.result == other.result;
}

std::vector<std::string> lines(const Trace& trace)
{
    const std::array<const char*, 5> names{"position", "length", "seek", "read", "write"};
    std::vector<std::string> result;
    for (const Call& call : trace) {
        const bool asks = call.operation == Call::Position || call.operation == Call::Length;
        const std::string arguments = asks ? "" : "(" + std::to_string(call.argument) + ")";
        const bool refused = call.operation == Call::Seek && call.result != call.argument;
        result.push_back(std::string(1, call.store) + "." + names[call.operation] + arguments +
                         " -> " + (refused ? "refused" : std::to_string(call.result)));
    }
    return result;
}

RecordingStore::RecordingStore(char name, VxStreamBuf& inner, Trace& trace)
    : m_name(name)
    , m_inner(inner)
    , m_trace(trace)
{}

unsigned long RecordingStore::noted(Call::Operation operation, unsigned long argument,
                                    unsigned long result) const
{
    m_trace.push_back({m_name, operation, argument, result});
    return result;
}

unsigned long RecordingStore::position() const
{
    return noted(Call::Position, 0, m_inner.position());
}

unsigned long RecordingStore::length() const
{
    return noted(Call::Length, 0, m_inner.length());
}

unsigned long RecordingStore::seek(long offset, int origin)
{
    otherSeeks += origin == kFromStart ? 0 : 1;
    const bool refused = refusedSeeks.count(++m_seeks) > 0;
    return noted(Call::Seek, static_cast<unsigned long>(offset),
                 refused ? refusal : m_inner.seek(offset, origin));
}

int RecordingStore::readByte()
{
    return m_inner.readByte();
}

bool RecordingStore::writeByte(unsigned char byte)
{
    return m_inner.writeByte(byte);
}

unsigned int RecordingStore::read(void* buffer, unsigned int count)
{
    readBuffers.push_back(buffer);
    if (static_cast<int>(readBuffers.size()) == throwingRead)
        throw std::runtime_error("read");
    const unsigned int moved = m_inner.read(buffer, std::min(count, readLimit));
    noted(Call::Read, count, moved);
    return moved;
}

unsigned int RecordingStore::write(const void* buffer, unsigned int count)
{
    writeBuffers.push_back(buffer);
    if (static_cast<int>(writeBuffers.size()) == throwingWrite)
        throw std::runtime_error("write");
    const unsigned int moved = m_inner.write(buffer, std::min(count, writeLimit));
    noted(Call::Write, count, moved);
    return moved;
}

bool RecordingStore::flush()
{
    return m_inner.flush();
}

} // namespace streams
