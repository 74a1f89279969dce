#include "tests/support/dialogapplication.h"

#include "refhost/core/resources.h"
#include "refhost/dialogs/modalrun.h"

#include <gtest/gtest.h>

#include <cstdio>

int testsupport::runAllWithDialogs(int& argc, char** argv, bool onDisplay)
{
    // Naming the tests takes no application object, and so no leak of the toolkit's is looked for.
    if (GTEST_FLAG_GET(list_tests))
        return RUN_ALL_TESTS();
    if (!onDisplay && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const quelhost::HostApplication application(argc, argv);
    if (!quelhost::installHostTexts(QStringLiteral(QUEL_RESOURCES), QStringLiteral("en"))) {
        std::fprintf(stderr, "The English texts are missing from %s.\n", QUEL_RESOURCES);
        return 1;
    }
    return RUN_ALL_TESTS();
}
