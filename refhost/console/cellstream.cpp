#include "refhost/console/cellstream.h"

#include "refhost/console/celltext.h"
#include "refhost/core/widetext.h"

#include <cerrno>
#include <poll.h>
#include <unistd.h>

namespace quelhost {

namespace {

// How many bytes of `utf8` are whole characters, given that at most its end is none.
std::size_t wholeCharacters(const std::string& utf8)
{
    constexpr std::size_t longestStart = 3;
    for (std::size_t back = 1; back <= longestStart && back <= utf8.size(); ++back) {
        const auto byte = static_cast<unsigned char>(utf8[utf8.size() - back]);
        const bool continues = (byte & 0xC0) == 0x80;
        if (continues)
            continue;
        const std::size_t length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : byte >= 0xC0 ? 2 : 1;
        return length > back ? utf8.size() - back : utf8.size();
    }
    return utf8.size();
}

void writeAll(int descriptor, const std::string& bytes)
{
    std::size_t written = 0;
    while (written < bytes.size()) {
        const ssize_t count = ::write(descriptor, bytes.data() + written, bytes.size() - written);
        if (count >= 0) {
            written += static_cast<std::size_t>(count);
        } else if (errno == EAGAIN) {
            pollfd request = {descriptor, POLLOUT, 0};
            ::poll(&request, 1, -1);
        } else if (errno != EINTR) {
            return;
        }
    }
}

} // namespace

CellStream::CellStream(int descriptor, const CellText& cells)
    : m_descriptor(descriptor)
    , m_cells(cells)
    , m_file(::fopencookie(this, "w", {nullptr, put, nullptr, nullptr}))
{}

ssize_t CellStream::put(void* stream, const char* bytes, std::size_t size)
{
    auto& self = *static_cast<CellStream*>(stream);
    self.m_rest.append(bytes, size);
    const std::size_t whole = wholeCharacters(self.m_rest);
    self.draw(self.m_rest.substr(0, whole));
    self.m_rest.erase(0, whole);
    return static_cast<ssize_t>(size);
}

void CellStream::draw(const std::string& utf8)
{
    writeAll(m_descriptor, toUtf8(m_cells.toScreen(fromUtf8(utf8))));
}

} // namespace quelhost
