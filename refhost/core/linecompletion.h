// What the Tab key makes of a line: names, keywords and paths that begin with what is typed. The
// same as suggestions, one by one.
#pragma once

#include "refhost/core/linesource.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace quelhost {

struct CompletedLine
{
    QString beforeCursor;   // what stands before the cursor now
    QStringList candidates; // all that fit, sorted, when several do; for the user to look at
    bool found = false;     // whether anything fits
};

// Completes the answer that `beforeCursor` ends with.
//
// - Commands: the first word is a name out of `request.words`, what follows is paths.
// - Keywords: the first word, out of `request.words`.
// - Paths: all of it is one path, blanks included. A path out of `request.words` is found by its
//   beginning or its file's name, and goes before what else is in the file system.
//
// Case does not matter for words and does for paths. One word that fits is put in whole, with a
// blank behind it unless `blankFollows`; of several, what they have in common. A path is completed
// one name at a time and a folder ends in a slash; hidden files fit only what begins with a dot. A
// path or word with a blank in it is put in double quotes. "~/" becomes the home folder; "~" alone
// is left as it is, since commands know it.
[[nodiscard]] CompletedLine completeLine(const QString& beforeCursor, bool blankFollows,
                                         const LineRequest& request);

// One way to complete a line.
struct Suggestion
{
    QString text;         // for the user to look at
    QString beforeCursor; // what stands before the cursor when it is taken
};

enum class Suggest {
    OnDemand,
    // Only what is worth to be shown unasked: for an answer that was begun and is not whole yet.
    // After the name of a command only words with a slash count as paths. A folder of many
    // thousand files is passed over, since it would be looked through at every key.
    WhileTyping,
};

// All that completeLine() could complete the answer to, in the order of its candidates.
[[nodiscard]] std::vector<Suggestion> suggestLines(const QString& beforeCursor, bool blankFollows,
                                                   const LineRequest& request, Suggest when);

} // namespace quelhost
