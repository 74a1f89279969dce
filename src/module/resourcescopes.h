// The two resource scopes that every lookup of the module runs in, each undone by its guard on
// every way out. A guard leaves exactly when it entered, and an exception out of leaving ends the
// process: the destructors are noexcept.
#pragma once

#include "host/commands.h"
#include "host/resources.h"

// The module's resource file: names, prompts, messages and dialog descriptions.
constexpr wchar_t kModuleResourceFile[] = L"VxCuiCmdsRes.dll";
// The host's own: what commands of several modules share.
constexpr wchar_t kHostResourceFile[] = L"QUELDRes.dll";

// The global scope: selects a resource file for lookups outside a command's run.
class GlobalResourceScope
{
public:
    explicit GlobalResourceScope(const wchar_t* name)
        : m_entered(SetCurrentResourceName(name))
    {}
    ~GlobalResourceScope()
    {
        if (m_entered) // GCOVR_EXCL_BR_LINE: sanitizer
            RestorePreviousResource();
    }
    GlobalResourceScope(const GlobalResourceScope&) = delete;
    GlobalResourceScope& operator=(const GlobalResourceScope&) = delete;

private:
    const bool m_entered;
};

// The command context's scope: every command holds one for the whole of its run. Scopes nest.
class ContextResourceScope
{
public:
    // REQUIRES: `context` is not null and outlives the guard.
    explicit ContextResourceScope(IQuelBuildInCommandContext* context)
        : m_context(context)
        , m_entered(context->enterResourceScope(kModuleResourceFile))
    {}
    ~ContextResourceScope()
    {
        if (m_entered) // GCOVR_EXCL_BR_LINE: sanitizer
            m_context->leaveResourceScope(0);
    }
    ContextResourceScope(const ContextResourceScope&) = delete;
    ContextResourceScope& operator=(const ContextResourceScope&) = delete;

private:
    IQuelBuildInCommandContext* const m_context;
    const bool m_entered;
};
