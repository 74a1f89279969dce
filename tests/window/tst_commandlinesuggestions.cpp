// Suggestions while one types at the window's command line.
#include "tests/window/commandlinefixture.h"

#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QMainWindow>
#include <QShortcut>

using namespace quelhost;

namespace {

using Lines = std::vector<std::string>;

const QStringList kNames = {QStringLiteral("MENU"), QStringLiteral("MENULOAD"),
                            QStringLiteral("MENUUNLOAD"), QStringLiteral("ECHO"),
                            QStringLiteral("ml")};

class Suggestions : public CommandLines
{
protected:
    void askCommand() { ask(Completion::Commands, kNames); }

    // A file in the test's folder; returns its path.
    std::string makeFile(const char* name) const
    {
        const QString path = m_folder.filePath(QString::fromUtf8(name));
        EXPECT_TRUE(QDir().mkpath(path.left(path.lastIndexOf(QLatin1Char('/')))));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        return path.toStdString();
    }
    [[nodiscard]] std::string folder() const { return m_folder.path().toStdString(); }
    void typePath(const char* below) { type((folder() + below).c_str()); }
};

} // namespace

TEST_F(Suggestions, ComeWhileAWordIsTyped)
{
    askCommand();
    EXPECT_EQ(suggested(), Lines());
    type("m");
    EXPECT_EQ(suggested(), (Lines{"MENU", "MENULOAD", "MENUUNLOAD", "ml"}));
    type("enul");
    EXPECT_EQ(suggested(), (Lines{"MENULOAD"}));
    press(Qt::Key_Backspace);
    EXPECT_EQ(suggested(), (Lines{"MENU", "MENULOAD", "MENUUNLOAD"}));
    EXPECT_EQ(typed(), "menu");
}

TEST_F(Suggestions, GoWithTheWord)
{
    askCommand();
    type("men");
    for (int i = 0; i < 3; ++i)
        press(Qt::Key_Backspace);
    EXPECT_EQ(suggested(), Lines());
    type("x");
    EXPECT_EQ(suggested(), Lines());
}

TEST_F(Suggestions, AreNotMadeForAWordThatIsWhole)
{
    askCommand();
    type("echo");
    EXPECT_EQ(suggested(), Lines());
    type(" me");
    EXPECT_EQ(suggested(), Lines());
}

TEST_F(Suggestions, AreNotMadeInsideAWord)
{
    askCommand();
    type("ENU");
    press(Qt::Key_Home);
    type("M");
    EXPECT_EQ(typed(), "MENU");
    EXPECT_EQ(suggested(), Lines());
}

TEST_F(Suggestions, LeaveEnterAlone)
{
    askCommand();
    type("menu");
    ASSERT_NE(suggested(), Lines());
    press(Qt::Key_Return);
    EXPECT_EQ(m_entered, (Lines{"menu"}));
    EXPECT_EQ(suggested(), Lines());
}

TEST_F(Suggestions, LeaveUpToTheHistory)
{
    typeLine("ECHO old");
    askCommand();
    type("me");
    press(Qt::Key_Up);
    EXPECT_EQ(typed(), "ECHO old");
    EXPECT_EQ(suggested(), Lines());
    press(Qt::Key_Down);
    EXPECT_EQ(typed(), "me");
    EXPECT_EQ(suggested(), Lines());
}

TEST_F(Suggestions, DownGoesInAndEachStandsInTheLine)
{
    askCommand();
    type("men");
    press(Qt::Key_Down);
    EXPECT_EQ(suggested(), (Lines{"[MENU]", "MENULOAD", "MENUUNLOAD"}));
    EXPECT_EQ(typed(), "MENU ");
    press(Qt::Key_Down);
    EXPECT_EQ(typed(), "MENULOAD ");
    press(Qt::Key_Tab);
    EXPECT_EQ(typed(), "MENUUNLOAD ");
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    press(Qt::Key_Up);
    EXPECT_EQ(typed(), "MENU ");
    EXPECT_EQ(suggested(), (Lines{"[MENU]", "MENULOAD", "MENUUNLOAD"}));
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(m_entered, (Lines{"MENULOAD "}));
    EXPECT_EQ(suggested(), Lines());
}

