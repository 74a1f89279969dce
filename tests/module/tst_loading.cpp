// The built module as a host sees it: a file that is loaded, used and unloaded. None of the
// module's sources is linked into this program.
#include "host/commands.h"
#include "host/errors.h"
#include "host/qustring.h"

#include "refhost/core/widetext.h"
#include "tests/support/memorywatch.h"
#include "tests/support/menufolder.h"
#include "tests/support/rawslots.h"
#include "tests/support/recordinghost.h"

#include <gtest/gtest.h>

#include <dlfcn.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <thread>

using recording::host;
using Lines = std::vector<std::string>;

// Functions of the names that the module has for its own use. A call from inside the module that
// ends here would run a host's code in place of the module's.
namespace {
int decoyCalls = 0;
} // namespace

#define QUEL_DECOY __attribute__((visibility("default")))
QUEL_DECOY QuString qumdQuResourceString(unsigned int id);
QUEL_DECOY bool isCustomizationFile(const std::wstring& path);
QUEL_DECOY int runMenuLoadDialog(IQuelBuildInCommandContext* context);
extern "C" QUEL_DECOY IQuelCmdApplication* GetQuelCmdApplication();

QuString qumdQuResourceString(unsigned int)
{
    ++decoyCalls;
    return QuString(L"decoy");
}
bool isCustomizationFile(const std::wstring&)
{
    ++decoyCalls;
    return false;
}
int runMenuLoadDialog(IQuelBuildInCommandContext*)
{
    ++decoyCalls;
    return 0;
}
extern "C" IQuelCmdApplication* GetQuelCmdApplication()
{
    ++decoyCalls;
    return nullptr;
}

#if defined(__SANITIZE_ADDRESS__)
// Freed memory is given back soon, or a test could not tell growth from caution.
extern "C" __attribute__((visibility("default"))) const char* __asan_default_options()
{
    return "quarantine_size_mb=1";
}
#endif

namespace {

// A loaded module, unloaded at the end of its life.
class Module
{
public:
    Module()
        : m_handle(dlopen(VXCUICMDS_PATH, RTLD_NOW | RTLD_LOCAL))
    {
        if (m_handle == nullptr)
            throw std::runtime_error(dlerror());
    }
    ~Module() { dlclose(m_handle); }
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;

    template<typename Function>
    [[nodiscard]] Function function(const char* name) const
    {
        void* const symbol = dlsym(m_handle, name);
        Function result = nullptr;
        std::memcpy(&result, &symbol, sizeof result);
        return result;
    }

