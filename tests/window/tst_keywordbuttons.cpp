// The buttons for the keywords of a prompt.
#include "tests/window/commandlinefixture.h"

#include <QScrollArea>
#include <QScrollBar>

using namespace quelhost;

namespace {

using Lines = std::vector<std::string>;

const QStringList kKinds = {QStringLiteral("Accelerator"), QStringLiteral("Toolbar"),
                            QStringLiteral("Undo")};

class KeywordPrompts : public CommandLines
{
protected:
    void askKind(const wchar_t* prompt = L"Kind [Accelerator/Toolbar/Undo] <Toolbar>: ")
    {
        ask(Completion::Keywords, kKinds, prompt);
        QApplication::processEvents();
    }

    [[nodiscard]] Lines texts() const
    {
        Lines all;
        for (const QToolButton* button : buttons())
            all.push_back(button->text().toStdString());
        return all;
    }
    // The button with the keyboard, or what else has it.
    [[nodiscard]] static std::string focused()
    {
        const QWidget* const widget = QApplication::focusWidget();
        const auto* const button = qobject_cast<const QToolButton*>(widget);
        return (button != nullptr ? button->text() : widget->objectName()).toStdString();
    }
    [[nodiscard]] static QStringList many(int count)
    {
        QStringList words;
        for (int i = 0; i < count; ++i)
            words += QStringLiteral("Keyword%1").arg(i);
        return words;
    }
};

} // namespace

TEST_F(KeywordPrompts, ShowAButtonForEachKeyword)
{
    EXPECT_FALSE(keywords().isVisible());
    askKind();
    EXPECT_EQ(texts(), (Lines{"Accelerator", "Toolbar", "Undo"}));
    EXPECT_EQ(QApplication::focusWidget(), &line());
    m_commandLine->endPrompt();
    EXPECT_EQ(texts(), Lines());
    EXPECT_FALSE(keywords().isVisible());
}

TEST_F(KeywordPrompts, TheNextPromptHasItsOwn)
{
    askKind();
    ask(Completion::Keywords, {QStringLiteral("Yes & No")}, L"Which? ");
    EXPECT_EQ(texts(), (Lines{"Yes && No"}));
    ask(Completion::Commands, kKinds);
    EXPECT_EQ(texts(), Lines());
    ask(Completion::Paths, kKinds, L"File: ");
    EXPECT_EQ(texts(), Lines());
}

TEST_F(KeywordPrompts, AClickAnswersInPlaceOfABegunLine)
{
    askKind();
    type("Un");
    QTest::mouseClick(buttons().front(), Qt::LeftButton);
    EXPECT_EQ(m_entered, (Lines{"Accelerator"}));
    EXPECT_EQ(typed(), "");
    EXPECT_EQ(QApplication::focusWidget(), &line());
}

TEST_F(KeywordPrompts, AKeywordWithABlankIsAnsweredInQuotes)
{
    ask(Completion::Keywords, {QStringLiteral("Not now")}, L"Which? ");
    QTest::mouseClick(buttons().front(), Qt::LeftButton);
    EXPECT_EQ(m_entered, (Lines{"\"Not now\""}));
}

TEST_F(KeywordPrompts, TheKeywordThatEnterStandsForIsMarkedAndTold)
{
    askKind();
    EXPECT_FALSE(buttons()[0]->font().bold());
    EXPECT_TRUE(buttons()[1]->font().bold());
    EXPECT_TRUE(buttons()[1]->toolTip().contains(QStringLiteral("Enter alone")));
    EXPECT_FALSE(buttons()[0]->toolTip().contains(QStringLiteral("Enter alone")));
    askKind(L"Kind <U>: ");
    EXPECT_FALSE(buttons()[1]->font().bold());
    EXPECT_TRUE(buttons()[2]->font().bold());
    askKind(L"Kind <none>: ");
    for (const QToolButton* button : buttons())
        EXPECT_FALSE(button->font().bold());
}

TEST_F(KeywordPrompts, TheKeysGoToTheButtonsAndBack)
{
    askKind();
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focused(), "Toolbar");
    press(Qt::Key_Right);
    EXPECT_EQ(focused(), "Undo");
    press(Qt::Key_Right);
    EXPECT_EQ(focused(), "Undo");
    press(Qt::Key_Home);
    EXPECT_EQ(focused(), "Accelerator");
    press(Qt::Key_Left);
    EXPECT_EQ(focused(), "Accelerator");
    press(Qt::Key_End);
    EXPECT_EQ(focused(), "Undo");
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), "line");
    EXPECT_EQ(m_entered, Lines());
}

