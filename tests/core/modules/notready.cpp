// A module that does not become ready.
#include "host/commands.h"

#include "tests/support/moduletrace.h"

namespace {

class Application final : public IQuelCmdApplication
{
public:
    int initialize() override
    {
        noteModuleCall("initialize");
        return 7;
    }
    int registCommand(IQuelCommandStore*) override
    {
        noteModuleCall("registCommand");
        return 0;
    }
    int unregistCommand(IQuelCommandStore*) override
    {
        noteModuleCall("unregistCommand");
        return 0;
    }
    void uninitialize() override { noteModuleCall("uninitialize"); }
    int sendMessage(QuelCmdAppMsg, void*, void*) override
    {
        noteModuleCall("message");
        return 0;
    }
};

Application application;

} // namespace

extern "C" QUEL_HOST_API IQuelCmdApplication* GetQuelCmdApplication();
IQuelCmdApplication* GetQuelCmdApplication()
{
    return &application;
}
