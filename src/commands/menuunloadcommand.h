// MENUUNLOAD: removes a customization file from the loaded menu file list.
#pragma once

#include "host/commands.h"

class Quel6917Command final : public IQuelBuildInCommand
{
public:
    static constexpr unsigned int kClassNumber = 6917;
    static constexpr wchar_t kGlobalName[] = L"MENUUNLOAD";

    // Completes normally without doing anything yet.
    int execute(IQuelBuildInCommandContext* context) override;
};
