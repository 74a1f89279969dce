// An open file of the system, closed when its owner goes.
#pragma once

#include <unistd.h>

#include <utility>

namespace quelhost {

class FileDescriptor
{
public:
    // Takes over `number`, as open() returned it; a negative one stands for no file.
    explicit FileDescriptor(int number = -1)
        : m_number(number)
    {}
    FileDescriptor(FileDescriptor&& other) noexcept
        : m_number(std::exchange(other.m_number, -1))
    {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }
    ~FileDescriptor()
    {
        if (m_number >= 0)
            ::close(m_number);
    }

    [[nodiscard]] bool isOpen() const { return m_number >= 0; }
    [[nodiscard]] int number() const { return m_number; }

private:
    int m_number;
};

} // namespace quelhost
