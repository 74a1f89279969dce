// A command module whose commands go wrong in every way that a host must survive.
#include "host/commands.h"
#include "host/errors.h"
#include "host/prompts.h"

#include <array>
#include <stdexcept>

namespace {

using Action = int (*)(IQuelBuildInCommandContext&);

class FaultyCommand final : public IQuelBuildInCommand
{
public:
    explicit FaultyCommand(Action action)
        : m_action(action)
    {}
    int execute(IQuelBuildInCommandContext* context) override { return m_action(*context); }

private:
    const Action m_action;
};

class FaultyFactory final : public IQuelCommandFactory
{
public:
    FaultyFactory(const wchar_t* name, Action action)
        : m_name(name)
        , m_action(action)
    {}
    IQuelBuildInCommand* create() override { return new FaultyCommand(m_action); }
    void release(IQuelBuildInCommand* command) override { delete command; }
    unsigned int flags() const override { return 0; }
    void addFlags(unsigned int, bool) override {}
    const wchar_t* module() const override { return L"faulty"; }
    const wchar_t* globalName() const override { return m_name; }
    const wchar_t* localName() const override { return m_name; }
    const wchar_t* description() const override { return L""; }

private:
    const wchar_t* const m_name;
    const Action m_action;
};

int throwStatus(IQuelBuildInCommandContext&)
{
    throw new VxErrorStatus(Quel::eNoMemory, L"", 0);
}

int throwMessage(IQuelBuildInCommandContext&)
{
    throw new VxExceptionWithMsg(L"", 0, L"the valve is stuck");
}

int throwStandard(IQuelBuildInCommandContext&)
{
    throw std::runtime_error("the pipe burst");
}

int throwNumber(IQuelBuildInCommandContext&)
{
    throw 7;
}

int leaveScopeOpen(IQuelBuildInCommandContext& context)
{
    return context.enterResourceScope(L"VxCuiCmdsRes.dll") ? 1 : 0;
}

int promptUntilCancelled(IQuelBuildInCommandContext&)
{
    std::array<wchar_t, kQuelStringAnswerRoom> answer{};
    int status = QuelStatus::kNormal;
    while (status != QuelStatus::kCancelled)
        status = quedGetString(0, L"More:", answer.data());
    return status;
}

class FaultyApplication final : public IQuelCmdApplication
{
public:
    int initialize() override { return 1; }
    int registCommand(IQuelCommandStore* store) override
    {
        int result = 0;
        for (FaultyFactory& factory : m_factories)
            result = store->addCommand(&factory, 0);
        return result;
    }
    int unregistCommand(IQuelCommandStore* store) override
    {
        int result = 0;
        for (FaultyFactory& factory : m_factories)
            result = store->removeCommand(factory.globalName());
        return result;
    }
    void uninitialize() override {}
    int sendMessage(QuelCmdAppMsg, void*, void*) override { return 0; }

private:
    std::array<FaultyFactory, 6> m_factories{{{L"THROWSTATUS", throwStatus},
                                              {L"THROWMESSAGE", throwMessage},
                                              {L"THROWSTANDARD", throwStandard},
                                              {L"THROWNUMBER", throwNumber},
                                              {L"LEAVEOPEN", leaveScopeOpen},
                                              {L"ASKON", promptUntilCancelled}}};
};

} // namespace

extern "C" __attribute__((visibility("default"))) IQuelCmdApplication* GetQuelCmdApplication()
{
    static FaultyApplication application;
    return &application;
}
