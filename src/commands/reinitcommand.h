// REINIT: reloads the command alias file.
#pragma once

#include "host/commands.h"

class Quel6935Command final : public IQuelBuildInCommand
{
public:
    static constexpr unsigned int kClassNumber = 6935;
    static constexpr wchar_t kGlobalName[] = L"REINIT";

    // Returns 5100 when the aliases were read again; -5001 when that failed and also when the user
    // declined, on purpose.
    int execute(IQuelBuildInCommandContext* context) override;
};
