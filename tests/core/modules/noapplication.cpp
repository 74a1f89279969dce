// A module whose entry point has nothing to give.
#include "host/commands.h"

#include "tests/support/moduletrace.h"

extern "C" QUEL_HOST_API IQuelCmdApplication* GetQuelCmdApplication();
IQuelCmdApplication* GetQuelCmdApplication()
{
    noteModuleCall("entry");
    return nullptr;
}
