// The whole program with a window, ended as a user ends it.
#include "tests/support/programrun.h"

#include <gtest/gtest.h>

#include <QProcess>
#include <QTemporaryDir>

namespace {

constexpr int kMostMs = 30000; // a hang, not a measure

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

// What a program says: xdotool presses keys and the mouse as a user does, xwininfo sees windows.
QString output(const char* program, const QStringList& arguments)
{
    QProcess process;
    process.start(text(program), arguments);
    if (!process.waitForFinished(kMostMs)) {
        process.kill();
        process.waitForFinished();
        return text("(not in time)");
    }
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

QString drive(const QStringList& arguments)
{
    return output("xdotool", arguments);
}

int numberBehind(const QString& label, const QString& text)
{
    return text.section(label, 1).simplified().section(QLatin1Char(' '), 0, 0).toInt();
}

class WindowProgram : public testing::Test
{
protected:
    void TearDown() override
    {
        if (m_program.state() == QProcess::NotRunning)
            return;
        m_program.kill();
        m_program.waitForFinished();
    }

    // Starts the program and waits until its window has the keyboard.
    void start(const QStringList& more = {})
    {
        const QString profile = m_folder.filePath(text("profile"));
        m_program.start(text(QUELHOST_PROGRAM), QStringList{text("--profile"), profile} + more);
        ASSERT_TRUE(m_program.waitForStarted(kMostMs));
        m_window = drive({text("search"), text("--sync"), text("--onlyvisible"), text("--name"),
                          text("^Quelhost$")});
        ASSERT_GT(m_window.toInt(), 0) << m_window.toStdString();
        ASSERT_EQ(drive({text("windowactivate"), text("--sync"), m_window}), QString());
    }

    // Clicks the box at the right end of the title bar.
    void clickCloseBox()
    {
        constexpr int kFromRight = 10;
        constexpr int kAbove = 11;
        const QString place = output("xwininfo", {text("-id"), m_window});
        const int right = numberBehind(text("Absolute upper-left X:"), place) +
                          numberBehind(text("Width:"), place);
        const int top = numberBehind(text("Absolute upper-left Y:"), place);
        drive({text("mousemove"), QString::number(right - kFromRight),
               QString::number(top - kAbove), text("click"), text("1")});
    }

    void expectGoodEnd()
    {
        ASSERT_TRUE(m_program.waitForFinished(kMostMs));
        EXPECT_EQ(m_program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(m_program.exitCode(), 0);
        EXPECT_EQ(m_program.readAllStandardError().toStdString(), "");
    }

    QTemporaryDir m_folder;
    QProcess m_program;
    QString m_window; // its number
};

} // namespace

TEST_F(WindowProgram, EndsWellWhenItsWindowIsClosed)
{
    ASSERT_NO_FATAL_FAILURE(start({text("--window")}));
    clickCloseBox();
    expectGoodEnd();
}

TEST_F(WindowProgram, EndsWellByQuit)
{
    ASSERT_NO_FATAL_FAILURE(start({text("--window")}));
    drive({text("type"), text("QUIT")});
    drive({text("key"), text("Return")});
    expectGoodEnd();
}

TEST_F(WindowProgram, OpensAWindowWhereThereIsADisplay)
{
    m_program.setStandardInputFile(text("/dev/null"));
    ASSERT_NO_FATAL_FAILURE(start());
    clickCloseBox();
    expectGoodEnd();
}

TEST_F(WindowProgram, WithoutADisplayItSaysSo)
{
    ProgramRun run;
    run.arguments = QStringList{text("--window"), text("--profile"), m_folder.path()};
    const ProgramResult result = run.run();
    EXPECT_EQ(result.exitStatus, 1);
    EXPECT_EQ(result.output, QString());
    EXPECT_EQ(result.diagnostics, text("quelhost: There is no display for a window; leave out "
                                       "--window to use the terminal.\n"));
}

TEST_F(WindowProgram, AnExplicitDialogWithoutADisplayIsOneLine)
{
    ProgramRun run;
    run.arguments = QStringList{text("--profile"), m_folder.path(), text("--script"), text("-")};
    run.input = "MENULOAD\n~\nECHO on\n";
    const ProgramResult result = run.run();
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.diagnostics, QString());
    EXPECT_EQ(result.rows().filter(text("display")),
              QStringList{text("There is no display, so the dialog cannot be shown.")});
    EXPECT_TRUE(result.rows().contains(text("on")));
}
