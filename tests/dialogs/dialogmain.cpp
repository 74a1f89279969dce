// Main of the tests of the dialog framework: an application object that carries exceptions, the
// host's English sentences, and a new recording host for each test.
#include "refhost/core/resources.h"
#include "refhost/dialogs/modalrun.h"
#include "tests/dialogs/testservices.h"
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
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const quelhost::HostApplication application(argc, argv);
    if (!quelhost::installHostTexts(QStringLiteral(QUEL_RESOURCES), QStringLiteral("en"))) {
        std::fprintf(stderr, "The English texts are missing from %s.\n", QUEL_RESOURCES);
        return 1;
    }
    testing::UnitTest::GetInstance()->listeners().Append(new NewHostForEachTest);
    return RUN_ALL_TESTS();
}
