// Any bytes as the file of the lines that were typed.
#include "fuzz/support/broken.h"
#include "fuzz/support/hosttexts.h"

#include "refhost/core/linehistory.h"
#include "refhost/core/widetext.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

#include <sys/mman.h>
#include <unistd.h>

using fuzzing::mustHold;
using quelhost::LineHistory;

namespace {

using Lines = std::deque<std::wstring>;

// A file in memory: the history is read from a path.
class MemoryFile
{
public:
    [[nodiscard]] QString path() const { return QStringLiteral("/proc/self/fd/%1").arg(m_file); }

    void fill(std::string_view bytes) const
    {
        const bool isFilled =
            ::ftruncate(m_file, 0) == 0 &&
            ::pwrite(m_file, bytes.data(), bytes.size(), 0) == static_cast<ssize_t>(bytes.size());
        mustHold(isFilled, "there is memory for the file");
    }

private:
    const int m_file = ::memfd_create("history", MFD_CLOEXEC);
};

Lines linesOf(std::string_view bytes)
{
    static const MemoryFile file;
    file.fill(bytes);
    LineHistory history(file.path());
    mustHold(history.takeProblem().isEmpty(), "a file that can be read is no problem");
    return history.lines();
}

void checkLine(const std::wstring& line)
{
    mustHold(!line.empty() && line.size() <= LineHistory::kLongestLine,
             "a line has characters, and not too many");
    mustHold(line.find(L'\n') == line.npos, "a line is one line");
    mustHold(line.back() != L' ' && line.back() != L'\t', "a line ends with no blanks");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    return fuzzing::installTexts(*argc, *argv) ? 0 : 1;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const Lines lines = linesOf(bytes);
    mustHold(lines.size() <= LineHistory::kMostLines, "no more lines are kept than there may be");
    mustHold(static_cast<std::ptrdiff_t>(lines.size()) <=
                 std::count(bytes.begin(), bytes.end(), '\n') + 1,
             "no line comes from nowhere");
    std::string written;
    for (const std::wstring& line : lines) {
        checkLine(line);
        written += quelhost::toUtf8(line) + '\n';
    }
    mustHold(linesOf(written) == lines, "the lines that were read are read again");
    return 0;
}
