// Main of the tests of the dialog framework: a new recording host for each test.
#include "tests/dialogs/testservices.h"
#include "tests/support/dialogapplication.h"
#include "tests/support/recordinghost.h"

#include <gtest/gtest.h>

namespace {

class NewHostForEachTest : public testing::EmptyTestEventListener
{
    void OnTestStart(const testing::TestInfo&) override
    {
        recording::reset();
        dialogtest::resetServices();
    }
    void OnTestEnd(const testing::TestInfo&) override { recording::reset(); }
};

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new NewHostForEachTest);
    return testsupport::runAllWithDialogs(argc, argv, false);
}
