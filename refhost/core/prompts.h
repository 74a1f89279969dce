// The command line's conversation: prompts, answers, and what was typed ahead.
#pragma once

#include "refhost/core/linesource.h"
#include "refhost/core/output.h"

#include <deque>
#include <optional>
#include <string>
#include <utility>

namespace quelhost {

struct Answer
{
    enum class Kind {
        Text,      // something was typed
        Empty,     // Enter alone
        Cancelled, // the user cancelled, or there is no further input
    };
    Kind kind = Kind::Cancelled;
    std::wstring text;
};

// Where an answer ends besides at Enter.
enum class AnswerEnd {
    Blank, // at the first blank; what follows answers the next prompt
    Enter, // only there, but for a leading double quote, which ends it at the closing one
};

class Prompts
{
public:
    // REQUIRES: both outlive this object.
    Prompts(LineSource& source, Output& output);

    // Answers one prompt from what was typed ahead or else from a new line. An answer typed ahead
    // is shown behind its prompt, so that the output always reads prompt, answer.
    [[nodiscard]] Answer ask(const LineRequest& request, AnswerEnd end);

    // The next word to run as a command; nothing when the input has ended. Enter gives the empty
    // text where a person types; a script's blank lines and comments (";") are passed over.
    [[nodiscard]] std::optional<std::wstring> nextCommand(LineRequest request);

    // Whether a script types the lines.
    [[nodiscard]] bool isScript() const { return m_source.isScript(); }
    // Whether the input has ended; every further prompt is cancelled.
    [[nodiscard]] bool hasEnded() const { return m_ended; }
    // Lets the input end now; what was typed ahead is dropped.
    void end()
    {
        m_ended = true;
        static_cast<void>(takeTypedAhead());
    }
    // The rest of the current line, taken as it stands; empty when nothing was typed ahead.
    [[nodiscard]] std::wstring takeTypedAhead();

    // While it lives, prompts are answered with the given texts, whole, and cancelled when these
    // are used up: a call that has to do without the user.
    class Prepared
    {
    public:
        Prepared(Prompts& prompts, std::deque<std::wstring> answers);
        ~Prepared();
        Prepared(const Prepared&) = delete;
        Prepared& operator=(const Prepared&) = delete;

    private:
        Prompts& m_prompts;
        std::optional<std::deque<std::wstring>> m_outer;
    };

private:
    [[nodiscard]] Answer readAnswer(const LineRequest& request, AnswerEnd end);
    [[nodiscard]] bool isTypedAhead() const { return m_taken < m_ahead.size(); }
    [[nodiscard]] Answer preparedAnswer(const LineRequest& request);
    [[nodiscard]] std::wstring takeAnswer(AnswerEnd end);
    void show(const LineRequest& request, const std::wstring& answer);

    LineSource& m_source;
    Output& m_output;
    std::wstring m_ahead;    // the line that was typed last
    std::size_t m_taken = 0; // how much of it is used up; what follows is never only blanks
    std::optional<std::deque<std::wstring>> m_prepared;
    bool m_ended = false;
};

} // namespace quelhost
