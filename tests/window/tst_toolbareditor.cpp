// The editor of toolbars.
#include "host/status.h"
#include "refhost/window/draggedcommand.h"
#include "refhost/window/groupcommandmodel.h"
#include "refhost/window/toolbareditor.h"
#include "tests/support/germantexts.h"
#include "tests/support/testhost.h"
#include "tests/window/groupsfixture.h"

#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMainWindow>
#include <QPushButton>
#include <QTimer>
#include <QTreeView>
#include <QtTest/QTest>

#include <algorithm>
#include <set>

using namespace quelhost;
using namespace windowtest;

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

// The group of groupsfixture.h with a toolbar "bar" of its two commands.
ShownGroup withBar(const char* name, const char* title)
{
    ShownGroup shown = group(name, {});
    shown.group.toolbars = {{text("bar"), text(title), {{text("go")}, {}, {text("ask")}}}};
    return shown;
}

const GroupEntry kPlantBar{text("PLANT"), text("bar")};
const GroupEntry kSurveyBar{text("SURVEY"), text("bar")};
const GroupEntry kMine{QString(), text("1")};

std::vector<ShownGroup> bothGroups()
{
    return {withBar("PLANT", "&Piping"), withBar("SURVEY", "&Terrain")};
}

ToolbarChange ownToolbar(const char* title, const std::vector<ToolbarEntry>& entries)
{
    ToolbarChange change;
    change.title = text(title);
    change.entries = entries;
    return change;
}

// What stands in the rows, the lines of one with a bar between them.
Texts rowsOf(const QAbstractItemModel& model, const QModelIndex& parent = {})
{
    Texts rows;
    for (int i = 0; i < model.rowCount(parent); ++i)
        rows.push_back(model.index(i, 0, parent)
                           .data()
                           .toString()
                           .replace(text("\n"), text(" / "))
                           .toStdString());
    return rows;
}

template<class Widget>
Widget& part(const QWidget& of, const char* name)
{
    return *of.findChild<Widget*>(text(name));
}

void click(const QWidget& of, const char* button)
{
    QTest::mouseClick(&part<QPushButton>(of, button), Qt::LeftButton);
}

// An editor over these groups that is shown and has the keyboard.
class Editor
{
public:
    explicit Editor(const std::vector<ShownGroup>& groups = bothGroups(),
                    const ToolbarChanges& changes = {})
        : m_edits(groups, changes)
        , m_dialog(m_edits, [this](const ToolbarChanges& shown) { m_previews.push_back(shown); })
    {
        m_dialog.show();
        m_dialog.activateWindow();
    }

    [[nodiscard]] bool isActive() { return QTest::qWaitForWindowActive(&m_dialog); }
    [[nodiscard]] const ToolbarChanges& result() const { return m_edits.result(); }
    [[nodiscard]] ToolbarEditor& dialog() { return m_dialog; }
    [[nodiscard]] const std::vector<ToolbarChanges>& previews() const { return m_previews; }

    [[nodiscard]] QListView& toolbars() { return part<QListView>(m_dialog, "toolbars"); }
    [[nodiscard]] QListView& entries() { return part<QListView>(m_dialog, "entries"); }
    [[nodiscard]] QTreeView& commands() { return part<QTreeView>(m_dialog, "commands"); }
    [[nodiscard]] Texts toolbarRows() { return rowsOf(*toolbars().model()); }
    [[nodiscard]] Texts entryRows() { return rowsOf(*entries().model()); }
    [[nodiscard]] std::string remark()
    {
        return part<QLabel>(m_dialog, "remark").text().toStdString();
    }
    [[nodiscard]] bool isEnabled(const char* button)
    {
        return part<QPushButton>(m_dialog, button).isEnabled();
    }
    // A key wherever the focus is. What is typed over a title is taken in the events behind it, and
    // a button that is pressed by its letter comes up again before it does what it does.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(focus(), key, modifiers);
        QCoreApplication::processEvents();
        EXPECT_TRUE(QTest::qWaitFor([this] {
            const auto buttons = m_dialog.findChildren<QPushButton*>();
            return std::none_of(buttons.begin(), buttons.end(),
                                [](const QPushButton* button) { return button->isDown(); });
        }));
    }
    void type(const char* typed) { QTest::keyClicks(focus(), text(typed)); }
    void click(const char* button) { ::click(m_dialog, button); }
    void goToToolbar(int row) { goTo(toolbars(), row); }
    void goToEntry(int row) { goTo(entries(), row); }
    [[nodiscard]] int entry() { return entries().currentIndex().row(); }

