#include "refhost/window/windowlines.h"

#include "refhost/core/widetext.h"

#include <QCoreApplication>
#include <QCoreApplication>
#include <QEventLoop>

#include <utility>

namespace quelhost {

namespace {

constexpr int kMostLength = 16 * 1024 * 1024; // characters that wait to be shown

} // namespace

WindowLines::WindowLines(CommandLine& commandLine, Output& output)
    : m_commandLine(commandLine)
    , m_output(output)
{
    connect(&commandLine, &CommandLine::lineEntered, this, [this](const QString& line) {
        add({Typed::Kind::ByHand, {Line::Kind::Text, toWide(line)}});
    });
    connect(&commandLine, &CommandLine::cancelled, this, &WindowLines::cancel);
}

// The last row of the prompt stands beside the line; what comes before it is to be read meanwhile.
Line WindowLines::readLine(const LineRequest& request)
{
    if (m_ended)
        return {};
    tellHistoryProblem();
    const std::size_t lastRow = request.prompt.rfind(L'\n') + 1;
    m_output.write(request.prompt.substr(0, lastRow));
    Line line = nextLine(request);
    m_output.startRow();
    if (line.kind != Line::Kind::End)
        m_output.writeRow(request.prompt.substr(lastRow) + line.text, TextKind::Answer);
    tellHistoryProblem();
    return line;
}

Line WindowLines::nextLine(const LineRequest& request)
{
    const bool forCommand = request.completion == Completion::Commands;
    while (!m_ended) {
        if (forCommand && !m_jobs.empty()) {
            runJob();
        } else if (m_typed.empty()) {
            wait(request);
        } else if (m_typed.front().kind != Typed::Kind::LetEnd) {
            // Many rows may have been pasted: the user can still stop them.
            QCoreApplication::processEvents();
            if (m_typed.empty() || m_ended)
                continue;
            const Typed typed = std::move(m_typed.front());
            m_typed.pop_front();
            if (forCommand && typed.kind == Typed::Kind::ByHand)
                m_commandLine.remember(typed.line.text);
            return typed.line;
        } else if (forCommand) {
            m_typed.pop_front(); // no command is asking any more
        } else {
            m_commandLine.dropLine();
            return {Line::Kind::Cancel, {}};
        }
    }
    return {};
}

// Until something is typed, there is a job, or the window is closed.
void WindowLines::wait(const LineRequest& request)
{
    QEventLoop loop;
    m_loop = &loop;
    m_forCommand = request.completion == Completion::Commands;
    m_output.flush();
    m_commandLine.ask(request);
    emit waiting(m_forCommand);
    loop.exec();
    m_loop = nullptr;
    m_commandLine.endPrompt();
}

// It may ask in its turn, which finds it gone from the list.
void WindowLines::runJob()
{
    const std::function<void()> job = std::move(m_jobs.front());
    m_jobs.pop_front();
    job();
}

void WindowLines::tellHistoryProblem()
{
    const QString problem = m_commandLine.takeHistoryProblem();
    if (!problem.isEmpty())
        m_output.writeRow(toWide(problem));
}

void WindowLines::type(const std::vector<MacroStep>& macro)
{
    std::wstring line;
    for (const MacroStep& step : macro) {
        switch (step.kind) {
        case MacroStep::Kind::Type:
            line += toWide(step.text);
            break;
        case MacroStep::Kind::Cancel:
            line.clear();
            add({Typed::Kind::LetEnd, {}});
            break;
        case MacroStep::Kind::Enter:
            add({Typed::Kind::ByItem, {Line::Kind::Text, std::exchange(line, {})}});
            break;
        }
    }
}

bool WindowLines::runAtCommandPrompt(std::function<void()> job)
{
    if (m_loop == nullptr || !m_forCommand || m_ended)
        return false;
    m_jobs.push_back(std::move(job));
    wake();
    return true;
}

void WindowLines::cancel()
{
    m_typed.clear();
    m_commandLine.dropLine();
    if (m_loop != nullptr)
        add({Typed::Kind::ByHand, {Line::Kind::Cancel, {}}});
}

void WindowLines::end()
{
    m_ended = true;
    m_typed.clear();
    m_jobs.clear();
    wake();
}

void WindowLines::add(Typed typed)
{
    m_typed.push_back(std::move(typed));
    wake();
}

void WindowLines::wake()
{
    if (m_loop != nullptr)
        m_loop->quit();
}

WindowOutput::WindowOutput(CommandLine& commandLine)
    : m_commandLine(commandLine)
{
    m_flush.setSingleShot(true);
    m_flush.callOnTimeout([this] { flush(); });
}

void WindowOutput::flush()
{
    m_flush.stop();
    m_length = 0;
    for (const Piece& piece : std::exchange(m_pieces, {}))
        m_commandLine.append(piece.text, piece.kind);
}

void WindowOutput::put(const std::string& utf8)
{
    if (m_pieces.empty() || m_pieces.back().kind != kind())
        m_pieces.push_back({{}, kind()});
    const QString text = toQString(fromUtf8(utf8));
    m_pieces.back().text += text;
    m_length += text.size();
    if (!m_flush.isActive())
        m_flush.start(0);
    const bool isTime = !m_painted.isValid() || m_painted.elapsed() >= kPaintMs;
    if (isTime || m_length > kMostLength)
        flush();
    if (isTime)
        letPaint();
}

// What is done meanwhile may write in its turn, but does not paint again.
void WindowOutput::letPaint()
{
    if (m_isPainting)
        return;
    m_isPainting = true;
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    m_isPainting = false;
    m_painted.start();
}

} // namespace quelhost
