#include "refhost/core/prompts.h"

#include <algorithm>

namespace quelhost {

namespace {

constexpr wchar_t kBlanks[] = L" \t";

std::wstring withoutLeadingBlanks(const std::wstring& text)
{
    const std::size_t start = text.find_first_not_of(kBlanks);
    return start == text.npos ? std::wstring() : text.substr(start);
}

std::wstring withoutTrailingBlanks(const std::wstring& text)
{
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

// Splits `line` into its first answer and the rest.
std::pair<std::wstring, std::wstring> split(const std::wstring& line, AnswerEnd end)
{
    if (line.front() == L'"') {
        const std::size_t closing = line.find(L'"', 1);
        if (closing == line.npos)
            return {line, {}};
        const std::wstring inside = line.substr(1, closing - 1);
        return {inside.empty() ? L"\"\"" : inside, line.substr(closing + 1)};
    }
    if (end == AnswerEnd::Enter)
        return {withoutTrailingBlanks(line), {}};
    const std::size_t blank = std::min(line.find_first_of(kBlanks), line.size());
    return {line.substr(0, blank), line.substr(blank)};
}

} // namespace

Prompts::Prompts(LineSource& source, Output& output)
    : m_source(source)
    , m_output(output)
{}

Answer Prompts::ask(const LineRequest& request, AnswerEnd end)
{
    if (m_prepared)
        return preparedAnswer(request);
    if (!m_ahead.empty()) {
        const std::wstring answer = takeAnswer(end);
        show(request, answer);
        return {Answer::Kind::Text, answer};
    }
    return readAnswer(request, end);
}

std::optional<std::wstring> Prompts::nextCommand(LineRequest request)
{
    request.remarksAllowed = true;
    while (!m_ended) {
        const Answer answer = ask(request, AnswerEnd::Blank);
        if (answer.kind != Answer::Kind::Cancelled)
            return answer.text;
    }
    return std::nullopt;
}

Answer Prompts::readAnswer(const LineRequest& request, AnswerEnd end)
{
    if (m_ended)
        return {};
    m_output.startRow();
    const Line line = m_source.readLine(request);
    if (line.kind == Line::Kind::End)
        m_ended = true;
    if (line.kind != Line::Kind::Text)
        return {};
    m_ahead = withoutLeadingBlanks(line.text);
    if (m_ahead.empty())
        return {Answer::Kind::Empty, {}};
    return {Answer::Kind::Text, takeAnswer(end)};
}

Answer Prompts::preparedAnswer(const LineRequest& request)
{
    if (m_prepared->empty())
        return {};
    Answer answer{Answer::Kind::Text, std::move(m_prepared->front())};
    m_prepared->pop_front();
    show(request, answer.text);
    return answer;
}

std::wstring Prompts::takeAnswer(AnswerEnd end)
{
    auto [answer, rest] = split(m_ahead, end);
    m_ahead = withoutLeadingBlanks(rest);
    return answer;
}

void Prompts::show(const LineRequest& request, const std::wstring& answer)
{
    m_output.writeRow(request.prompt + answer, TextKind::Answer);
}

Prompts::Prepared::Prepared(Prompts& prompts, std::deque<std::wstring> answers)
    : m_prompts(prompts)
    , m_outer(std::exchange(prompts.m_prepared, std::move(answers)))
{}

Prompts::Prepared::~Prepared()
{
    m_prompts.m_prepared = std::move(m_outer);
}

} // namespace quelhost
