// History and completion at the window's command line.
#include "tests/window/commandlinefixture.h"

#include "refhost/core/linehistory.h"

#include <QDir>
#include <QFile>
#include <QShortcut>

using namespace quelhost;

namespace {

using Lines = std::vector<std::string>;

const QStringList kNames = {QStringLiteral("MENU"), QStringLiteral("MENULOAD"),
                            QStringLiteral("MENUUNLOAD"), QStringLiteral("ECHO"),
                            QStringLiteral("ml")};

} // namespace

TEST_F(CommandLines, UpAndDownGoThroughTheHistory)
{
    typeLine("first");
    typeLine("second");
    press(Qt::Key_Up);
    EXPECT_EQ(typed(), "second");
    press(Qt::Key_Up);
    EXPECT_EQ(typed(), "first");
    press(Qt::Key_Up);
    EXPECT_EQ(typed(), "first");
    press(Qt::Key_Down);
    EXPECT_EQ(typed(), "second");
    press(Qt::Key_Down);
    EXPECT_EQ(typed(), "");
    press(Qt::Key_Down);
    EXPECT_EQ(typed(), "");
}

TEST_F(CommandLines, DownComesBackToTheLineThatIsBeingTyped)
{
    typeLine("old");
    type("new one");
    press(Qt::Key_Up);
    EXPECT_EQ(typed(), "old");
    press(Qt::Key_Down);
    EXPECT_EQ(typed(), "new one");
}

TEST_F(CommandLines, ALineFromTheHistoryCanBeChangedAndEntered)
{
    typeLine("ECHO a");
    m_entered.clear();
    press(Qt::Key_Up);
    press(Qt::Key_Backspace);
    type("b");
    press(Qt::Key_Return);
    EXPECT_EQ(m_entered, (Lines{"ECHO b"}));
    m_commandLine->remember(L"ECHO b");
    press(Qt::Key_Up);
    EXPECT_EQ(typed(), "ECHO b");
    press(Qt::Key_Up);
    EXPECT_EQ(typed(), "ECHO a");
}

TEST_F(CommandLines, WithoutAHistoryUpLeavesTheLine)
{
    ask();
    type("alone");
    press(Qt::Key_Up);
    EXPECT_EQ(typed(), "alone");
}

TEST_F(CommandLines, AnAnswerDoesNotGetIntoTheHistoryByItself)
{
    ask();
    type("/t/plant.cuix");
    press(Qt::Key_Return);
    press(Qt::Key_Up);
    EXPECT_EQ(typed(), "");
}

TEST_F(CommandLines, TheHistoryIsThereTheNextTime)
{
    typeLine("ECHO ü");
    ASSERT_TRUE(begin());
    ask();
    press(Qt::Key_Up);
    EXPECT_EQ(typed(), "ECHO ü");
    const LineHistory kept(historyFile());
    ASSERT_EQ(kept.lines().size(), 1U);
    EXPECT_EQ(kept.lines().front(), L"ECHO ü");
}

TEST_F(CommandLines, TheHistoryKeepsTheOrderOverSeveralRuns)
{
    typeLine("one");
    typeLine("two");
    typeLine("two");
    ASSERT_TRUE(begin());
    typeLine("one");
    ASSERT_TRUE(begin());
    ask();
    Lines newestFirst;
    for (int i = 0; i < 4; ++i) {
        press(Qt::Key_Up);
        newestFirst.push_back(typed());
    }
    EXPECT_EQ(newestFirst, (Lines{"one", "two", "one", "one"}));
}

TEST_F(CommandLines, AHistoryThatCannotBeKeptIsToldOnceAndLasts)
{
    ASSERT_TRUE(QDir().mkpath(historyFile() + QStringLiteral("/in the way")));
    ASSERT_TRUE(begin());
    EXPECT_NE(m_commandLine->takeHistoryProblem(), QString());
    typeLine("one");
    typeLine("two");
    EXPECT_EQ(m_commandLine->takeHistoryProblem(), QString());
    EXPECT_EQ(said(), "");
    press(Qt::Key_Up);
    EXPECT_EQ(typed(), "two");
}

