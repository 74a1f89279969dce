// A command that does what a test says, and keeps count of its objects.
#pragma once

#include "host/commands.h"

#include <functional>
#include <string>
#include <utility>

namespace quelhost::test {

class FunctionCommand final : public IQuelCommandFactory
{
public:
    using Function = std::function<int(IQuelBuildInCommandContext&)>;

    FunctionCommand(std::wstring globalName, std::wstring localName, Function function)
        : m_globalName(std::move(globalName))
        , m_localName(std::move(localName))
        , m_function(std::move(function))
    {}
    explicit FunctionCommand(const std::wstring& name, Function function = {})
        : FunctionCommand(name, name, std::move(function))
    {}

    IQuelBuildInCommand* create() override
    {
        ++created;
        return new Object(m_function);
    }
    void release(IQuelBuildInCommand* command) override
    {
        ++released;
        delete command;
    }
    unsigned int flags() const override { return 0; }
    void addFlags(unsigned int, bool) override {}
    const wchar_t* module() const override { return L"tests"; }
    const wchar_t* globalName() const override { return m_globalName.c_str(); }
    const wchar_t* localName() const override { return m_localName.c_str(); }
    const wchar_t* description() const override { return L"does what a test says"; }

    int created = 0;
    int released = 0;

private:
    class Object final : public IQuelBuildInCommand
    {
    public:
        explicit Object(Function function)
            : m_function(std::move(function))
        {}
        int execute(IQuelBuildInCommandContext* context) override
        {
            return m_function ? m_function(*context) : QuelStatus::kNormal;
        }

    private:
        const Function m_function;
    };

    const std::wstring m_globalName;
    const std::wstring m_localName;
    const Function m_function;
};

} // namespace quelhost::test
