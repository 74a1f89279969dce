// The editor of accelerators, as a user works it without a session bus.
#include "refhost/window/acceleratoreditor.h"
#include "tests/support/testhost.h"
#include "tests/window/groupsfixture.h"

#include "host/status.h"
#include "refhost/core/hostkeys.h"
#include "refhost/core/keyfile.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTextDocument>
#include <QTimer>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QWindow>
#include <QtTest/QTest>

using namespace quelhost;
using namespace windowtest;

namespace {

constexpr int kMostMs = 10000;
constexpr int kKeysColumn = 1;
constexpr int kMoreKeysColumn = 2;

// Answers every question that is asked over a dialog, and keeps what it said.
class Answers final : public QObject
{
public:
    explicit Answers(bool yes)
        : m_yes(yes)
    {
        m_timer.callOnTimeout(this, [this] { look(); });
        m_timer.start(1);
    }

    [[nodiscard]] const Texts& questions() const { return m_questions; }

private:
    void look()
    {
        auto* const box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        auto* const buttons = box == nullptr ? nullptr : box->findChild<QDialogButtonBox*>();
        if (buttons == nullptr || box->objectName() == QStringLiteral("acceleratorEditor"))
            return;
        QString text;
        for (const auto* const label : box->findChildren<QLabel*>())
            text += label->text();
        m_questions.push_back(text.toStdString());
        for (QAbstractButton* const button : buttons->buttons()) {
            const bool rejects = buttons->buttonRole(button) == QDialogButtonBox::RejectRole ||
                                 buttons->buttonRole(button) == QDialogButtonBox::NoRole;
            if (rejects != m_yes)
                return button->click();
        }
    }

    const bool m_yes;
    QTimer m_timer;
    Texts m_questions;
};

class AcceleratorEditors : public testing::Test
{
protected:
    [[nodiscard]] bool open(const std::vector<ShownGroup>& groups, const KeyChanges& changes = {})
    {
        const KeyFilePrompts prompts{
            [this](QWidget&) { return m_picked; }, [this](QWidget&) { return m_picked; },
            [this](QWidget&, const Fault& fault) { m_told.push_back(fault.text().toStdString()); }};
        m_editor = std::make_unique<AcceleratorEditor>(hostKeys(), groups, changes, prompts);
        m_editor->open(); // modal, as for users
        m_editor->activateWindow();
        return QTest::qWaitForWindowActive(m_editor.get());
    }

    [[nodiscard]] QTreeWidget& tree() const { return *m_editor->findChild<QTreeWidget*>(); }
    [[nodiscard]] QLineEdit& search() const { return *m_editor->findChild<QLineEdit*>(); }

    // The row of a command, by the titles of both.
    [[nodiscard]] QTreeWidgetItem* row(const char* group, const char* command) const
    {
        for (QTreeWidgetItemIterator each(&tree()); *each != nullptr; ++each) {
            const QTreeWidgetItem* const parent = (*each)->parent();
            if (parent != nullptr && parent->text(0) == QString::fromUtf8(group) &&
                (*each)->text(0) == QString::fromUtf8(command))
                return *each;
        }
        return nullptr;
    }
    [[nodiscard]] std::string keysIn(const char* group, const char* command,
                                     int column = kKeysColumn) const
    {
        const QTreeWidgetItem* const found = row(group, command);
        return found == nullptr ? "no such row"
                                : found->data(column, Qt::DisplayRole)
                                      .value<QKeySequence>()
                                      .toString()
                                      .toStdString();
    }

    // Opens the row and returns the button that takes new keys, or null.
    [[nodiscard]] QAbstractButton* openRow(const char* group, const char* command, int column)
    {
        QTreeWidgetItem* const item = row(group, command);
        if (item == nullptr)
            return nullptr;
        tree().setFocus();
        tree().setCurrentItem(item, column);
        QTest::keyClick(&tree(), Qt::Key_Return);
        QAbstractButton* button = nullptr;
        static_cast<void>(QTest::qWaitFor(
            [&] {
                for (QWidget* const widget : tree().findChildren<QWidget*>()) {
                    if (widget->inherits("KKeySequenceWidget") && widget->isVisible())
                        button = widget->findChild<QAbstractButton*>();
                }
                return button != nullptr;
            },
            kMostMs));
        return button;
    }

