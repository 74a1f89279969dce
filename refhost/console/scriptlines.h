// Lines of a script or a pipe, shown as if a person had typed them.
#pragma once

#include "refhost/console/linereader.h"
#include "refhost/core/filedescriptor.h"
#include "refhost/core/linesource.h"
#include "refhost/core/output.h"
#include "refhost/core/result.h"

#include <memory>

namespace quelhost {

// Reads exactly the line that is asked for and shows prompt and line. A line `^C`, and an interrupt
// where it has a handler (installInterruptHandler), cancels. Of a line longer than
// LineReader::kLongestLine the start alone is kept.
class ScriptLines final : public LineSource
{
public:
    // `descriptor` is borrowed. `isScript` false stands for lines that a person types.
    // REQUIRES: `output` outlives this object.
    ScriptLines(int descriptor, bool isScript, Output& output);
    // The same over a file of its own.
    ScriptLines(FileDescriptor file, bool isScript, Output& output);

    [[nodiscard]] Line readLine(const LineRequest& request) override;
    [[nodiscard]] bool isScript() const override { return m_isScript; }

private:
    [[nodiscard]] LineReader::Read readShownLine(bool passOverRemarks);
    void show(const std::wstring& text);

    const FileDescriptor m_file;
    LineReader m_reader;
    const bool m_isScript;
    const bool m_terminalShows; // input and output are a terminal, which shows what is typed
    Output& m_output;
    bool m_ended = false;
};

// Opens the script at `path`; "-" is standard input. The fault's sentence says why it cannot be
// read.
// REQUIRES: `output` outlives the result.
[[nodiscard]] Result<std::unique_ptr<LineSource>> openScript(const QString& path, Output& output,
                                                             bool isScript);

} // namespace quelhost
