// CUSTOMIZE: opens one of the host's customization editors.
#pragma once

#include "host/commands.h"

class Quel60005Command final : public IQuelBuildInCommand
{
public:
    static constexpr unsigned int kClassNumber = 60005;
    static constexpr wchar_t kGlobalName[] = L"CUSTOMIZE";

    // Completes normally without doing anything yet.
    int execute(IQuelBuildInCommandContext* context) override;
};
