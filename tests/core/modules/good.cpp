// A whole command module in one file: one command, TRYOUT, and word of every call.
#include "host/commands.h"

#include <string>

#include "tests/support/moduletrace.h"

namespace {

class TryOut final : public IQuelBuildInCommand
{
public:
    int execute(IQuelBuildInCommandContext*) override
    {
        noteModuleCall("execute");
        return QuelStatus::kNormal;
    }
};

class TryOutFactory final : public IQuelCommandFactory
{
public:
    IQuelBuildInCommand* create() override { return new TryOut; }
    void release(IQuelBuildInCommand* command) override { delete command; }
    unsigned int flags() const override { return m_flags; }
    void addFlags(unsigned int flags, bool set) override
    {
        m_flags = set ? m_flags | flags : m_flags & ~flags;
    }
    const wchar_t* module() const override { return L"good.dll"; }
    const wchar_t* globalName() const override { return L"TRYOUT"; }
    const wchar_t* localName() const override { return L"TRYOUT"; }
    const wchar_t* description() const override { return L""; }

private:
    unsigned int m_flags = 0;
};

class Application final : public IQuelCmdApplication
{
public:
    int initialize() override
    {
        noteModuleCall("initialize");
        return 1;
    }
    int registCommand(IQuelCommandStore* store) override
    {
        noteModuleCall("registCommand");
        return store->addCommand(&m_factory, 0);
    }
    int unregistCommand(IQuelCommandStore* store) override
    {
        noteModuleCall("unregistCommand");
        return store->removeCommand(L"TRYOUT");
    }
    void uninitialize() override { noteModuleCall("uninitialize"); }
    int sendMessage(QuelCmdAppMsg message, void*, void*) override
    {
        noteModuleCall(("message " + std::to_string(message)).c_str());
        return 0;
    }

private:
    TryOutFactory m_factory;
};

Application application;

} // namespace

extern "C" QUEL_HOST_API IQuelCmdApplication* GetQuelCmdApplication();
IQuelCmdApplication* GetQuelCmdApplication()
{
    return &application;
}
