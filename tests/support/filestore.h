// A byte stream over a file.
#pragma once

#include "tests/support/streamstore.h"

#include <string>
#include <vector>

namespace streams {

// Each read and write is one of the system's: it may be short at the end of the file, where the
// disk is full, and where the file may not grow. One that fails moves nothing. Files may be longer
// than 4 GiB and have holes.
class FileStore final : public Store
{
public:
    enum class Access { Read, ReadAndWrite };

    // Opens the file; with write access, it is made when there is none. Throws std::system_error.
    explicit FileStore(const std::string& path, Access access = Access::ReadAndWrite);
    ~FileStore() override;

    // All of the file; the position stays.
    [[nodiscard]] std::vector<unsigned char> bytes() const;

    unsigned long length() const override;
    void setlength(unsigned long length) override;
    void truncate() override;
    unsigned int read(void* buffer, unsigned int count) override;
    unsigned int write(const void* buffer, unsigned int count) override;
    // Hands the file to the disk.
    bool flush() override;

private:
    // Moves on by the bytes that the system moved.
    unsigned int moved(long bytes);

    int m_file;
};

} // namespace streams
