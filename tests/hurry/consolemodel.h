// The conversation at the console as a user knows it: what each line answers, which commands run
// and how they end. It knows nothing of the program but its rules.
#pragma once

#include "tests/hurry/listmodel.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace hurry {

using AliasTable = std::map<std::wstring, std::wstring>;

class ConsoleModel
{
public:
    // What is asked.
    enum class Prompt {
        Command,
        Load,     // MENULOAD, CUILOAD: the file
        Unload,   // MENUUNLOAD, CUIUNLOAD: the file
        Menu,     // MENU: the file
        MenuFile, // MENU ~: the file in place of the dialog
        Reinit,   // whether to read the aliases again
        Editor,   // CUSTOMIZE: which editor
        SetName,  // SETVAR
        SetValue,
        GetName, // GETVAR
    };

    struct Setup
    {
        std::wstring folder;  // in which the program runs
        std::wstring profile; // where files are searched besides
        bool byPerson = false;
        AliasTable aliases;
    };

    ConsoleModel(Setup setup, ListModel list);

    void line(const std::wstring& text);
    void cancel();
    // The input ends: everything that is asked is cancelled.
    void end();
    // The program is started again and finds that list.
    void restart(ListModel list);

    // What the alias file holds from now on; nothing where there is none.
    void setAliasFile(std::optional<AliasTable> aliases) { m_aliasFile = std::move(aliases); }

    [[nodiscard]] Prompt prompt() const { return m_prompt; }
    [[nodiscard]] bool hasEnded() const { return m_ended; }
    [[nodiscard]] const ListModel& list() const { return m_list; }
    // How often a dialog was wanted.
    [[nodiscard]] int dialogs() const { return m_dialogs; }
    // How often the list was changed by a file that was loaded, and by one that was unloaded.
    [[nodiscard]] int loads() const { return m_loads; }
    [[nodiscard]] int unloads() const { return m_unloads; }
    // The commands that ended since the last call: "NAME<TAB>STATUS".
    [[nodiscard]] std::vector<std::string> takeStatuses();

private:
    void answer(const std::wstring& text);
    void noAnswer(bool cancelled);
    void command(const std::wstring& name);
    void begin(const std::wstring& name);
    void done(int status);
    [[nodiscard]] bool isDialogWanted(const std::wstring& path);
    void load(const std::wstring& path);
    void unload(const std::wstring& path);
    void menu(const std::wstring& path);
    void menuByPath(std::wstring path);
    void reinit(const std::wstring& text);
    void setValue(const std::wstring& text);
    [[nodiscard]] bool finds(const std::wstring& name) const;
    [[nodiscard]] std::wstring takeAnswer();

    Setup m_setup;
    ListModel m_list;
    AliasTable m_aliases;
    std::optional<AliasTable> m_aliasFile;
    Prompt m_prompt = Prompt::Command;
    std::wstring m_running;
    std::wstring m_last; // name of the last command
    std::wstring m_variable;
    std::wstring m_menuName;
    std::wstring m_ahead; // from m_taken on
    std::size_t m_taken = 0;
    bool m_ended = false;
    int m_dialogs = 0;
    int m_loads = 0;
    int m_unloads = 0;
    std::vector<std::string> m_statuses;
};

// Whether two names are the same in any case.
[[nodiscard]] bool sameName(const std::wstring& left, const std::wstring& right);

} // namespace hurry
