// Lines as a test scripts them, and what the user reads of them, kept as text.
#pragma once

#include "refhost/core/linesource.h"
#include "refhost/core/output.h"

#include <deque>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace quelhost::test {

// Keeps what is written, as UTF-8.
class CollectedOutput final : public Output
{
public:
    // All that was written since the last call.
    [[nodiscard]] std::string take() { return std::exchange(m_text, {}); }
    [[nodiscard]] const std::string& text() const { return m_text; }

protected:
    void put(const std::string& utf8) override { m_text += utf8; }

private:
    std::string m_text;
};

enum class Typist { Person, Script };

// Gives one line after the other; "^C" is a cancel. When they are used up the input has ended.
// Each prompt and its line are written to the output, as a terminal or a script's echo shows them.
class ScriptedLines final : public LineSource
{
public:
    // REQUIRES: `output` outlives this object.
    ScriptedLines(Output& output, std::initializer_list<const wchar_t*> lines,
                  Typist typist = Typist::Person)
        : m_output(output)
        , m_lines(lines.begin(), lines.end())
        , m_typist(typist)
    {}

    [[nodiscard]] Line readLine(const LineRequest& request) override
    {
        requests.push_back(request);
        m_output.write(request.prompt);
        passOverRemarks(request.remarksAllowed);
        if (m_lines.empty()) {
            m_output.startRow();
            return {};
        }
        const std::wstring text = std::move(m_lines.front());
        m_lines.pop_front();
        m_output.write(text + L"\n");
        if (text == L"^C")
            return {Line::Kind::Cancel, {}};
        return {Line::Kind::Text, text};
    }

    [[nodiscard]] bool isScript() const override { return m_typist == Typist::Script; }

    // A further line behind those that are there.
    void add(const std::wstring& line) { m_lines.push_back(line); }

    // How many lines nobody has asked for.
    [[nodiscard]] std::size_t unread() const { return m_lines.size(); }

    // Everything that was asked for, also in vain.
    std::vector<LineRequest> requests;

private:
    void passOverRemarks(bool allowed)
    {
        while (allowed && isScript() && !m_lines.empty() && isRemark(m_lines.front()))
            m_lines.pop_front();
    }

    static bool isRemark(const std::wstring& line)
    {
        const std::size_t first = line.find_first_not_of(L" \t");
        return first == std::wstring::npos || line[first] == L';';
    }

    Output& m_output;
    std::deque<std::wstring> m_lines;
    const Typist m_typist;
};

} // namespace quelhost::test
