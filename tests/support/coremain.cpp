// Main of the tests of the reference host's core: an application object without windows, and the
// English texts.
#include "refhost/core/resources.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    // A forked child of a process with threads may hang: each child starts anew.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const QCoreApplication application(argc, argv);
    if (!quelhost::installHostTexts(QStringLiteral(QUEL_RESOURCES), QStringLiteral("en"))) {
        fprintf(stderr, "The English texts are missing from %s.\n", QUEL_RESOURCES);
        return 1;
    }
    return RUN_ALL_TESTS();
}
