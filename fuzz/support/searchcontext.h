// A command context that notes which files are searched for.
#pragma once

#include "fuzz/support/broken.h"

#include "host/commands.h"

#include <algorithm>
#include <map>
#include <string>
#include <vector>

namespace fuzzing {

class SearchContext final : public IQuelBuildInCommandContext
{
public:
    static constexpr std::size_t kRoom = 1024;

    // `resources` is the host's stack of current resource files, which the scopes go on.
    explicit SearchContext(std::vector<std::wstring>& resources)
        : m_resources(resources)
    {}

    std::map<std::wstring, std::wstring> files; // that are found, with their paths
    std::vector<std::wstring> searched;
    bool refusesScopes = false;
    int openScopes = 0;

    const wchar_t* globalName() const override { return L"MENU"; }
    bool isCommandLineOnly() const override { return false; }

    bool enterResourceScope(const wchar_t* name) override
    {
        if (refusesScopes)
            return false;
        ++openScopes;
        m_resources.emplace_back(name);
        return true;
    }

    void leaveResourceScope(int value) override
    {
        mustHold(value == 0 && openScopes > 0, "a scope is left once, with 0");
        --openScopes;
        m_resources.pop_back();
    }

    int findFile(const wchar_t* name, wchar_t* result) override
    {
        searched.emplace_back(name);
        const auto found = files.find(name);
        if (found == files.end())
            return 1;
        // All of the room, and no more than that.
        std::fill_n(result, kRoom, L'#');
        result[found->second.copy(result, kRoom - 1)] = L'\0';
        return 0;
    }

private:
    std::vector<std::wstring>& m_resources;
};

} // namespace fuzzing