TEST_F(KeywordPrompts, TheTabKeyComesToTheButtonsBetweenTheRowsAndTheLine)
{
    askKind();
    above().setFocus();
    Lines order;
    for (int i = 0; i < 4; ++i) {
        press(Qt::Key_Tab);
        order.push_back(focused());
    }
    EXPECT_EQ(order, (Lines{"Accelerator", "Toolbar", "Undo", "line"}));
}

TEST_F(KeywordPrompts, WithoutADefaultTheKeysBeginAtTheFirst)
{
    askKind(L"Kind: ");
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focused(), "Accelerator");
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focused(), "said");
}

TEST_F(KeywordPrompts, EnterAndTheSpaceBarPressAButton)
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        m_entered.clear();
        askKind();
        press(Qt::Key_Backtab, Qt::ShiftModifier);
        press(key);
        EXPECT_EQ(m_entered, (Lines{"Toolbar"})) << key;
    }
}

TEST_F(KeywordPrompts, WhatIsTypedAtAButtonGoesIntoTheLine)
{
    askKind();
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    type("U");
    EXPECT_EQ(typed(), "U");
    EXPECT_EQ(focused(), "line");
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(m_cancels, 1);
}

TEST_F(KeywordPrompts, ManyKeywordsScrollAndNeverMakeTheWindowWider)
{
    const int width = m_commandLine->minimumSizeHint().width();
    ask(Completion::Keywords, many(100), L"Which? ");
    QApplication::processEvents();
    EXPECT_EQ(buttons().size(), 100U);
    EXPECT_LE(m_commandLine->minimumSizeHint().width(), width + 100);
    EXPECT_EQ(m_commandLine->width(), 600);
    EXPECT_LE(keywords().height(), 3 * buttons().front()->height());
    for (const QToolButton* button : buttons())
        EXPECT_LE(button->geometry().right(), keywords().width());
    const auto& area = dynamic_cast<const QScrollArea&>(keywords());
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    press(Qt::Key_End);
    EXPECT_EQ(area.verticalScrollBar()->value(), area.verticalScrollBar()->maximum());
    EXPECT_GT(area.verticalScrollBar()->maximum(), 0);
}

TEST_F(KeywordPrompts, AKeywordWiderThanTheWindowIsCut)
{
    ask(Completion::Keywords, {QString(500, QLatin1Char('W')), QStringLiteral("Short")}, L"? ");
    QApplication::processEvents();
    EXPECT_EQ(m_commandLine->width(), 600);
    EXPECT_LE(buttons().front()->width(), keywords().width());
}

TEST_F(KeywordPrompts, ThousandsOfKeywordsGetNoThousandsOfButtons)
{
    ask(Completion::Keywords, many(5000), L"Which? ");
    EXPECT_EQ(buttons().size(), 200U);
}

TEST_F(KeywordPrompts, AreWrappedAgainWhenTheWindowGetsNarrower)
{
    ask(Completion::Keywords, many(12), L"Which? ");
    m_commandLine->resize(1500, 300);
    QApplication::processEvents();
    const int oneRow = keywords().height();
    EXPECT_EQ(buttons().back()->y(), 0);
    m_commandLine->resize(500, 300);
    QApplication::processEvents();
    EXPECT_GT(keywords().height(), oneRow);
    EXPECT_GT(buttons().back()->y(), 0);
}

TEST_F(KeywordPrompts, EveryPartHasANameForThoseWhoDoNotSee)
{
    askKind();
    for (const QToolButton* button : buttons()) {
        EXPECT_EQ(button->accessibleName(), button->text());
        EXPECT_TRUE(button->accessibleDescription().contains(button->text()));
    }
    EXPECT_NE(keywords().accessibleName(), QString());
    EXPECT_NE(list().accessibleName(), QString());
    EXPECT_NE(above().accessibleDescription(), QString());
    EXPECT_TRUE(line().accessibleDescription().contains(QStringLiteral("Shift+Tab")));
    ask(Completion::Commands);
    EXPECT_NE(line().accessibleDescription(), QString());
    EXPECT_FALSE(line().accessibleDescription().contains(QStringLiteral("Shift+Tab")));
}
