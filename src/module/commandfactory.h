// What the seven command factories have in common.
#pragma once

#include "host/commands.h"

#include <string>

// A factory whose names come from the module's resource file and are kept once loaded. Its members
// are the flags word and the two caches, in this order, and nothing else.
class CommandFactoryBase : public IQuelCommandFactory
{
public:
    CommandFactoryBase(const CommandFactoryBase&) = delete;
    CommandFactoryBase& operator=(const CommandFactoryBase&) = delete;

    void release(IQuelBuildInCommand* command) override { delete command; }
    unsigned int flags() const override { return m_flags; }
    void addFlags(unsigned int flags, bool set) override
    {
        m_flags = set ? m_flags | flags : m_flags & ~flags;
    }
    const wchar_t* module() const override;

    // The text of string resource classNumber() or, as long as there is none, the global name.
    const wchar_t* localName() const override;
    // No command has a description, and each call looks for one all the same: a resource file that
    // gains one later is then used without a new module.
    const wchar_t* description() const override;

protected:
    CommandFactoryBase() = default;
    ~CommandFactoryBase() = default;

private:
    // Fills an empty `cache` with string resource `id` and returns whether it holds a text now.
    static bool loadOnce(std::wstring& cache, unsigned int id);

    // The command's class number, which is the resource id of its localized name.
    virtual unsigned int classNumber() const = 0;

    unsigned int m_flags = 0;
    mutable std::wstring m_localName;
    mutable std::wstring m_description;
};

// The factory of a command class, which names itself by kClassNumber and kGlobalName.
template<typename Command>
class CommandFactory : public CommandFactoryBase
{
public:
    IQuelBuildInCommand* create() override { return new Command; }
    const wchar_t* globalName() const override { return Command::kGlobalName; }

protected:
    CommandFactory() = default;
    ~CommandFactory() = default;

private:
    unsigned int classNumber() const override { return Command::kClassNumber; }
};
