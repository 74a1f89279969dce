// A module whose command throws one of the host's error objects.
#include "host/commands.h"
#include "host/errors.h"

namespace {

class ThrowOut final : public IQuelBuildInCommand
{
public:
    int execute(IQuelBuildInCommandContext*) override
    {
        auto* error = new VxExceptionWithMsg(L"module", 3, L"thrown by a module");
        if (QuelCrashRecorder* recorder = quelGetCrashRecorder())
            recorder->record(error);
        throw error;
    }
};

class ThrowOutFactory final : public IQuelCommandFactory
{
public:
    IQuelBuildInCommand* create() override { return new ThrowOut; }
    void release(IQuelBuildInCommand* command) override { delete command; }
    unsigned int flags() const override { return 0; }
    void addFlags(unsigned int, bool) override {}
    const wchar_t* module() const override { return L"throwing.dll"; }
    const wchar_t* globalName() const override { return L"THROWOUT"; }
    const wchar_t* localName() const override { return L"THROWOUT"; }
    const wchar_t* description() const override { return L""; }
};

class Application final : public IQuelCmdApplication
{
public:
    int initialize() override { return 1; }
    int registCommand(IQuelCommandStore* store) override
    {
        return store->addCommand(&m_factory, 0);
    }
    int unregistCommand(IQuelCommandStore* store) override
    {
        return store->removeCommand(L"THROWOUT");
    }
    void uninitialize() override {}
    int sendMessage(QuelCmdAppMsg, void*, void*) override { return 0; }

private:
    ThrowOutFactory m_factory;
};

Application application;

} // namespace

extern "C" QUEL_HOST_API IQuelCmdApplication* GetQuelCmdApplication();
IQuelCmdApplication* GetQuelCmdApplication()
{
    return &application;
}
