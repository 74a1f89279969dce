// REINIT: reloads the command alias file.
#pragma once

#include "host/commands.h"

class Quel6935Command final : public IQuelBuildInCommand
{
public:
    static constexpr unsigned int kClassNumber = 6935;
    static constexpr wchar_t kGlobalName[] = L"REINIT";

    // Completes normally without doing anything yet.
    int execute(IQuelBuildInCommandContext* context) override;
};
