#include "refhost/console/linereader.h"

#include "refhost/console/consolesignals.h"
#include "refhost/core/widetext.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace quelhost {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool isRegularFile(int descriptor)
{
    struct stat information = {};
    return ::fstat(descriptor, &information) == 0 && S_ISREG(information.st_mode);
}

// Waiting for something to read would never end otherwise.
bool canBeRead(int descriptor)
{
    const int flags = ::fcntl(descriptor, F_GETFL);
    return flags != -1 && (flags & O_ACCMODE) != O_WRONLY;
}

} // namespace

LineReader::LineReader(int descriptor)
    : m_descriptor(descriptor)
    , m_mayBlock(!isRegularFile(descriptor))
    , m_ended(!canBeRead(descriptor))
{}

LineReader::Read LineReader::read()
{
    char byte = 0;
    while (!m_ended) {
        switch (readByte(byte)) {
        case Byte::Interrupted:
            return {Outcome::Interrupted, {}};
        case Byte::Error:
            return end(false);
        case Byte::End:
            return end(true);
        case Byte::Read:
            if (byte == '\n')
                return {Outcome::Line, takeLine()};
            ++m_length;
            if (m_line.size() < kLongestLine)
                m_line += byte;
        }
    }
    return {};
}

LineReader::Byte LineReader::readByte(char& byte) const
{
    for (;;) {
        if (m_mayBlock) {
            // An input that never pauses must not keep the user from interrupting it.
            const bool isInterrupted = takeInterrupt();
            if (isInterrupted)
                return Byte::Interrupted;
            if (waitForInput(m_descriptor, -1) == InputState::Signalled) {
                static_cast<void>(takeResize());
                static_cast<void>(takeContinue());
                continue;
            }
        }
        const ssize_t count = ::read(m_descriptor, &byte, 1);
        if (count == 1)
            return Byte::Read;
        if (count == 0)
            return Byte::End;
        if (errno != EINTR && errno != EAGAIN)
            return Byte::Error;
    }
}

// A line that a read error cut short is no line: half a command must not run.
LineReader::Read LineReader::end(bool withRest)
{
    m_ended = true;
    if (!withRest || m_length == 0)
        return {};
    return {Outcome::Line, takeLine()};
}

std::wstring LineReader::takeLine()
{
    std::string_view line = m_line;
    const bool isWhole = m_length == line.size();
    if (isWhole && !line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    if (m_atStart && line.substr(0, kByteOrderMark.size()) == kByteOrderMark)
        line.remove_prefix(kByteOrderMark.size());
    std::wstring text = lenientText(line);
    m_atStart = false;
    m_length = 0;
    m_line.clear();
    return text;
}

} // namespace quelhost
