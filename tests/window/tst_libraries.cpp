// The libraries of the window leave alone what is not theirs.
#include "refhost/window/libraries.h"
#include "tests/window/groupsfixture.h"

#include "refhost/window/commandpalette.h"
#include "refhost/window/mainwindow.h"

#include <KSharedConfig>

#include <QDirIterator>
#include <QIcon>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest/QTest>

using namespace quelhost;
using namespace windowtest;

namespace {

// The texts of all actions and buttons of a window.
Texts textsIn(const QWidget& window)
{
    Texts texts = itemsOf(*window.findChild<QMenuBar*>());
    for (const auto* const widget : window.findChildren<QWidget*>()) {
        const QVariant text = widget->property("text");
        if (text.isValid())
            texts.push_back(text.toString().toStdString());
    }
    return texts;
}

// The files in the home folder, which is this program's alone.
QStringList filesAtHome()
{
    QStringList files;
    QDirIterator each(QDir::homePath(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (each.hasNext())
        files << each.next();
    return files;
}

} // namespace

TEST(Libraries, TextsStayAsTheyAreWhenAWindowIsShown)
{
    const QTemporaryDir folder;
    MainWindow window(folder.filePath(QStringLiteral("history")));
    ASSERT_EQ(window.showGroups(modelOf({group("A", {"Plain", "Other"})}), {}), QStringList());
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const Texts before = textsIn(window);
    // A library looks over each window that is shown, by a timer of 20 milliseconds.
    bool isOver = false;
    QTimer::singleShot(200, [&isOver] { isOver = true; });
    while (!isOver)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(textsIn(window), before);
}

TEST(Libraries, HaveThePicturesThatTheyShow)
{
    for (const char* name :
         {"configure", "edit-clear-locationbar-ltr", "edit-clear-locationbar-rtl"})
        EXPECT_FALSE(QIcon::fromTheme(QLatin1String(name)).pixmap(16).isNull()) << name;
}

TEST(Libraries, WriteNothingIntoTheHomeFolder)
{
    const QStringList before = filesAtHome();
    QWidget window;
    window.resize(600, 400);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    QAction action(QStringLiteral("Find me"));
    int runs = 0;
    QObject::connect(&action, &QAction::triggered, [&runs] { ++runs; });
    openCommandPalette(window, {{QStringLiteral("All"), {&action}}}, {});
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([&runs] { return runs == 1; }));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window.children().isEmpty()); // the palette is gone
    // As at the end of the program.
    KSharedConfig::openStateConfig()->sync();
    KSharedConfig::openConfig()->sync();
    EXPECT_EQ(filesAtHome(), before);
}
