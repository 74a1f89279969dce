#include "refhost/core/commandstore.h"

#include "tests/support/functioncommand.h"
#include "tests/support/rawslots.h"

#include <gtest/gtest.h>

#include <string>

using namespace quelhost;
using namespace quelhost::test;

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

// The command of that name as a short text: its global name, or "none".
std::wstring found(const CommandStore& store, const char* name)
{
    const IQuelCommandFactory* factory = store.find(text(name));
    return factory == nullptr ? L"none" : factory->globalName();
}

} // namespace

TEST(CommandStore, HoldsCommandsInTheOrderInWhichTheyCame)
{
    FunctionCommand menu(L"MENU");
    FunctionCommand echo(L"ECHO");
    CommandStore store;
    EXPECT_EQ(store.addCommand(&menu, 0), 0);
    EXPECT_EQ(store.addCommand(&echo, 0), 0);
    EXPECT_EQ(store.all(), (std::vector<IQuelCommandFactory*>{&menu, &echo}));
    EXPECT_EQ(store.removeCommand(L"MENU"), 0);
    EXPECT_EQ(store.all(), std::vector<IQuelCommandFactory*>{&echo});
    EXPECT_EQ(menu.created + menu.released + echo.created + echo.released, 0);
}

TEST(CommandStore, AGlobalNameIsTakenInAnyCase)
{
    FunctionCommand first(L"MENU", L"MEN\u00DC", {});
    FunctionCommand second(L"Menu", L"other", {});
    FunctionCommand third(L"THIRD", L"MENU", {});
    CommandStore store;
    EXPECT_EQ(store.addCommand(&first, 0), 0);
    EXPECT_EQ(store.addCommand(&second, 0), 1);
    EXPECT_EQ(store.addCommand(&first, 0), 1);
    EXPECT_EQ(store.all(), std::vector<IQuelCommandFactory*>{&first});
    EXPECT_EQ(store.addCommand(&third, 0), 0);
}

TEST(CommandStore, RemovesByGlobalNameInAnyCaseOnly)
{
    FunctionCommand menu(L"MENU", L"MEN\u00DC", {});
    CommandStore store;
    EXPECT_EQ(store.removeCommand(L"MENU"), 1);
    EXPECT_EQ(store.addCommand(&menu, 0), 0);
    EXPECT_EQ(store.removeCommand(L"MEN\u00DC"), 1);
    EXPECT_EQ(store.removeCommand(L""), 1);
    EXPECT_EQ(store.removeCommand(L"menu"), 0);
    EXPECT_EQ(store.removeCommand(L"MENU"), 1);
    EXPECT_TRUE(store.all().empty());
}

TEST(CommandStore, FindsByLocalizedAndByGlobalNameInAnyCase)
{
    FunctionCommand menu(L"MENU", L"MEN\u00DC", {});
    FunctionCommand echo(L"ECHO");
    CommandStore store;
    ASSERT_EQ(store.addCommand(&menu, 0), 0);
    ASSERT_EQ(store.addCommand(&echo, 0), 0);
    EXPECT_EQ(found(store, "MEN\xC3\x9C"), L"MENU");
    EXPECT_EQ(found(store, "men\xC3\xBC"), L"MENU");
    EXPECT_EQ(found(store, "menu"), L"MENU");
    EXPECT_EQ(found(store, "Echo"), L"ECHO");
    for (const char* name : {"", "MEN", "MENUS", " MENU"})
        EXPECT_EQ(found(store, name), L"none");
}

TEST(CommandStore, ALocalizedNameGoesBeforeAGlobalOne)
{
    FunctionCommand global(L"LOAD", L"LADEN", {});
    FunctionCommand local(L"OTHER", L"LOAD", {});
    CommandStore store;
    ASSERT_EQ(store.addCommand(&global, 0), 0);
    ASSERT_EQ(store.addCommand(&local, 0), 0);
    EXPECT_EQ(found(store, "load"), L"OTHER");
    EXPECT_EQ(found(store, "laden"), L"LOAD");
}

TEST(CommandStore, NamesAreSortedAndEachIsThereOnce)
{
    FunctionCommand menu(L"MENU", L"ZMENU", {});
    FunctionCommand echo(L"ECHO");
    FunctionCommand other(L"OTHER", L"ECHO", {});
    CommandStore store;
    for (FunctionCommand* command : {&menu, &echo, &other})
        ASSERT_EQ(store.addCommand(command, 0), 0);
    EXPECT_EQ(store.names(),
              (QStringList{text("ECHO"), text("MENU"), text("OTHER"), text("ZMENU")}));
}

TEST(CommandStore, AModuleReachesItThroughItsTwoSlots)
{
    FunctionCommand menu(L"MENU");
    CommandStore store;
    const auto* interface = static_cast<IQuelCommandStore*>(&store);
    IQuelCommandFactory* const factory = &menu;
    const wchar_t* const name = L"MENU";
    EXPECT_EQ(raw::call<int>(interface, 0, factory, 0), 0);
    EXPECT_EQ(raw::call<int>(interface, 0, factory, 0), 1);
    EXPECT_EQ(raw::call<int>(interface, 1, name), 0);
    EXPECT_EQ(raw::call<int>(interface, 1, name), 1);
}
