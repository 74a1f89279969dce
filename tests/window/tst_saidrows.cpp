// The rows above the window's command line: copying, scrolling, and how they look.
#include "tests/window/commandlinefixture.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QScrollBar>
#include <QTextBlock>

using namespace quelhost;

namespace {

class Said : public CommandLines
{
protected:
    void say(const char* text) { m_commandLine->append(QString::fromUtf8(text)); }
    void sayRows(int count)
    {
        for (int row = 0; row < count; ++row)
            m_commandLine->append(QStringLiteral("row %1\n").arg(row));
    }
    [[nodiscard]] QScrollBar& bar() const { return *above().verticalScrollBar(); }

    // The menu as the mouse opens it over a row, or the menu key.
    void openMenuAt(int row)
    {
        const QTextCursor cursor(above().document()->findBlockByNumber(row));
        const QPoint place = above().cursorRect(cursor).center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, place,
                                above().viewport()->mapToGlobal(place));
        QApplication::sendEvent(above().viewport(), &event);
    }
    void openMenuByKey()
    {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(1, 1));
        QApplication::sendEvent(&above(), &event);
    }
    [[nodiscard]] static QMenu* menu()
    {
        return qobject_cast<QMenu*>(QApplication::activePopupWidget());
    }
    // Its items; those that cannot be chosen in brackets.
    [[nodiscard]] static std::vector<std::string> items()
    {
        std::vector<std::string> texts;
        for (const QAction* action : menu()->actions()) {
            const std::string text = action->text().remove(QLatin1Char('&')).toStdString();
            if (!action->isSeparator())
                texts.push_back(action->isEnabled() ? text : "(" + text + ")");
        }
        return texts;
    }
    static void choose(const char* text)
    {
        for (QAction* action : menu()->actions()) {
            if (action->text().remove(QLatin1Char('&')) == QLatin1String(text)) {
                menu()->setActiveAction(action);
                QTest::keyClick(menu(), Qt::Key_Return);
                return;
            }
        }
        ADD_FAILURE() << "no item " << text;
    }
};

using Texts = std::vector<std::string>;

} // namespace

TEST_F(Said, TheMenuCopiesTheRowUnderTheMouse)
{
    say("first\nsecond  row\nthird\n");
    QApplication::processEvents();
    openMenuAt(1);
    ASSERT_NE(menu(), nullptr);
    EXPECT_EQ(items(), (Texts{"(Copy)", "Copy Line", "Copy All", "Select All"}));
    choose("Copy Line");
    EXPECT_EQ(clipboard(), "second  row");
    EXPECT_EQ(menu(), nullptr);
}

TEST_F(Said, TheMenuCopiesTheRowOfTheCursor)
{
    say("first\nsecond\nthird");
    ask();
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    ASSERT_EQ(QApplication::focusWidget(), &above());
    press(Qt::Key_Home, Qt::ControlModifier);
    press(Qt::Key_Down);
    openMenuByKey();
    ASSERT_NE(menu(), nullptr);
    choose("Copy Line");
    EXPECT_EQ(clipboard(), "second");
}

TEST_F(Said, TheMenuCopiesASelectionAndAll)
{
    say("first\nsecond\n");
    openMenuAt(0);
    choose("Copy All");
    EXPECT_EQ(clipboard(), "first\nsecond\n");
    openMenuAt(0);
    choose("Select All");
    EXPECT_TRUE(above().textCursor().hasSelection());
    QApplication::clipboard()->clear();
    openMenuAt(0);
    EXPECT_EQ(items().front(), "Copy");
    choose("Copy");
    EXPECT_EQ(clipboard(), "first\nsecond\n");
}

TEST_F(Said, WithoutTextThereIsNothingToCopy)
{
    openMenuAt(0);
    ASSERT_NE(menu(), nullptr);
    EXPECT_EQ(items(), (Texts{"(Copy)", "(Copy Line)", "(Copy All)", "(Select All)"}));
    menu()->close();
}

TEST_F(Said, StaysWhereTheUserReads)
{
    sayRows(300);
    bar().setValue(10);
    sayRows(5);
    EXPECT_EQ(bar().value(), 10);
    bar().setValue(bar().maximum());
    sayRows(5);
    EXPECT_EQ(bar().value(), bar().maximum());
}

TEST_F(Said, ShowsTheNewestRowAgainWhenALineIsEntered)
{
    sayRows(300);
    bar().setValue(10);
    ask();
    press(Qt::Key_Return);
    EXPECT_EQ(bar().value(), bar().maximum());
}

TEST_F(Said, ShowsTheNewestRowInEveryHeight)
{
    sayRows(300);
    for (const int height : {120, 400, 150}) {
        m_commandLine->resize(600, height);
        QApplication::processEvents();
        EXPECT_EQ(bar().value(), bar().maximum()) << height;
    }
    ask(Completion::Keywords, {QStringLiteral("Yes"), QStringLiteral("No")}, L"Well? ");
    QApplication::processEvents();
    EXPECT_EQ(bar().value(), bar().maximum());
}

TEST_F(Said, PageUpAndPageDownScrollFromTheLine)
{
    sayRows(300);
    ask();
    const int newest = bar().value();
    press(Qt::Key_PageUp);
    EXPECT_EQ(bar().value(), newest - bar().pageStep());
    EXPECT_EQ(QApplication::focusWidget(), &line());
    press(Qt::Key_PageDown);
    EXPECT_EQ(bar().value(), newest);
}

TEST_F(Said, APromptWithItsAnswerIsBold)
{
    say("before\n");
    m_commandLine->append(QStringLiteral("Command: ECHO on"), TextKind::Answer);
    say("\n");
    say("on\n");
    const auto isBold = [this](int row) {
        return above()
            .document()
            ->findBlockByNumber(row)
            .begin()
            .fragment()
            .charFormat()
            .font()
            .bold();
    };
    EXPECT_FALSE(isBold(0));
    EXPECT_TRUE(isBold(1));
    EXPECT_FALSE(isBold(2));
    EXPECT_EQ(said(), "before\nCommand: ECHO on\non\n");
}

// No part has colours of its own, so that all of them are those of a palette chosen meanwhile.
TEST_F(Said, EveryPartTakesThePaletteOfTheApplication)
{
    m_commandLine->append(QStringLiteral("Command: ECHO on\n"), TextKind::Answer);
    ask(Completion::Keywords, {QStringLiteral("Toolbar")}, L"Which <Toolbar>? ");
    type("t");
    const QPalette before = QApplication::palette();
    QPalette dark(QColor(0xEE, 0xEE, 0xEE), QColor(0x30, 0x30, 0x30));
    dark.setColor(QPalette::Base, QColor(0x18, 0x18, 0x18));
    QApplication::setPalette(dark);
    for (const QWidget* part : m_commandLine->findChildren<QWidget*>()) {
        EXPECT_EQ(part->palette().color(QPalette::Base), dark.color(QPalette::Base));
        EXPECT_EQ(part->palette().color(QPalette::WindowText), dark.color(QPalette::WindowText));
    }
    const QTextFragment bold = above().document()->firstBlock().begin().fragment();
    EXPECT_FALSE(bold.charFormat().hasProperty(QTextFormat::ForegroundBrush));
    QApplication::setPalette(before);
}
