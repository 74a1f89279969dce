// Main of the window's tests: without settings of the user's.
#include "refhost/window/libraries.h"
#include "tests/support/dialogapplication.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

namespace {

// As the program does when it has its application object.
class PreparedLibraries final : public testing::Environment
{
public:
    void SetUp() override { quelhost::prepareLibraries(QStringLiteral("en"), QDir::homePath()); }
};

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QTemporaryDir home;
    qputenv("HOME", home.path().toUtf8());
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME", "BROWSER"})
        qunsetenv(name);
    testing::AddGlobalTestEnvironment(new PreparedLibraries); // which the framework owns
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
#ifdef QUEL_OFFSCREEN
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return testsupport::runAllWithDialogs(argc, argv, false);
#else
    return testsupport::runAllWithDialogs(argc, argv, true);
#endif
}
