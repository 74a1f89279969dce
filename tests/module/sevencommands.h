// The seven commands as the host knows them, for tests that go through all of them.
#pragma once

#include "module/customizationcommandapp.h"

#include <memory>
#include <string>
#include <typeinfo>
#include <vector>

struct CommandRow
{
    unsigned int number;
    const wchar_t* globalName;
    const char* name; // the global name, for messages of tests
    const std::type_info& commandClass;
    std::unique_ptr<IQuelCommandFactory, void (*)(IQuelCommandFactory*)> (*newFactory)();
};

using FactoryPointer = std::unique_ptr<IQuelCommandFactory, void (*)(IQuelCommandFactory*)>;

// The interface has no virtual destructor, so a factory is deleted as what it is.
template<typename Factory>
FactoryPointer newFactory()
{
    return FactoryPointer(
        new Factory, [](IQuelCommandFactory* factory) { delete static_cast<Factory*>(factory); });
}

inline const std::vector<CommandRow>& sevenCommands()
{
    static const std::vector<CommandRow> rows{
        {6940, L"CUILOAD", "CUILOAD", typeid(Quel6940Command), newFactory<Quel6940CmdFactory>},
        {6941, L"CUIUNLOAD", "CUIUNLOAD", typeid(Quel6941Command), newFactory<Quel6941CmdFactory>},
        {6916, L"MENULOAD", "MENULOAD", typeid(Quel6916Command), newFactory<Quel6916CmdFactory>},
        {6917, L"MENUUNLOAD", "MENUUNLOAD", typeid(Quel6917Command),
         newFactory<Quel6917CmdFactory>},
        {6915, L"MENU", "MENU", typeid(Quel6915Command), newFactory<Quel6915CmdFactory>},
        {60005, L"CUSTOMIZE", "CUSTOMIZE", typeid(Quel60005Command),
         newFactory<Quel60005CmdFactory>},
        {6935, L"REINIT", "REINIT", typeid(Quel6935Command), newFactory<Quel6935CmdFactory>},
    };
    return rows;
}
