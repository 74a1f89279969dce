// What the commands that load, unload and name menu files are to do, told over plain texts and
// apart from the module.
#pragma once

#include <list>
#include <optional>
#include <string>
#include <vector>

namespace fuzzing {

enum class Command { Load, Unload, Menu };

struct TypedAnswer
{
    int status = 0;
    std::wstring text;
};

// The host as a command finds it; commands change it.
struct World
{
    // The stored list: nothing when there is none, an empty text for a value that is no text.
    std::optional<std::wstring> list;
    std::list<TypedAnswer> answers; // and a cancel for ever after
    std::list<std::wstring> picked; // in file dialogs, likewise

    bool hasStore = true;
    bool reads = true;
    bool writes = true;
    bool hasManager = true;
    bool wantsDialog = false; // the host would rather have one
    bool fileDialogs = false; // and the user
    bool scriptRuns = false;
    bool noDialogs = false;
    bool hasTexts = true;                         // the module's resource file can be entered
    std::optional<std::wstring> group = L"GROUP"; // of a loaded file; nothing when it cannot be
    std::wstring kinds;
    std::optional<std::wstring> menuName;
    std::vector<std::wstring> findable; // names of menu files
};

// What a run does.
struct Told
{
    int status = 0;
    std::vector<std::wstring> written; // lists, stored or not
    int refreshes = 0;
    std::vector<std::wstring> loaded;
    std::vector<std::wstring> searched;
    std::vector<std::wstring> boxes;
    std::wstring printed;
    int dialogs = 0;     // of loaded groups
    int fileDialogs = 0; // of menu files
};

[[nodiscard]] Told tell(Command command, World& world);

} // namespace fuzzing
