// A byte stream in memory.
#pragma once

#include "tests/support/streamstore.h"

#include <limits>
#include <vector>

namespace streams {

using Bytes = std::vector<unsigned char>;

// It reads what there is and grows by what is written. A write past the end fills the gap with
// zeros. It never becomes longer than `limit`: writes are short there.
class MemoryStore final : public Store
{
public:
    explicit MemoryStore(Bytes bytes = {},
                         unsigned long limit = std::numeric_limits<unsigned long>::max());

    [[nodiscard]] const Bytes& bytes() const { return m_bytes; }

    unsigned long length() const override { return m_bytes.size(); }
    void setlength(unsigned long length) override;
    void truncate() override;
    unsigned int read(void* buffer, unsigned int count) override;
    unsigned int write(const void* buffer, unsigned int count) override;

private:
    Bytes m_bytes;
    unsigned long m_limit;
};

} // namespace streams
