#include "module/customizationcommandapp.h"

int VxCustomizationCommandApp::initialize()
{
    return 1;
}

int VxCustomizationCommandApp::registCommand(IQuelCommandStore* store)
{
    store->addCommand(&m_cuiLoad, 0);
    store->addCommand(&m_cuiUnload, 0);
    store->addCommand(&m_menuLoad, 0);
    store->addCommand(&m_menuUnload, 0);
    store->addCommand(&m_menu, 0);
    store->addCommand(&m_customize, 0);
    return store->addCommand(&m_reinit, 0);
}

int VxCustomizationCommandApp::unregistCommand(IQuelCommandStore* store)
{
    store->removeCommand(Quel6940Command::kGlobalName);
    store->removeCommand(Quel6941Command::kGlobalName);
    store->removeCommand(Quel6916Command::kGlobalName);
    store->removeCommand(Quel6917Command::kGlobalName);
    store->removeCommand(Quel6915Command::kGlobalName);
    store->removeCommand(Quel60005Command::kGlobalName);
    return store->removeCommand(Quel6935Command::kGlobalName);
}

void VxCustomizationCommandApp::uninitialize() {}

int VxCustomizationCommandApp::sendMessage(QuelCmdAppMsg, void*, void*)
{
    return 0;
}

extern "C" IQuelCmdApplication* GetQuelCmdApplication()
{
    static VxCustomizationCommandApp application;
    return &application;
}
