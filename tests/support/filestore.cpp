#include "tests/support/filestore.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace streams {

namespace {

[[noreturn]] void raise(const std::string& what)
{
    throw std::system_error(errno, std::generic_category(), what);
}

} // namespace

FileStore::FileStore(const std::string& path, Access access)
    : m_file(open(path.c_str(), (access == Access::Read ? O_RDONLY : O_RDWR | O_CREAT) | O_CLOEXEC,
                  0600))
{
    if (m_file < 0)
        raise("cannot open " + path);
}

FileStore::~FileStore()
{
    close(m_file);
}

std::vector<unsigned char> FileStore::bytes() const
{
    std::vector<unsigned char> all(length());
    const ssize_t got = pread(m_file, all.data(), all.size(), 0);
    if (got < 0 || static_cast<unsigned long>(got) != all.size())
        raise("cannot read all");
    return all;
}

unsigned long FileStore::length() const
{
    struct stat status = {};
    if (fstat(m_file, &status) != 0)
        raise("cannot tell the length");
    return static_cast<unsigned long>(status.st_size);
}

void FileStore::setlength(unsigned long length)
{
    if (ftruncate(m_file, static_cast<off_t>(length)) != 0)
        raise("cannot set the length");
}

void FileStore::truncate()
{
    if (m_position < length())
        setlength(m_position);
}

unsigned int FileStore::read(void* buffer, unsigned int count)
{
    return moved(pread(m_file, buffer, count, static_cast<off_t>(m_position)));
}

unsigned int FileStore::write(const void* buffer, unsigned int count)
{
    return moved(pwrite(m_file, buffer, count, static_cast<off_t>(m_position)));
}

bool FileStore::flush()
{
    return fsync(m_file) == 0;
}

unsigned int FileStore::moved(long bytes)
{
    if (bytes <= 0)
        return 0;
    m_position += static_cast<unsigned long>(bytes);
    return static_cast<unsigned int>(bytes);
}

} // namespace streams
