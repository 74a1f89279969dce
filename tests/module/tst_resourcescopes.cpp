#include "module/resourcescopes.h"

#include "tests/support/rawslots.h"
#include "tests/support/recordinghost.h"

#include <gtest/gtest.h>

#include <type_traits>

using recording::host;
using Lines = std::vector<std::string>;

namespace {

// A context as a host compiled elsewhere has it.
struct ContextByTable : raw::Object<IQuelBuildInCommandContext, 5>
{
    using Self = raw::Object<IQuelBuildInCommandContext, 5>;
    Lines calls;

    ContextByTable()
    {
        set(
            2, +[](Self* self, const wchar_t* name) {
                const bool isModuleFile = std::wstring(name) == L"VxCuiCmdsRes.dll";
                static_cast<ContextByTable*>(self)->calls.push_back(isModuleFile ? "enter"
                                                                                 : "other");
                return true;
            });
        set(
            3, +[](Self* self, int value) {
                static_cast<ContextByTable*>(self)->calls.push_back("leave " +
                                                                    std::to_string(value));
            });
    }
};

// What comes out when `code` runs, or null.
template<typename Code>
const VxErrorStatus* thrownBy(Code code)
{
    try {
        code();
    } catch (VxErrorStatus* error) {
        return error;
    }
    return nullptr;
}

} // namespace

TEST(ContextResourceScope, EntersTheModulesFileAndLeavesWithZero)
{
    recording::Context context;
    {
        const ContextResourceScope scope(&context);
        EXPECT_EQ(host().trace, Lines{"enterResourceScope(\"VxCuiCmdsRes.dll\") -> true"});
        EXPECT_EQ(host().resourceStack.back(), L"VxCuiCmdsRes.dll");
    }
    EXPECT_EQ(host().trace,
              (Lines{"enterResourceScope(\"VxCuiCmdsRes.dll\") -> true", "leaveResourceScope(0)"}));
    EXPECT_EQ(host().resourceStack.back(), L"QUELDRes.dll");
}

TEST(ContextResourceScope, LeavesNothingThatItDidNotEnter)
{
    recording::Context context;
    host().contextScope.usually(false);
    {
        const ContextResourceScope scope(&context);
    }
    EXPECT_EQ(host().trace, Lines{"enterResourceScope(\"VxCuiCmdsRes.dll\") -> false"});
}

TEST(ContextResourceScope, Nests)
{
    recording::Context context;
    {
        const ContextResourceScope outer(&context);
        {
            const ContextResourceScope inner(&context);
            EXPECT_EQ(host().resourceStack.size(), 3U);
        }
        EXPECT_EQ(host().resourceStack.size(), 2U);
    }
    EXPECT_EQ(host().resourceStack.size(), 1U);
    EXPECT_EQ(host().leavesWithoutEnter, 0);
}

TEST(ContextResourceScope, LeavesOnceOnTheWayOfAnError)
{
    recording::Context context;
    auto* const error = new VxErrorStatus(Quel::eNoMemory, L"", 0);
    const VxErrorStatus* const caught = thrownBy([&] {
        const ContextResourceScope scope(&context);
        throw error;
    });
    EXPECT_EQ(caught, error);
    EXPECT_EQ(host().trace.back(), "leaveResourceScope(0)");
    EXPECT_EQ(host().count("leaveResourceScope"), 1);
    delete caught;
}

TEST(ContextResourceScope, LeavesNothingWhenEnteringThrows)
{
    recording::Context context;
    const VxErrorStatus* const error = host().throwOnCall("enterResourceScope");
    const VxErrorStatus* const caught =
        thrownBy([&] { const ContextResourceScope scope(&context); });
    EXPECT_EQ(caught, error);
    EXPECT_EQ(host().count("leaveResourceScope"), 0);
    delete caught;
}

TEST(ContextResourceScopeDeathTest, AnErrorOutOfLeavingEndsTheProcess)
{
    const auto leaveThrows = [] {
        recording::Context context;
        host().throwOnCall("leaveResourceScope");
        const VxErrorStatus* const caught =
            thrownBy([&] { const ContextResourceScope scope(&context); });
        delete caught;
        std::exit(0);
    };
    EXPECT_EXIT(leaveThrows(), testing::KilledBySignal(SIGABRT), "terminate called");
}

TEST(ContextResourceScope, UsesTheThirdAndFourthSlotOfTheContext)
{
    ContextByTable context;
    {
        const ContextResourceScope scope(context.get());
    }
    EXPECT_EQ(context.calls, (Lines{"enter", "leave 0"}));
}

TEST(GlobalResourceScope, SelectsTheGivenFileAndRestoresOnce)
{
    {
        const GlobalResourceScope scope(L"QUELDRes.dll");
        EXPECT_EQ(host().resourceStack.size(), 2U);
    }
    EXPECT_EQ(host().trace, (Lines{"SetCurrentResourceName(\"QUELDRes.dll\") -> true",
                                   "RestorePreviousResource()"}));
    EXPECT_EQ(host().resourceStack.size(), 1U);
}

TEST(GlobalResourceScope, RestoresNothingThatWasNotSelected)
{
    {
        const GlobalResourceScope scope(L"NoSuchRes.dll");
    }
    EXPECT_EQ(host().trace, Lines{"SetCurrentResourceName(\"NoSuchRes.dll\") -> false"});
}

TEST(GlobalResourceScope, RestoresOnceOnTheWayOfAnError)
{
    auto* const error = new VxErrorStatus(Quel::eNoMemory, L"", 0);
    const VxErrorStatus* const caught = thrownBy([&] {
        const GlobalResourceScope scope(L"VxCuiCmdsRes.dll");
        throw error;
    });
    EXPECT_EQ(caught, error);
    EXPECT_EQ(host().count("RestorePreviousResource"), 1);
    delete caught;
}

TEST(GlobalResourceScope, NestsInTheContextsScope)
{
    recording::Context context;
    {
        const ContextResourceScope outer(&context);
        {
            const GlobalResourceScope inner(L"QUELDRes.dll");
            EXPECT_EQ(host().resourceStack.back(), L"QUELDRes.dll");
        }
        EXPECT_EQ(host().resourceStack.back(), L"VxCuiCmdsRes.dll");
    }
    EXPECT_EQ(host().resourceStack.size(), 1U);
}

TEST(GlobalResourceScopeDeathTest, AnErrorOutOfRestoringEndsTheProcess)
{
    const auto restoreThrows = [] {
        host().throwOnCall("RestorePreviousResource");
        const VxErrorStatus* const caught =
            thrownBy([] { const GlobalResourceScope scope(L"VxCuiCmdsRes.dll"); });
        delete caught;
        std::exit(0);
    };
    EXPECT_EXIT(restoreThrows(), testing::KilledBySignal(SIGABRT), "terminate called");
}

TEST(ResourceScopes, CannotBeCopied)
{
    EXPECT_FALSE(std::is_copy_constructible_v<ContextResourceScope>);
    EXPECT_FALSE(std::is_copy_assignable_v<ContextResourceScope>);
    EXPECT_FALSE(std::is_copy_constructible_v<GlobalResourceScope>);
    EXPECT_FALSE(std::is_copy_assignable_v<GlobalResourceScope>);
}
