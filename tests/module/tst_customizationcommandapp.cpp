#include "module/customizationcommandapp.h"

#include "tests/support/rawslots.h"
#include "tests/support/recordinghost.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <type_traits>

using recording::host;
using Lines = std::vector<std::string>;

namespace {

const Lines kAddedInOrder{
    "addCommand(\"CUILOAD\", 0) -> 0",  "addCommand(\"CUIUNLOAD\", 0) -> 0",
    "addCommand(\"MENULOAD\", 0) -> 0", "addCommand(\"MENUUNLOAD\", 0) -> 0",
    "addCommand(\"MENU\", 0) -> 0",     "addCommand(\"CUSTOMIZE\", 0) -> 0",
    "addCommand(\"REINIT\", 0) -> 0",
};
const Lines kRemovedInOrder{
    "removeCommand(\"CUILOAD\") -> 0",  "removeCommand(\"CUIUNLOAD\") -> 0",
    "removeCommand(\"MENULOAD\") -> 0", "removeCommand(\"MENUUNLOAD\") -> 0",
    "removeCommand(\"MENU\") -> 0",     "removeCommand(\"CUSTOMIZE\") -> 0",
    "removeCommand(\"REINIT\") -> 0",
};

std::vector<unsigned char> bytesOf(const void* object, std::size_t size)
{
    std::vector<unsigned char> bytes(size);
    std::memcpy(bytes.data(), object, size);
    return bytes;
}

// A store as a host compiled elsewhere has it.
struct StoreByTable : raw::Object<IQuelCommandStore, 2>
{
    using Self = raw::Object<IQuelCommandStore, 2>;
    std::vector<std::pair<IQuelCommandFactory*, int>> added;
    std::vector<std::wstring> removed;

    StoreByTable()
    {
        set(
            0, +[](Self* self, IQuelCommandFactory* factory, int value) {
                static_cast<StoreByTable*>(self)->added.emplace_back(factory, value);
                return 11;
            });
        set(
            1, +[](Self* self, const wchar_t* name) {
                static_cast<StoreByTable*>(self)->removed.emplace_back(name);
                return 22;
            });
    }
};

} // namespace

TEST(CustomizationCommandApp, TheEntryPointGivesTheSameObjectEveryTime)
{
    IQuelCmdApplication* const first = GetQuelCmdApplication();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(GetQuelCmdApplication(), first);
    EXPECT_EQ(GetQuelCmdApplication(), first);
    EXPECT_EQ(host().trace, Lines{});
}

TEST(CustomizationCommandApp, RegistersSevenCommandsInOrderEachWithZero)
{
    VxCustomizationCommandApp application;
    recording::CommandStore store;
    application.registCommand(&store);
    EXPECT_EQ(host().trace, kAddedInOrder);
}

TEST(CustomizationCommandApp, RegistersItsOwnFactoriesInTheirOrder)
{
    VxCustomizationCommandApp application;
    recording::CommandStore store;
    application.registCommand(&store);
    ASSERT_EQ(store.added.size(), 7U);
    EXPECT_NE(dynamic_cast<Quel6940CmdFactory*>(store.added[0]), nullptr);
    EXPECT_NE(dynamic_cast<Quel6941CmdFactory*>(store.added[1]), nullptr);
    EXPECT_NE(dynamic_cast<Quel6916CmdFactory*>(store.added[2]), nullptr);
    EXPECT_NE(dynamic_cast<Quel6917CmdFactory*>(store.added[3]), nullptr);
    EXPECT_NE(dynamic_cast<Quel6915CmdFactory*>(store.added[4]), nullptr);
    EXPECT_NE(dynamic_cast<Quel60005CmdFactory*>(store.added[5]), nullptr);
    EXPECT_NE(dynamic_cast<Quel6935CmdFactory*>(store.added[6]), nullptr);
}

TEST(CustomizationCommandApp, HoldsTheSevenFactoriesOneAfterTheOtherAndNothingElse)
{
    VxCustomizationCommandApp application;
    recording::CommandStore store;
    application.registCommand(&store);
    ASSERT_EQ(store.added.size(), 7U);
    const char* expected = reinterpret_cast<const char*>(&application) + sizeof(void*);
    for (const IQuelCommandFactory* factory : store.added) {
        EXPECT_EQ(reinterpret_cast<const char*>(factory), expected);
        expected += sizeof(Quel6940CmdFactory);
    }
    EXPECT_EQ(sizeof application, sizeof(void*) + 7 * sizeof(Quel6940CmdFactory));
}

TEST(CustomizationCommandApp, RemovesByTheSevenNamesInTheSameOrder)
{
    VxCustomizationCommandApp application;
    recording::CommandStore store;
    application.unregistCommand(&store);
    EXPECT_EQ(host().trace, kRemovedInOrder);
}

TEST(CustomizationCommandApp, AttemptsEachRemovalWhenTheStoreHoldsNone)
{
    VxCustomizationCommandApp application;
    recording::CommandStore store;
    store.results.usually(1);
    EXPECT_EQ(application.unregistCommand(&store), 1);
    EXPECT_EQ(store.removedNames.size(), 7U);
}

TEST(CustomizationCommandApp, RemovesByTheConstantsThatTheFactoriesReport)
{
    VxCustomizationCommandApp application;
    recording::CommandStore store;
    application.registCommand(&store);
    application.unregistCommand(&store);
    ASSERT_EQ(store.removedNames.size(), 7U);
    for (std::size_t i = 0; i < 7; ++i)
        EXPECT_EQ(store.removedNames[i], store.added[i]->globalName()) << i;
}

