// Where the lines of a session in a window come from: what is typed, macros, cancels, the end.
#include "refhost/core/widetext.h"
#include "refhost/window/windowlines.h"
#include "tests/support/scriptedlines.h"
#include "tests/window/commandlinefixture.h"

#include <QTimer>

#include <functional>

using namespace quelhost;
using quelhost::test::CollectedOutput;

namespace {

constexpr int kMostMilliseconds = 20000;

class WindowLineSource : public CommandLines
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(CommandLines::SetUp());
        m_lines = std::make_unique<WindowLines>(*m_commandLine, m_output);
        QObject::connect(m_lines.get(), &WindowLines::waiting, [this](bool forCommand) {
            m_waits.push_back(forCommand ? "command" : "answer");
            if (m_whileWaiting)
                QTimer::singleShot(0, m_lines.get(), std::exchange(m_whileWaiting, {}));
        });
    }

    // Reads one line as text; `whileWaiting` is done as soon as the prompt waits.
    std::string read(Completion completion, std::function<void()> whileWaiting = {},
                     const wchar_t* prompt = L"? ")
    {
        m_whileWaiting = std::move(whileWaiting);
        QTimer limit;
        limit.setSingleShot(true);
        QObject::connect(&limit, &QTimer::timeout, [this] {
            ADD_FAILURE() << "nobody gave a line";
            m_lines->end();
        });
        limit.start(kMostMilliseconds);
        const Line line = m_lines->readLine({prompt, completion, {}, false});
        EXPECT_FALSE(m_whileWaiting) << "nothing waited";
        m_whileWaiting = {};
        switch (line.kind) {
        case Line::Kind::Text:
            return toQString(line.text).toStdString();
        case Line::Kind::Cancel:
            return "(cancel)";
        case Line::Kind::End:
            break;
        }
        return "(end)";
    }
    std::string readCommand(std::function<void()> whileWaiting = {})
    {
        return read(Completion::Commands, std::move(whileWaiting), L"Command: ");
    }
    std::string readAnswer(std::function<void()> whileWaiting = {})
    {
        return read(Completion::Nothing, std::move(whileWaiting), L"Answer: ");
    }

    // What a menu item with this macro does.
    [[nodiscard]] std::function<void()> choose(const char* macro)
    {
        return [this, macro] { m_lines->type(readMacro(QString::fromUtf8(macro)).steps); };
    }
    [[nodiscard]] std::function<void()> enter(const char* text)
    {
        return [this, text] {
            type(text);
            press(Qt::Key_Return);
        };
    }

    CollectedOutput m_output;
    std::unique_ptr<WindowLines> m_lines;
    std::vector<std::string> m_waits;

private:
    std::function<void()> m_whileWaiting;
};

using Waits = std::vector<std::string>;

} // namespace

TEST_F(WindowLineSource, APersonTypes)
{
    EXPECT_FALSE(m_lines->isScript());
}

TEST_F(WindowLineSource, WaitsForALineAndShowsItBehindItsPrompt)
{
    EXPECT_EQ(readCommand([this] {
                  EXPECT_EQ(prompt(), "Command: ");
                  EXPECT_EQ(m_output.text(), "");
                  enter("ECHO on")();
              }),
              "ECHO on");
    EXPECT_EQ(m_output.text(), "Command: ECHO on\n");
    EXPECT_EQ(m_waits, (Waits{"command"}));
    EXPECT_FALSE(m_commandLine->isAsking());
}

TEST_F(WindowLineSource, TellsWhoAsks)
{
    EXPECT_EQ(readAnswer(enter("a")), "a");
    EXPECT_EQ(read(Completion::Keywords, enter("b")), "b");
    EXPECT_EQ(read(Completion::Paths, enter("c")), "c");
    EXPECT_EQ(readCommand(enter("d")), "d");
    EXPECT_EQ(m_waits, (Waits{"answer", "answer", "answer", "command"}));
}

TEST_F(WindowLineSource, TheUpperRowsOfAPromptAreThereBeforeTheAnswer)
{
    EXPECT_EQ(read(
                  Completion::Nothing,
                  [this] {
                      EXPECT_EQ(m_output.text(), "\nChoose:\nA or B\n");
                      EXPECT_EQ(prompt(), "Which? ");
                      enter("A")();
                  },
                  L"\nChoose:\nA or B\nWhich? "),
              "A");
    EXPECT_EQ(m_output.text(), "\nChoose:\nA or B\nWhich? A\n");
}

TEST_F(WindowLineSource, AMessageWithoutAnEndEndsBeforeThePrompt)
{
    EXPECT_EQ(readCommand([this] {
                  m_output.write(L"half");
                  enter("x")();
              }),
              "x");
    EXPECT_EQ(m_output.text(), "half\nCommand: x\n");
}

TEST_F(WindowLineSource, LinesTypedAheadWaitForTheirPrompt)
{
    EXPECT_EQ(readCommand([this] {
                  enter("one")();
                  enter("two")();
                  enter("")();
              }),
              "one");
    EXPECT_EQ(readAnswer(), "two");
    EXPECT_EQ(readCommand(), "");
    EXPECT_EQ(m_waits, (Waits{"command"}));
}

TEST_F(WindowLineSource, OnlyCommandsThatWereTypedAreRemembered)
{
    readCommand([this] {
        enter("MENULOAD")();
        enter("/t/answer.cuix")();
    });
    readAnswer();
    readCommand(choose("ECHO by item"));
    readCommand([this] {
        press(Qt::Key_Up);
        EXPECT_EQ(typed(), "MENULOAD");
        press(Qt::Key_Up);
        EXPECT_EQ(typed(), "MENULOAD");
        press(Qt::Key_Return);
    });
}

