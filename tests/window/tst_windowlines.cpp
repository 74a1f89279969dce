// Where the lines of a session in a window come from: what is typed, macros, cancels, the end.
#include "refhost/core/widetext.h"
#include "refhost/window/windowlines.h"
#include "tests/support/scriptedlines.h"
#include "tests/window/commandlinefixture.h"

#include <QDir>
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
        const Line line = m_lines->readLine({prompt, completion, m_words, false});
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

    // Does something as soon as the next prompt waits, in a job that runs before it.
    void whenWaiting(std::function<void()> action) { m_whileWaiting = std::move(action); }

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
    QStringList m_words; // the words of the next requests

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

TEST_F(WindowLineSource, AKeywordButtonAnswers)
{
    m_words = QStringList{QStringLiteral("Accelerator"), QStringLiteral("Toolbar")};
    EXPECT_EQ(read(Completion::Keywords,
                   [this] {
                       ASSERT_EQ(buttons().size(), 2U);
                       QTest::mouseClick(buttons().back(), Qt::LeftButton);
                   }),
              "Toolbar");
    EXPECT_EQ(m_output.text(), "? Toolbar\n");
}

TEST_F(WindowLineSource, AJobRunsAtTheCommandPromptWhichAsksAgain)
{
    std::string asking = "not run";
    EXPECT_EQ(readCommand([&] {
                  type("EC");
                  EXPECT_TRUE(m_lines->runAtCommandPrompt([&] {
                      asking = m_commandLine->isAsking() ? "asking" : "not asking";
                      m_output.write(L"by the job");
                      whenWaiting(enter("HO on"));
                  }));
                  EXPECT_EQ(asking, "not run");
              }),
              "ECHO on");
    EXPECT_EQ(asking, "not asking");
    EXPECT_EQ(m_output.text(), "by the job\nCommand: ECHO on\n");
    EXPECT_EQ(m_waits, (Waits{"command", "command"}));
}

TEST_F(WindowLineSource, AJobMayAsk)
{
    std::string answer;
    EXPECT_EQ(readCommand([&] {
                  EXPECT_TRUE(m_lines->runAtCommandPrompt([&] {
                      answer = readAnswer(enter("yes"));
                      whenWaiting(enter("next"));
                  }));
              }),
              "next");
    EXPECT_EQ(answer, "yes");
    EXPECT_EQ(m_output.text(), "Answer: yes\nCommand: next\n");
    EXPECT_EQ(m_waits, (Waits{"command", "answer", "command"}));
}

TEST_F(WindowLineSource, JobsRunInTheirOrderBeforeWhatIsTypedWithThem)
{
    std::string order;
    EXPECT_EQ(readCommand([&] {
                  enter("typed")();
                  EXPECT_TRUE(m_lines->runAtCommandPrompt([&order] { order += 'a'; }));
                  EXPECT_TRUE(m_lines->runAtCommandPrompt([&order] { order += 'b'; }));
              }),
              "typed");
    EXPECT_EQ(order, "ab");
}

TEST_F(WindowLineSource, ThereIsNoJobWhileACommandAsksOrRuns)
{
    bool ran = false;
    const auto job = [&ran] { ran = true; };
    EXPECT_FALSE(m_lines->runAtCommandPrompt(job));
    EXPECT_EQ(readAnswer([&] {
                  EXPECT_FALSE(m_lines->runAtCommandPrompt(job));
                  enter("a")();
              }),
              "a");
    EXPECT_EQ(readCommand([&] {
                  EXPECT_TRUE(m_lines->runAtCommandPrompt([&] {
                      EXPECT_FALSE(m_lines->runAtCommandPrompt(job));
                      whenWaiting(enter("b"));
                  }));
              }),
              "b");
    EXPECT_FALSE(m_lines->runAtCommandPrompt(job));
    EXPECT_FALSE(ran);
}

TEST_F(WindowLineSource, CancellingLeavesAJob)
{
    bool ran = false;
    EXPECT_EQ(readCommand([&] {
                  EXPECT_TRUE(m_lines->runAtCommandPrompt([&ran] { ran = true; }));
                  m_lines->cancel();
              }),
              "(cancel)");
    EXPECT_TRUE(ran);
}

TEST_F(WindowLineSource, TheEndDropsJobs)
{
    bool ran = false;
    const auto job = [&ran] { ran = true; };
    EXPECT_EQ(readCommand([&] {
                  EXPECT_TRUE(m_lines->runAtCommandPrompt(job));
                  m_lines->end();
                  EXPECT_FALSE(m_lines->runAtCommandPrompt(job));
              }),
              "(end)");
    EXPECT_FALSE(ran);
}

TEST_F(WindowLineSource, AJobMayEndItAll)
{
    EXPECT_EQ(readCommand(
                  [this] { EXPECT_TRUE(m_lines->runAtCommandPrompt([this] { m_lines->end(); })); }),
              "(end)");
    EXPECT_EQ(m_waits, (Waits{"command"}));
}

TEST_F(WindowLineSource, AHistoryThatCannotBeKeptIsToldOnARowOfItsOwn)
{
    ASSERT_TRUE(QDir().mkpath(historyFile() + QStringLiteral("/in the way")));
    m_lines.reset();
    ASSERT_NO_FATAL_FAILURE(SetUp());
    m_output.write(L"half");
    EXPECT_EQ(readCommand(enter("one")), "one");
    const std::string told = m_output.take();
    EXPECT_EQ(told.rfind("half\n", 0), 0U) << told;
    EXPECT_NE(told.find(historyFile().toStdString()), told.npos) << told;
    EXPECT_EQ(told.substr(told.size() - 14), "\nCommand: one\n");
    EXPECT_EQ(readCommand(enter("two")), "two");
    EXPECT_EQ(m_output.text(), "Command: two\n");
}

TEST_F(WindowLineSource, AHistoryThatCannotBeWrittenIsToldBehindTheLine)
{
    ASSERT_TRUE(QDir().mkpath(historyFile() + QStringLiteral("/in the way")));
    EXPECT_EQ(readCommand(enter("one")), "one");
    EXPECT_EQ(m_output.text().rfind("Command: one\n", 0), 0U) << m_output.text();
    EXPECT_NE(m_output.text().find(historyFile().toStdString()), std::string::npos);
    EXPECT_EQ(m_output.text().back(), '\n');
}