    [[nodiscard]] IQuelCmdApplication* application() const
    {
        return function<GetQuelCmdApplicationFunction>("GetQuelCmdApplication")();
    }

private:
    void* m_handle;
};

// The module as a host uses it from start to end.
class Session
{
public:
    Session()
        : m_application(m_module.application())
    {
        m_application->initialize();
        m_application->registCommand(&m_store);
    }
    ~Session()
    {
        m_application->unregistCommand(&m_store);
        m_application->uninitialize();
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    [[nodiscard]] const std::vector<IQuelCommandFactory*>& factories() const
    {
        return m_store.added;
    }

    int run(const std::wstring& globalName)
    {
        for (IQuelCommandFactory* factory : factories()) {
            if (factory->globalName() == globalName)
                return runOnce(*factory);
        }
        throw std::runtime_error("no such command");
    }

private:
    int runOnce(IQuelCommandFactory& factory)
    {
        const auto release = [&factory](IQuelBuildInCommand* command) { factory.release(command); };
        const std::unique_ptr<IQuelBuildInCommand, decltype(release)> command(factory.create(),
                                                                              release);
        return command->execute(&m_context);
    }

    Module m_module;
    IQuelCmdApplication* m_application;
    recording::CommandStore m_store;
    recording::Context m_context;
};

int linesOfTheModuleInTheProcess()
{
    std::ifstream maps("/proc/self/maps");
    int count = 0;
    for (std::string line; std::getline(maps, line);)
        count += line.find("libVxCuiCmds") != std::string::npos ? 1 : 0;
    return count;
}

long residentBytes()
{
    std::ifstream statm("/proc/self/statm");
    long total = 0;
    long resident = 0;
    statm >> total >> resident;
    return resident * sysconf(_SC_PAGESIZE);
}

void runEveryCommand(Session& session)
{
    for (const IQuelCommandFactory* factory : session.factories()) {
        factory->localName();
        factory->description();
        session.run(factory->globalName());
    }
    host().strings.next({5100, L"~"});
    session.run(L"MENULOAD");
}

} // namespace

TEST(Loading, CallsNoHostFunctionWhileItLoads)
{
    const Module module;
    EXPECT_NE(module.application(), nullptr);
    EXPECT_EQ(host().trace, Lines{});
}

TEST(Loading, HasItsEntryPointUnderThePlainName)
{
    const Module module;
    const auto entry = module.function<GetQuelCmdApplicationFunction>("GetQuelCmdApplication");
    ASSERT_NE(entry, nullptr);
    IQuelCmdApplication* const application = entry();
    ASSERT_NE(application, nullptr);
    EXPECT_EQ(entry(), application);
    EXPECT_EQ(module.application(), application);
    EXPECT_EQ(decoyCalls, 0);
}

TEST(Loading, MakesOneApplicationWhenTwoThreadsAskFirst)
{
    for (int round = 0; round < 50; ++round) {
        const Module module;
        std::atomic<int> waiting{2};
        IQuelCmdApplication* found[2] = {};
        const auto ask = [&](std::size_t which) {
            --waiting;
            while (waiting > 0) {
            }
            found[which] = module.application();
        };
        std::thread other(ask, 1);
        ask(0);
        other.join();
        EXPECT_NE(found[0], nullptr);
        ASSERT_EQ(found[0], found[1]) << round;
    }
}

TEST(Loading, AnswersThroughTheTablesAcrossTheBorder)
{
    const Module module;
    const IQuelCmdApplication* const application = module.application();
    recording::CommandStore store;
    EXPECT_EQ(raw::call<int>(application, 0), 1);
    EXPECT_EQ(raw::call<int>(application, 1, static_cast<IQuelCommandStore*>(&store)), 0);
    ASSERT_EQ(store.added.size(), 7U);
    EXPECT_STREQ(raw::call<const wchar_t*>(store.added[0], 5), L"CUILOAD");
    EXPECT_EQ(raw::call<int>(application, 2, static_cast<IQuelCommandStore*>(&store)), 0);
    raw::call<void>(application, 3);
}

TEST(Loading, RunsEveryCommandAndLeavesNothingBehind)
{
    {
        Session session;
        ASSERT_EQ(session.factories().size(), 7U);
        runEveryCommand(session);
    }
    EXPECT_EQ(host().count("enterResourceScope"), host().count("leaveResourceScope"));
    EXPECT_EQ(host().count("SetCurrentResourceName"), host().count("RestorePreviousResource"));
    EXPECT_GE(host().count("enterResourceScope"), 8);
    EXPECT_EQ(host().count("DoModal"), 1);
    EXPECT_EQ(host().leavesWithoutEnter, 0);
    EXPECT_EQ(host().resourceStack.size(), 1U);
    EXPECT_EQ(host().count("removeCommand"), 7);
    EXPECT_EQ(linesOfTheModuleInTheProcess(), 0);
}

TEST(Loading, IsInTheProcessOnlyWhileItIsLoaded)
{
    EXPECT_EQ(linesOfTheModuleInTheProcess(), 0);
    {
        const Module module;
        EXPECT_GT(linesOfTheModuleInTheProcess(), 0);
    }
    EXPECT_EQ(linesOfTheModuleInTheProcess(), 0);
}

TEST(Loading, LeavesTheProcessAfterDialogsToo)
{
    for (int round = 0; round < 20; ++round) {
        recording::reset();
        host().strings.next({5100, L"~"});
        {
            Session session;
            EXPECT_EQ(session.run(L"MENULOAD"), 5100);
        }
        EXPECT_EQ(host().count("DoModal"), 1);
        ASSERT_EQ(linesOfTheModuleInTheProcess(), 0) << round;
    }
}

TEST(Loading, StartsAnewWhenItIsLoadedAgain)
{
    for (int round = 0; round < 3; ++round) {
        Session session;
        for (IQuelCommandFactory* factory : session.factories()) {
            EXPECT_EQ(factory->flags(), 0U) << round;
            factory->addFlags(0xFF, true);
            EXPECT_EQ(factory->flags(), 0xFFU) << round;
        }
    }
}

TEST(Loading, ForgetsLocalizedNamesWhenItIsLoadedAgain)
{
    for (const wchar_t* name : {L"Menueladen", L"Chargermenu"}) {
        host().resources[L"VxCuiCmdsRes.dll"][6916] = name;
        const Session session;
        EXPECT_STREQ(session.factories()[2]->localName(), name);
    }
}

TEST(Loading, WhatItStoredCanBeReadWhenItIsGone)
{
    const recording::MenuFolder folder;
    const std::wstring path = folder.file(L"plant.cuix");
    host().setStringSetting(L"CUIX/LoadedCuix", L"/t/main.cuix");
    host().strings.next({5100, path});
    {
        Session session;
        EXPECT_EQ(session.run(L"MENULOAD"), 5100);
    }
    EXPECT_EQ(host().stringSetting(L"CUIX/LoadedCuix"), L"/t/main.cuix;" + path);
    EXPECT_EQ(host().printed, L"\nLoading \"" + path + L"\" success.group:GROUP\n");
}

TEST(Loading, CallsItsOwnFunctionsWhenTheHostHasSomeOfTheSameName)
{
    const recording::MenuFolder folder;
    host().setStringSetting(L"CUIX/LoadedCuix", L"");
    host().strings.next({5100, folder.file(L"plant.cuix")});
    host().strings.next({5100, L"~"});
    {
        Session session;
        EXPECT_EQ(session.run(L"MENULOAD"), 5100);
        EXPECT_EQ(session.run(L"MENULOAD"), 5100);
        EXPECT_EQ(host().count("setValue"), 1);
        EXPECT_EQ(host().count("DoModal"), 1);
        const Module again;
        const auto lookup = again.function<QuString (*)(unsigned int)>("_Z20qumdQuResourceStringj");
        ASSERT_NE(lookup, nullptr);
        host().resources[L"QUELDRes.dll"][8051] = L"own";
        EXPECT_STREQ(lookup(8051).kwszPtr(), L"own");
    }
    EXPECT_EQ(decoyCalls, 0);
}

// The application object is made by the first call.
TEST(Loading, NeedsNoMemoryToStart)
{
    const Module module;
    const auto entry = module.function<GetQuelCmdApplicationFunction>("GetQuelCmdApplication");
    recording::MemoryWatch watch(recording::Refusal::from(1));
    EXPECT_EQ(watch.run([entry] { return entry()->initialize(); }), 1);
    EXPECT_EQ(watch.live(), Lines{});
}

TEST(Loading, ItsErrorsCanBeReadWhenItIsGone)
{
    const recording::MenuFolder folder;
    const std::wstring path = folder.file(L"plant.cuix");
    const std::wstring old(3000, L'x');
    host().setStringSetting(L"CUIX/LoadedCuix", old);
    host().strings.next({5100, path});
    VxErrorStatus* error = nullptr;
    {
        Session session;
        // The block of the new list: the size, both texts, the separator and the final zero.
        const std::size_t newBlock = 4 + (old.size() + 1 + path.size() + 1) * 4;
        recording::MemoryWatch watch(recording::Refusal::ofSize(newBlock));
        try {
            watch.run([&session] { session.run(L"MENULOAD"); });
        } catch (VxErrorStatus* caught) {
            error = caught;
        }
        EXPECT_EQ(watch.refused(), 1);
    }
    ASSERT_EQ(linesOfTheModuleInTheProcess(), 0);
    ASSERT_NE(error, nullptr);
    EXPECT_EQ(error->status(), 6);
    EXPECT_STREQ(error->context(), L"\"\"");
    EXPECT_EQ(error->code(), 0);
    ASSERT_EQ(host().crashes.size(), 1U);
    EXPECT_EQ(host().crashes[0].address, error);
    EXPECT_EQ(host().crashes[0].context, L"\"\"");
    EXPECT_EQ(host().count("leaveResourceScope"), 1);
    delete error;
}

TEST(LoadingDeathTest, TheProcessMayEndWhileItIsRegistered)
{
    const auto endWithoutUnregistering = [] {
        void* const handle = dlopen(VXCUICMDS_PATH, RTLD_NOW | RTLD_LOCAL);
        void* const symbol = dlsym(handle, "GetQuelCmdApplication");
        GetQuelCmdApplicationFunction entry = nullptr;
        std::memcpy(&entry, &symbol, sizeof entry);
        static recording::CommandStore store;
        entry()->initialize();
        entry()->registCommand(&store);
        store.added[2]->localName();
        host().announce = true; // whatever the module says to the host from here is seen
        std::fputs("nothing after this\n", stderr);
        std::exit(store.added.size() == 7 ? 0 : 1);
    };
    EXPECT_EXIT(endWithoutUnregistering(), testing::ExitedWithCode(0), "nothing after this\n$");
}

TEST(LoadingRounds, AThousandRoundsNeedNoMoreMemoryThanAFew)
{
    const auto round = [] {
        recording::reset();
        Session session;
        runEveryCommand(session);
    };
    for (int i = 0; i < 100; ++i)
        round();
    const long before = residentBytes();
    for (int i = 0; i < 1000; ++i)
        round();
    const long growth = residentBytes() - before;
    std::cout << "growth over 1000 rounds: " << growth << " bytes\n";
    EXPECT_LT(growth, 1024L * 1024);
    EXPECT_EQ(linesOfTheModuleInTheProcess(), 0);
}