private:
    static void goTo(QListView& list, int row)
    {
        const QRect at = list.visualRect(list.model()->index(row, 0));
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier,
                          QPoint(at.right() - 3, at.center().y()));
    }
    [[nodiscard]] QWidget* focus()
    {
        QWidget* const widget = m_dialog.focusWidget();
        return widget == nullptr ? &m_dialog : widget;
    }

    ToolbarEdits m_edits;
    std::vector<ToolbarChanges> m_previews;
    ToolbarEditor m_dialog;
};

// Drags what the model has at that row to a height in the list, as the toolkit does.
bool drop(QListView& list, const QModelIndex& from, int y, Qt::DropAction action)
{
    const std::unique_ptr<QMimeData> dragged(from.model()->mimeData({from}));
    QWidget& onto = *list.viewport();
    const QPoint at(20, y);
    QDragEnterEvent enter(at, action, dragged.get(), Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&onto, &enter);
    QDragMoveEvent move(at, action, dragged.get(), Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&onto, &move);
    QDropEvent dropped(at, action, dragged.get(), Qt::LeftButton, Qt::NoModifier);
    dropped.setDropAction(action);
    if (!move.isAccepted())
        return false;
    QCoreApplication::sendEvent(&onto, &dropped);
    return dropped.isAccepted();
}

// The letter to press of each button and label in sight.
std::vector<QString> lettersOf(const QWidget& dialog)
{
    std::vector<QString> letters;
    const auto add = [&letters](const QString& label) {
        const QKeySequence keys = QKeySequence::mnemonic(label);
        if (!keys.isEmpty())
            letters.push_back(keys.toString());
    };
    for (const QPushButton* button : dialog.findChildren<QPushButton*>())
        add(button->text());
    for (const QLabel* label : dialog.findChildren<QLabel*>()) {
        if (label->buddy() != nullptr)
            add(label->text());
    }
    return letters;
}

} // namespace

TEST(ToolbarEditors, ShowToolbarsWhatStandsOnThemAndAllCommands)
{
    Editor editor;
    EXPECT_EQ(editor.toolbarRows(), (Texts{"Piping / PLANT", "Terrain / SURVEY"}));
    EXPECT_EQ(editor.entryRows(), (Texts{"Go PLANT", "(separator)", "Ask"}));
    const QAbstractItemModel& commands = *editor.commands().model();
    EXPECT_EQ(rowsOf(commands), (Texts{"PLANT", "SURVEY"}));
    EXPECT_EQ(rowsOf(commands, commands.index(1, 0)), (Texts{"Go SURVEY", "Ask"}));
    EXPECT_EQ(commands.index(0, 0, commands.index(1, 0)).data(Qt::ToolTipRole).toString(),
              text("Go SURVEY\nGoes\nSURVEY/go\n{cancel}ECHO SURVEY"));
    editor.goToToolbar(1);
    EXPECT_EQ(editor.entryRows(), (Texts{"Go SURVEY", "(separator)", "Ask"}));
    for (const char* const button : {"reset", "up", "down", "remove", "undo", "redo"})
        EXPECT_FALSE(editor.isEnabled(button)) << button;
    EXPECT_TRUE(editor.previews().empty());
}

