// The host's own commands: SETVAR, GETVAR, SETTINGS, GROUPS, ALIASES, COMMANDS, ECHO, HELP, QUIT.
#pragma once

#include "host/commands.h"

#include <QString>

#include <memory>
#include <string>
#include <vector>

namespace quelhost {

class Host;

// A command of the host, registered in its store like any other.
class HostCommandFactory final : public IQuelCommandFactory
{
public:
    using Action = int (*)(Host&);

    // `action` runs the command and returns its status. `descriptionId` names a sentence.
    // REQUIRES: `host` outlives the factory.
    HostCommandFactory(Host& host, const wchar_t* name, const char* descriptionId, Action action);

    IQuelBuildInCommand* create() override;
    void release(IQuelBuildInCommand* command) override;
    unsigned int flags() const override { return m_flags; }
    void addFlags(unsigned int flags, bool set) override;
    const wchar_t* module() const override { return L"quelhost"; }
    const wchar_t* globalName() const override { return m_name; }
    const wchar_t* localName() const override { return m_name; }
    const wchar_t* description() const override { return m_description.c_str(); }

private:
    Host& m_host;
    const wchar_t* const m_name;
    const Action m_action;
    const std::wstring m_description;
    unsigned int m_flags = 0;
};

// All of them.
[[nodiscard]] std::vector<std::unique_ptr<HostCommandFactory>> makeHostCommands(Host& host);

} // namespace quelhost
