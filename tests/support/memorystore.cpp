#include "tests/support/memorystore.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace streams {

MemoryStore::MemoryStore(Bytes bytes, unsigned long limit)
    : m_bytes(std::move(bytes))
    , m_limit(limit)
{}

void MemoryStore::setlength(unsigned long length)
{
    m_bytes.resize(std::min(length, m_limit));
}

void MemoryStore::truncate()
{
    m_bytes.resize(std::min<unsigned long>(m_bytes.size(), m_position));
}

unsigned int MemoryStore::read(void* buffer, unsigned int count)
{
    if (count == 0 || m_position >= m_bytes.size())
        return 0;
    const unsigned long moved = std::min<unsigned long>(count, m_bytes.size() - m_position);
    std::memcpy(buffer, m_bytes.data() + m_position, moved);
    m_position += moved;
    return static_cast<unsigned int>(moved);
}

unsigned int MemoryStore::write(const void* buffer, unsigned int count)
{
    if (count == 0 || m_position >= m_limit)
        return 0;
    const unsigned long moved = std::min<unsigned long>(count, m_limit - m_position);
    if (m_position + moved > m_bytes.size())
        m_bytes.resize(m_position + moved);
    std::memcpy(m_bytes.data() + m_position, buffer, moved);
    m_position += moved;
    return static_cast<unsigned int>(moved);
}

} // namespace streams
