// Working in the window: loading and unloading from its parts, finding commands, and finding it as
// it was left.
#include "tests/window/sessionfixture.h"

#include "refhost/window/mainwindow.h"

#include <QApplication>
#include <QDockWidget>
#include <QDropEvent>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QStatusBar>
#include <QToolBar>
#include <QTreeView>
#include <QtTest/QTest>

using namespace windowtest;

namespace {

const QString kLoadPrompt = QStringLiteral("Enter name of menu file to load:");

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

class WorkInWindow : public WindowSession
{
protected:
    // Drops files on the window; returns whether it takes them.
    static bool drop(const QStringList& files)
    {
        QMimeData dragged;
        QList<QUrl> urls;
        for (const QString& file : files)
            urls << QUrl::fromLocalFile(file);
        dragged.setUrls(urls);
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &dragged, Qt::LeftButton,
                              Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(&window(), &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent event(QPointF(5, 5), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&window(), &event);
        return true;
    }
    // Goes to the row of the view of what is loaded that begins so.
    static void goToRow(const QString& name)
    {
        auto& tree = part<QTreeView>(window(), "loadedTree");
        const QModelIndexList rows =
            tree.model()->match(tree.model()->index(0, 0), Qt::DisplayRole, name, 1,
                                Qt::MatchStartsWith | Qt::MatchRecursive);
        if (rows.isEmpty())
            throw std::runtime_error("a row " + name.toStdString());
        tree.setCurrentIndex(rows.front());
    }
    static QToolBar& toolbar(const char* name) { return part<QToolBar>(window(), name); }
    void waitForLoaded(const char* group) { waitForText(text("success.group:") + text(group)); }
    [[nodiscard]] QString listed() const { return stored("CUIX/LoadedCuix").join(QString()); }

    const QString m_survey = copyOf("survey", "survey with blanks.cuix");
};

} // namespace

TEST_F(WorkInWindow, TheViewLoadsAndUnloads)
{
    atPrompt([] { click(window(), "loadedLoad"); });
    inFileDialog([this](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), text("Load Customization File"));
        part<QLineEdit>(dialog, "fileNameEdit").setCompleter(nullptr);
        fill(dialog, "fileNameEdit", m_survey);
        QTest::keyClick(&part<QLineEdit>(dialog, "fileNameEdit"), Qt::Key_Return);
    });
    waitForLoaded("SURVEY");
    atPrompt([] {
        goToRow(text("SURVEY"));
        click(window(), "loadedUnload");
    });
    m_driver.step("the menus to go", [] { return !menus().contains(text("&Survey")); });
    closeWindow();
    EXPECT_EQ(run(), "");
    EXPECT_FALSE(listed().contains(m_survey)) << listed().toStdString();
}

TEST_F(WorkInWindow, ALoadThatIsThoughtBetterOfIsNone)
{
    atPrompt([] { click(window(), "loadedLoad"); });
    inFileDialog([](QFileDialog& dialog) { dialog.reject(); });
    closeWindow();
    EXPECT_EQ(run(), "");
    EXPECT_FALSE(listed().contains(QLatin1Char(';')));
}

TEST_F(WorkInWindow, FilesThatAreDroppedAreLoaded)
{
    atPrompt([this] { EXPECT_TRUE(drop({m_survey, m_plant})); });
    waitForLoaded("SURVEY");
    waitForLoaded("PLANT");
    closeWindow();
    EXPECT_EQ(run(), "");
    EXPECT_TRUE(listed().endsWith(m_survey + text(";") + m_plant)) << listed().toStdString();
}

TEST_F(WorkInWindow, NothingIsDroppedIntoACommandThatAsks)
{
    typeLine(text("SETVAR FILEDIA 0"));
    typeLine(text("MENULOAD"));
    atPrompt(
        [this] {
            EXPECT_FALSE(drop({m_survey}));
            EXPECT_FALSE(part<QPushButton>(window(), "loadedLoad").isEnabled());
        },
        kLoadPrompt);
    closeWindow(kLoadPrompt);
    EXPECT_EQ(run(), "");
    EXPECT_FALSE(listed().contains(m_survey));
}

TEST_F(WorkInWindow, WhatIsNoFileIsNotTaken)
{
    atPrompt([] { EXPECT_FALSE(drop({})); });
    closeWindow();
    EXPECT_EQ(run(), "");
}

