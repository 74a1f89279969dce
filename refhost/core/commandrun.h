// One run of a command: create, execute, release, whatever happens.
#pragma once

#include "host/commands.h"

#include <QString>

#include <functional>
#include <optional>
#include <string>

namespace quelhost {

class FileSearch;
class Resources;

// What a command sees of this host while it runs.
class CommandContext final : public IQuelBuildInCommandContext
{
public:
    // REQUIRES: `resources` and `files` outlive the context.
    CommandContext(std::wstring globalName, bool commandLineOnly, Resources& resources,
                   const FileSearch& files);

    // As host/commands.h promises.
    const wchar_t* globalName() const override { return m_globalName.c_str(); }
    bool isCommandLineOnly() const override { return m_commandLineOnly; }
    bool enterResourceScope(const wchar_t* name) override;
    void leaveResourceScope(int value) override;
    int findFile(const wchar_t* name, wchar_t* result) override;

private:
    const std::wstring m_globalName;
    const bool m_commandLineOnly;
    Resources& m_resources;
    const FileSearch& m_files;
};

struct RunResult
{
    int status = 0;
    // Set when the command threw: what, in words. The status is then -5001.
    std::optional<QString> thrown;
};

// Runs one command of `factory`. An exception out of it is caught and described, and deleted when
// it is one of the host's error objects; the command is released in every case.
[[nodiscard]] RunResult runCommand(IQuelCommandFactory& factory,
                                   IQuelBuildInCommandContext& context);

} // namespace quelhost