    // Types a key for a command and waits until it is either taken or refused after a question.
    // Returns whether there was such a command.
    [[nodiscard]] bool typeKey(const char* group, const char* command, Qt::Key typed,
                               const Answers& answers, int column = kKeysColumn)
    {
        const std::string before = keysIn(group, command, column);
        QAbstractButton* const button = openRow(group, command, column);
        if (button == nullptr)
            return false;
        button->click();
        QTest::keyClick(m_editor->windowHandle(), typed);
        return QTest::qWaitFor(
            [&] {
                return keysIn(group, command, column) != before || !answers.questions().empty();
            },
            kMostMs);
    }

    void press(const char* button)
    {
        m_editor->findChild<QAbstractButton*>(QString::fromLatin1(button))->click();
    }
    [[nodiscard]] bool isEnabled(const char* button) const
    {
        return m_editor->findChild<QAbstractButton*>(QString::fromLatin1(button))->isEnabled();
    }

    QTemporaryDir m_folder;
    std::optional<QString> m_picked; // in the file dialog
    Texts m_told;
    std::unique_ptr<AcceleratorEditor> m_editor;
};

} // namespace

TEST_F(AcceleratorEditors, ShowsTheKeysInForce)
{
    ASSERT_TRUE(open({keyedGroup("A", {{"go", "F6"}, {"go", "Ctrl+F6"}}), keyedGroup("B", {})},
                     {{entry("B", "ask"), {key("F7")}}}));
    EXPECT_EQ(keysIn("A", "Go A"), "F6");
    EXPECT_EQ(keysIn("A", "Go A", kMoreKeysColumn), "Ctrl+F6");
    EXPECT_EQ(keysIn("A", "Ask"), "");
    EXPECT_EQ(keysIn("B", "Ask"), "F7");
    EXPECT_EQ(keysIn("The program itself", "Command Line"), "Ctrl+Alt+C");
    EXPECT_FALSE(isEnabled("resetCommand"));
    EXPECT_TRUE(isEnabled("resetAll"));
}

TEST_F(AcceleratorEditors, AFreeKeyRaisesNoQuestion)
{
    ASSERT_TRUE(open({keyedGroup("A", {{"go", "F6"}})}));
    const Answers answers(false);
    ASSERT_TRUE(typeKey("A", "Ask", Qt::Key_F7, answers));
    EXPECT_EQ(answers.questions(), Texts());
    EXPECT_EQ(keysIn("A", "Ask"), "F7");
    EXPECT_EQ(m_editor->changes(), (KeyChanges{{entry("A", "ask"), {key("F7")}}}));
}

TEST_F(AcceleratorEditors, AFurtherKeyIsAddedToTheFirst)
{
    ASSERT_TRUE(open({keyedGroup("A", {{"go", "F6"}})}));
    const Answers answers(false);
    ASSERT_TRUE(typeKey("A", "Go A", Qt::Key_F7, answers, kMoreKeysColumn));
    EXPECT_EQ(m_editor->changes(), (KeyChanges{{entry("A", "go"), {key("F6"), key("F7")}}}));
}

TEST_F(AcceleratorEditors, ATakenKeyNamesItsOwnerAndIsReassignedOnYes)
{
    ASSERT_TRUE(open({keyedGroup("A", {{"go", "F6"}}), keyedGroup("B", {})}));
    const Answers answers(true);
    ASSERT_TRUE(typeKey("B", "Ask", Qt::Key_F6, answers));
    ASSERT_TRUE(QTest::qWaitFor([this] { return keysIn("B", "Ask") == "F6"; }, kMostMs));
    ASSERT_EQ(answers.questions().size(), 1U);
    EXPECT_NE(answers.questions()[0].find("'Go A'"), std::string::npos) << answers.questions()[0];
    EXPECT_NE(answers.questions()[0].find("'F6'"), std::string::npos) << answers.questions()[0];
    EXPECT_EQ(keysIn("A", "Go A"), "");
    EXPECT_EQ(m_editor->changes(),
              (KeyChanges{{entry("A", "go"), {}}, {entry("B", "ask"), {key("F6")}}}));
}

