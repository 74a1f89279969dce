// Commands that only enter and leave their scope so far.
#include "module/customizationcommandapp.h"

#include "tests/support/recordinghost.h"

#include <gtest/gtest.h>

#include <memory>

using recording::host;
using Lines = std::vector<std::string>;

namespace {

struct StubRow
{
    const char* name;
    IQuelBuildInCommand* (*newCommand)();
};

template<typename Command>
IQuelBuildInCommand* newCommand()
{
    return new Command;
}

struct EachStub : testing::TestWithParam<StubRow>
{
    std::unique_ptr<IQuelBuildInCommand> command{GetParam().newCommand()};
    recording::Context context;
};

INSTANTIATE_TEST_SUITE_P(Commands, EachStub,
                         testing::Values(StubRow{"CUSTOMIZE", newCommand<Quel60005Command>}),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

TEST_P(EachStub, EntersAndLeavesItsScopeAndCompletes)
{
    EXPECT_EQ(command->execute(&context), 5100);
    EXPECT_EQ(host().trace,
              (Lines{"enterResourceScope(\"VxCuiCmdsRes.dll\") -> true", "leaveResourceScope(0)"}));
}

TEST_P(EachStub, CompletesWithoutAScopeWhenThereIsNone)
{
    host().contextScope.usually(false);
    EXPECT_EQ(command->execute(&context), 5100);
    EXPECT_EQ(host().trace, Lines{"enterResourceScope(\"VxCuiCmdsRes.dll\") -> false"});
}

TEST_P(EachStub, RunsAgainWithTheSameObject)
{
    EXPECT_EQ(command->execute(&context), 5100);
    EXPECT_EQ(command->execute(&context), 5100);
    EXPECT_EQ(host().count("enterResourceScope"), 2);
    EXPECT_EQ(host().count("leaveResourceScope"), 2);
}

TEST_P(EachStub, LetsAnErrorOutOfEnteringPassUnchanged)
{
    const VxErrorStatus* const thrown = host().throwOnCall("enterResourceScope");
    const VxErrorStatus* caught = nullptr;
    try {
        command->execute(&context);
    } catch (VxErrorStatus* error) {
        caught = error;
    }
    EXPECT_EQ(caught, thrown);
    EXPECT_EQ(host().count("leaveResourceScope"), 0);
    delete caught;
}
