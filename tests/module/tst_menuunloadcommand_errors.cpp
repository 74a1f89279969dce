// MENUUNLOAD when the host throws or memory runs out: the scope is left, nothing is lost.
#include "tests/module/menuunloadfixture.h"

#include "tests/support/memorywatch.h"
#include "tests/support/thrownerror.h"

#include <functional>
#include <stdexcept>

using recording::host;

namespace {

struct ErrorRow
{
    const char* name;
    std::function<void(const MenuUnload&)> prepare;
    std::size_t callsThatMayThrow;
};

void allowDialog()
{
    host().useDialog.usually(true);
    host().setVariable(L"FILEDIA", short{1});
    host().controlsGenerated.usually(false);
}

} // namespace

TEST_F(MenuUnload, LetsEveryErrorOfTheHostPassAndLeavesItsScope)
{
    const ErrorRow rows[] = {
        {"removed", [](const MenuUnload& test) { MenuUnload::type(test.plant); }, 13},
        {"not loaded",
         [](const MenuUnload& test) { MenuUnload::type(test.folder.file(L"other.cuix")); }, 9},
        {"refused", [](const MenuUnload&) { MenuUnload::type(L"nowhere.cuix"); }, 10},
        {"dialog", [](const MenuUnload&) { allowDialog(); }, 5},
        {"tilde",
         [](const MenuUnload&) {
             host().controlsGenerated.usually(false);
             MenuUnload::type(L"~");
         },
         9},
    };
    for (const ErrorRow& row : rows) {
        startAnew(all);
        row.prepare(*this);
        ASSERT_EQ(run(), 5100) << row.name;
        const auto calls = recording::callsThatMayThrow(host().trace);
        ASSERT_EQ(calls.size(), row.callsThatMayThrow) << row.name;
        for (const auto& call : calls) {
            for (const bool enters : {true, false}) {
                startAnew(all);
                row.prepare(*this);
                host().contextScope.usually(enters);
                const VxErrorStatus* const thrown = host().throwOnCall(call.function, call.which);
                const auto error = recording::errorThrownBy([this] { run(); });
                EXPECT_EQ(error.get(), thrown) << row.name << call.function << call.which;
                EXPECT_TRUE(recording::onlyGivesBackBehind(host().trace, call.line))
                    << row.name << call.function << call.which;
                const bool entered = enters && call.function != "enterResourceScope";
                EXPECT_EQ(host().count("leaveResourceScope"), entered ? 1 : 0)
                    << row.name << call.function << call.which;
                EXPECT_EQ(host().resourceStack.size(), 1U);
                const bool written = call.function == "GetQuelAppInterface" ||
                                     call.function == "customizationManager" ||
                                     call.function == "refresh";
                EXPECT_EQ(stored(), written ? main + L";" + survey : all)
                    << row.name << call.function << call.which;
            }
        }
    }
}

TEST_F(MenuUnload, LetsErrorsOfOtherKindsPassToo)
{
    host().onCall("quedGetString", 1, [] { throw std::runtime_error("broken"); });
    EXPECT_THROW(run(), std::runtime_error);
    host().onCall("setValue", 1, [] { throw 17; });
    EXPECT_THROW(unload(plant), int);
    EXPECT_EQ(host().count("leaveResourceScope"), 2);
    EXPECT_EQ(stored(), all);
    EXPECT_EQ(unload(plant), 5100);
    EXPECT_EQ(stored(), main + L";" + survey);
}

TEST_F(MenuUnload, ReportsMemoryThatRunsOutForTheNewList)
{
    const std::wstring rest = main + L";" + survey;
    for (const bool recorder : {true, false}) {
        startAnew(all);
        host().recorderIsThere.usually(recorder);
        type(plant);
        const std::size_t newBlock = 4 + rest.size() * 4 + 4;
        recording::MemoryWatch watch(recording::Refusal::ofSize(newBlock));
        const auto error = recording::errorThrownBy([&] { watch.run([this] { run(); }); });
        ASSERT_NE(error, nullptr);
        EXPECT_EQ(error->status(), Quel::eNoMemory);
        EXPECT_EQ(watch.refused(), 1);
        ASSERT_EQ(host().crashes.size(), recorder ? 1U : 0U);
        if (recorder) {
            EXPECT_EQ(host().crashes.front().address, error.get());
            EXPECT_EQ(host().crashes.front().status, 6);
        }
        EXPECT_EQ(host().trace.back(), "leaveResourceScope(0)");
        EXPECT_EQ(host().resourceStack.size(), 1U);
        EXPECT_EQ(stored(), all);
        EXPECT_EQ(writes(), 0);
        EXPECT_EQ(host().count("GetQuelAppInterface"), 0);

        EXPECT_EQ(unload(plant), 5100);
        EXPECT_EQ(stored(), rest);
        EXPECT_EQ(refreshes(), 1);
    }
}

TEST_F(MenuUnload, ReportsMemoryThatRunsOutForAnEmptyList)
{
    startAnew(L";" + plant);
    type(plant);
    recording::MemoryWatch watch(recording::Refusal::ofSize(8));
    const auto error = recording::errorThrownBy([&] { watch.run([this] { run(); }); });
    ASSERT_NE(error, nullptr);
    EXPECT_EQ(error->status(), Quel::eNoMemory);
    EXPECT_EQ(watch.refused(), 1);
    EXPECT_EQ(host().crashes.size(), 1U);
    EXPECT_EQ(stored(), L";" + plant);
    EXPECT_EQ(unload(plant), 5100);
    EXPECT_EQ(stored(), L"");
    EXPECT_EQ(writes(), 1);
}
