// MENU: names a menu file and checks that it can be found.
#pragma once

#include "host/commands.h"

class Quel6915Command final : public IQuelBuildInCommand
{
public:
    static constexpr unsigned int kClassNumber = 6915;
    static constexpr wchar_t kGlobalName[] = L"MENU";

    // Completes normally without doing anything yet.
    int execute(IQuelBuildInCommandContext* context) override;
};