TEST(CustomizationCommandApp, HandsBackTheSeventhResultWhateverItSays)
{
    for (const int last : {0, 1, -1, 123456, INT_MIN, INT_MAX}) {
        recording::reset();
        VxCustomizationCommandApp application;
        recording::CommandStore store;
        for (int i = 0; i < 6; ++i)
            store.results.next(777);
        store.results.next(last);
        EXPECT_EQ(application.registCommand(&store), last);
        EXPECT_EQ(store.added.size(), 7U);
        for (int i = 0; i < 6; ++i)
            store.results.next(777);
        store.results.next(last);
        EXPECT_EQ(application.unregistCommand(&store), last);
        EXPECT_EQ(store.removedNames.size(), 7U);
    }
}

TEST(CustomizationCommandApp, HidesTheFirstSixResults)
{
    VxCustomizationCommandApp application;
    recording::CommandStore store;
    store.results.usually(1);
    for (int i = 0; i < 6; ++i)
        store.results.next(1);
    store.results.next(0);
    EXPECT_EQ(application.registCommand(&store), 0);
}

TEST(CustomizationCommandApp, HandsOverTheSameFactoriesAgainAfterRemoval)
{
    VxCustomizationCommandApp application;
    recording::CommandStore first;
    recording::CommandStore second;
    application.registCommand(&first);
    application.unregistCommand(&first);
    application.registCommand(&second);
    EXPECT_EQ(second.added, first.added);
}

TEST(CustomizationCommandApp, WorksInAnyOrderAnyNumberOfTimes)
{
    VxCustomizationCommandApp application;
    recording::CommandStore store;
    application.uninitialize();
    EXPECT_EQ(application.unregistCommand(&store), 0);
    EXPECT_EQ(application.registCommand(&store), 0);
    EXPECT_EQ(application.registCommand(&store), 0);
    EXPECT_EQ(application.initialize(), 1);
    application.uninitialize();
    EXPECT_EQ(application.initialize(), 1);
    EXPECT_EQ(store.added.size(), 14U);
    EXPECT_EQ(store.removedNames.size(), 7U);
}

TEST(CustomizationCommandApp, InitializeAndUninitializeChangeNothing)
{
    VxCustomizationCommandApp application;
    const auto before = bytesOf(&application, sizeof application);
    EXPECT_EQ(application.initialize(), 1);
    EXPECT_EQ(application.initialize(), 1);
    application.uninitialize();
    EXPECT_EQ(bytesOf(&application, sizeof application), before);
    EXPECT_EQ(host().trace, Lines{});
}

TEST(CustomizationCommandApp, IgnoresEveryMessage)
{
    VxCustomizationCommandApp application;
    const auto before = bytesOf(&application, sizeof application);
    int something = 5;
    for (const int message : {INT_MIN, -1, 0, 1, 2, 3, 1000, INT_MAX}) {
        const auto sent = static_cast<QuelCmdAppMsg>(message);
        EXPECT_EQ(application.sendMessage(sent, nullptr, nullptr), 0) << message;
        EXPECT_EQ(application.sendMessage(sent, &something, nullptr), 0) << message;
        EXPECT_EQ(application.sendMessage(sent, nullptr, &something), 0) << message;
    }
    EXPECT_EQ(something, 5);
    EXPECT_EQ(bytesOf(&application, sizeof application), before);
    EXPECT_EQ(host().trace, Lines{});
}

TEST(CustomizationCommandApp, SaysNothingToTheHostWhenItIsDestroyed)
{
    {
        VxCustomizationCommandApp application;
        recording::CommandStore store;
        application.registCommand(&store);
        host().trace.clear();
    }
    EXPECT_EQ(host().trace, Lines{});
}

TEST(CustomizationCommandApp, AnswersThroughItsTableInTheOrderOfTheContract)
{
    VxCustomizationCommandApp application;
    recording::CommandStore store;
    auto* const asStore = static_cast<IQuelCommandStore*>(&store);
    EXPECT_EQ(raw::call<int>(&application, 0), 1);
    EXPECT_EQ(raw::call<int>(&application, 1, asStore), 0);
    EXPECT_EQ(host().trace, kAddedInOrder);
    host().trace.clear();
    EXPECT_EQ(raw::call<int>(&application, 2, asStore), 0);
    EXPECT_EQ(host().trace, kRemovedInOrder);
    host().trace.clear();
    raw::call<void>(&application, 3);
    void* const parameter = nullptr;
    EXPECT_EQ(raw::call<int>(&application, 4, kQuelSessionStarted, parameter, parameter), 0);
    EXPECT_EQ(host().trace, Lines{});
}

TEST(CustomizationCommandApp, CallsTheStoreThroughItsFirstTwoSlots)
{
    VxCustomizationCommandApp application;
    StoreByTable store;
    EXPECT_EQ(application.registCommand(store.get()), 11);
    EXPECT_EQ(application.unregistCommand(store.get()), 22);
    ASSERT_EQ(store.added.size(), 7U);
    for (const auto& [factory, value] : store.added) {
        EXPECT_NE(factory, nullptr);
        EXPECT_EQ(value, 0);
    }
    EXPECT_EQ(store.removed,
              (std::vector<std::wstring>{L"CUILOAD", L"CUIUNLOAD", L"MENULOAD", L"MENUUNLOAD",
                                         L"MENU", L"CUSTOMIZE", L"REINIT"}));
}

TEST(CustomizationCommandApp, HasNoVirtualDestructor)
{
    EXPECT_FALSE(std::has_virtual_destructor_v<IQuelCmdApplication>);
    EXPECT_FALSE(std::has_virtual_destructor_v<VxCustomizationCommandApp>);
    EXPECT_FALSE(std::has_virtual_destructor_v<IQuelCommandStore>);
    EXPECT_TRUE((std::is_base_of_v<IQuelCmdApplication, VxCustomizationCommandApp>));
}