TEST_F(AcceleratorEditors, ATakenKeyStaysWithItsOwnerOnNo)
{
    ASSERT_TRUE(open({keyedGroup("A", {{"go", "F6"}, {"ask", "F7"}})}));
    const Answers answers(false);
    ASSERT_TRUE(typeKey("A", "Ask", Qt::Key_F6, answers));
    ASSERT_TRUE(QTest::qWaitFor(
        [this] {
            return QApplication::activeModalWidget() == m_editor.get() && m_editor->isEnabled();
        },
        kMostMs));
    EXPECT_EQ(answers.questions().size(), 1U);
    EXPECT_EQ(keysIn("A", "Go A"), "F6");
    EXPECT_EQ(keysIn("A", "Ask"), "F7");
    EXPECT_EQ(m_editor->changes(), KeyChanges());
}

TEST_F(AcceleratorEditors, AKeyOfTheProgramItselfNamesItToo)
{
    ASSERT_TRUE(open({keyedGroup("A", {})}, {{entry("Quelhost", "loaded"), {key("F6")}}}));
    const Answers answers(true);
    ASSERT_TRUE(typeKey("A", "Ask", Qt::Key_F6, answers));
    ASSERT_TRUE(QTest::qWaitFor([this] { return keysIn("A", "Ask") == "F6"; }, kMostMs));
    ASSERT_EQ(answers.questions().size(), 1U);
    EXPECT_NE(answers.questions()[0].find("'What Is Loaded'"), std::string::npos);
    EXPECT_EQ(m_editor->changes(),
              (KeyChanges{{entry("A", "ask"), {key("F6")}}, {entry("Quelhost", "loaded"), {}}}));
}

TEST_F(AcceleratorEditors, AQuestionShowsTextsAsTheyStand)
{
    ShownGroup shown = keyedGroup("A", {{"go", "F6"}});
    shown.group.commands[0].text = QStringLiteral("<b>Go</b>");
    ASSERT_TRUE(open({shown}));
    const Answers answers(false);
    ASSERT_TRUE(typeKey("A", "Ask", Qt::Key_F6, answers));
    ASSERT_EQ(answers.questions().size(), 1U);
    EXPECT_NE(answers.questions()[0].find("'<b>Go</b>'"), std::string::npos);
    EXPECT_FALSE(Qt::mightBeRichText(QString::fromStdString(answers.questions()[0])));
}

TEST_F(AcceleratorEditors, AKeyThatIsNotShownIsGivenAwayToo)
{
    ASSERT_TRUE(open({keyedGroup("A", {{"go", "F6"}, {"go", "F7"}, {"go", "F8"}})}));
    const Answers answers(true);
    ASSERT_TRUE(typeKey("A", "Ask", Qt::Key_F8, answers));
    ASSERT_TRUE(QTest::qWaitFor([this] { return keysIn("A", "Ask") == "F8"; }, kMostMs));
    EXPECT_EQ(m_editor->changes(), (KeyChanges{{entry("A", "ask"), {key("F8")}},
                                               {entry("A", "go"), {key("F6"), key("F7")}}}));
}

TEST_F(AcceleratorEditors, CommandsOfTheSameIdStayApart)
{
    ASSERT_TRUE(open({keyedGroup("A", {}), keyedGroup("B", {})}));
    const Answers answers(false);
    ASSERT_TRUE(typeKey("B", "Ask", Qt::Key_F7, answers));
    EXPECT_EQ(keysIn("A", "Ask"), "");
    EXPECT_EQ(m_editor->changes(), (KeyChanges{{entry("B", "ask"), {key("F7")}}}));
}

TEST_F(AcceleratorEditors, GroupsOfTheSameTitleStayApart)
{
    std::vector<ShownGroup> groups{keyedGroup("A", {}), keyedGroup("B", {{"go", "F6"}})};
    for (ShownGroup& shown : groups)
        shown.group.title = QStringLiteral("Tools");
    ASSERT_TRUE(open(groups));
    EXPECT_EQ(keysIn("A – Tools", "Ask"), "");
    EXPECT_EQ(keysIn("B – Tools", "Go B"), "F6");
}

