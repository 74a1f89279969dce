// Typing at the window's command line: keys, the mouse, the clipboard.
#include "tests/window/commandlinefixture.h"

#include <QMouseEvent>
#include <QScrollBar>

using namespace quelhost;

namespace {

using Lines = std::vector<std::string>;

// Selects what stands above by dragging over its first row.
void dragOverFirstRow(const QPlainTextEdit& text)
{
    QTextCursor end(text.document());
    end.movePosition(QTextCursor::EndOfBlock);
    const QPoint from = text.cursorRect(QTextCursor(text.document())).center();
    const QPoint to = text.cursorRect(end).center() + QPoint(2, 0);
    QWidget* const area = text.viewport();
    QTest::mousePress(area, Qt::LeftButton, Qt::NoModifier, from);
    QMouseEvent move(QEvent::MouseMove, to, area->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(area, &move);
    QTest::mouseRelease(area, Qt::LeftButton, Qt::NoModifier, to);
}

} // namespace

TEST_F(CommandLines, NothingCanBeTypedWhileNobodyAsks)
{
    EXPECT_FALSE(m_commandLine->isAsking());
    EXPECT_FALSE(line().isEnabled());
    EXPECT_EQ(prompt(), "");
    ask();
    ASSERT_TRUE(line().isEnabled());
    type("ECHO");
    m_commandLine->endPrompt();
    EXPECT_FALSE(m_commandLine->isAsking());
    EXPECT_FALSE(line().isEnabled());
    EXPECT_EQ(prompt(), "");
    QTest::keyClick(&line(), Qt::Key_Return);
    EXPECT_EQ(m_entered, Lines());
}

TEST_F(CommandLines, EnterHandsOverWhatWasTyped)
{
    ask();
    EXPECT_EQ(QApplication::focusWidget(), &line());
    type("ECHO a b");
    EXPECT_EQ(m_entered, Lines());
    press(Qt::Key_Return);
    EXPECT_EQ(m_entered, (Lines{"ECHO a b"}));
    EXPECT_EQ(typed(), "");
    type("second");
    press(Qt::Key_Enter);
    press(Qt::Key_Return);
    EXPECT_EQ(m_entered, (Lines{"ECHO a b", "second", ""}));
}

TEST_F(CommandLines, ABegunLineStaysForTheNextPrompt)
{
    ask();
    type("ECH");
    m_commandLine->endPrompt();
    ask();
    type("O");
    EXPECT_EQ(typed(), "ECHO");
}

TEST_F(CommandLines, ADroppedLineIsGone)
{
    ask();
    type("/t/half");
    m_commandLine->dropLine();
    EXPECT_EQ(typed(), "");
    press(Qt::Key_Return);
    EXPECT_EQ(m_entered, (Lines{""}));
}

TEST_F(CommandLines, TheLastRowOfAPromptStandsBesideTheLine)
{
    ask(Completion::Nothing, {}, L"\nFirst row\nSecond row: ");
    EXPECT_EQ(prompt(), "Second row: ");
    EXPECT_EQ(line().accessibleName().toStdString(), "Second row: ");
    ask(Completion::Nothing, {}, L"One row: ");
    EXPECT_EQ(prompt(), "One row: ");
}

TEST_F(CommandLines, ALongPromptLeavesRoomForTheLine)
{
    const int narrowest = m_commandLine->minimumSizeHint().width();
    const std::wstring path(400, L'x');
    ask(Completion::Nothing, {}, (L"Name <" + path + L">: ").c_str());
    EXPECT_LE(m_commandLine->minimumSizeHint().width(), narrowest + 100);
    QApplication::processEvents();
    EXPECT_EQ(m_commandLine->width(), 600);
    EXPECT_GE(line().width(), line().minimumWidth());
    EXPECT_GT(line().minimumWidth(), 100);
    EXPECT_LE(line().geometry().right(), m_commandLine->rect().right());
    const auto* const label = m_commandLine->findChild<QLabel*>(QStringLiteral("prompt"));
    EXPECT_TRUE(label->toolTip().contains(QString(400, QLatin1Char('x'))));
}

TEST_F(CommandLines, APromptIsNoPage)
{
    ask(Completion::Nothing, {}, L"<b>bold</b> <img src='/etc/x.png'>: ");
    EXPECT_EQ(prompt(), "<b>bold</b> <img src='/etc/x.png'>: ");
    const auto* const label = m_commandLine->findChild<QLabel*>(QStringLiteral("prompt"));
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
    EXPECT_TRUE(label->toolTip().contains(QStringLiteral("&lt;b&gt;")))
        << label->toolTip().toStdString();
}

TEST_F(CommandLines, WhatIsSaidStaysAsItStands)
{
    m_commandLine->append(QStringLiteral("a <b>%s</b>\n"));
    m_commandLine->append(QStringLiteral("half"));
    m_commandLine->append(QStringLiteral(" row\nüß \U0001F600\n"));
    EXPECT_EQ(said(), "a <b>%s</b>\nhalf row\nüß \U0001F600\n");
}

TEST_F(CommandLines, TheNewestRowIsInSight)
{
    for (int row = 0; row < 200; ++row)
        m_commandLine->append(QStringLiteral("row %1\n").arg(row));
    const QScrollBar* const bar = above().verticalScrollBar();
    EXPECT_GT(bar->maximum(), 0);
    EXPECT_EQ(bar->value(), bar->maximum());
}

TEST_F(CommandLines, TheOldestRowsGoWhenThereAreTooMany)
{
    QString text;
    for (int row = 0; row < 20500; ++row)
        text += QStringLiteral("row %1\n").arg(row);
    m_commandLine->append(text);
    EXPECT_EQ(above().document()->blockCount(), 20000);
    EXPECT_TRUE(above().toPlainText().endsWith(QStringLiteral("row 20499\n")));
}

TEST_F(CommandLines, ALongRowIsShownWhole)
{
    const QString row(30000, QLatin1Char('x'));
    m_commandLine->append(row + QLatin1Char('\n'));
    QApplication::processEvents();
    EXPECT_EQ(above().toPlainText(), row + QLatin1Char('\n'));
    EXPECT_EQ(m_commandLine->width(), 600);
}

TEST_F(CommandLines, ALongLineIsHandedOverWhole)
{
    const QString text(10000, QLatin1Char('y'));
    QApplication::clipboard()->setText(text);
    ask();
    press(Qt::Key_V, Qt::ControlModifier);
    press(Qt::Key_Return);
    EXPECT_EQ(m_entered, (Lines{text.toStdString()}));
}

TEST_F(CommandLines, PastedRowsAreEnteredOneByOne)
{
    QApplication::clipboard()->setText(QStringLiteral("ECHO a\r\nECHO b\n\nECHO c\n"));
    ask();
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(m_entered, Lines());
    press(Qt::Key_Return);
    EXPECT_EQ(m_entered, (Lines{"ECHO a", "ECHO b", "", "ECHO c"}));
    EXPECT_EQ(typed(), "");
}

TEST_F(CommandLines, TextForTheRowsAboveGoesIntoTheLine)
{
    ask();
    type("EC");
    above().setFocus();
    type("HO");
    EXPECT_EQ(QApplication::focusWidget(), &line());
    type(" on");
    EXPECT_EQ(typed(), "ECHO on");
    EXPECT_EQ(said(), "");
}

TEST_F(CommandLines, CharactersOfEveryPlaneGoIntoTheLine)
{
    ask();
    for (const char* text : {"ü", "€", "\U0001F600"}) {
        above().setFocus();
        type(text);
    }
    EXPECT_EQ(typed(), "ü€\U0001F600");
}

TEST_F(CommandLines, ChordsForTheRowsAboveDoNotGoIntoTheLine)
{
    m_commandLine->append(QStringLiteral("one row\n"));
    ask();
    above().setFocus();
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_X, Qt::AltModifier);
    press(Qt::Key_PageUp);
    EXPECT_EQ(typed(), "");
    EXPECT_EQ(QApplication::focusWidget(), &above());
}