// Accelerators may be any key.
TEST_F(CommandLines, KeysThatWorkTheLineAreNobodyElses)
{
    int others = 0;
    std::vector<std::unique_ptr<QShortcut>> shortcuts;
    for (const int key : {int(Qt::Key_Up), int(Qt::Key_Down), int(Qt::Key_Tab), int(Qt::Key_PageUp),
                          int(Qt::Key_Return), int(Qt::CTRL) + int(Qt::Key_Up)}) {
        shortcuts.push_back(std::make_unique<QShortcut>(QKeySequence(key), m_commandLine.get()));
        QObject::connect(shortcuts.back().get(), &QShortcut::activated, [&others] { ++others; });
    }
    typeLine("ECHO");
    press(Qt::Key_Up);
    EXPECT_EQ(typed(), "ECHO");
    press(Qt::Key_PageUp);
    press(Qt::Key_Tab);
    press(Qt::Key_Down);
    EXPECT_EQ(typed(), "");
    EXPECT_EQ(others, 0);
    press(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(others, 1);
    EXPECT_EQ(typed(), "");
}

TEST_F(CommandLines, TabPutsInTheOneNameThatFits)
{
    ask(Completion::Commands, kNames);
    type("e");
    press(Qt::Key_Tab);
    EXPECT_EQ(typed(), "ECHO ");
    EXPECT_EQ(QApplication::focusWidget(), &line());
    EXPECT_EQ(said(), "");
}

TEST_F(CommandLines, TabPutsInWhatTheNamesThatFitHaveInCommon)
{
    ask(Completion::Commands, kNames);
    type("me");
    press(Qt::Key_Tab);
    EXPECT_EQ(typed(), "MENU");
    EXPECT_EQ(said(), "");
    type("l");
    press(Qt::Key_Tab);
    EXPECT_EQ(typed(), "MENULOAD ");
}

TEST_F(CommandLines, TabKnowsAliases)
{
    ask(Completion::Commands, kNames);
    type("ML");
    press(Qt::Key_Tab);
    EXPECT_EQ(typed(), "ml ");
}

TEST_F(CommandLines, TabCompletesKeywords)
{
    ask(Completion::Keywords, {QStringLiteral("Accelerator"), QStringLiteral("Toolbar")},
        L"Customize: ");
    type("t");
    press(Qt::Key_Tab);
    EXPECT_EQ(typed(), "Toolbar ");
}

TEST_F(CommandLines, TabCompletesPathsWithTheirBlanks)
{
    const QString folder = m_folder.filePath(QStringLiteral("my files"));
    ASSERT_TRUE(QDir().mkpath(folder));
    QFile file(folder + QStringLiteral("/plant.cuix"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ask(Completion::Paths, {}, L"File: ");
    type((m_folder.path() + QStringLiteral("/my")).toUtf8().constData());
    press(Qt::Key_Tab);
    EXPECT_EQ(typed(), "\"" + folder.toStdString() + "/");
    press(Qt::Key_Tab);
    EXPECT_EQ(typed(), "\"" + file.fileName().toStdString() + "\"");
}

TEST_F(CommandLines, TabCompletesBeforeTheCursorAndKeepsWhatFollows)
{
    ask(Completion::Commands, kNames);
    type("ec on");
    press(Qt::Key_Left);
    press(Qt::Key_Left);
    press(Qt::Key_Left);
    press(Qt::Key_Tab);
    EXPECT_EQ(typed(), "ECHO on");
    EXPECT_EQ(line().cursorPosition(), 4);
}

TEST_F(CommandLines, TabLeavesALineThatNothingFits)
{
    ask(Completion::Commands, kNames);
    type("xyz");
    press(Qt::Key_Tab);
    EXPECT_EQ(typed(), "xyz");
    ask(Completion::Nothing);
    press(Qt::Key_Tab);
    EXPECT_EQ(typed(), "xyz");
    EXPECT_EQ(said(), "");
    EXPECT_EQ(QApplication::focusWidget(), &line());
}