TEST(ToolbarEditors, MakeAToolbarOfTwoPackagesByKeysAlone)
{
    Editor editor;
    ASSERT_TRUE(editor.isActive());
    editor.press(Qt::Key_N, Qt::AltModifier);
    editor.type("Daily");
    editor.press(Qt::Key_Return);
    editor.press(Qt::Key_C, Qt::AltModifier);
    editor.type("go sur");
    editor.press(Qt::Key_Return);
    editor.press(Qt::Key_S, Qt::AltModifier);
    editor.press(Qt::Key_C, Qt::AltModifier);
    editor.type("plant");
    editor.press(Qt::Key_Down);
    editor.press(Qt::Key_Return);
    EXPECT_TRUE(editor.dialog().isVisible());
    const ToolbarChanges expected{
        {kMine,
         ownToolbar("Daily", {{text("SURVEY"), text("go")}, {}, {text("PLANT"), text("ask")}})}};
    EXPECT_EQ(editor.result(), expected);
    EXPECT_EQ(editor.toolbarRows().back(), "Daily / your own");
    EXPECT_EQ(editor.entryRows(), (Texts{"Go SURVEY (SURVEY)", "(separator)", "Ask (PLANT)"}));
    ASSERT_FALSE(editor.previews().empty());
    EXPECT_EQ(editor.previews().back(), expected);

    editor.press(Qt::Key_B, Qt::AltModifier);
    editor.press(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(editor.entryRows(), (Texts{"Go SURVEY (SURVEY)", "Ask (PLANT)", "(separator)"}));
    editor.press(Qt::Key_Down);
    editor.press(Qt::Key_Delete);
    EXPECT_EQ(editor.entryRows(), (Texts{"Go SURVEY (SURVEY)", "Ask (PLANT)"}));
    editor.press(Qt::Key_Return);
    EXPECT_EQ(editor.dialog().result(), QDialog::Accepted);
    EXPECT_FALSE(editor.dialog().isVisible());
}

TEST(ToolbarEditors, KeepAndMarkCommandsThatAreNotThere)
{
    const ToolbarEntry pump{text("ABSENT"), text("pump")};
    const ToolbarEntry old{text("PLANT"), text("old")};
    const ToolbarEntry go{text("PLANT"), text("go")};
    ToolbarChange absent;
    absent.hidden = true;
    const GroupEntry absentBar{text("ABSENT"), text("bar")};
    Editor editor(bothGroups(),
                  {{kMine, ownToolbar("Mine", {pump, go, old})}, {absentBar, absent}});
    EXPECT_EQ(editor.toolbarRows(),
              (Texts{"Piping / PLANT", "Terrain / SURVEY", "Mine / your own"}));
    editor.goToToolbar(2);
    EXPECT_EQ(editor.entryRows(), (Texts{"ABSENT/pump (not loaded)", "Go PLANT (PLANT)",
                                         "PLANT/old (no longer in its package)"}));
    editor.goToEntry(0);
    editor.click("down");
    EXPECT_EQ(editor.entry(), 1);
    editor.click("resetAll");
    const ToolbarChanges expected{{kMine, ownToolbar("Mine", {go, pump, old})},
                                  {absentBar, absent}};
    EXPECT_EQ(editor.result(), expected);
}

TEST(ToolbarEditors, UndoAndRedoByKeysAndButtons)
{
    Editor editor;
    ASSERT_TRUE(editor.isActive());
    editor.goToEntry(2);
    editor.click("up");
    editor.click("remove");
    const Texts after{"Go PLANT", "(separator)"};
    EXPECT_EQ(editor.entryRows(), after);
    editor.goToToolbar(1);
    editor.press(Qt::Key_Z, Qt::ControlModifier);
    // Where it happened is shown again.
    EXPECT_EQ(editor.toolbars().currentIndex().row(), 0);
    EXPECT_EQ(editor.entryRows(), (Texts{"Go PLANT", "Ask", "(separator)"}));
    EXPECT_EQ(editor.entry(), 1);
    editor.click("undo");
    EXPECT_EQ(editor.entryRows(), (Texts{"Go PLANT", "(separator)", "Ask"}));
    EXPECT_TRUE(editor.result().empty());
    EXPECT_FALSE(editor.isEnabled("undo"));
    editor.press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    editor.click("redo");
    EXPECT_EQ(editor.entryRows(), after);
    EXPECT_FALSE(editor.isEnabled("redo"));
    EXPECT_EQ(editor.previews().size(), 6U);
    EXPECT_EQ(editor.previews().back(), editor.result());
}

TEST(ToolbarEditors, ResetOneOrAll)
{
    Editor editor;
    editor.goToEntry(0);
    editor.click("remove");
    editor.goToToolbar(1);
    editor.goToEntry(0);
    editor.click("down");
    EXPECT_EQ(editor.toolbarRows(),
              (Texts{"Piping / PLANT, changed", "Terrain / SURVEY, changed"}));
    editor.goToToolbar(0);
    editor.click("reset");
    EXPECT_EQ(editor.toolbarRows(), (Texts{"Piping / PLANT", "Terrain / SURVEY, changed"}));
    EXPECT_FALSE(editor.isEnabled("reset"));
    editor.click("resetAll");
    EXPECT_TRUE(editor.result().empty());
    editor.click("undo");
    EXPECT_EQ(editor.result().count(kSurveyBar), 1U);
}

TEST(ToolbarEditors, TakeNamesKindly)
{
    Editor editor;
    ASSERT_TRUE(editor.isActive());
    editor.press(Qt::Key_T, Qt::AltModifier);
    editor.press(Qt::Key_F2);
    editor.type("terrain");
    editor.press(Qt::Key_Return);
    EXPECT_EQ(editor.toolbarRows().front(), "terrain 2 / PLANT, changed");
    EXPECT_EQ(editor.remark(), "Another toolbar has that name; this one is called \"terrain 2\".");
    editor.press(Qt::Key_M, Qt::AltModifier);
    editor.press(Qt::Key_Delete);
    editor.press(Qt::Key_Return);
    EXPECT_EQ(editor.toolbarRows().front(), "terrain 2 / PLANT, changed");
    EXPECT_EQ(editor.remark(), "A toolbar needs a name; this one keeps its own.");
    editor.press(Qt::Key_M, Qt::AltModifier);
    editor.type("  Pipes && more ");
    editor.press(Qt::Key_Return);
    EXPECT_EQ(editor.toolbarRows().front(), "Pipes && more / PLANT, changed");
    EXPECT_EQ(editor.remark(), "");
    editor.press(Qt::Key_M, Qt::AltModifier);
    editor.type("Never mind");
    editor.press(Qt::Key_Escape);
    EXPECT_EQ(editor.toolbarRows().front(), "Pipes && more / PLANT, changed");
    EXPECT_TRUE(editor.dialog().isVisible());
}

TEST(ToolbarEditors, HideAndDeleteByKeysAndBringBackByATick)
{
    Editor editor;
    ASSERT_TRUE(editor.isActive());
    editor.press(Qt::Key_T, Qt::AltModifier);
    editor.press(Qt::Key_Space);
    EXPECT_EQ(editor.toolbarRows().front(), "Piping / PLANT, changed, hidden");
    EXPECT_TRUE(editor.result().at(kPlantBar).hidden);
    editor.press(Qt::Key_Space);
    EXPECT_TRUE(editor.result().empty());
    editor.press(Qt::Key_Delete);
    EXPECT_EQ(editor.toolbarRows().front(), "Piping / PLANT, deleted");
    EXPECT_EQ(editor.entryRows(), Texts());
    EXPECT_EQ(editor.remark(), "This toolbar is deleted. A tick or Reset brings it back.");
    for (const char* const button : {"rename", "delete", "separator", "add"})
        EXPECT_FALSE(editor.isEnabled(button)) << button;
    editor.press(Qt::Key_Space);
    EXPECT_TRUE(editor.result().empty());
    EXPECT_EQ(editor.entryRows(), (Texts{"Go PLANT", "(separator)", "Ask"}));
}

TEST(ToolbarEditors, TakeInDraggedCommandsAndMoveDraggedEntries)
{
    Editor editor;
    QListView& entries = editor.entries();
    const auto top = [&entries](int row) {
        return entries.visualRect(entries.model()->index(row, 0)).top();
    };
    const QAbstractItemModel& commands = *editor.commands().model();
    const QModelIndex survey = commands.index(1, 0);
    EXPECT_TRUE(drop(entries, commands.index(0, 0, survey), top(1) + 1, Qt::CopyAction));
    EXPECT_EQ(editor.entryRows(), (Texts{"Go PLANT", "Go SURVEY (SURVEY)", "(separator)", "Ask"}));
    EXPECT_EQ(editor.entry(), 1);
    EXPECT_TRUE(drop(entries, commands.index(1, 0, survey), entries.viewport()->height() - 1,
                     Qt::CopyAction));
    EXPECT_TRUE(drop(entries, entries.model()->index(0, 0), top(3) + 1, Qt::MoveAction));
    EXPECT_EQ(editor.entryRows(),
              (Texts{"Go SURVEY (SURVEY)", "(separator)", "Go PLANT", "Ask", "Ask (SURVEY)"}));
    EXPECT_TRUE(drop(entries, entries.model()->index(3, 0), top(0) + 1, Qt::MoveAction));
    EXPECT_EQ(editor.entryRows(),
              (Texts{"Ask", "Go SURVEY (SURVEY)", "(separator)", "Go PLANT", "Ask (SURVEY)"}));
    EXPECT_EQ(editor.previews().size(), 4U);
}

TEST(ToolbarEditors, TakeInNothingElse)
{
    Editor editor;
    QAbstractItemModel& entries = *editor.entries().model();
    QMimeData foreign;
    foreign.setData(DraggedCommand::format(), QByteArrayLiteral("1")); // of another program
    EXPECT_FALSE(entries.dropMimeData(&foreign, Qt::CopyAction, 0, 0, {}));
    foreign.setText(text("PLANT/go"));
    EXPECT_FALSE(entries.dropMimeData(&foreign, Qt::CopyAction, 0, 0, {}));
    const QModelIndex group = editor.commands().model()->index(0, 0);
    EXPECT_EQ(group.model()->mimeData({group}), nullptr);
    editor.click("delete");
    EXPECT_FALSE(entries.flags({}) & Qt::ItemIsDropEnabled);
    EXPECT_EQ(editor.previews().size(), 1U);
}

TEST(ToolbarEditors, FindCommandsByNameIdAndGroup)
{
    Editor editor;
    struct Row
    {
        const char* typed;
        Texts groups;
        const char* current;
    };
    for (const Row& row :
         {Row{"survey", {"SURVEY"}, "Go SURVEY"}, Row{"PLANT/ask", {"PLANT"}, "Ask"},
          Row{"goes", {"PLANT", "SURVEY"}, "Go PLANT"}, Row{"s", {"PLANT", "SURVEY"}, "Ask"},
          Row{"go s", {"SURVEY"}, "Go SURVEY"}, Row{"nowhere", {}, ""}}) {
        auto& search = part<QLineEdit>(editor.dialog(), "commandSearch");
        search.setFocus();
        search.clear();
        editor.type(row.typed);
        EXPECT_EQ(rowsOf(*editor.commands().model()), row.groups) << row.typed;
        EXPECT_EQ(editor.commands().currentIndex().data().toString(), text(row.current));
        EXPECT_EQ(editor.isEnabled("add"), !row.groups.empty());
    }
    EXPECT_EQ(editor.remark(), "No command has that in its name.");
    editor.press(Qt::Key_Return);
    EXPECT_TRUE(editor.dialog().isVisible());
    EXPECT_TRUE(editor.previews().empty());
}

TEST(ToolbarEditors, CanBeUsedByThoseWhoDoNotSeeThem)
{
    Editor editor;
    int named = 0;
    for (const QWidget* widget : editor.dialog().findChildren<QWidget*>()) {
        const bool isField = widget->focusPolicy() != Qt::NoFocus &&
                             (qobject_cast<const QLineEdit*>(widget) != nullptr ||
                              qobject_cast<const QAbstractItemView*>(widget) != nullptr);
        named += isField && !widget->accessibleName().isEmpty() ? 1 : 0;
        EXPECT_TRUE(!isField || !widget->accessibleName().isEmpty())
            << widget->objectName().toStdString();
    }
    EXPECT_EQ(named, 4);
    EXPECT_EQ(editor.entries().accessibleName(), text("Buttons of Piping"));
    EXPECT_EQ(editor.toolbars().model()->index(0, 0).data(Qt::AccessibleTextRole).toString(),
              text("Piping, PLANT"));
}

TEST(ToolbarEditors, HaveALetterOfItsOwnForEverythingInEachLanguage)
{
    const auto check = [] {
        Editor editor;
        const std::vector<QString> letters = lettersOf(editor.dialog());
        EXPECT_EQ(letters.size(), 15U);
        EXPECT_EQ(std::set<QString>(letters.begin(), letters.end()).size(), letters.size());
        for (const QPushButton* button : editor.dialog().findChildren<QPushButton*>())
            EXPECT_GE(button->width(), button->sizeHint().width()) << button->text().toStdString();
    };
    check();
    const quelhost::test::GermanTexts german;
    ASSERT_TRUE(german.loaded());
    check();
}

namespace {

// The editor as a command opens it.
class EditingToolbars : public testing::Test
{
protected:
    explicit EditingToolbars(SettingsAccess access = SettingsAccess::ReadWrite)
        : m_host({}, {quelhost::test::Typist::Person, true, false, text("en"), access})
    {
        const std::wstring path = quelhost::test::writePackage(
            m_host.profile, "plant.cuix", "PLANT",
            "<commands><command id=\"go\" text=\"Go\" macro=\"GO\"/></commands>"
            "<toolbars><toolbar id=\"bar\" text=\"Piping\">"
            "<item command=\"go\"/></toolbar></toolbars>");
        QuString name;
        m_isLoaded = m_host.host->groups.loadMenuFile(QuString(path.c_str()), name);
    }

    // Opens the editor and does something in it.
    int edit(std::function<void(QDialog& dialog)> action)
    {
        QTimer::singleShot(0, &m_window, [action = std::move(action)] {
            auto* const dialog = qobject_cast<ToolbarEditor*>(QApplication::activeModalWidget());
            if (dialog == nullptr)
                ADD_FAILURE() << "no editor";
            else
                action(*dialog);
        });
        return editToolbars(*m_host.host, m_window, [this](const ToolbarChanges& changes) {
            m_previews.push_back(changes);
        });
    }

    quelhost::test::TestHost m_host;
    QMainWindow m_window;
    bool m_isLoaded = false;
    std::vector<ToolbarChanges> m_previews;
};

class EditingToolbarsThatCannotBeStored : public EditingToolbars
{
protected:
    EditingToolbarsThatCannotBeStored()
        : EditingToolbars(SettingsAccess::ReadOnly)
    {}
};

} // namespace

TEST_F(EditingToolbars, StoresThemWhenTheyAreKept)
{
    ASSERT_TRUE(m_isLoaded);
    EXPECT_EQ(m_host.output.take(), "");
    EXPECT_EQ(edit([](QDialog& dialog) {
                  click(dialog, "separator");
                  QTest::keyClick(&dialog, Qt::Key_Return);
              }),
              QuelStatus::kNormal);
    ASSERT_EQ(m_previews.size(), 1U);
    EXPECT_EQ(m_host.host->customization.toolbars(), m_previews.back());
    EXPECT_EQ(m_previews.back().at(kPlantBar).entries->size(), 2U);
    EXPECT_EQ(m_host.output.text(), "");
}

TEST_F(EditingToolbars, BringsTheFormerOnesBackWhenTheyAreNot)
{
    ASSERT_TRUE(m_isLoaded);
    EXPECT_EQ(edit([](QDialog& dialog) {
                  click(dialog, "delete");
                  QTest::keyClick(&dialog, Qt::Key_Escape);
              }),
              QuelStatus::kCancelled);
    ASSERT_EQ(m_previews.size(), 2U);
    EXPECT_TRUE(m_previews.front().at(kPlantBar).deleted);
    EXPECT_TRUE(m_previews.back().empty());
    EXPECT_TRUE(m_host.host->customization.toolbars().empty());
}

TEST_F(EditingToolbarsThatCannotBeStored, SaysSoOnceAndHasThemForThisRun)
{
    ASSERT_TRUE(m_isLoaded);
    EXPECT_EQ(m_host.output.take(), "");
    EXPECT_EQ(edit([](QDialog& dialog) {
                  click(dialog, "delete");
                  dialog.accept();
              }),
              QuelStatus::kNormal);
    EXPECT_TRUE(m_host.host->customization.toolbars().at(kPlantBar).deleted);
    EXPECT_EQ(quelhost::test::rowsOf(m_host.output.text()).size(), 1U) << m_host.output.text();
}
