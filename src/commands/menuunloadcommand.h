// MENUUNLOAD: removes a customization file from the loaded menu file list.
#pragma once

#include "host/commands.h"

class Quel6917Command final : public IQuelBuildInCommand
{
public:
    static constexpr unsigned int kClassNumber = 6917;
    static constexpr wchar_t kGlobalName[] = L"MENUUNLOAD";

    // Returns 5100 when the command ran its course, also when nothing was unloaded; the prompt's
    // status when no answer was given; 0 without a store and when the main file was named.
    int execute(IQuelBuildInCommandContext* context) override;
};