TEST_F(Suggestions, BeyondTheirEndsIsWhatWasTyped)
{
    askCommand();
    type("menu");
    press(Qt::Key_Down);
    press(Qt::Key_Up);
    EXPECT_EQ(typed(), "menu");
    EXPECT_EQ(suggested(), (Lines{"MENU", "MENULOAD", "MENUUNLOAD"}));
    for (int i = 0; i < 4; ++i)
        press(Qt::Key_Down);
    EXPECT_EQ(typed(), "menu");
    press(Qt::Key_Down);
    EXPECT_EQ(typed(), "MENU ");
}

TEST_F(Suggestions, PageUpAndPageDownMoveInsideThem)
{
    QStringList many;
    for (int i = 10; i < 45; ++i)
        many += QStringLiteral("name%1").arg(i);
    ask(Completion::Commands, many);
    type("n");
    press(Qt::Key_PageDown);
    EXPECT_EQ(typed(), "n");
    Lines lines;
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_PageDown, Qt::Key_PageDown, Qt::Key_PageDown,
                              Qt::Key_PageDown, Qt::Key_PageUp}) {
        press(key);
        lines.push_back(typed());
    }
    EXPECT_EQ(lines, (Lines{"name10 ", "name20 ", "name30 ", "name40 ", "name44 ", "name34 "}));
}

TEST_F(Suggestions, TabGoesInWhenThereIsNothingToAdd)
{
    askCommand();
    type("men");
    press(Qt::Key_Tab);
    EXPECT_EQ(typed(), "MENU");
    EXPECT_EQ(suggested(), (Lines{"MENU", "MENULOAD", "MENUUNLOAD"}));
    press(Qt::Key_Tab);
    EXPECT_EQ(suggested(), (Lines{"[MENU]", "MENULOAD", "MENUUNLOAD"}));
    press(Qt::Key_Tab);
    EXPECT_EQ(typed(), "MENULOAD ");
}

TEST_F(Suggestions, TabShowsThemAllOnAnEmptyLine)
{
    askCommand();
    press(Qt::Key_Tab);
    EXPECT_EQ(typed(), "");
    EXPECT_EQ(suggested(), (Lines{"ECHO", "MENU", "MENULOAD", "MENUUNLOAD", "ml"}));
    press(Qt::Key_Return);
    EXPECT_EQ(m_entered, (Lines{""}));
}

TEST_F(Suggestions, TypingGoesOnBehindAChosenOne)
{
    askCommand();
    type("men");
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    type("x");
    EXPECT_EQ(typed(), "MENULOAD x");
    EXPECT_EQ(suggested(), Lines());
}

TEST_F(Suggestions, EscClosesThemAndBringsBackWhatWasTyped)
{
    askCommand();
    type("men");
    press(Qt::Key_Down);
    press(Qt::Key_Escape);
    EXPECT_EQ(suggested(), Lines());
    EXPECT_EQ(typed(), "men");
    EXPECT_EQ(line().cursorPosition(), 3);
    press(Qt::Key_Return);
    EXPECT_EQ(m_entered, (Lines{"men"}));
}

// A window may have Esc as a key of its own.
TEST_F(Suggestions, TakeEscBeforeTheWindowDoes)
{
    int escapes = 0;
    const QShortcut escape(QKeySequence(Qt::Key_Escape), m_commandLine.get());
    QObject::connect(&escape, &QShortcut::activated, [&escapes] { ++escapes; });
    askCommand();
    type("men");
    press(Qt::Key_Escape);
    EXPECT_EQ(escapes, 0);
    EXPECT_EQ(suggested(), Lines());
    press(Qt::Key_Escape);
    EXPECT_EQ(escapes, 1);
}

