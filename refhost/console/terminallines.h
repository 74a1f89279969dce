// Lines that a person types on a terminal.
#pragma once

#include "refhost/console/consolesignals.h"
#include "refhost/console/lineeditor.h"
#include "refhost/core/linehistory.h"
#include "refhost/console/linereader.h"
#include "refhost/core/linesource.h"
#include "refhost/core/output.h"

#include <memory>

namespace quelhost {

// Lines from standard input, edited on the terminal, with history and completion; without editing
// where standard input or output is no terminal, or one that cannot move its cursor. Esc, Ctrl-C
// and an interrupt cancel a line. Ctrl-D on an empty line and a terminal that is gone end the
// input.
//
// As long as it lives, the terminal's signals are its own (TerminalGuard).
class TerminalLines final : public LineSource
{
public:
    // Lines of Completion::Commands are kept in `historyFile`; an empty name keeps them for this
    // run only. REQUIRES: `output` writes to standard output and outlives this object; there is
    // one such object at a time.
    TerminalLines(const QString& historyFile, Output& output);

    [[nodiscard]] Line readLine(const LineRequest& request) override;
    [[nodiscard]] bool isScript() const override { return false; }

    // Why the history is not kept, as a sentence for the user, once; empty when it is.
    [[nodiscard]] QString takeHistoryProblem() { return m_history.takeProblem(); }

private:
    [[nodiscard]] Line readEdited(LineRequest request);
    [[nodiscard]] Line readPlain(const LineRequest& request);
    void keep(const std::wstring& line);

    Output& m_output;
    LineHistory m_history;
    const TerminalGuard m_guard;
    std::unique_ptr<LineEditor> m_editor; // null: no editing
    LineReader m_reader;
    const bool m_terminalShows; // input and output are a terminal
    bool m_ended = false;
};

} // namespace quelhost
