// What the user reads in the window: its way to the rows above the line, and painting meanwhile.
#include "refhost/core/prompts.h"
#include "refhost/window/windowlines.h"
#include "tests/window/commandlinefixture.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QTextBlock>
#include <QTimer>

using namespace quelhost;

namespace {

constexpr int kMostMilliseconds = 20000; // a hang, not a measure

// Counts the paintings of a widget.
class Paintings final : public QObject
{
public:
    explicit Paintings(QWidget& of) { of.installEventFilter(this); }
    [[nodiscard]] int count() const { return m_count; }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        m_count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

private:
    int m_count = 0;
};

class WindowOutputs : public CommandLines
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(CommandLines::SetUp());
        m_output = std::make_unique<WindowOutput>(*m_commandLine);
    }

    // Which rows are bold.
    [[nodiscard]] std::vector<bool> boldRows()
    {
        m_output->flush();
        std::vector<bool> bold;
        for (QTextBlock row = above().document()->begin(); row.length() > 1; row = row.next())
            bold.push_back(row.begin().fragment().charFormat().font().bold());
        return bold;
    }

    std::unique_ptr<WindowOutput> m_output;
};

} // namespace

TEST_F(WindowOutputs, WhatTheUserReadsGoesAboveTheLine)
{
    m_output->write(L"half ");
    m_output->writeRow(L"ü€\U0001F600");
    m_output->write(std::wstring(1, wchar_t(0xD800)) + L"!");
    m_output->flush();
    EXPECT_EQ(said(), "half \nü€\U0001F600\n\uFFFD!");
}

TEST_F(WindowOutputs, AnswersAreSetOff)
{
    m_output->writeRow(L"said");
    m_output->writeRow(L"Command: ECHO on", TextKind::Answer);
    m_output->writeRow(L"on");
    EXPECT_EQ(boldRows(), (std::vector<bool>{false, true, false}));
}

TEST_F(WindowOutputs, AnswersTypedAheadAreSetOffToo)
{
    WindowLines lines(*m_commandLine, *m_output);
    Prompts prompts(lines, *m_output);
    QTimer::singleShot(0, m_commandLine.get(), [] {
        type("SETVAR FILEDIA");
        press(Qt::Key_Return);
    });
    EXPECT_EQ(prompts.nextCommand({L"Command: ", Completion::Commands, {}, false}), L"SETVAR");
    m_output->writeRow(L"said");
    EXPECT_EQ(prompts.ask({L"Name: ", Completion::Nothing, {}, false}, AnswerEnd::Blank).text,
              L"FILEDIA");
    EXPECT_EQ(boldRows(), (std::vector<bool>{true, false, true}));
    EXPECT_EQ(said(), "Command: SETVAR FILEDIA\nsaid\nName: FILEDIA\n");
}

TEST_F(WindowOutputs, IsPaintedWhileACommandWrites)
{
    const Paintings paintings(*above().viewport());
    const QDeadlineTimer limit(kMostMilliseconds);
    while (paintings.count() < 3 && !limit.hasExpired())
        m_output->writeRow(L"one more row");
    EXPECT_GE(paintings.count(), 3);
}

TEST_F(WindowOutputs, IsThereInTheNextEventLoop)
{
    m_output->write(L"painted at once, ");
    m_output->write(L"a moment later");
    QApplication::processEvents();
    EXPECT_EQ(said(), "painted at once, a moment later");
}

TEST_F(WindowOutputs, KeepsTheNewestRowsOfVeryMany)
{
    for (int row = 0; row < 100000; ++row)
        m_output->writeRow(L"row " + std::to_wstring(row));
    m_output->flush();
    EXPECT_EQ(above().document()->blockCount(), 20000);
    EXPECT_EQ(above().document()->firstBlock().text(), QStringLiteral("row 80001"));
    EXPECT_TRUE(above().toPlainText().endsWith(QStringLiteral("\nrow 99999\n")));
}

TEST_F(WindowOutputs, IsPaintedNoMoreThanTheEyeNeeds)
{
    const Paintings paintings(*above().viewport());
    QElapsedTimer time;
    time.start();
    for (int row = 0; row < 5000; ++row)
        m_output->writeRow(L"one more row");
    EXPECT_LE(paintings.count(), time.elapsed() / WindowOutput::kPaintMs + 1);
    m_output->flush();
    EXPECT_EQ(above().document()->blockCount(), 5001);
}

TEST_F(WindowOutputs, WhatIsWrittenMeanwhileIsNotPaintedInside)
{
    int depth = 0;
    int deepest = 0;
    QTimer busy;
    QObject::connect(&busy, &QTimer::timeout, [&] {
        deepest = std::max(deepest, ++depth);
        QElapsedTimer time;
        time.start();
        while (time.elapsed() <= WindowOutput::kPaintMs)
            m_output->writeRow(L"by the timer");
        --depth;
    });
    busy.start(0);
    const QDeadlineTimer limit(kMostMilliseconds);
    while (deepest == 0 && !limit.hasExpired())
        m_output->writeRow(L"by the command");
    EXPECT_EQ(deepest, 1);
}
