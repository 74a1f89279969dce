// The module's application object and its seven commands.
#pragma once

#include "commands/customizecommand.h"
#include "commands/menuunloadcommand.h"
#include "commands/reinitcommand.h"
#include "menufile/menucommand.h"
#include "menuload/menuloadcommand.h"
#include "module/commandfactory.h"
#include "module/cuiloadcommand.h"
#include "module/cuiunloadcommand.h"

class Quel6940CmdFactory final : public CommandFactory<Quel6940Command>
{};
class Quel6941CmdFactory final : public CommandFactory<Quel6941Command>
{};
class Quel6916CmdFactory final : public CommandFactory<Quel6916Command>
{};
class Quel6917CmdFactory final : public CommandFactory<Quel6917Command>
{};
class Quel6915CmdFactory final : public CommandFactory<Quel6915Command>
{};
class Quel60005CmdFactory final : public CommandFactory<Quel60005Command>
{};
class Quel6935CmdFactory final : public CommandFactory<Quel6935Command>
{};

// The one application object. It keeps no state but its factories, so every operation is safe in
// any order and any number of times.
class VxCustomizationCommandApp final : public IQuelCmdApplication
{
public:
    int initialize() override;
    // Both go through all seven commands in the members' order, whatever the store answers, and
    // hand back its last answer.
    int registCommand(IQuelCommandStore* store) override;
    int unregistCommand(IQuelCommandStore* store) override;
    void uninitialize() override;
    int sendMessage(QuelCmdAppMsg message, void* param1, void* param2) override;

private:
    Quel6940CmdFactory m_cuiLoad;
    Quel6941CmdFactory m_cuiUnload;
    Quel6916CmdFactory m_menuLoad;
    Quel6917CmdFactory m_menuUnload;
    Quel6915CmdFactory m_menu;
    Quel60005CmdFactory m_customize;
    Quel6935CmdFactory m_reinit;
};

// The module's entry point (host/commands.h).
extern "C" __attribute__((visibility("default"))) IQuelCmdApplication* GetQuelCmdApplication();
