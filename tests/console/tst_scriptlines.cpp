#include "refhost/console/consolesignals.h"
#include "refhost/console/scriptlines.h"
#include "tests/support/pipe.h"
#include "tests/support/textoutput.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <cstdlib>
#include <ostream>
#include <string>
#include <thread>
#include <vector>

using namespace std::string_literals;

namespace {

using quelhost::Completion;
using quelhost::FaultKind;
using quelhost::Line;
using quelhost::LineReader;
using quelhost::LineRequest;
using quelhost::ScriptLines;

const LineRequest kAsk{L"ask> ", Completion::Nothing, {}};
const LineRequest kCommand{L"Command: ", Completion::Commands, {}, true};

std::wstring shown(const Line& line)
{
    switch (line.kind) {
    case Line::Kind::Text:
        return L"text:" + line.text;
    case Line::Kind::Cancel:
        return L"cancel:" + line.text;
    case Line::Kind::End:
        break;
    }
    return L"end:" + line.text;
}

// All lines of `script` up to and with the first End.
std::vector<std::wstring> linesOf(const std::string& script, const LineRequest& request = kAsk)
{
    const Pipe pipe(script);
    TextOutput output;
    ScriptLines lines(pipe.output(), true, output);
    std::vector<std::wstring> result;
    Line line;
    do {
        line = lines.readLine(request);
        result.push_back(shown(line));
    } while (line.kind != Line::Kind::End);
    return result;
}

struct Script
{
    const char* name;
    std::string bytes;
    std::vector<std::wstring> lines;
};

void PrintTo(const Script& script, std::ostream* stream)
{
    *stream << script.name;
}

class ScriptOf : public testing::TestWithParam<Script>
{};

TEST_P(ScriptOf, GivesTheLines)
{
    EXPECT_EQ(linesOf(GetParam().bytes), GetParam().lines);
}

INSTANTIATE_TEST_SUITE_P(
    Each, ScriptOf,
    testing::Values(
        Script{"Nothing", "", {L"end:"}}, Script{"OneLine", "HELP\n", {L"text:HELP", L"end:"}},
        Script{"NoNewlineAtTheEnd", "HELP\nQUIT", {L"text:HELP", L"text:QUIT", L"end:"}},
        Script{"CrLf", "HELP\r\nQUIT\r\n", {L"text:HELP", L"text:QUIT", L"end:"}},
        Script{"CrAtTheVeryEnd", "HELP\r", {L"text:HELP", L"end:"}},
        Script{"CrInsideALine", "a\rb\r\r\n", {L"text:a\rb\r", L"end:"}},
        Script{"BlankLines", "\n\r\n  \n", {L"text:", L"text:", L"text:  ", L"end:"}},
        Script{"Utf8", "größe 中 😀\n", {L"text:größe 中 😀", L"end:"}},
        Script{"ByteOrderMark", "\xEF\xBB\xBFHELP\n", {L"text:HELP", L"end:"}},
        Script{"ByteOrderMarkOnly", "\xEF\xBB\xBF", {L"text:", L"end:"}},
        Script{
            "SecondByteOrderMark", "\xEF\xBB\xBF\xEF\xBB\xBFHELP\n", {L"text:\uFEFFHELP", L"end:"}},
        Script{"ByteOrderMarkFurtherDown",
               "a\n\xEF\xBB\xBF"
               "b\n",
               {L"text:a", L"text:\uFEFFb", L"end:"}},
        Script{"HalfAByteOrderMark", "\xEF\xBBx\n", {L"text:\uFFFD\uFFFDx", L"end:"}},
        Script{"Nul", "a\0b\n\0\n"s, {L"text:a\uFFFDb", L"text:\uFFFD", L"end:"}},
        Script{"NotUtf8",
               "a\xFF"
               "b\xC0\xAF\n",
               {L"text:a\uFFFDb\uFFFD\uFFFD", L"end:"}},
        Script{"Cancel", "^C\nHELP\n", {L"cancel:", L"text:HELP", L"end:"}},
        Script{"CancelWithBlanks", " \t^C  \r\n", {L"cancel:", L"end:"}},
        Script{"CancelAtTheEnd", "^C", {L"cancel:", L"end:"}},
        Script{
            "NotQuiteACancel", "^c\n^C^C\nx^C\n", {L"text:^c", L"text:^C^C", L"text:x^C", L"end:"}},
        Script{"LongLine",
               std::string(5000, 'x') + "\nafter\n",
               {L"text:" + std::wstring(5000, L'x'), L"text:after", L"end:"}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ScriptLines, PassOverRemarksWhereTheyAreAllowed)
{
    const std::string script = "; first\n\n  ; second\n \t\nHELP ; this\n;\n";
    EXPECT_EQ(linesOf(script, kCommand), (std::vector<std::wstring>{L"text:HELP ; this", L"end:"}));
    EXPECT_EQ(linesOf("; answer\n\n"),
              (std::vector<std::wstring>{L"text:; answer", L"text:", L"end:"}));
}

TEST(ScriptLines, PassOverNothingThatAPersonTypes)
{
    const Pipe pipe("; a\n\n");
    TextOutput output;
    ScriptLines lines(pipe.output(), false, output);
    EXPECT_EQ(shown(lines.readLine(kCommand)), L"text:; a");
    EXPECT_EQ(shown(lines.readLine(kCommand)), L"text:");
}

TEST(ScriptLines, SayWhetherTheyAreAScript)
{
    const Pipe pipe("");
    TextOutput output;
    EXPECT_TRUE(ScriptLines(pipe.output(), true, output).isScript());
    EXPECT_FALSE(ScriptLines(pipe.output(), false, output).isScript());
}

TEST(ScriptLines, LeaveWhatStandsBehindTheLineUnread)
{
    const Pipe pipe("first\r\nsecond\nthird");
    TextOutput output;
    {
        ScriptLines lines(pipe.output(), true, output);
        EXPECT_EQ(shown(lines.readLine(kAsk)), L"text:first");
    }
    EXPECT_EQ(pipe.rest(), "second\nthird");
}

TEST(ScriptLines, LeaveTheRestOfAFileUnread)
{
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("script")));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_EQ(file.write("first\nsecond\n"), 13);
    ASSERT_TRUE(file.flush());
    ASSERT_EQ(::lseek(file.handle(), 0, SEEK_SET), 0);
    TextOutput output;
    ScriptLines lines(file.handle(), true, output);
    EXPECT_EQ(shown(lines.readLine(kAsk)), L"text:first");
    EXPECT_EQ(::lseek(file.handle(), 0, SEEK_CUR), 6);
}

TEST(ScriptLines, ReadLikeTheSession)
{
    const Pipe pipe("; remark\nMENULOAD\nplant größe.cuix\n^C\nQUIT");
    TextOutput output;
    ScriptLines lines(pipe.output(), true, output);
    EXPECT_EQ(shown(lines.readLine(kCommand)), L"text:MENULOAD");
    EXPECT_EQ(shown(lines.readLine(kAsk)), L"text:plant größe.cuix");
    output.write(L"Loading ...");
    EXPECT_EQ(shown(lines.readLine(kAsk)), L"cancel:");
    EXPECT_EQ(shown(lines.readLine(kCommand)), L"text:QUIT");
    EXPECT_EQ(shown(lines.readLine(kCommand)), L"end:");
    output.writeRow(L"bye");
    EXPECT_EQ(output.text(), "Command: MENULOAD\nask> plant größe.cuix\nLoading ...\nask> ^C\n"
                             "Command: QUIT\nCommand: \nbye\n");
}

TEST(ScriptLines, EndForEverWithoutAskingAgain)
{
    const Pipe pipe("");
    TextOutput output;
    ScriptLines lines(pipe.output(), true, output);
    EXPECT_EQ(shown(lines.readLine(kAsk)), L"end:");
    EXPECT_EQ(shown(lines.readLine(kAsk)), L"end:");
    EXPECT_EQ(output.text(), "ask> \n");
}

TEST(ScriptLines, EndWhenTheyCannotBeRead)
{
    TextOutput output;
    ScriptLines closed(-1, true, output);
    EXPECT_EQ(shown(closed.readLine(kAsk)), L"end:");

    const Pipe pipe;
    ScriptLines writeOnly(pipe.input(), true, output);
    EXPECT_EQ(shown(writeOnly.readLine(kAsk)), L"end:");
    EXPECT_EQ(shown(writeOnly.readLine(kAsk)), L"end:");
}

TEST(ScriptLines, KeepTheStartOfAnAbsurdlyLongLine)
{
    Pipe pipe;
    const std::size_t length = 4 * LineReader::kLongestLine;
    std::thread writer([&pipe, length] {
        pipe.write("start" + std::string(length, 'x') + "\r\nnext\n");
        pipe.closeInput();
    });
    TextOutput output;
    ScriptLines lines(pipe.output(), true, output);
    const Line line = lines.readLine(kAsk);
    EXPECT_EQ(line.kind, Line::Kind::Text);
    EXPECT_EQ(line.text, L"start" + std::wstring(LineReader::kLongestLine - 5, L'x'));
    EXPECT_EQ(shown(lines.readLine(kAsk)), L"text:next");
    EXPECT_EQ(shown(lines.readLine(kAsk)), L"end:");
    writer.join();
}

TEST(ScriptLines, ShowThePromptBeforeTheyWait)
{
    const Pipe script;
    const Pipe screen;
    std::thread slowWriter([&script, &screen] {
        EXPECT_EQ(screen.readUntil("ask> "), "ask> ");
        for (const char* piece : {"HE", "L", "\xC3", "\xBC", "P\r", "\n"}) {
            script.write(piece);
            script.waitUntilRead();
        }
    });
    quelhost::DescriptorOutput output(screen.input());
    ScriptLines lines(script.output(), true, output);
    EXPECT_EQ(shown(lines.readLine(kAsk)), L"text:HELüP");
    slowWriter.join();
}

TEST(ScriptLines, TakeAnInputThatDoesNotBlock)
{
    const Pipe script;
    const Pipe screen;
    ASSERT_EQ(::fcntl(script.output(), F_SETFL, O_NONBLOCK), 0);
    std::thread slowWriter([&script, &screen] {
        EXPECT_EQ(screen.readUntil("ask> "), "ask> ");
        script.write("HELP\n");
    });
    quelhost::DescriptorOutput output(screen.input());
    ScriptLines lines(script.output(), true, output);
    EXPECT_EQ(shown(lines.readLine(kAsk)), L"text:HELP");
    slowWriter.join();
}

TEST(ScriptLines, AreCancelledByAnInterrupt)
{
    const Pipe script;
    const Pipe screen;
    const auto handler = quelhost::installInterruptHandler();
    std::thread user([&script, &screen] {
        EXPECT_EQ(screen.readUntil("ask> "), "ask> ");
        script.write("HE");
        script.waitUntilRead();
        ::kill(::getpid(), SIGINT);
        EXPECT_EQ(screen.readUntil("ask> "), "\nask> ");
        script.write("LP\n");
    });
    quelhost::DescriptorOutput output(screen.input());
    ScriptLines lines(script.output(), true, output);
    EXPECT_EQ(shown(lines.readLine(kAsk)), L"cancel:");
    EXPECT_EQ(shown(lines.readLine(kAsk)), L"text:HELP");
    user.join();
}

TEST(ScriptLines, AreCancelledByAnInterruptBetweenTwoLines)
{
    const Pipe pipe("HELP\n");
    const auto handler = quelhost::installInterruptHandler();
    TextOutput output;
    ScriptLines lines(pipe.output(), true, output);
    ::raise(SIGINT);
    EXPECT_EQ(shown(lines.readLine(kAsk)), L"cancel:");
    EXPECT_EQ(shown(lines.readLine(kAsk)), L"text:HELP");
    EXPECT_EQ(output.text(), "ask> \nask> HELP\n");
}

void otherHandler(int) {}

TEST(ScriptLines, GiveTheInterruptBack)
{
    struct sigaction before = {};
    struct sigaction during = {};
    struct sigaction after = {};
    ASSERT_EQ(::sigaction(SIGINT, nullptr, &before), 0);
    {
        const auto handler = quelhost::installInterruptHandler();
        ASSERT_EQ(::sigaction(SIGINT, nullptr, &during), 0);
    }
    ASSERT_EQ(::sigaction(SIGINT, nullptr, &after), 0);
    EXPECT_NE(during.sa_handler, before.sa_handler);
    EXPECT_EQ(after.sa_handler, before.sa_handler);
}

TEST(ScriptLines, LeaveAnotherHandlerAlone)
{
    const auto before = std::signal(SIGINT, otherHandler);
    struct sigaction during = {};
    {
        const auto handler = quelhost::installInterruptHandler();
        ASSERT_EQ(::sigaction(SIGINT, nullptr, &during), 0);
    }
    EXPECT_EQ(during.sa_handler, otherHandler);
    EXPECT_EQ(std::signal(SIGINT, before), otherHandler);
}

class OpenedScript : public testing::Test
{
protected:
    [[nodiscard]] QString path(const char* name) const
    {
        return m_folder.filePath(QString::fromUtf8(name));
    }
    QTemporaryDir m_folder;
    TextOutput m_output;
};

TEST_F(OpenedScript, IsRead)
{
    QFile file(path("größe.scr"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write("HELP\n"), 5);
    file.close();
    auto script = quelhost::openScript(file.fileName(), m_output, true);
    ASSERT_TRUE(script);
    EXPECT_TRUE(script.value()->isScript());
    EXPECT_EQ(shown(script.value()->readLine(kAsk)), L"text:HELP");
    EXPECT_EQ(shown(script.value()->readLine(kAsk)), L"end:");
}

TEST_F(OpenedScript, MayBeTypedByAPerson)
{
    const auto script = quelhost::openScript(QStringLiteral("-"), m_output, false);
    ASSERT_TRUE(script);
    EXPECT_FALSE(script.value()->isScript());
}

TEST_F(OpenedScript, IsMissing)
{
    const auto script = quelhost::openScript(path("no such %1 file"), m_output, true);
    ASSERT_FALSE(script);
    EXPECT_EQ(script.fault().kind, FaultKind::NotFound);
    EXPECT_EQ(script.fault().sentence,
              QStringLiteral("The script %1/no such %1 file does not exist.")
                  .replace(QStringLiteral("%1/"), m_folder.path() + QLatin1Char('/')));
}

TEST_F(OpenedScript, IsMissingWhereItsFolderIsAFile)
{
    QFile file(path("file"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const auto script = quelhost::openScript(path("file/script"), m_output, true);
    ASSERT_FALSE(script);
    EXPECT_EQ(script.fault().kind, FaultKind::NotFound);
}

TEST_F(OpenedScript, IsAFolder)
{
    const auto script = quelhost::openScript(m_folder.path(), m_output, true);
    ASSERT_FALSE(script);
    EXPECT_EQ(script.fault().kind, FaultKind::BadInput);
    EXPECT_EQ(script.fault().sentence,
              m_folder.path() + QStringLiteral(" is a folder, not a script."));
}

// As an ordinary user while it lives, where the tests run as the superuser.
class OrdinaryUser
{
public:
    OrdinaryUser()
    {
        if (::geteuid() == 0)
            m_changed = ::seteuid(65534) == 0;
    }
    ~OrdinaryUser()
    {
        if (m_changed && ::seteuid(0) != 0)
            std::abort();
    }

private:
    bool m_changed = false;
};

TEST_F(OpenedScript, MayNotBeRead)
{
    ASSERT_TRUE(QFile::setPermissions(m_folder.path(), QFile::Permissions(0x7777)));
    QFile file(path("secret.scr"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(file.setPermissions(QFile::Permissions()));
    const OrdinaryUser user;
    const auto script = quelhost::openScript(path("secret.scr"), m_output, true);
    ASSERT_FALSE(script);
    EXPECT_EQ(script.fault().kind, FaultKind::NotPermitted);
    EXPECT_EQ(
        script.fault().sentence,
        QStringLiteral("The script %1 cannot be read: Permission denied.").arg(path("secret.scr")));
}

TEST_F(OpenedScript, CannotBeReached)
{
    ASSERT_TRUE(QFile::link(path("loop"), path("loop")));
    const auto script = quelhost::openScript(path("loop"), m_output, true);
    ASSERT_FALSE(script);
    EXPECT_EQ(script.fault().kind, FaultKind::Io);
    EXPECT_TRUE(script.fault().sentence.contains(path("loop")));
}

} // namespace
