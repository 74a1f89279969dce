// Main of the window's tests: an application object that carries exceptions, the host's English
// sentences, and no settings of the user's.
#include "refhost/core/resources.h"
#include "refhost/dialogs/modalrun.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <cstdio>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
#ifdef QUEL_OFFSCREEN
    qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
    const QTemporaryDir home;
    qputenv("HOME", home.path().toUtf8());
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME", "BROWSER"})
        qunsetenv(name);
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    const quelhost::HostApplication application(argc, argv);
    if (!quelhost::installHostTexts(QStringLiteral(QUEL_RESOURCES), QStringLiteral("en"))) {
        std::fprintf(stderr, "The English texts are missing from %s.\n", QUEL_RESOURCES);
        return 1;
    }
    return RUN_ALL_TESTS();
}
