// The built module as a host loads and uses it, beside the least that such a library can be.
#include "bench/support/ratios.h"

#include "host/commands.h"

#include <cstring>
#include <string_view>
#include <vector>

#include <dlfcn.h>

namespace {

// Keeps what a module registers, and no more.
class Store final : public IQuelCommandStore
{
public:
    int addCommand(IQuelCommandFactory* factory, int) override
    {
        m_factories.push_back(factory);
        return 0;
    }
    int removeCommand(const wchar_t* globalName) override
    {
        for (auto each = m_factories.begin(); each != m_factories.end(); ++each) {
            if (std::wstring_view((*each)->globalName()) == globalName) {
                m_factories.erase(each);
                return 0;
            }
        }
        return 1;
    }

    [[nodiscard]] const std::vector<IQuelCommandFactory*>& factories() const { return m_factories; }

private:
    std::vector<IQuelCommandFactory*> m_factories;
};

IQuelCmdApplication* applicationOf(void* library)
{
    void* const symbol = dlsym(library, "GetQuelCmdApplication");
    GetQuelCmdApplicationFunction function = nullptr;
    std::memcpy(&function, &symbol, sizeof function);
    return function == nullptr ? nullptr : function();
}

void loadAndUnload(benchmark::State& state)
{
    for (auto _ : state) {
        void* const library = dlopen(QUEL_MODULE, RTLD_NOW | RTLD_LOCAL);
        if (library == nullptr)
            return state.SkipWithError(dlerror());
        Store store;
        IQuelCmdApplication* const application = applicationOf(library);
        application->initialize();
        application->registCommand(&store);
        if (store.factories().size() != 7)
            return state.SkipWithError("not all commands are there");
        application->unregistCommand(&store);
        application->uninitialize();
        dlclose(library);
    }
}

void loadEmptyLibrary(benchmark::State& state)
{
    for (auto _ : state) {
        void* const library = dlopen(QUEL_EMPTY_LIBRARY, RTLD_NOW | RTLD_LOCAL);
        if (library == nullptr)
            return state.SkipWithError(dlerror());
        dlclose(library);
    }
}

void createAndRelease(benchmark::State& state)
{
    void* const library = dlopen(QUEL_MODULE, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr)
        return state.SkipWithError(dlerror());
    Store store;
    IQuelCmdApplication* const application = applicationOf(library);
    application->registCommand(&store);
    for (auto _ : state) {
        for (IQuelCommandFactory* factory : store.factories()) {
            IQuelBuildInCommand* const command = factory->create();
            benchmark::DoNotOptimize(command);
            factory->release(command);
        }
    }
    application->unregistCommand(&store);
    dlclose(library);
}

// An object of no data whose class the compiler is not to know at its end.
class Empty
{
public:
    Empty() = default;
    Empty(const Empty&) = delete;
    Empty& operator=(const Empty&) = delete;
    virtual ~Empty() = default;
};

void newAndDelete(benchmark::State& state)
{
    for (auto _ : state) {
        for (int i = 0; i < 7; ++i) {
            auto* empty = new Empty;
            benchmark::DoNotOptimize(empty);
            delete empty;
        }
    }
}

} // namespace

int main(int argc, char** argv)
{
    constexpr double kLeast = 1 / 1.5;
    return ratios::run(argc, argv,
                       {{"loadAndUnload", loadAndUnload, "an empty library with the same libraries",
                         loadEmptyLibrary, kLeast},
                        {"createAndRelease", createAndRelease, "new and delete of an empty object",
                         newAndDelete, kLeast}});
}
