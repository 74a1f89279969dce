// A hostile package that is loaded changes nothing in the window, and the user is told why once.
#include "refhost/core/widetext.h"
#include "refhost/window/mainwindow.h"
#include "refhost/window/windowsession.h"
#include "tests/support/hostilepackages.h"
#include "tests/support/testhost.h"
#include "tests/window/flatlist.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace quelhost;
using namespace windowtest;

namespace {

class LoadsInWindow : public testing::Test
{
protected:
    void SetUp() override
    {
        m_window.show();
        list({m_plant});
        ASSERT_EQ(m_host.output.take(), "");
        ASSERT_EQ(m_host.host->groups.groups().size(), 1U);
        m_before = flatList(m_window);
    }
    // What MENULOAD does with a file: puts it into the list, has the list shown, and asks for the
    // file's group. Returns whether the group came.
    bool load(const QString& path)
    {
        list({m_plant, path});
        QuString group;
        const bool loaded = m_host.host->groups.loadMenuFile(QuString(toWide(path).c_str()), group);
        settle();
        return loaded;
    }
    // What MENUUNLOAD does with all files but these.
    void list(const QStringList& paths)
    {
        QuelVariant value;
        value.setString(toWide(paths.join(QLatin1Char(';'))).c_str(), QuelVariant::kString);
        EXPECT_EQ(
            m_host.host->config.setValue(QueldConfig::kUserProfile, L"CUIX/LoadedCuix", value), 0);
        m_host.host->groups.refresh();
        settle();
    }
    static void settle()
    {
        QApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    [[nodiscard]] static bool write(const QString& path, const QByteArray& bytes)
    {
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    }

    const QString m_plant = QStringLiteral(QUEL_EXAMPLES "/plant.cuix");
    const QTemporaryDir m_folder;
    const QString m_path = m_folder.filePath(QStringLiteral("hostile.cuix"));
    test::TestHost m_host;
    MainWindow m_window{QString()};
    WindowSession m_session{*m_host.host, m_window, nullptr};
    Texts m_before;
};

class HostileLoads : public LoadsInWindow, public testing::WithParamInterface<packages::HostileKind>
{};

std::string linesOf(const packages::HostilePackage& package, const QString& path)
{
    std::string text;
    for (const std::string& told : package.told)
        text += path.toStdString() + told + "\n";
    return text;
}

} // namespace

TEST_P(HostileLoads, LeaveTheWindowAsItWasAndAreToldOnce)
{
    for (const packages::HostilePackage& package : GetParam().make()) {
        ASSERT_TRUE(write(m_path, package.make())) << package.name;
        EXPECT_FALSE(load(m_path)) << package.name;
        EXPECT_EQ(m_host.output.take(), linesOf(package, m_path)) << package.name;
        // The view says that the file is listed and not shown.
        EXPECT_EQ(difference(m_before, flatList(m_window)), Texts{"+hostile.cuix (not shown) "})
            << package.name;
        list({m_plant});
        EXPECT_EQ(difference(m_before, flatList(m_window)), Texts()) << package.name;
    }
}

INSTANTIATE_TEST_SUITE_P(Every, HostileLoads, testing::ValuesIn(packages::hostileKinds()),
                         [](const auto& kind) { return std::string(kind.param.name); });

// The comparison would notice.
TEST_F(LoadsInWindow, AGoodPackageChangesTheWindow)
{
    EXPECT_TRUE(load(QStringLiteral(QUEL_EXAMPLES "/survey.cuix")));
    EXPECT_NE(difference(m_before, flatList(m_window)), Texts());
    list({m_plant});
    EXPECT_EQ(difference(m_before, flatList(m_window)), Texts());
}
