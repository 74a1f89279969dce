#include "refhost/console/terminallines.h"

#include <unistd.h>
#include <utility>

namespace quelhost {

namespace {

constexpr wchar_t kEscape = 0x1B;

bool isOnTerminal()
{
    return ::isatty(STDIN_FILENO) != 0 && ::isatty(STDOUT_FILENO) != 0;
}

std::unique_ptr<LineEditor> makeEditor()
{
    return isOnTerminal() ? LineEditor::open(STDIN_FILENO, STDOUT_FILENO) : nullptr;
}

} // namespace

TerminalLines::TerminalLines(const QString& historyFile, Output& output)
    : m_output(output)
    , m_history(historyFile)
    , m_guard(STDIN_FILENO)
    , m_editor(makeEditor())
    , m_reader(STDIN_FILENO)
    , m_terminalShows(isOnTerminal())
{
    if (!m_editor)
        return;
    for (const std::wstring& line : m_history.lines())
        m_editor->addToHistory(line);
}

Line TerminalLines::readLine(const LineRequest& request)
{
    if (m_ended)
        return {};
    m_output.startRow();
    Line line = m_editor ? readEdited(request) : readPlain(request);
    m_ended = line.kind == Line::Kind::End;
    if (line.kind == Line::Kind::Text && request.completion == Completion::Commands)
        keep(line.text);
    return line;
}

Line TerminalLines::readEdited(LineRequest request)
{
    // The editor draws a single row; what stands above it is written once.
    const std::size_t lastRow = request.prompt.rfind(L'\n') + 1;
    m_output.write(request.prompt.substr(0, lastRow));
    request.prompt.erase(0, lastRow);
    Line line = m_editor->read(request);
    if (line.kind == Line::Kind::End)
        m_output.write(L"\n");
    m_output.rowStarted();
    return line;
}

Line TerminalLines::readPlain(const LineRequest& request)
{
    m_output.write(request.prompt);
    LineReader::Read read = m_reader.read();
    if (read.outcome != LineReader::Outcome::Line) {
        m_output.startRow();
        const bool isEnd = read.outcome == LineReader::Outcome::End;
        return {isEnd ? Line::Kind::End : Line::Kind::Cancel, {}};
    }
    if (m_terminalShows)
        m_output.rowStarted();
    else
        m_output.write(read.text + L'\n');
    // Esc takes effect with Enter only, where the terminal hands over whole lines.
    if (!read.text.empty() && read.text.back() == kEscape)
        return {Line::Kind::Cancel, {}};
    return {Line::Kind::Text, std::move(read.text)};
}

void TerminalLines::keep(const std::wstring& line)
{
    if (m_history.add(line) && m_editor)
        m_editor->addToHistory(m_history.lines().back());
}

} // namespace quelhost
