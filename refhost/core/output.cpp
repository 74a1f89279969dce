#include "refhost/core/output.h"

#include "refhost/core/widetext.h"

#include <cerrno>
#include <poll.h>
#include <unistd.h>

namespace quelhost {

namespace {

// Whether the descriptor takes more after all. One that does not wait by itself may belong to a
// terminal that another program has left so.
bool waitUntilWritable(int descriptor)
{
    struct pollfd wanted = {descriptor, POLLOUT, 0};
    return ::poll(&wanted, 1, -1) >= 0 || errno == EINTR;
}

} // namespace

void Output::write(std::wstring_view text, TextKind kind)
{
    if (text.empty())
        return;
    m_kind = kind;
    put(toUtf8(text));
    const std::size_t newline = text.rfind(L'\n');
    m_column = newline == text.npos ? m_column + text.size() : text.size() - newline - 1;
}

void Output::startRow()
{
    if (m_column > 0)
        write(L"\n");
}

void Output::writeRow(std::wstring_view text, TextKind kind)
{
    startRow();
    write(text, kind);
    startRow();
}

void DescriptorOutput::put(const std::string& utf8)
{
    std::size_t written = 0;
    while (written < utf8.size()) {
        const ssize_t count = ::write(m_descriptor, utf8.data() + written, utf8.size() - written);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0 && errno == EAGAIN && waitUntilWritable(m_descriptor))
            continue;
        if (count <= 0)
            return;
        written += static_cast<std::size_t>(count);
    }
}

} // namespace quelhost