TEST_F(AcceleratorEditors, TextsAndNamesAreShownAsTheyStand)
{
    ShownGroup shown = keyedGroup("A", {{"unnamed-1", "F6"}});
    shown.group.commands = {
        {QStringLiteral("unnamed-1"), QStringLiteral("&Save && <b>Go</b>"), {}, {}, {}}};
    ASSERT_TRUE(open({shown}));
    EXPECT_EQ(keysIn("A", "Save & <b>Go</b>"), "F6");
}

TEST_F(AcceleratorEditors, ResetsOneCommand)
{
    const KeyChanges changes{{entry("A", "go"), {key("F8")}}, {entry("A", "ask"), {key("F9")}}};
    ASSERT_TRUE(open({keyedGroup("A", {{"go", "F6"}})}, changes));
    EXPECT_FALSE(isEnabled("resetCommand"));
    tree().setCurrentItem(row("A", "Go A"));
    ASSERT_TRUE(isEnabled("resetCommand"));
    press("resetCommand");
    EXPECT_EQ(keysIn("A", "Go A"), "F6");
    EXPECT_EQ(tree().currentItem(), row("A", "Go A"));
    EXPECT_FALSE(isEnabled("resetCommand"));
    EXPECT_EQ(m_editor->changes(), (KeyChanges{{entry("A", "ask"), {key("F9")}}}));
}

TEST_F(AcceleratorEditors, ResetsACommandWhoseRowIsOpen)
{
    ASSERT_TRUE(open({keyedGroup("A", {{"go", "F6"}})}));
    const Answers answers(false);
    ASSERT_TRUE(typeKey("A", "Go A", Qt::Key_F8, answers));
    ASSERT_TRUE(isEnabled("resetCommand"));
    press("resetCommand");
    EXPECT_EQ(keysIn("A", "Go A"), "F6");
    EXPECT_EQ(m_editor->changes(), KeyChanges());
    ASSERT_TRUE(typeKey("A", "Go A", Qt::Key_F9, answers));
    EXPECT_EQ(m_editor->changes(), (KeyChanges{{entry("A", "go"), {key("F9")}}}));
}

TEST_F(AcceleratorEditors, AResetLeavesAKeyWithWhomTheUserGaveIt)
{
    const KeyChanges changes{{entry("A", "go"), {}}, {entry("B", "ask"), {key("F6")}}};
    ASSERT_TRUE(open({keyedGroup("A", {{"go", "F6"}}), keyedGroup("B", {})}, changes));
    tree().setCurrentItem(row("A", "Go A"));
    press("resetCommand");
    EXPECT_EQ(keysIn("A", "Go A"), "");
    EXPECT_EQ(keysIn("B", "Ask"), "F6");
    tree().setCurrentItem(row("B", "Ask"));
    press("resetCommand");
    EXPECT_EQ(keysIn("A", "Go A"), "F6");
    EXPECT_EQ(m_editor->changes(), KeyChanges());
}

TEST_F(AcceleratorEditors, ResetsAllThatIsShown)
{
    const KeyChanges others{{entry("GONE", "go"), {key("F8")}}};
    KeyChanges changes = others;
    changes[entry("A", "go")] = {};
    changes[entry("Quelhost", "loaded")] = {key("F9")};
    ASSERT_TRUE(open({keyedGroup("A", {{"go", "F6"}})}, changes));
    press("resetAll");
    EXPECT_EQ(keysIn("A", "Go A"), "F6");
    EXPECT_EQ(keysIn("The program itself", "What Is Loaded"), "Ctrl+Alt+L");
    EXPECT_EQ(m_editor->changes(), others);
    EXPECT_FALSE(isEnabled("resetAll"));
}