TEST_F(WindowLineSource, AMacroIsTyped)
{
    EXPECT_EQ(readCommand(choose("ECHO on")), "ECHO on");
    EXPECT_EQ(m_output.text(), "Command: ECHO on\n");
    EXPECT_EQ(readCommand(choose("CUSTOMIZE{enter}Toolbar")), "CUSTOMIZE");
    EXPECT_EQ(readAnswer(), "Toolbar");
    EXPECT_EQ(readCommand(choose("")), "");
}

TEST_F(WindowLineSource, AMacroLeavesALineThatWasBegun)
{
    readCommand([this] {
        type("my o");
        choose("ECHO on")();
    });
    EXPECT_EQ(readCommand([this] {
                  EXPECT_EQ(typed(), "my o");
                  enter("wn")();
              }),
              "my own");
}

TEST_F(WindowLineSource, ACancelInFrontDoesNothingAtTheCommandPrompt)
{
    EXPECT_EQ(readCommand(choose("{cancel}ECHO on")), "ECHO on");
    EXPECT_EQ(m_waits, (Waits{"command"}));
}

TEST_F(WindowLineSource, ACancelInFrontLetsTheCommandEndWhateverItAsks)
{
    EXPECT_EQ(readAnswer(choose("{cancel}ECHO on")), "(cancel)");
    EXPECT_EQ(readAnswer(), "(cancel)");
    EXPECT_EQ(read(Completion::Keywords), "(cancel)");
    EXPECT_EQ(readCommand(), "ECHO on");
    EXPECT_EQ(m_waits, (Waits{"answer"}));
}

TEST_F(WindowLineSource, ACancelInFrontDropsTheAnswerThatWasBegun)
{
    EXPECT_EQ(readAnswer([this] {
                  type("/t/ha");
                  choose("{cancel}ECHO on")();
              }),
              "(cancel)");
    EXPECT_EQ(readCommand(), "ECHO on");
    EXPECT_EQ(readCommand([this] {
                  EXPECT_EQ(typed(), "");
                  enter("next")();
              }),
              "next");
}

TEST_F(WindowLineSource, ACancelInTheMiddleDropsWhatStandsBeforeItOnItsLine)
{
    EXPECT_EQ(readCommand(choose("ECHO lost{cancel}ECHO kept")), "ECHO kept");
}

TEST_F(WindowLineSource, ACancelInTheMiddleEndsTheCommandThatTheMacroBegan)
{
    EXPECT_EQ(readCommand(choose("MENULOAD{enter}{cancel}GROUPS")), "MENULOAD");
    EXPECT_EQ(readAnswer(), "(cancel)");
    EXPECT_EQ(readCommand(), "GROUPS");
}

TEST_F(WindowLineSource, TwoCancelsAreAsGoodAsOne)
{
    EXPECT_EQ(readAnswer(choose("{cancel}{cancel}ECHO on")), "(cancel)");
    EXPECT_EQ(readCommand(), "ECHO on");
}

TEST_F(WindowLineSource, CancellingCancelsOnePrompt)
{
    EXPECT_EQ(readAnswer([this] { m_lines->cancel(); }), "(cancel)");
    EXPECT_EQ(m_output.text(), "Answer: \n");
    EXPECT_EQ(readAnswer(enter("again")), "again");
}

TEST_F(WindowLineSource, CtrlCCancels)
{
    EXPECT_EQ(readAnswer([] { press(Qt::Key_C, Qt::ControlModifier); }), "(cancel)");
    EXPECT_EQ(readCommand([] { press(Qt::Key_C, Qt::ControlModifier); }), "(cancel)");
}

TEST_F(WindowLineSource, CancellingDropsTheLineThatWasBegun)
{
    EXPECT_EQ(readAnswer([this] {
                  type("/t/half");
                  press(Qt::Key_C, Qt::ControlModifier);
              }),
              "(cancel)");
    EXPECT_EQ(readCommand(enter("whole")), "whole");
}

TEST_F(WindowLineSource, CancellingDropsWhatWasTypedAhead)
{
    EXPECT_EQ(readCommand([this] {
                  enter("one")();
                  enter("two")();
              }),
              "one");
    m_lines->cancel();
    EXPECT_EQ(readAnswer(enter("new")), "new");
}

TEST_F(WindowLineSource, WhenNobodyWaitsThereIsNothingToCancel)
{
    m_lines->cancel();
    EXPECT_EQ(readAnswer(enter("new")), "new");
}

TEST_F(WindowLineSource, TheEndIsForEver)
{
    EXPECT_EQ(readAnswer([this] { m_lines->end(); }), "(end)");
    EXPECT_EQ(m_output.text(), "");
    EXPECT_EQ(readAnswer(), "(end)");
    m_lines->type(readMacro(QStringLiteral("ECHO on")).steps);
    EXPECT_EQ(readCommand(), "(end)");
    EXPECT_EQ(m_waits, (Waits{"answer"}));
}

TEST_F(WindowLineSource, TheEndDropsWhatWasTypedAhead)
{
    EXPECT_EQ(readCommand([this] {
                  enter("one")();
                  enter("two")();
              }),
              "one");
    m_lines->end();
    EXPECT_EQ(readCommand(), "(end)");
}

TEST_F(WindowLineSource, WhatTheUserReadsGoesAboveTheLine)
{
    WindowOutput output(*m_commandLine);
    output.write(L"half ");
    output.writeRow(L"ü€\U0001F600");
    output.write(std::wstring(1, wchar_t(0xD800)) + L"!");
    EXPECT_EQ(said(), "half \nü€\U0001F600\n\uFFFD!");
}
