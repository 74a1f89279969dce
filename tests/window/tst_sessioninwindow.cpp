// Sessions in a window: menus of the groups, macros, closing.
#include "tests/support/germantexts.h"
#include "tests/window/sessionfixture.h"

#include "refhost/window/mainwindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QtTest/QTest>

using namespace windowtest;
using quelhost::test::GermanTexts;

namespace {

const QStringList kMainMenus = {QStringLiteral("&Quelhost"), QStringLiteral("&File"),
                                QStringLiteral("&View"), QStringLiteral("&Tools"),
                                QStringLiteral("&Help")};
const QStringList kWithPlant = kMainMenus + QStringList{QStringLiteral("&Plant")};

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

class SessionInWindow : public WindowSession
{
protected:
    // Opens a menu by its key and chooses an item by its own.
    void chooseByKeys(Qt::Key menu, Qt::Key item, const QString& prompt = text("Command:"))
    {
        waitForKeyboard();
        atPrompt([menu] { QTest::keyClick(&window(), menu, Qt::AltModifier); }, prompt);
        m_driver.step(
            "an open menu", [] { return QApplication::activePopupWidget() != nullptr; },
            [item] { QTest::keyClick(QApplication::activePopupWidget(), item); });
    }
};

} // namespace

TEST_F(SessionInWindow, EndsWhenTheWindowIsClosed)
{
    closeWindow();
    EXPECT_EQ(run(), "");
}

TEST_F(SessionInWindow, EndsByQuit)
{
    waitForKeyboard();
    atPrompt([] {
        QTest::keyClicks(QApplication::focusWidget(), text("QUIT"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    });
    EXPECT_EQ(run(), "");
}

TEST_F(SessionInWindow, EndsWhenTheWindowIsClosedWhileACommandAsks)
{
    typeLine(text("SETVAR FILEDIA 0"));
    typeLine(text("MENULOAD"));
    closeWindow(text("Enter name of menu file to load:"));
    EXPECT_EQ(run(), "");
    EXPECT_EQ(stored("CUIX/LoadedCuix").join(QString()),
              text("CUIX/LoadedCuix\tstring\t%1/QUELD.cuix").arg(m_options.profile));
}

TEST_F(SessionInWindow, EscCancelsTheCommandThatAsks)
{
    typeLine(text("SETVAR FILEDIA 0"));
    typeLine(text("MENULOAD"));
    waitForKeyboard();
    atPrompt(
        [] {
            QTest::keyClicks(QApplication::focusWidget(), text("/t/half"));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        },
        text("Enter name of menu file to load:"));
    typeLine(text("ECHO still there"));
    waitForText(text("\nstill there\n"));
    closeWindow();
    EXPECT_EQ(run(), "");
}

TEST_F(SessionInWindow, AGroupLoadedAtTheCommandLineGetsItsMenus)
{
    typeLine(text("SETVAR FILEDIA 0"));
    atPrompt([] { EXPECT_EQ(menus(), kMainMenus); });
    typeLine(text("MENULOAD"));
    typeLine(m_plant, text("Enter name of menu file to load:"));
    waitForText(text("success.group:PLANT"));
    atPrompt([] { EXPECT_EQ(menus(), kWithPlant); });
    closeWindow();
    EXPECT_EQ(run(), "");
    atPrompt([] { EXPECT_EQ(menus(), kWithPlant); });
    closeWindow();
    EXPECT_EQ(run(), "");
}

TEST_F(SessionInWindow, AMenuItemTypesItsMacro)
{
    m_options.files = QStringList{m_plant};
    chooseByKeys(Qt::Key_P, Qt::Key_C);
    waitForText(text("\nFind equipment and pipes that run into each other\n"));
    closeWindow();
    EXPECT_EQ(run(), "");
}

TEST_F(SessionInWindow, AMenuItemEndsTheCommandThatAsksAndRuns)
{
    m_options.files = QStringList{m_plant};
    typeLine(text("SETVAR FILEDIA 0"));
    typeLine(text("MENULOAD"));
    chooseByKeys(Qt::Key_P, Qt::Key_C, text("Enter name of menu file to load:"));
    waitForText(text("\nFind equipment and pipes that run into each other\n"));
    closeWindow();
    EXPECT_EQ(run(), "");
}

TEST_F(SessionInWindow, SpeaksGerman)
{
    const GermanTexts texts;
    ASSERT_TRUE(texts.loaded());
    m_options.language = text("de");
    const QString prompt = text("Befehl:");
    typeLine(text("MENULOAD"), prompt);
    inLoadDialog([](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), text("Anpassungsdateien laden und entladen"));
        EXPECT_EQ(part<QAbstractButton>(dialog, "IDC_MENULOAD_BTNUNLOAD").text(),
                  text("&Entladen"));
        click(dialog, "IDOK");
    });
    closeWindow(prompt);
    EXPECT_EQ(run(), "");
}

TEST_F(SessionInWindow, ThereIsNoneOnAProfileThatIsInUse)
{
    std::string second;
    atPrompt([&] {
        quelhost::Status result = quelhost::Done{};
        quelhostRunWindow(m_options,
                          quelhost::InstalledFiles::beside(QCoreApplication::applicationDirPath()),
                          result);
        second = result ? "opened" : result.fault().text().toStdString();
    });
    closeWindow();
    EXPECT_EQ(run(), "");
    EXPECT_NE(second, "opened");
    EXPECT_NE(second, "");
}