TEST_F(AcceleratorEditors, ChangesOfGroupsThatAreNotLoadedStay)
{
    ASSERT_TRUE(open({keyedGroup("A", {})}, {{entry("GONE", "go"), {key("F8")}}}));
    const Answers answers(false);
    ASSERT_TRUE(typeKey("A", "Ask", Qt::Key_F7, answers));
    EXPECT_EQ(m_editor->changes(),
              (KeyChanges{{entry("A", "ask"), {key("F7")}}, {entry("GONE", "go"), {key("F8")}}}));
}

TEST_F(AcceleratorEditors, WhatIsExportedCanBeImportedElsewhere)
{
    const std::vector<ShownGroup> groups{keyedGroup("A", {{"go", "F6"}})};
    const KeyChanges changes{{entry("A", "go"), {key("F8")}},
                             {entry("GONE", "go"), {key("Ctrl+K, M")}}};
    m_picked = m_folder.filePath(QStringLiteral("mine.keys"));
    ASSERT_TRUE(open(groups, changes));
    press("export");
    ASSERT_TRUE(open(groups, {{entry("A", "ask"), {key("F9")}}}));
    press("import");
    EXPECT_EQ(m_told, Texts());
    EXPECT_EQ(m_editor->changes(), changes);
    EXPECT_EQ(keysIn("A", "Go A"), "F8");
    EXPECT_EQ(keysIn("A", "Ask"), "");
}

TEST_F(AcceleratorEditors, ABadFileTellsItsLineAndChangesNothing)
{
    m_picked = m_folder.filePath(QStringLiteral("bad.keys"));
    QFile file(*m_picked);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("quelhost keys 1\nA\tgo\tF8\nA\task\tCtrl+Foo\n");
    file.close();
    const KeyChanges changes{{entry("A", "ask"), {key("F9")}}};
    ASSERT_TRUE(open({keyedGroup("A", {{"go", "F6"}})}, changes));
    press("import");
    ASSERT_EQ(m_told.size(), 1U);
    EXPECT_EQ(m_told[0].find("bad.keys:3:"), 0U) << m_told[0];
    EXPECT_EQ(m_editor->changes(), changes);
    EXPECT_EQ(keysIn("A", "Go A"), "F6");
}

TEST_F(AcceleratorEditors, AFileThatCannotBeWrittenIsTold)
{
    m_picked = m_folder.filePath(QStringLiteral("none/mine.keys"));
    ASSERT_TRUE(open({keyedGroup("A", {})}));
    press("export");
    EXPECT_EQ(m_told.size(), 1U);
}

TEST_F(AcceleratorEditors, WithoutAFileNothingHappens)
{
    const KeyChanges changes{{entry("A", "ask"), {key("F9")}}};
    ASSERT_TRUE(open({keyedGroup("A", {})}, changes));
    press("import");
    press("export");
    EXPECT_EQ(m_told, Texts());
    EXPECT_EQ(m_editor->changes(), changes);
}

TEST_F(AcceleratorEditors, TheSearchFindsCommands)
{
    ASSERT_TRUE(open({keyedGroup("A", {{"go", "F6"}})}));
    QTest::keyClicks(&search(), QStringLiteral("ask"));
    EXPECT_TRUE(QTest::qWaitFor(
        [this] { return row("A", "Go A")->isHidden() && !row("A", "Ask")->isHidden(); }, kMostMs));
}

TEST_F(AcceleratorEditors, EverythingIsReachedByTheTabKey)
{
    ASSERT_TRUE(open({keyedGroup("A", {{"go", "F6"}})}, {{entry("A", "go"), {key("F8")}}}));
    tree().setCurrentItem(row("A", "Go A"));
    EXPECT_EQ(QApplication::focusWidget(), &search());
    Texts reached;
    do {
        const QWidget* const widget = QApplication::focusWidget();
        const auto* const button = qobject_cast<const QAbstractButton*>(widget);
        reached.push_back((button != nullptr ? button->text() : widget->accessibleName())
                              .remove(QLatin1Char('&'))
                              .toStdString());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    } while (QApplication::focusWidget() != &search() && reached.size() < 20);
    EXPECT_EQ(reached,
              (Texts{"Search for commands and keys", "Commands and their keys", "Reset Command",
                     "Reset All", "Import...", "Export...", "OK", "Cancel"}));
}

