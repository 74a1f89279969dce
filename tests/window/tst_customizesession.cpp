// CUSTOMIZE in a session in a window: its editors, and what becomes of what the user changes there.
#include "tests/window/sessionfixture.h"

#include "refhost/window/mainwindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QToolBar>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QtTest/QTest>

using namespace windowtest;

namespace {

const QString kPrompt = QStringLiteral("Customize [Accelerator/Toolbar]");
const QString kUnloadPrompt = QStringLiteral("Enter the name of a Menu Group to unload:");
const QString kLoadPrompt = QStringLiteral("Enter name of menu file to load:");
const QString kClash = QStringLiteral("\nFind equipment and pipes that run into each other\n");

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

class CustomizeSession : public WindowSession
{
protected:
    using Use = std::function<void(QDialog& editor)>;

    CustomizeSession()
    {
        m_options.files = QStringList{m_plant, m_survey};
        m_options.variables = {{text("FILEDIA"), text("0")}};
    }

    void inEditor(const char* name, Use use, std::function<bool(QDialog& editor)> ready = {})
    {
        const auto editor = [name]() -> QDialog* {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            const bool isIt = dialog != nullptr && dialog->isVisible() &&
                              dialog->objectName() == QLatin1String(name);
            return isIt ? dialog : nullptr;
        };
        m_driver.step(
            std::string("the editor ") + name,
            [editor, ready] { return editor() != nullptr && (!ready || ready(*editor())); },
            [editor, use = std::move(use)] { use(*editor()); });
    }
    static void accept(QDialog& editor)
    {
        editor.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    }

    // Gives a command of the current list a key, as the user does: by its row.
    void giveKey(const QString& command, Qt::Key key)
    {
        inEditor("acceleratorEditor", [command](QDialog& editor) {
            QTreeWidget& tree = *editor.findChild<QTreeWidget*>();
            QTreeWidgetItem& row = rowOf(tree, command);
            tree.setFocus();
            tree.setCurrentItem(&row, 1);
            QTest::keyClick(&tree, Qt::Key_Return);
        });
        inEditor(
            "acceleratorEditor",
            [key](QDialog& editor) {
                keyButton(editor)->click();
                QTest::keyClick(editor.windowHandle(), key);
            },
            [](QDialog& editor) { return keyButton(editor) != nullptr; });
        inEditor("acceleratorEditor", accept, [command, key](QDialog& editor) {
            const QTreeWidgetItem& row = rowOf(*editor.findChild<QTreeWidget*>(), command);
            return row.data(1, Qt::DisplayRole).value<QKeySequence>() == QKeySequence(key);
        });
    }
    static QTreeWidgetItem& rowOf(QTreeWidget& tree, const QString& command)
    {
        for (QTreeWidgetItemIterator each(&tree); *each != nullptr; ++each) {
            if ((*each)->text(0) == command)
                return **each;
        }
        throw std::runtime_error("a row " + command.toStdString());
    }
    // The button that takes a new key, once its row is open.
    static QAbstractButton* keyButton(const QDialog& editor)
    {
        for (const QWidget* const widget : editor.findChildren<QWidget*>()) {
            if (widget->inherits("KKeySequenceWidget") && widget->isVisible())
                return widget->findChild<QAbstractButton*>();
        }
        return nullptr;
    }

    // Presses the key and waits for what its command says, one time more than before.
    void pressForClash(Qt::Key key)
    {
        waitForKeyboard();
        atPrompt([this, key] {
            m_said = said().count(kClash);
            QTest::keyClick(&window(), key);
        });
        m_driver.step("the command of the key", [this] { return said().count(kClash) > m_said; });
    }
    void unloadPlant()
    {
        typeLine(text("MENUUNLOAD"));
        typeLine(m_plant, kUnloadPrompt);
    }
    void loadPlant()
    {
        typeLine(text("MENULOAD"));
        typeLine(m_plant, kLoadPrompt);
    }

    const QString m_survey = copyOf("survey", "survey.cuix");

private:
    int m_said = 0;
};

} // namespace

