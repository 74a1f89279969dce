// Where lines come from: a terminal, a script, a pipe, the window's command line.
#pragma once

#include <QStringList>

#include <string>

namespace quelhost {

// What can be completed while a line is typed.
enum class Completion {
    Nothing,
    Commands, // names and aliases at the command prompt
    Keywords, // LineRequest::words
    Paths,    // files and folders
};

struct LineRequest
{
    std::wstring prompt;
    Completion completion = Completion::Nothing;
    // What Commands and Keywords complete from, and the files that Paths offers before all others.
    QStringList words;
    // A script's blank lines and lines beginning with ";" are passed over, unseen. What a person
    // types is never passed over.
    bool remarksAllowed = false;
};

struct Line
{
    enum class Kind {
        Text,   // a line, without its end
        Cancel, // Esc, Ctrl-C, or a script's ^C
        End,    // there is no further line, now or ever
    };
    Kind kind = Kind::End;
    std::wstring text;
};

class LineSource
{
public:
    virtual ~LineSource() = default;

    // Shows the prompt and waits for a line. What the user sees afterwards is the prompt, the line
    // and the start of a new row, whether a terminal echoed the typing or the source itself did.
    // After an End it answers End for ever.
    [[nodiscard]] virtual Line readLine(const LineRequest& request) = 0;

    // Whether the lines come from a script rather than from a person.
    [[nodiscard]] virtual bool isScript() const = 0;
};

} // namespace quelhost