TEST_F(Suggestions, KeepWhatStandsBehindTheCursor)
{
    askCommand();
    type("x /t/on");
    press(Qt::Key_Home);
    press(Qt::Key_Delete);
    type("ec");
    press(Qt::Key_Down);
    EXPECT_EQ(typed(), "ECHO /t/on");
    EXPECT_EQ(line().cursorPosition(), 4);
    press(Qt::Key_Escape);
    EXPECT_EQ(typed(), "ec /t/on");
    EXPECT_EQ(line().cursorPosition(), 2);
}

TEST_F(Suggestions, MovingInTheLineClosesThem)
{
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Home, Qt::Key_End, Qt::Key_Right}) {
        askCommand();
        type("m");
        ASSERT_NE(suggested(), Lines());
        press(key);
        EXPECT_EQ(suggested(), Lines()) << key;
        m_commandLine->dropLine();
    }
    type("m");
    QTest::mouseClick(&line(), Qt::LeftButton, Qt::NoModifier, QPoint(3, 3));
    EXPECT_EQ(suggested(), Lines());
}

TEST_F(Suggestions, GoWhenTheKeyboardGoes)
{
    askCommand();
    type("men");
    press(Qt::Key_Down);
    above().setFocus();
    EXPECT_EQ(suggested(), Lines());
    EXPECT_EQ(typed(), "MENU ");
}

TEST_F(Suggestions, GoWithThePromptAndTheLine)
{
    askCommand();
    type("m");
    m_commandLine->endPrompt();
    EXPECT_EQ(suggested(), Lines());
    askCommand();
    EXPECT_EQ(suggested(), Lines());
    type("e");
    m_commandLine->dropLine();
    EXPECT_EQ(suggested(), Lines());
}

TEST_F(Suggestions, AClickTakesOneAndTheKeyboardStays)
{
    askCommand();
    type("men");
    const QRect place = list().visualRect(list().model()->index(2, 0));
    QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
    EXPECT_EQ(typed(), "MENUUNLOAD ");
    EXPECT_EQ(suggested(), Lines());
    EXPECT_EQ(QApplication::focusWidget(), &line());
    EXPECT_EQ(m_entered, Lines());
}

TEST_F(Suggestions, AreKeywordsWhereOneIsAsked)
{
    ask(Completion::Keywords, {QStringLiteral("Toolbar"), QStringLiteral("Title")}, L"Which? ");
    type("t");
    EXPECT_EQ(suggested(), (Lines{"Title", "Toolbar"}));
}

TEST_F(Suggestions, AreFilesWhereOneIsAsked)
{
    makeFile("plans/a b.cuix");
    makeFile("plans/site.cuix");
    const std::string pump = makeFile("pump.cuix");
    ask(Completion::Paths, {}, L"File: ");
    typePath("/p");
    EXPECT_EQ(suggested(), (Lines{"plans/", "pump.cuix"}));
    press(Qt::Key_Down);
    EXPECT_EQ(typed(), folder() + "/plans/");
    press(Qt::Key_Down);
    EXPECT_EQ(typed(), pump);
    press(Qt::Key_Return);
    EXPECT_EQ(m_entered, (Lines{pump}));
}

TEST_F(Suggestions, RightLooksIntoAFolder)
{
    makeFile("plans/a b.cuix");
    makeFile("plans/site.cuix");
    makeFile("pump.cuix");
    ask(Completion::Paths, {}, L"File: ");
    typePath("/p");
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    EXPECT_EQ(suggested(), (Lines{"a b.cuix", "site.cuix"}));
    press(Qt::Key_Down);
    EXPECT_EQ(typed(), '"' + folder() + "/plans/a b.cuix\"");
    press(Qt::Key_Right);
    EXPECT_EQ(suggested(), Lines());
}