TEST_F(CustomizeSession, EnterOpensTheEditorOfKeys)
{
    typeLine(text("CUSTOMIZE"));
    typeLine(QString(), kPrompt);
    inEditor("acceleratorEditor", [](QDialog& editor) { editor.reject(); });
    closeWindow();
    EXPECT_EQ(run(), "");
    EXPECT_EQ(stored("Accelerators"), QStringList());
}

TEST_F(CustomizeSession, AKeywordOpensTheEditorOfToolbars)
{
    typeLine(text("CUSTOMIZE"));
    typeLine(text("toolbar"), kPrompt);
    inEditor("toolbarEditor", [](QDialog& editor) { editor.reject(); });
    closeWindow();
    EXPECT_EQ(run(), "");
    EXPECT_EQ(stored("Toolbars"), QStringList());
}

TEST_F(CustomizeSession, ACancelOpensNothing)
{
    typeLine(text("CUSTOMIZE"));
    waitForKeyboard();
    atPrompt([] { QTest::keyClick(&window(), Qt::Key_Escape); }, kPrompt);
    atPrompt([] { EXPECT_EQ(QApplication::activeModalWidget(), nullptr); });
    closeWindow();
    EXPECT_EQ(run(), "");
}

TEST_F(CustomizeSession, AChangedKeyWorksAtOnceAfterAReloadAndAfterARestart)
{
    typeLine(text("CUSTOMIZE"));
    typeLine(QString(), kPrompt);
    giveKey(text("Check for Clashes"), Qt::Key_F8);
    pressForClash(Qt::Key_F8);
    unloadPlant();
    loadPlant();
    pressForClash(Qt::Key_F8);
    closeWindow();
    EXPECT_EQ(run(), "");
    EXPECT_EQ(stored("Accelerators"), QStringList(text("Accelerators/PLANT/clash\tstring\tF8")));
    m_options.files.clear();
    pressForClash(Qt::Key_F8);
    closeWindow();
    EXPECT_EQ(run(), "");
}

TEST_F(CustomizeSession, AToolbarOfTwoPackagesIsWholeAgainWhenBothAre)
{
    const auto buttons = [] {
        QStringList texts;
        for (const QAction* action : part<QToolBar>(window(), "/1").actions())
            texts << action->text();
        return texts;
    };
    const QStringList both{text("Check for &Clashes"), text("&Bearing")};
    typeLine(text("CUSTOMIZE"));
    typeLine(text("Toolbar"), kPrompt);
    inEditor("toolbarEditor", [buttons, both](QDialog& editor) {
        click(editor, "new");
        for (const char* command : {"Check for Clashes", "Bearing"}) {
            fill(editor, "commandSearch", text(command));
            QTest::keyClick(&part<QLineEdit>(editor, "commandSearch"), Qt::Key_Return);
        }
        EXPECT_EQ(buttons(), both); // the window shows it already
        accept(editor);
    });
    atPrompt([buttons, both] { EXPECT_EQ(buttons(), both); });
    unloadPlant();
    atPrompt([buttons, both] { EXPECT_EQ(buttons(), both.mid(1)); });
    loadPlant();
    atPrompt([buttons, both] { EXPECT_EQ(buttons(), both); });
    closeWindow();
    EXPECT_EQ(run(), "");
    m_options.files.clear();
    atPrompt([buttons, both] { EXPECT_EQ(buttons(), both); });
    closeWindow();
    EXPECT_EQ(run(), "");
}

TEST_F(CustomizeSession, WhatWasOnlyTriedOnAToolbarIsUndone)
{
    typeLine(text("CUSTOMIZE"));
    typeLine(text("Toolbar"), kPrompt);
    inEditor("toolbarEditor", [](QDialog& editor) {
        click(editor, "new");
        EXPECT_NE(window().findChild<QToolBar*>(text("/1")), nullptr);
        editor.reject();
    });
    atPrompt([] { EXPECT_EQ(window().findChild<QToolBar*>(text("/1")), nullptr); });
    closeWindow();
    EXPECT_EQ(run(), "");
}
