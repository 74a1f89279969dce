#include "refhost/core/prompts.h"

#include <algorithm>
#include <string_view>

namespace quelhost {

namespace {

constexpr wchar_t kBlanks[] = L" \t";

std::wstring_view withoutLeadingBlanks(std::wstring_view text)
{
    return text.substr(std::min(text.find_first_not_of(kBlanks), text.size()));
}

std::wstring_view withoutTrailingBlanks(std::wstring_view text)
{
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

// Splits `line` into its first answer and the rest.
std::pair<std::wstring_view, std::wstring_view> split(std::wstring_view line, AnswerEnd end)
{
    if (line.front() == L'"') {
        const std::size_t closing = line.find(L'"', 1);
        if (closing == line.npos)
            return {line, {}};
        // A pair with nothing between it is an answer itself.
        const std::wstring_view inside = line.substr(1, closing - 1);
        return {inside.empty() ? line.substr(0, 2) : inside, line.substr(closing + 1)};
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
    if (isTypedAhead()) {
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
    m_ahead = line.text;
    m_taken = m_ahead.size() - withoutLeadingBlanks(m_ahead).size();
    if (!isTypedAhead())
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

std::wstring Prompts::takeTypedAhead()
{
    return std::exchange(m_ahead, {}).substr(std::exchange(m_taken, 0));
}

// The line stays as it is, so that one with very many answers costs no more than its length.
std::wstring Prompts::takeAnswer(AnswerEnd end)
{
    const auto [answer, rest] = split(std::wstring_view(m_ahead).substr(m_taken), end);
    m_taken = m_ahead.size() - withoutLeadingBlanks(rest).size();
    return std::wstring(answer);
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
