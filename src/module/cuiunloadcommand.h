// CUIUNLOAD: the second name of MENUUNLOAD.
#pragma once

#include "host/commands.h"

class Quel6941Command final : public IQuelBuildInCommand
{
public:
    static constexpr unsigned int kClassNumber = 6941;
    static constexpr wchar_t kGlobalName[] = L"CUIUNLOAD";

    // Returns 5100 whatever the other command reports, a cancelled prompt included: on purpose.
    int execute(IQuelBuildInCommandContext* context) override;
};
