// CUSTOMIZE: opens one of the host's customization editors.
#pragma once

#include "host/commands.h"

class Quel60005Command final : public IQuelBuildInCommand
{
public:
    static constexpr unsigned int kClassNumber = 60005;
    static constexpr wchar_t kGlobalName[] = L"CUSTOMIZE";

    // Returns the status of the editor when one was opened. Otherwise 5100, on purpose also when
    // the user cancelled the question.
    int execute(IQuelBuildInCommandContext* context) override;
};