TEST_F(AcceleratorEditors, EnterInTheListOpensARowAndNotTheDialogsButton)
{
    ASSERT_TRUE(open({keyedGroup("A", {})}));
    const QAbstractButton* const button = openRow("A", "Ask", kKeysColumn);
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->accessibleName().toStdString(), "Press to type new keys");
    EXPECT_TRUE(m_editor->isVisible());
}

TEST_F(AcceleratorEditors, EnterKeepsAndEscapeDoesNot)
{
    for (const auto& [typed, result] : {std::make_pair(Qt::Key_Return, QDialog::Accepted),
                                        std::make_pair(Qt::Key_Escape, QDialog::Rejected)}) {
        ASSERT_TRUE(open({keyedGroup("A", {})}));
        QTest::keyClick(&search(), typed);
        EXPECT_FALSE(m_editor->isVisible());
        EXPECT_EQ(m_editor->result(), result);
    }
}

namespace {

// The editor as a command opens it.
class EditingAccelerators : public testing::Test
{
protected:
    explicit EditingAccelerators(SettingsAccess access = SettingsAccess::ReadWrite)
        : m_host({}, {quelhost::test::Typist::Person, true, false, QStringLiteral("en"), access})
    {
        const std::wstring path = quelhost::test::writePackage(
            m_host.profile, "plant.cuix", "PLANT",
            "<commands><command id=\"go\" text=\"Go\" macro=\"GO\"/></commands>"
            "<accelerators><accelerator command=\"go\" keys=\"F6\"/></accelerators>");
        QuString name;
        m_isLoaded = m_host.host->groups.loadMenuFile(QuString(path.c_str()), name);
        static_cast<void>(m_host.output.take());
    }

    // Opens the editor, brings keys into it, and presses a key.
    int edit(const KeyChanges& imported, Qt::Key pressed)
    {
        QTimer::singleShot(0, &m_window, [imported, pressed] {
            auto* const editor =
                qobject_cast<AcceleratorEditor*>(QApplication::activeModalWidget());
            if (editor == nullptr) {
                ADD_FAILURE() << "no editor";
                return;
            }
            editor->showChanges(imported);
            QTest::keyClick(editor, pressed);
        });
        return editAccelerators(*m_host.host, m_window);
    }

    quelhost::test::TestHost m_host;
    QWidget m_window;
    bool m_isLoaded = false;
};

class EditingAcceleratorsThatCannotBeStored : public EditingAccelerators
{
protected:
    EditingAcceleratorsThatCannotBeStored()
        : EditingAccelerators(SettingsAccess::ReadOnly)
    {}
};

const KeyChanges kChanges{{entry("PLANT", "go"), {key("F7")}}, {entry("GONE", "go"), {}}};

} // namespace

TEST_F(EditingAccelerators, StoresThemWhenTheyAreKept)
{
    ASSERT_TRUE(m_isLoaded);
    EXPECT_EQ(edit(kChanges, Qt::Key_Return), QuelStatus::kNormal);
    EXPECT_EQ(m_host.host->customization.keys(), kChanges);
    EXPECT_EQ(m_host.output.text(), "");
}

TEST_F(EditingAccelerators, LeavesTheFormerOnesWhenTheyAreNot)
{
    ASSERT_TRUE(m_isLoaded);
    ASSERT_TRUE(m_host.host->customization.replaceKeys({{entry("PLANT", "go"), {key("F8")}}}));
    EXPECT_EQ(edit(kChanges, Qt::Key_Escape), QuelStatus::kCancelled);
    EXPECT_EQ(m_host.host->customization.keys(), (KeyChanges{{entry("PLANT", "go"), {key("F8")}}}));
}

TEST_F(EditingAcceleratorsThatCannotBeStored, SaysSoOnceAndHasThemForThisRun)
{
    ASSERT_TRUE(m_isLoaded);
    EXPECT_EQ(edit(kChanges, Qt::Key_Return), QuelStatus::kNormal);
    EXPECT_EQ(m_host.host->customization.keys(), kChanges);
    EXPECT_EQ(quelhost::test::rowsOf(m_host.output.text()).size(), 1U) << m_host.output.text();
}
