// A file that is removed again.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>
#include <system_error>

namespace streams {

// Empty at first, in the folder for temporary files.
class TemporaryFile
{
public:
    TemporaryFile()
    {
        const char* const folder = std::getenv("TMPDIR");
        m_path = std::string(folder == nullptr ? "/tmp" : folder) + "/stream-XXXXXX";
        const int file = mkstemp(m_path.data());
        if (file < 0)
            throw std::system_error(errno, std::generic_category(), "cannot make " + m_path);
        close(file);
    }
    ~TemporaryFile() { unlink(m_path.c_str()); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    [[nodiscard]] const std::string& path() const { return m_path; }

private:
    std::string m_path;
};

} // namespace streams
