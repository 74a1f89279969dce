// Main of the tests of the faces with a display: an application object that carries exceptions, and
// the host's English sentences.
#include "refhost/core/resources.h"
#include "refhost/dialogs/modalrun.h"

#include <gtest/gtest.h>

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
    return RUN_ALL_TESTS();
}
