// CUIUNLOAD: the second name of MENUUNLOAD.
#pragma once

#include "host/commands.h"

class Quel6941Command final : public IQuelBuildInCommand
{
public:
    static constexpr unsigned int kClassNumber = 6941;
    static constexpr wchar_t kGlobalName[] = L"CUIUNLOAD";

    // Completes normally without doing anything yet.
    int execute(IQuelBuildInCommandContext* context) override;
};
