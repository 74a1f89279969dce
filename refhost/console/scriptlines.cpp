#include "refhost/console/scriptlines.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <utility>

namespace quelhost {

namespace {

constexpr std::wstring_view kBlanks = L" \t";

std::wstring_view trimmed(std::wstring_view text)
{
    const std::size_t start = text.find_first_not_of(kBlanks);
    if (start == text.npos)
        return {};
    return text.substr(start, text.find_last_not_of(kBlanks) - start + 1);
}

bool isRemark(std::wstring_view line)
{
    const std::wstring_view content = trimmed(line);
    return content.empty() || content.front() == L';';
}

bool isFolder(int descriptor)
{
    struct stat information = {};
    return ::fstat(descriptor, &information) == 0 && S_ISDIR(information.st_mode);
}

Fault scriptFault(FaultKind kind, const QString& sentence)
{
    return Fault{kind, sentence, {}, 0, 0};
}

Fault openFault(const QString& path, int error)
{
    if (error == ENOENT || error == ENOTDIR)
        return scriptFault(FaultKind::NotFound, qtTrId("console-script-missing").arg(path));
    const FaultKind kind = error == EACCES ? FaultKind::NotPermitted : FaultKind::Io;
    return scriptFault(kind, qtTrId("console-script-unreadable").arg(path, qt_error_string(error)));
}

} // namespace

ScriptLines::ScriptLines(int descriptor, bool isScript, Output& output)
    : m_reader(descriptor)
    , m_isScript(isScript)
    , m_terminalShows(::isatty(descriptor) != 0 && ::isatty(STDOUT_FILENO) != 0)
    , m_output(output)
{}

ScriptLines::ScriptLines(FileDescriptor file, bool isScript, Output& output)
    : m_file(std::move(file))
    , m_reader(m_file.number())
    , m_isScript(isScript)
    , m_terminalShows(::isatty(m_file.number()) != 0 && ::isatty(STDOUT_FILENO) != 0)
    , m_output(output)
{}

Line ScriptLines::readLine(const LineRequest& request)
{
    if (m_ended)
        return {};
    m_output.startRow();
    m_output.write(request.prompt, TextKind::Answer);
    LineReader::Read read = readShownLine(request.remarksAllowed && m_isScript);
    switch (read.outcome) {
    case LineReader::Outcome::End:
        m_ended = true;
        m_output.startRow();
        return {};
    case LineReader::Outcome::Interrupted:
        m_output.startRow();
        return {Line::Kind::Cancel, {}};
    case LineReader::Outcome::Line:
        break;
    }
    if (trimmed(read.text) == L"^C")
        return {Line::Kind::Cancel, {}};
    return {Line::Kind::Text, std::move(read.text)};
}

LineReader::Read ScriptLines::readShownLine(bool passOverRemarks)
{
    LineReader::Read read = m_reader.read();
    while (passOverRemarks && read.outcome == LineReader::Outcome::Line && isRemark(read.text))
        read = m_reader.read();
    if (read.outcome == LineReader::Outcome::Line)
        show(read.text);
    return read;
}

void ScriptLines::show(const std::wstring& text)
{
    if (m_terminalShows)
        m_output.rowStarted();
    else
        m_output.write(text + L'\n', TextKind::Answer);
}

Result<std::unique_ptr<LineSource>> openScript(const QString& path, Output& output, bool isScript)
{
    if (path == QLatin1String("-"))
        return std::unique_ptr<LineSource>(
            std::make_unique<ScriptLines>(STDIN_FILENO, isScript, output));
    FileDescriptor file(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC));
    if (!file.isOpen())
        return openFault(path, errno);
    if (isFolder(file.number()))
        return scriptFault(FaultKind::BadInput, qtTrId("console-script-folder").arg(path));
    return std::unique_ptr<LineSource>(
        std::make_unique<ScriptLines>(std::move(file), isScript, output));
}

} // namespace quelhost
