// CUILOAD: the second name of MENULOAD.
#pragma once

#include "host/commands.h"

class Quel6940Command final : public IQuelBuildInCommand
{
public:
    static constexpr unsigned int kClassNumber = 6940;
    static constexpr wchar_t kGlobalName[] = L"CUILOAD";

    // Returns 5100 whatever the other command reports, a cancelled prompt included: on purpose.
    int execute(IQuelBuildInCommandContext* context) override;
};
