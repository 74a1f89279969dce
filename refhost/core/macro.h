// The text that a menu item, a toolbar button or an accelerator types.
//
// A macro is typed at the command line as it stands. Two words in braces are not typed but done:
// `{cancel}` cancels a prompt in progress, `{enter}` presses Enter. Enter is added at the end.
// Words are told apart by case; a brace has no other use and cannot be typed.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace quelhost {

struct MacroStep
{
    enum class Kind { Type, Cancel, Enter };

    Kind kind = Kind::Type;
    QString text; // of a Type: what is typed, never empty
};

struct MacroReading
{
    std::vector<MacroStep> steps; // with the Enter at the end; meaningful without faults only
    QStringList unknownWords;     // with their braces, each once
    bool braceNotClosed = false;  // a `{` without its `}`
    bool braceNotOpened = false;  // a `}` without its `{`

    [[nodiscard]] bool isGood() const;
};

[[nodiscard]] MacroReading readMacro(const QString& macro);

} // namespace quelhost