TEST_F(Suggestions, AClickOnAFolderLooksIntoIt)
{
    makeFile("plans/site.cuix");
    makeFile("pump.cuix");
    ask(Completion::Paths, {}, L"File: ");
    typePath("/p");
    const QRect place = list().visualRect(list().model()->index(0, 0));
    QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
    EXPECT_EQ(typed(), folder() + "/plans/");
    EXPECT_EQ(suggested(), (Lines{"site.cuix"}));
}

TEST_F(Suggestions, BehindACommandArePathsWithASlashAlone)
{
    makeFile("pump.cuix");
    makeFile("plant.cuix");
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(m_folder.path()));
    askCommand();
    type("MENULOAD p");
    EXPECT_EQ(suggested(), Lines());
    press(Qt::Key_Tab);
    EXPECT_EQ(suggested(), (Lines{"plant.cuix", "pump.cuix"}));
    m_commandLine->dropLine();
    type("MENULOAD ./p");
    EXPECT_EQ(suggested(), (Lines{"plant.cuix", "pump.cuix"}));
    ASSERT_TRUE(QDir::setCurrent(before));
}

TEST_F(Suggestions, WhatIsTypedForTheRowsAboveHasThemToo)
{
    askCommand();
    above().setFocus();
    type("me");
    EXPECT_EQ(suggested(), (Lines{"MENU", "MENULOAD", "MENUUNLOAD"}));
}

TEST_F(Suggestions, StayInsideTheWindow)
{
    QStringList many;
    for (int i = 0; i < 500; ++i)
        many += QStringLiteral("name%1").arg(i) + QString(100, QLatin1Char('x'));
    ask(Completion::Commands, many);
    type("n");
    ASSERT_EQ(suggested().size(), 500U);
    EXPECT_TRUE(m_commandLine->rect().contains(list().geometry()));
    EXPECT_LE(list().geometry().bottom(), line().geometry().top());
    EXPECT_EQ(m_commandLine->width(), 600);
    press(Qt::Key_Down);
    for (int i = 0; i < 60; ++i)
        press(Qt::Key_PageDown);
    ASSERT_EQ(suggested().size(), 500U);
    EXPECT_EQ(suggested().back(), "[" + many.at(9).toStdString() + "]");
    EXPECT_TRUE(
        list().viewport()->rect().contains(list().visualRect(list().currentIndex()).center()));
}

TEST_F(Suggestions, AreClosedWhenTheWindowChangesItsSize)
{
    askCommand();
    type("m");
    m_commandLine->resize(500, 300);
    QApplication::processEvents();
    EXPECT_EQ(suggested(), Lines());
}

TEST_F(Suggestions, GoUnderTheLineWhereThereIsMoreRoom)
{
    QMainWindow window;
    window.resize(600, 500);
    auto* const dock = new QDockWidget(&window);
    dock->setWidget(m_commandLine.release());
    auto* const commandLine = static_cast<CommandLine*>(dock->widget());
    commandLine->setFixedHeight(commandLine->minimumSizeHint().height());
    window.addDockWidget(Qt::TopDockWidgetArea, dock);
    window.setCentralWidget(new QWidget);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QStringList many;
    for (int i = 0; i < 50; ++i)
        many += QStringLiteral("name%1").arg(i);
    commandLine->ask({L"Command: ", Completion::Commands, many, false});
    type("n");
    auto* const shown = window.findChild<QListView*>(QStringLiteral("suggestions"));
    ASSERT_TRUE(shown->isVisible());
    const auto* const typedAt = window.findChild<QLineEdit*>(QStringLiteral("line"));
    EXPECT_GE(shown->geometry().top(), typedAt->mapTo(&window, QPoint()).y() + typedAt->height());
    window.resize(700, 500);
    QApplication::processEvents();
    EXPECT_FALSE(shown->isVisible());
}

TEST_F(Suggestions, AnOpenListGoesWithTheCommandLine)
{
    askCommand();
    type("m");
    ASSERT_NE(suggested(), Lines());
    ASSERT_TRUE(begin());
    EXPECT_EQ(suggested(), Lines());
}
