// MENU: names a menu file and checks that it can be found.
#pragma once

#include "host/commands.h"

class Quel6915Command final : public IQuelBuildInCommand
{
public:
    static constexpr unsigned int kClassNumber = 6915;
    static constexpr wchar_t kGlobalName[] = L"MENU";

    // Asks for a menu file by prompt or dialog and looks whether the host finds it. Returns 5100
    // when it does or the user chose none; -5001, with a message, when it does not; any other
    // status of the prompt or dialog as it is. Nothing is loaded, on purpose: that is MENULOAD's
    // business.
    int execute(IQuelBuildInCommandContext* context) override;
};
