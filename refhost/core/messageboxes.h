// Message boxes: their buttons, and how they are asked on the command line.
#pragma once

#include "refhost/core/output.h"
#include "refhost/core/prompts.h"

#include <QString>

#include <string>
#include <vector>

namespace quelhost {

struct BoxButton
{
    int answer; // of host/messageboxes.h
    QString englishName;
    QString localName;
};

// The buttons of a box, the safe one last.
[[nodiscard]] std::vector<BoxButton> boxButtons(unsigned int flags);

// Shows `text` and, where there is something to choose, asks until one of the buttons is named: by
// its English name, its name in the user's language, or the first letter of either. Returns the
// answer of host/messageboxes.h. A cancelled question, the end of the input included, gives the
// safe answer; a box with OK alone takes no input.
[[nodiscard]] int askMessageBox(Prompts& prompts, Output& output, const std::wstring& text,
                                unsigned int flags);

} // namespace quelhost