TEST_F(CommandLines, TextIsNotKeptWhileNobodyAsks)
{
    above().setFocus();
    type("lost");
    EXPECT_EQ(typed(), "");
    EXPECT_EQ(said(), "");
}

TEST_F(CommandLines, TheRowsAboveAreReachedAndLeftByKeys)
{
    ask();
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget(), &above());
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &line());
}

TEST_F(CommandLines, CtrlCCancelsWhereNothingIsSelected)
{
    ask();
    type("half");
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(m_cancels, 1);
    above().setFocus();
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(m_cancels, 2);
}

TEST_F(CommandLines, CtrlCCopiesASelectionOfTheLine)
{
    QApplication::clipboard()->setText(QStringLiteral("before"));
    ask();
    type("abc");
    press(Qt::Key_Left, Qt::ShiftModifier);
    press(Qt::Key_Left, Qt::ShiftModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "bc");
    EXPECT_EQ(typed(), "abc");
    EXPECT_EQ(m_cancels, 0);
}

TEST_F(CommandLines, CtrlCCopiesASelectionAboveWhereverTheFocusIs)
{
    m_commandLine->append(QStringLiteral("chosen\nother\n"));
    ask();
    dragOverFirstRow(above());
    ASSERT_EQ(above().textCursor().selectedText().toStdString(), "chosen");
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "chosen");
    QApplication::clipboard()->setText(QStringLiteral("before"));
    line().setFocus();
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "chosen");
    EXPECT_EQ(m_cancels, 0);
}

TEST_F(CommandLines, TheOtherKeyForCopyingNeverCancels)
{
    ask();
    press(Qt::Key_Insert, Qt::ControlModifier);
    EXPECT_EQ(m_cancels, 0);
}

TEST_F(CommandLines, TheRowsAboveCannotBeChanged)
{
    m_commandLine->append(QStringLiteral("said\n"));
    above().setFocus();
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Delete);
    press(Qt::Key_X, Qt::ControlModifier);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(said(), "said\n");
}
