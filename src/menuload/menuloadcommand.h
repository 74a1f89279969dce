// MENULOAD: adds a customization file to the loaded menu file list and has the host load it.
#pragma once

#include "host/commands.h"

class Quel6916Command final : public IQuelBuildInCommand
{
public:
    static constexpr unsigned int kClassNumber = 6916;
    static constexpr wchar_t kGlobalName[] = L"MENULOAD";

    // Opens the menu load dialog when the run may use dialogs and FILEDIA is 1; otherwise prompts
    // for a file until one is loaded or the run ends. Returns 5100 when a file was loaded or the
    // dialog was shown, -5002 when the user cancelled, 0 when the file is in the list already or
    // the host has no configuration store.
    int execute(IQuelBuildInCommandContext* context) override;
};
