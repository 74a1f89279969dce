#include "refhost/window/windowlines.h"

#include "refhost/core/widetext.h"

#include <QEventLoop>

#include <utility>

namespace quelhost {

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
    const std::size_t lastRow = request.prompt.rfind(L'\n') + 1;
    m_output.write(request.prompt.substr(0, lastRow));
    Line line = nextLine(request);
    m_output.startRow();
    if (line.kind != Line::Kind::End)
        m_output.writeRow(request.prompt.substr(lastRow) + line.text);
    return line;
}

Line WindowLines::nextLine(const LineRequest& request)
{
    const bool forCommand = request.completion == Completion::Commands;
    while (!m_ended) {
        if (m_typed.empty()) {
            QEventLoop loop;
            m_loop = &loop;
            m_commandLine.ask(request);
            emit waiting(forCommand);
            loop.exec();
            m_loop = nullptr;
            m_commandLine.endPrompt();
        } else if (m_typed.front().kind != Typed::Kind::LetEnd) {
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

void WindowOutput::put(const std::string& utf8)
{
    m_commandLine.append(toQString(fromUtf8(utf8)));
}

} // namespace quelhost
