// A pipe for tests that feed what reads a descriptor.
#pragma once

#include "refhost/core/filedescriptor.h"

#include <fcntl.h>
#include <string>
#include <sys/ioctl.h>
#include <thread>
#include <unistd.h>

class Pipe
{
public:
    Pipe()
    {
        int ends[2] = {-1, -1};
        if (::pipe2(ends, O_CLOEXEC) == 0) {
            m_output = quelhost::FileDescriptor(ends[0]);
            m_input = quelhost::FileDescriptor(ends[1]);
        }
    }
    // Begins with `content` written and nothing more to come.
    explicit Pipe(const std::string& content)
        : Pipe()
    {
        write(content);
        closeInput();
    }

    [[nodiscard]] int output() const { return m_output.number(); } // to read from
    [[nodiscard]] int input() const { return m_input.number(); }   // to write to

    // Writes all of `bytes`; waits while the pipe is full.
    void write(const std::string& bytes) const
    {
        std::size_t written = 0;
        while (written < bytes.size()) {
            const ssize_t count = ::write(input(), bytes.data() + written, bytes.size() - written);
            if (count <= 0)
                return;
            written += static_cast<std::size_t>(count);
        }
    }
    void closeInput() { m_input = quelhost::FileDescriptor(); }
    void closeOutput() { m_output = quelhost::FileDescriptor(); }

    // Waits until all that was written has been read.
    void waitUntilRead() const
    {
        int waiting = 1;
        while (::ioctl(output(), FIONREAD, &waiting) == 0 && waiting > 0)
            std::this_thread::yield();
    }

    // Reads until `text` has come or the input is closed; returns all that has come.
    [[nodiscard]] std::string readUntil(const std::string& text) const
    {
        std::string all;
        char byte = 0;
        while (all.find(text) == all.npos && ::read(output(), &byte, 1) == 1)
            all += byte;
        return all;
    }

    // What is left to read once the input is closed.
    [[nodiscard]] std::string rest() const
    {
        std::string all;
        char byte = 0;
        while (::read(output(), &byte, 1) == 1)
            all += byte;
        return all;
    }

private:
    quelhost::FileDescriptor m_output;
    quelhost::FileDescriptor m_input;
};
