// A command module with one command, GREET, which uses the host and the toolkit a little.
#include "host/commands.h"
#include "host/dialogs.h"
#include "host/output.h"

#include <QLabel>

namespace {

class Greet final : public IQuelBuildInCommand
{
public:
    int execute(IQuelBuildInCommandContext*) override
    {
        QLabel label;
        CWnd(&label).SetWindowText(L"from another place");
        quutPrintf(L"Hello %ls!\n", label.text().toStdWString().c_str());
        return QuelStatus::kNormal;
    }
};

class GreetFactory final : public IQuelCommandFactory
{
public:
    IQuelBuildInCommand* create() override { return new Greet; }
    void release(IQuelBuildInCommand* command) override { delete command; }
    unsigned int flags() const override { return m_flags; }
    void addFlags(unsigned int flags, bool set) override
    {
        m_flags = set ? m_flags | flags : m_flags & ~flags;
    }
    const wchar_t* module() const override { return L"greeting"; }
    const wchar_t* globalName() const override { return L"GREET"; }
    const wchar_t* localName() const override { return L"GREET"; }
    const wchar_t* description() const override { return L""; }

private:
    unsigned int m_flags = 0;
};

class GreetingApplication final : public IQuelCmdApplication
{
public:
    int initialize() override { return 1; }
    int registCommand(IQuelCommandStore* store) override { return store->addCommand(&m_greet, 0); }
    int unregistCommand(IQuelCommandStore* store) override
    {
        return store->removeCommand(L"GREET");
    }
    void uninitialize() override {}
    int sendMessage(QuelCmdAppMsg, void*, void*) override { return 0; }

private:
    GreetFactory m_greet;
};

} // namespace

extern "C" QUEL_HOST_API IQuelCmdApplication* GetQuelCmdApplication()
{
    static GreetingApplication application;
    return &application;
}
