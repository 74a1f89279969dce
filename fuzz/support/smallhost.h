// A host for what makes a path of a menu file's name, and no more: it answers what a fuzzer says
// and notes what the fuzzer looks at. The recording host does the same for all of a module, with
// every call in words, and takes ten times as long.
#pragma once

#include "host/quelvariant.h"

#include <optional>
#include <string>
#include <vector>

namespace fuzzing {

struct DialogCall
{
    std::wstring location;
    std::optional<std::wstring> kinds;
    int filter = 0;
};

struct SmallHost
{
    // What it answers. A text within a text: the outer one says whether there is a resource or a
    // variable, the inner one whether it has a text.
    std::optional<std::optional<std::wstring>> kinds;
    std::optional<std::optional<std::wstring>> menuName;
    bool fileDialogs = false;
    bool scriptRuns = false;
    bool noDialogs = false;
    int boxAnswer = 7;
    int promptStatus = -5002;
    std::wstring answer;
    int dialogStatus = -5002;
    std::wstring picked;
    int pickedFilter = 0;
    int furtherResults = 0;
    bool hasSection = false;
    QuelVariant storedFilter;
    QuelVariant storedFile;

    // What it noted.
    std::vector<std::wstring> resources{L"QUELDRes.dll"};
    int boxes = 0;
    std::wstring printed;
    std::wstring prompt;
    std::vector<DialogCall> dialogs;
    int handedOut = 0; // buffers that were not given back
};

// The one host of the process, to be assigned a new one for each input.
SmallHost& smallHost();

} // namespace fuzzing
