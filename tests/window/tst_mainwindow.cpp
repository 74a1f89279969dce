// The main window: keys that work everywhere in it, and its closing.
#include "refhost/window/mainwindow.h"
#include "tests/window/groupsfixture.h"

#include <QDockWidget>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QtTest/QTest>

#include <malloc.h>

using namespace quelhost;
using namespace windowtest;

namespace {

class MainWindows : public testing::Test
{
protected:
    void SetUp() override
    {
        QObject::connect(&m_window.commandLine(), &CommandLine::cancelled, [this] { ++m_cancels; });
        QObject::connect(&m_window, &MainWindow::closed, [this] { ++m_closings; });
        static_cast<void>(m_window.showGroups(modelOf({group("QUELD", {"&File"})}), {}));
        m_window.show();
        m_window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
    }

    void ask() { m_window.commandLine().ask({L"Command: ", Completion::Commands, {}, false}); }

    [[nodiscard]] QLineEdit& line()
    {
        return *m_window.findChild<QLineEdit*>(QStringLiteral("line"));
    }
    [[nodiscard]] QWidget& above()
    {
        return *m_window.findChild<QPlainTextEdit*>(QStringLiteral("said"));
    }
    [[nodiscard]] QDockWidget& dock()
    {
        return *m_window.findChild<QDockWidget*>(QStringLiteral("commandLine"));
    }

    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QWidget* const popup = QApplication::activePopupWidget();
        QTest::keyClick(popup != nullptr ? popup : QApplication::focusWidget(), key, modifiers);
    }

    MainWindow m_window{QString()};
    int m_cancels = 0;
    int m_closings = 0;
};

} // namespace

TEST_F(MainWindows, TheKeyboardIsAtTheLineWhenSomebodyAsks)
{
    ask();
    EXPECT_EQ(QApplication::focusWidget(), &line());
}

TEST_F(MainWindows, EscCancelsWhereverTheFocusIs)
{
    ask();
    press(Qt::Key_Escape);
    EXPECT_EQ(m_cancels, 1);
    above().setFocus();
    press(Qt::Key_Escape);
    EXPECT_EQ(m_cancels, 2);
    QTest::keyClick(&m_window, Qt::Key_Escape);
    EXPECT_EQ(m_cancels, 3);
}

TEST_F(MainWindows, EscCancelsFromAFloatingCommandLine)
{
    ask();
    dock().setFloating(true);
    dock().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dock()));
    line().setFocus();
    press(Qt::Key_Escape);
    EXPECT_EQ(m_cancels, 1);
}

TEST_F(MainWindows, EscClosesAnOpenMenuAndCancelsNothing)
{
    ask();
    press(Qt::Key_F, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    press(Qt::Key_Escape);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(m_cancels, 0);
}

TEST_F(MainWindows, AFloatingCommandLineCannotBeLost)
{
    dock().setFloating(true);
    ASSERT_TRUE(dock().isFloating());
    dock().close();
    EXPECT_FALSE(dock().isFloating());
    EXPECT_TRUE(dock().isVisible());
    EXPECT_TRUE(line().isVisible());
}

TEST_F(MainWindows, ClosingIsToldOnce)
{
    EXPECT_TRUE(m_window.close());
    EXPECT_EQ(m_closings, 1);
    EXPECT_FALSE(m_window.isVisible());
}

TEST_F(MainWindows, ALongPromptDoesNotMakeTheWindowWider)
{
    const int width = m_window.width();
    m_window.commandLine().ask({std::wstring(500, L'x'), Completion::Nothing, {}, false});
    QApplication::processEvents();
    EXPECT_EQ(m_window.width(), width);
    EXPECT_LE(m_window.minimumSizeHint().width(), width);
}

TEST_F(MainWindows, EveryPartHasANameForThoseWhoDoNotSee)
{
    ask();
    EXPECT_NE(line().accessibleName(), QString());
    EXPECT_NE(above().accessibleName(), QString());
    EXPECT_NE(dock().windowTitle(), QString());
}

TEST_F(MainWindows, IsAsItWasAfterAThousandLoadsAndUnloads)
{
    const std::vector<ShownGroup> before{group("QUELD", {"&File"})};
    std::vector<ShownGroup> with = before;
    with.push_back(group("PLANT", {"&Plant", "P&ipes"}));
    with.back().group.toolbars = {
        {QStringLiteral("bar"), QStringLiteral("Bar"), {{QStringLiteral("go")}, {}}}};
    with.back().group.accelerators = {{QStringLiteral("go"), QKeySequence(Qt::Key_F7)}};
    const auto loadAndUnload = [&](int rounds) {
        for (int round = 0; round < rounds; ++round) {
            EXPECT_EQ(m_window.showGroups(modelOf(with), {}), QStringList());
            QApplication::processEvents();
            EXPECT_EQ(m_window.showGroups(modelOf(before), {}), QStringList());
            QApplication::processEvents();
        }
    };
    const auto objects = [this] {
        Texts all;
        addObjects(m_window, 0, all);
        return all;
    };
    loadAndUnload(100);
    const Texts objectsBefore = objects();
    const std::size_t bytesBefore = ::mallinfo2().uordblks;
    loadAndUnload(1000);
    EXPECT_EQ(objects(), objectsBefore);
    // Not a hundred bytes a round: the toolkit's caches come and go.
    EXPECT_LT(::mallinfo2().uordblks, bytesBefore + 100000);
}