TEST_F(WorkInWindow, AMissingFileIsMarked)
{
    m_options.files = QStringList{m_plant};
    closeWindow();
    EXPECT_EQ(run(), "");
    ASSERT_TRUE(QFile::remove(m_plant));
    atPrompt([] {
        goToRow(text("plant.cuix (missing)"));
        EXPECT_FALSE(part<QPushButton>(window(), "loadedUnload").isEnabled());
    });
    closeWindow();
    EXPECT_EQ(run(), "");
}

TEST_F(WorkInWindow, ARecentFileIsLoadedAgain)
{
    m_options.files = QStringList{m_plant};
    atPrompt([] {
        goToRow(text("PLANT"));
        click(window(), "loadedUnload");
    });
    closeWindow();
    EXPECT_EQ(run(), "");
    m_options.files.clear();
    atPrompt([] {
        EXPECT_FALSE(menus().contains(text("&Plant")));
        auto& recent = part<QMenu>(window(), "recentFiles");
        emit recent.aboutToShow();
        ASSERT_FALSE(recent.actions().isEmpty());
        recent.actions().front()->trigger();
    });
    waitForLoaded("PLANT");
    closeWindow();
    EXPECT_EQ(run(), "");
}

TEST_F(WorkInWindow, IsFoundAsItWasLeft)
{
    m_options.files = QStringList{m_plant, m_survey};
    atPrompt([] {
        window().addToolBar(Qt::LeftToolBarArea, &toolbar("PLANT/equipmentbar"));
        toolbar("SURVEY/terrainbar").hide();
        part<QDockWidget>(window(), "loaded").hide();
        window().resize(900, 620);
    });
    closeWindow();
    EXPECT_EQ(run(), "");
    m_options.files.clear();
    atPrompt([] {
        EXPECT_EQ(window().toolBarArea(&toolbar("PLANT/equipmentbar")), Qt::LeftToolBarArea);
        EXPECT_FALSE(toolbar("SURVEY/terrainbar").isVisible());
        EXPECT_FALSE(part<QDockWidget>(window(), "loaded").isVisible());
        EXPECT_EQ(window().size(), QSize(900, 620));
    });
    // A toolbar that is away keeps its place over that as well.
    typeLine(text("SETVAR FILEDIA 0"));
    typeLine(text("MENUUNLOAD"));
    typeLine(m_plant, text("Enter the name of a Menu Group to unload:"));
    closeWindow();
    EXPECT_EQ(run(), "");
    m_options.files = QStringList{m_plant};
    waitForLoaded("PLANT");
    atPrompt([] {
        EXPECT_EQ(window().toolBarArea(&toolbar("PLANT/equipmentbar")), Qt::LeftToolBarArea);
    });
    closeWindow();
    EXPECT_EQ(run(), "");
}

TEST_F(WorkInWindow, ThePaletteFindsCommandsAliasesAndWhatGroupsBring)
{
    m_options.files = QStringList{m_plant};
    const auto find = [this](const QString& typed) {
        waitForKeyboard();
        atPrompt(
            [] { QTest::keyClick(&window(), Qt::Key_I, Qt::ControlModifier | Qt::AltModifier); });
        m_driver.step(
            "the palette", [] { return QApplication::activePopupWidget() != nullptr; },
            [typed] {
                auto* const line = QApplication::activePopupWidget()->findChild<QLineEdit*>();
                QTest::keyClicks(line, typed);
                QTest::keyClick(line, Qt::Key_Return);
            });
    };
    find(text("clash"));
    waitForText(text("\nFind equipment and pipes that run into each other\n"));
    find(text("show every command"));
    waitForText(text("\nCommand: COMMANDS\n"));
    find(text("gv getvar"));
    waitForText(text("\nCommand: GV\n"));
    waitForKeyboard();
    atPrompt([] { QTest::keyClick(&window(), Qt::Key_Escape); }, qtTrId("prompt-variable"));
    closeWindow();
    EXPECT_EQ(run(), "");
}

TEST_F(WorkInWindow, ShowsWhereACommandStands)
{
    m_options.files = QStringList{m_plant};
    waitForKeyboard();
    atPrompt([] {
        const auto& group = window();
        goToRow(text("Check for Clashes"));
        auto& where = part<QPushButton>(group, "loadedWhere");
        emit where.menu()->aboutToShow();
        where.menu()->actions().front()->trigger();
    });
    m_driver.step(
        "the menu to open", [] { return QApplication::activePopupWidget() != nullptr; },
        [] {
            auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr);
            ASSERT_NE(menu->activeAction(), nullptr);
            EXPECT_TRUE(menu->activeAction()->statusTip().contains(text("run into each other")));
            menu->hide();
        });
    closeWindow();
    EXPECT_EQ(run(), "");
}
