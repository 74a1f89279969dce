#include "refhost/core/linehistory.h"

#include "tests/core/childprocess.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <deque>
#include <string>

namespace {

using quelhost::LineHistory;
using Lines = std::deque<std::wstring>;

class History : public testing::Test
{
protected:
    [[nodiscard]] QString path() const { return m_folder.filePath(QStringLiteral("history")); }
    [[nodiscard]] bool write(const QByteArray& content) const
    {
        QFile file(path());
        return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
    }
    [[nodiscard]] QByteArray content() const
    {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(cannot be read)");
    }
    QTemporaryDir m_folder;
};

TEST_F(History, BeginsEmpty)
{
    LineHistory history(path());
    EXPECT_EQ(history.lines(), Lines());
    EXPECT_EQ(history.takeProblem(), QString());
    EXPECT_FALSE(QFile::exists(path()));
}

TEST_F(History, IsSavedWithEachLine)
{
    LineHistory history(path());
    EXPECT_TRUE(history.add(L"one"));
    EXPECT_EQ(content(), "one\n");
    EXPECT_TRUE(history.add(L"größe 😀"));
    EXPECT_EQ(content(), "one\ngröße 😀\n");
    EXPECT_EQ(LineHistory(path()).lines(), (Lines{L"one", L"größe 😀"}));
}

TEST_F(History, LastsForTheRunWithoutAFile)
{
    LineHistory history{QString()};
    EXPECT_TRUE(history.add(L"one"));
    EXPECT_EQ(history.lines(), Lines{L"one"});
    EXPECT_EQ(history.takeProblem(), QString());
}

TEST_F(History, KeepsNoBlankLines)
{
    LineHistory history(path());
    EXPECT_FALSE(history.add(L""));
    EXPECT_FALSE(history.add(L" \t "));
    EXPECT_EQ(history.lines(), Lines());
}

TEST_F(History, KeepsNoRepetitionsAndNoTrailingBlanks)
{
    LineHistory history(path());
    EXPECT_TRUE(history.add(L"one  "));
    EXPECT_FALSE(history.add(L"one"));
    EXPECT_TRUE(history.add(L"two"));
    EXPECT_TRUE(history.add(L"one"));
    EXPECT_EQ(history.lines(), (Lines{L"one", L"two", L"one"}));
}

TEST_F(History, KeepsNothingThatWouldComeBackAsSeveralLines)
{
    LineHistory history(path());
    EXPECT_FALSE(history.add(L"one\ntwo"));
    EXPECT_FALSE(history.add(L"one\rtwo"));
    EXPECT_EQ(history.lines(), Lines());
}

TEST_F(History, KeepsLongLinesButNoAbsurdOnes)
{
    const std::wstring longLine(LineHistory::kLongestLine, L'é');
    LineHistory history(path());
    EXPECT_TRUE(history.add(longLine));
    EXPECT_FALSE(history.add(longLine + L'é'));
    EXPECT_EQ(LineHistory(path()).lines(), Lines{longLine});
}

TEST_F(History, ForgetsTheOldestOfMoreThanAThousand)
{
    {
        LineHistory history(path());
        for (int i = 1; i <= 1001; ++i)
            ASSERT_TRUE(history.add(L"line " + std::to_wstring(i)));
        EXPECT_EQ(history.lines().size(), 1000U);
        EXPECT_EQ(history.lines().front(), L"line 2");
        EXPECT_EQ(history.lines().back(), L"line 1001");
    }
    EXPECT_EQ(content().count('\n'), 1000);
    ASSERT_TRUE(write(content() + "one more\n"));
    const LineHistory later(path());
    EXPECT_EQ(later.lines().size(), 1000U);
    EXPECT_EQ(later.lines().front(), L"line 3");
    EXPECT_EQ(later.lines().back(), L"one more");
}

TEST_F(History, IsItsOwnersAlone)
{
    ASSERT_TRUE(write("old\n"));
    ASSERT_TRUE(QFile::setPermissions(path(), QFile::Permissions(0x6644)));
    LineHistory history(path());
    ASSERT_TRUE(history.add(L"new"));
    EXPECT_EQ(QFileInfo(path()).permissions(),
              QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser);
}

TEST_F(History, LeavesNoOtherFilesBehind)
{
    LineHistory history(path());
    ASSERT_TRUE(history.add(L"one"));
    ASSERT_TRUE(history.add(L"two"));
    EXPECT_EQ(
        QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
        QStringList{QStringLiteral("history")});
}

TEST_F(History, ReadsWhatIsNoText)
{
    ASSERT_TRUE(write(QByteArray("a\0b\r\n\xFF\n\n  \nc \nlast", 18)));
    LineHistory history(path());
    EXPECT_EQ(history.lines(), (Lines{L"a\uFFFDb", L"\uFFFD", L"c", L"last"}));
    EXPECT_EQ(history.takeProblem(), QString());
}

// A return that stayed behind the blanks would be taken for a part of the line's end by the next
// run.
TEST_F(History, ReadsItsOwnFileAsItReadAnothersWithReturnsAmongBlanks)
{
    ASSERT_TRUE(write("a\r \nb\r\r\n\r \r\nc\rd \t\r\n"));
    const Lines lines{L"a", L"b", L"c\rd"};
    {
        LineHistory history(path());
        EXPECT_EQ(history.lines(), lines);
        ASSERT_TRUE(history.add(L"new"));
    }
    EXPECT_EQ(content(), "a\nb\nc\rd\nnew\n");
    EXPECT_EQ(LineHistory(path()).lines(), (Lines{L"a", L"b", L"c\rd", L"new"}));
}

TEST_F(History, TellsOnceThatItsFileIsAFolder)
{
    ASSERT_TRUE(QDir().mkpath(path()));
    LineHistory history(path());
    EXPECT_EQ(history.takeProblem(),
              QStringLiteral("The lines you type are not kept: %1 is not a file.").arg(path()));
    EXPECT_TRUE(history.add(L"one"));
    EXPECT_EQ(history.lines(), Lines{L"one"});
    EXPECT_EQ(history.takeProblem(), QString());
}

TEST_F(History, LeavesAFileAloneThatIsTooLarge)
{
    ASSERT_TRUE(write("old\n"));
    const qint64 size = 64 * 1024 * 1024 + 1;
    ASSERT_TRUE(QFile::resize(path(), size));
    LineHistory history(path());
    EXPECT_EQ(history.takeProblem(),
              QStringLiteral("The lines you type are not kept: %1 is too large for a history file.")
                  .arg(path()));
    EXPECT_TRUE(history.add(L"one"));
    EXPECT_EQ(QFileInfo(path()).size(), size);
}

TEST_F(History, TellsOnceThatItCannotBeWrittenAndTriesAgain)
{
    ASSERT_TRUE(QFile::link(QStringLiteral("missing/file"), path()));
    LineHistory history(path());
    EXPECT_TRUE(history.add(L"one"));
    const QString problem = history.takeProblem();
    EXPECT_TRUE(problem.startsWith(
        QStringLiteral("The lines you type are not kept: %1 cannot be written: ").arg(path())))
        << problem.toStdString();
    EXPECT_TRUE(history.add(L"two"));
    EXPECT_EQ(history.takeProblem(), QString());
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(QStringLiteral("missing")));
    EXPECT_TRUE(history.add(L"three"));
    EXPECT_EQ(content(), "one\ntwo\nthree\n");
}

TEST_F(History, KeepsWhatItHadOnAFullDisk)
{
    ASSERT_TRUE(write("one\n"));
    const auto end = quelhost::test::runInChild([&]() -> std::string {
        if (!quelhost::test::limitFileSize(5))
            return "no limit";
        LineHistory history(path());
        return history.add(L"two") ? history.takeProblem().toStdString() : "not taken";
    });
    EXPECT_EQ(end.output.find("The lines you type are not kept: "), 0U) << end.output;
    EXPECT_EQ(content(), "one\n");
}

TEST_F(History, TriesAgainAtTheEnd)
{
    const QString folder = m_folder.filePath(QStringLiteral("later"));
    {
        LineHistory history(folder + QStringLiteral("/history"));
        EXPECT_TRUE(history.add(L"one"));
        ASSERT_TRUE(QDir().mkpath(folder));
    }
    EXPECT_EQ(LineHistory(folder + QStringLiteral("/history")).lines(), Lines{L"one"});
}

} // namespace
