// Main of the tests that need an application object: dialogs of commands are made of widgets. It
// also sets the process's locale from the environment, as a real host does. With
// --without-application as the last argument there is none, and the locale stays "C".
#include "tests/support/recordinghost.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <cstring>
#include <optional>

namespace {

class NewHostForEachTest : public testing::EmptyTestEventListener
{
    void OnTestStart(const testing::TestInfo&) override { recording::reset(); }
    void OnTestEnd(const testing::TestInfo&) override { recording::reset(); }
};

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    // A forked child of a process with threads may hang: each child starts anew.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    std::optional<QApplication> application;
    if (std::strcmp(argv[argc - 1], "--without-application") != 0)
        application.emplace(argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new NewHostForEachTest);
    return RUN_ALL_TESTS();
}
