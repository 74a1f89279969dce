#include "tests/support/pseudoterminal.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <optional>
#include <string>
#include <sys/wait.h>

namespace {

using Environment = QMap<QString, QString>;

const QByteArray kUp = "\x1B[A";
const QByteArray kDown = "\x1B[B";
const QByteArray kRight = "\x1B[C";
const QByteArray kLeft = "\x1B[D";
const QByteArray kHome = "\x1B[H";
const QByteArray kEnd = "\x1B[F";
const QByteArray kDelete = "\x1B[3~";
const QByteArray kCtrlC = "\x03";
const QByteArray kCtrlD = "\x04";
const QByteArray kEscape = "\x1B";
const QByteArray kBeep = "\x07";

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

// The usual terminal, without colour, so that a prompt is found as it stands.
Environment usual()
{
    return {{text("TERM"), text("xterm-256color")},
            {text("LC_ALL"), text("C.UTF-8")},
            {text("NO_COLOR"), text("1")}};
}

Environment with(const char* name, const char* value)
{
    Environment environment = usual();
    environment[text(name)] = text(value);
    return environment;
}

QStringList probe(const QStringList& options = {})
{
    return QStringList{text(QUEL_TERMINAL_PROBE), text("--texts"), text(QUEL_HOST_TEXTS)} + options;
}

QStringList commandProbe(const QString& history)
{
    return probe({text("--completion"), text("commands"), text("--history"), history});
}

QStringList completingProbe(const char* kind, const char* words = "")
{
    return probe({text("--completion"), text(kind), text("--words"), text(words)});
}

bool hasEndedWith(const std::optional<int>& status, int exitStatus)
{
    return status && WIFEXITED(*status) && WEXITSTATUS(*status) == exitStatus;
}

bool wasEndedBy(const std::optional<int>& status, int signal)
{
    return status && WIFSIGNALED(*status) && WTERMSIG(*status) == signal;
}

bool writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(cannot be read)");
}

// The name of a row of a table.
const auto rowName = [](const auto& row) { return std::string(row.param.name); };

// A probe on a terminal in a folder of its own.
class TerminalLines : public testing::Test
{
protected:
    [[nodiscard]] testing::AssertionResult start(const QStringList& program = probe(),
                                                 const Environment& environment = usual())
    {
        const testing::AssertionResult started = m_terminal.spawn(program, environment);
        return started ? m_terminal.expect("probe> ") : started;
    }
    // Types Enter, so that the line that has been typed comes back.
    [[nodiscard]] testing::AssertionResult enterGives(const QByteArray& line)
    {
        m_terminal.write("\r");
        return m_terminal.expect("TEXT[" + line + "]");
    }
    [[nodiscard]] testing::AssertionResult ends()
    {
        m_terminal.write(kCtrlD);
        const testing::AssertionResult ended = m_terminal.expect("SIGNALS[restored]");
        if (!ended)
            return ended;
        if (!hasEndedWith(m_terminal.waitExit(), 0))
            return testing::AssertionFailure() << "the program did not end well";
        return testing::AssertionSuccess();
    }
    [[nodiscard]] QString path(const char* name) const { return m_folder.filePath(text(name)); }

    QTemporaryDir m_folder;
    PseudoTerminal m_terminal;
};

struct Typing
{
    const char* name;
    QByteArray typed;
    QByteArray line;
};

void PrintTo(const Typing& typing, std::ostream* stream)
{
    *stream << typing.name;
}

class TypedOnATerminal : public TerminalLines, public testing::WithParamInterface<Typing>
{};

TEST_P(TypedOnATerminal, GivesTheLine)
{
    ASSERT_TRUE(start());
    m_terminal.write(GetParam().typed);
    EXPECT_TRUE(enterGives(GetParam().line));
    EXPECT_TRUE(ends());
}

INSTANTIATE_TEST_SUITE_P(
    Editing, TypedOnATerminal,
    testing::Values(
        Typing{"Letters", "hello", "hello"}, Typing{"Nothing", "", ""},
        Typing{"Blanks", "  a  ", "  a  "}, Typing{"ArrowLeft", "ab" + kLeft + "X", "aXb"},
        Typing{"ArrowLeftOfAnotherTerminal", "ab\x1BODX", "aXb"},
        Typing{"ArrowRight", "ab" + kLeft + kLeft + kRight + "X", "aXb"},
        Typing{"Home", "ab" + kHome + "X", "Xab"}, Typing{"HomeOfAConsole", "ab\x1B[1~X", "Xab"},
        Typing{"End", "ab" + kHome + kEnd + "X", "abX"},
        Typing{"EndOfAConsole", "ab" + kHome + "\x1B[4~X", "abX"},
        Typing{"Backspace", "abc\x7F", "ab"}, Typing{"CtrlH", "abc\x08", "ab"},
        Typing{"Delete", "abc" + kHome + kDelete, "bc"},
        Typing{"CtrlDInALine", "abc" + kHome + kCtrlD, "bc"},
        Typing{"CtrlDAtTheEndOfALine", "abc" + kCtrlD, "abc"},
        Typing{"CtrlAAndCtrlE",
               "b\x01"
               "a\x05"
               "c",
               "abc"},
        Typing{"CtrlK", "abc" + kHome + kRight + "\x0B", "a"},
        Typing{"CtrlU",
               "abc\x15"
               "d",
               "d"},
        Typing{"CtrlW", "one two\x17", "one "}, Typing{"CtrlY", "abc\x15\x19\x19", "abcabc"},
        Typing{"CtrlT", "ab\x14", "ba"}, Typing{"WordLeft", "one two\x1B[1;5DX", "one Xtwo"},
        Typing{"AltB",
               "one two\x1B"
               "bX",
               "one Xtwo"},
        Typing{"WordRight", "one two" + kHome + "\x1B[1;5CX", "oneX two"},
        Typing{"AltBackspace", "one two\x1B\x7F", "one "},
        Typing{"AltD",
               "one two" + kHome +
                   "\x1B"
                   "d",
               " two"},
        Typing{"AltU", "one" + kHome + "\x1Bu", "ONE"}),
    rowName);

INSTANTIATE_TEST_SUITE_P(
    KeysWithoutMeaning, TypedOnATerminal,
    testing::Values(Typing{"F1", "a\x1BOPb", "ab"}, Typing{"F1OfALinuxConsole", "a\x1B[[Ab", "ab"},
                    Typing{"F12", "a\x1B[24~b", "ab"}, Typing{"ShiftTab", "a\x1B[Zb", "ab"},
                    Typing{"CtrlShiftUp", "a\x1B[1;6Ab", "ab"}, Typing{"AltX", "a\x1Bxb", "ab"},
                    Typing{"AltDigit",
                           "a\x1B"
                           "5b",
                           "ab"},
                    Typing{"MarksOfAPaste", "\x1B[200~a b\x1B[201~", "a b"},
                    Typing{"CtrlG",
                           "a\x07"
                           "b",
                           "ab"},
                    Typing{"CtrlAt", "a" + QByteArray(1, 0) + "b", "ab"},
                    Typing{"Tab", "a\tb", "ab"},
                    Typing{"ControlCharacterAboveAscii",
                           "a\xC2\x9B"
                           "b",
                           "ab"}),
    rowName);

INSTANTIATE_TEST_SUITE_P(
    Text, TypedOnATerminal,
    testing::Values(
        Typing{"EveryLatinLetter", "ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞßàáâãäåæçèéêëìíîïðñòóôõöøùúûüýþÿ",
               "ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞßàáâãäåæçèéêëìíîïðñòóôõöøùúûüýþÿ"},
        Typing{"Cyrillic", "меню", "меню"}, Typing{"Wide", "中文 한국어", "中文 한국어"},
        Typing{"OutsideOfTheBasicPlane", "😀𝄞", "😀𝄞"},
        Typing{"BackspaceOverAWideCharacter",
               "a中文\x7F"
               "b",
               "a中b"},
        Typing{"Combining", "Fu\xCC\x88ße", "Fu\xCC\x88ße"},
        Typing{"TwoMarksOnALetter", "o\xCC\x82\xCC\xA3", "o\xCC\x82\xCC\xA3"},
        Typing{"MarkOnAWideCharacter", "か\xE3\x82\x99", "か\xE3\x82\x99"},
        Typing{"MarkWithoutALetter", "\xCC\x88", "\xCC\x88"},
        Typing{"MarkInTheMiddle", "ux" + kLeft + "\xCC\x88", "u\xCC\x88x"},
        Typing{"BackspaceTakesALetterWithItsMarks",
               "au\xCC\x88\x7F"
               "b",
               "ab"},
        Typing{"ArrowsPassALetterWithItsMarks", "au\xCC\x88" + kLeft + "b", "abu\xCC\x88"},
        Typing{"CharactersThatStandForOthers", "\xF0\xAF\xA0\x80\xF4\x80\x80\x80x",
               "\xF0\xAF\xA0\x80\xF4\x80\x80\x80x"},
        Typing{"Thai", "ที่นี่", "ที่นี่"},
        Typing{"NotUtf8",
               "a\xFF"
               "b\xC3(",
               "a\xEF\xBF\xBD"
               "b\xEF\xBF\xBD("},
        Typing{"Unassigned", "\xF0\x9F\xAB\xA8", "\xF0\x9F\xAB\xA8"},
        Typing{"QuotedControlCharacter",
               "a\x16\x01"
               "b",
               "a\x01"
               "b"}),
    rowName);

TEST_F(TerminalLines, ShowCombiningCharacters)
{
    ASSERT_TRUE(start(probe({text("--prompt"), text("Größe: probe> ")})));
    m_terminal.write("Fu\xCC\x88ße");
    EXPECT_TRUE(m_terminal.expect("u\xCC\x88"));
    EXPECT_TRUE(enterGives("Fu\xCC\x88ße"));
}

TEST_F(TerminalLines, AreUtf8WhateverTheLocale)
{
    ASSERT_TRUE(start(probe({text("--prompt"), text("Größe (文): probe> ")}), with("LC_ALL", "C")));
    EXPECT_TRUE(m_terminal.transcript().contains("Größe (文): probe> "));
    m_terminal.write("é中😀");
    EXPECT_TRUE(m_terminal.expect("é中😀"));
    m_terminal.write("\x7Fu\xCC\x88");
    EXPECT_TRUE(enterGives("é中u\xCC\x88"));
    EXPECT_TRUE(ends());
}

TEST_F(TerminalLines, BeginOnARowOfTheirOwn)
{
    ASSERT_TRUE(start());
    m_terminal.write("one");
    EXPECT_TRUE(enterGives("one"));
    EXPECT_TRUE(m_terminal.expect("\r\nprobe> "));
    EXPECT_TRUE(m_terminal.transcript().contains("one\r\nTEXT[one]\r\nprobe> "));
}

TEST_F(TerminalLines, EscAloneCancels)
{
    ASSERT_TRUE(start());
    m_terminal.write("abc" + kEscape);
    EXPECT_TRUE(m_terminal.expect("abc\r\nCANCEL[]\r\nprobe> "));
    m_terminal.write("next");
    EXPECT_TRUE(enterGives("next"));
    EXPECT_TRUE(ends());
}

TEST_F(TerminalLines, EscBeforeEnterCancelsAndEnterBelongsToTheNextLine)
{
    ASSERT_TRUE(start());
    m_terminal.write("abc" + kEscape + "\r");
    EXPECT_TRUE(m_terminal.expect("CANCEL[]"));
    EXPECT_TRUE(m_terminal.expect("TEXT[]"));
}

TEST_F(TerminalLines, CancelLeavesTheRowsOfALongLine)
{
    ASSERT_TRUE(start());
    m_terminal.write(QByteArray(200, 'x') + kHome + kCtrlC);
    // From the first of three rows down to the one behind the last.
    EXPECT_TRUE(m_terminal.expect("\n\r\n\r\nCANCEL[]"));
}

TEST_F(TerminalLines, CtrlCCancels)
{
    ASSERT_TRUE(start());
    m_terminal.write("abc" + kCtrlC);
    EXPECT_TRUE(m_terminal.expect("abc\r\nCANCEL[]\r\nprobe> "));
    m_terminal.write(kCtrlC);
    EXPECT_TRUE(m_terminal.expect("CANCEL[]\r\nprobe> "));
    EXPECT_TRUE(ends());
}

TEST_F(TerminalLines, AnInterruptFromOutsideCancels)
{
    ASSERT_TRUE(start());
    m_terminal.write("abc");
    ASSERT_TRUE(m_terminal.expect("abc"));
    m_terminal.signal(SIGINT);
    EXPECT_TRUE(m_terminal.expect("CANCEL[]\r\nprobe> "));
    EXPECT_TRUE(ends());
}

TEST_F(TerminalLines, CancelInTheMiddleOfASearchOrAQuotedKey)
{
    ASSERT_TRUE(start(commandProbe(QString())));
    m_terminal.write("\x12"
                     "ab" +
                     kCtrlC);
    EXPECT_TRUE(m_terminal.expect("CANCEL[]\r\nprobe> "));
    m_terminal.write("a\x16" + kCtrlC);
    EXPECT_TRUE(m_terminal.expect("CANCEL[]\r\nprobe> "));
    EXPECT_TRUE(ends());
}

TEST_F(TerminalLines, CtrlDOnAnEmptyLineEndsForEver)
{
    ASSERT_TRUE(start());
    m_terminal.write(kCtrlD);
    EXPECT_TRUE(m_terminal.expect("\r\nEND[]\r\nAGAIN END[]\r\n"));
    EXPECT_TRUE(hasEndedWith(m_terminal.waitExit(), 0));
}

TEST_F(TerminalLines, EndWhenTheTerminalIsGone)
{
    ASSERT_TRUE(start(probe({text("--ignore-hangup")})));
    m_terminal.write("abc");
    ASSERT_TRUE(m_terminal.expect("abc"));
    m_terminal.close();
    EXPECT_TRUE(hasEndedWith(m_terminal.waitExit(), 0));
}

TEST_F(TerminalLines, AHangUpEndsTheProcessAsItDoesAnyOther)
{
    ASSERT_TRUE(start());
    m_terminal.close();
    EXPECT_TRUE(wasEndedBy(m_terminal.waitExit(), SIGHUP));
}

std::string signalName(const testing::TestParamInfo<int>& row)
{
    return ::sigabbrev_np(row.param);
}

class EndingSignal : public TerminalLines, public testing::WithParamInterface<int>
{};

TEST_P(EndingSignal, RestoresTheModes)
{
    ASSERT_TRUE(start());
    EXPECT_EQ(m_terminal.modes().c_lflag & ICANON, 0U);
    EXPECT_EQ(m_terminal.modes().c_lflag & ECHO, 0U);
    m_terminal.signal(GetParam());
    EXPECT_TRUE(wasEndedBy(m_terminal.waitExit(), GetParam()));
    EXPECT_TRUE(m_terminal.modes() == m_terminal.initialModes());
}

INSTANTIATE_TEST_SUITE_P(Each, EndingSignal, testing::Values(SIGTERM, SIGHUP, SIGQUIT, SIGABRT),
                         signalName);

TEST_F(TerminalLines, CtrlBackslashQuits)
{
    ASSERT_TRUE(start());
    m_terminal.write("\x1C");
    EXPECT_TRUE(wasEndedBy(m_terminal.waitExit(), SIGQUIT));
    EXPECT_TRUE(m_terminal.modes() == m_terminal.initialModes());
}

TEST_F(TerminalLines, RestoreModesAndSignalsAtTheEnd)
{
    ASSERT_TRUE(start());
    EXPECT_FALSE(m_terminal.modes() == m_terminal.initialModes());
    EXPECT_TRUE(ends());
    EXPECT_TRUE(m_terminal.modes() == m_terminal.initialModes());
}

TEST_F(TerminalLines, GoOnAfterAStop)
{
    const QString program = probe().join(QLatin1Char(' '));
    Environment environment = usual();
    environment[text("PS1")] = text("shell$ ");
    ASSERT_TRUE(m_terminal.spawn({text("/bin/sh"), text("-i")}, environment));
    ASSERT_TRUE(m_terminal.expect("shell$ "));
    m_terminal.write(program.toUtf8() + "\n");
    ASSERT_TRUE(m_terminal.expect("\nprobe> "));
    m_terminal.write("abc\x1A");
    ASSERT_TRUE(m_terminal.expect("Stopped"));
    ASSERT_TRUE(m_terminal.expect("shell$ "));
    EXPECT_NE(m_terminal.modes().c_lflag & ICANON, 0U);
    m_terminal.write("fg\n");
    ASSERT_TRUE(m_terminal.expect("probe> abc"));
    m_terminal.write("d");
    EXPECT_TRUE(enterGives("abcd"));
    m_terminal.write(kCtrlD);
    EXPECT_TRUE(m_terminal.expect("SIGNALS[restored]"));
    EXPECT_TRUE(m_terminal.expect("shell$ "));
}

TEST_F(TerminalLines, ComeBackInALaterRun)
{
    const QString history = path("history");
    ASSERT_TRUE(start(commandProbe(history)));
    m_terminal.write("first größe");
    EXPECT_TRUE(enterGives("first größe"));
    m_terminal.write("second u\xCC\x88");
    EXPECT_TRUE(enterGives("second u\xCC\x88"));
    m_terminal.write("dropped" + kCtrlC);
    EXPECT_TRUE(m_terminal.expect("CANCEL[]"));
    EXPECT_TRUE(ends());
    EXPECT_EQ(contentOf(history), "first größe\nsecond u\xCC\x88\n");

    PseudoTerminal later;
    ASSERT_TRUE(later.spawn(commandProbe(history), usual()));
    ASSERT_TRUE(later.expect("probe> "));
    later.write("typed" + kUp + "\r");
    EXPECT_TRUE(later.expect("TEXT[second u\xCC\x88]"));
    later.write(kUp + kUp + "!\r");
    EXPECT_TRUE(later.expect("TEXT[first größe!]"));
    later.write("ty" + kUp + kUp + kDown + kDown + "ped\r");
    EXPECT_TRUE(later.expect("TEXT[typed]"));
    later.write(kUp + kUp + kUp + kUp + kUp);
    EXPECT_TRUE(later.expect(kBeep));
    later.write("\r");
    EXPECT_TRUE(later.expect("TEXT[first größe]"));
}

TEST_F(TerminalLines, AreKeptAtOnceSoThatNothingIsLostInACrash)
{
    ASSERT_TRUE(start(commandProbe(path("history"))));
    m_terminal.write("kept");
    EXPECT_TRUE(enterGives("kept"));
    m_terminal.signal(SIGKILL);
    EXPECT_TRUE(wasEndedBy(m_terminal.waitExit(), SIGKILL));
    EXPECT_EQ(contentOf(path("history")), "kept\n");
}

TEST_F(TerminalLines, AreKeptAtTheCommandPromptOnly)
{
    ASSERT_TRUE(
        start(probe({text("--completion"), text("paths"), text("--history"), path("history")})));
    m_terminal.write("secret");
    EXPECT_TRUE(enterGives("secret"));
    m_terminal.write(kUp + "x");
    EXPECT_TRUE(enterGives("x"));
    EXPECT_TRUE(ends());
    EXPECT_FALSE(QFile::exists(path("history")));
}

TEST_F(TerminalLines, AreFoundBySearching)
{
    ASSERT_TRUE(start(commandProbe(QString())));
    for (const char* line : {"menuload one", "menuunload two", "echo three"}) {
        m_terminal.write(line);
        ASSERT_TRUE(enterGives(line));
    }
    m_terminal.write("\x12unl\r");
    EXPECT_TRUE(m_terminal.expect("TEXT[menuunload two]"));
    m_terminal.write("menul\x1B[5~\r");
    EXPECT_TRUE(m_terminal.expect("TEXT[menuload one]"));
    EXPECT_TRUE(ends());
}

TEST_F(TerminalLines, TellOnceThatTheHistoryIsAFolder)
{
    ASSERT_TRUE(QDir().mkpath(path("history")));
    ASSERT_TRUE(start(commandProbe(path("history"))));
    EXPECT_TRUE(m_terminal.transcript().contains("PROBLEM[The lines you type are not kept: "));
    EXPECT_TRUE(m_terminal.transcript().contains(path("history").toUtf8() + " is not a file.]"));
    m_terminal.write("one");
    EXPECT_TRUE(enterGives("one"));
    m_terminal.write(kUp);
    EXPECT_TRUE(enterGives("one"));
    EXPECT_TRUE(ends());
    EXPECT_EQ(m_terminal.transcript().count("PROBLEM["), 1);
}

TEST_F(TerminalLines, LeaveAnUnreadableHistoryAsItIs)
{
    ASSERT_TRUE(writeFile(path("history"), "old\n"));
    ASSERT_TRUE(QFile::setPermissions(path("history"), QFile::Permissions()));
    // Whoever gives up the superuser's rights must still be able to replace the file.
    ASSERT_TRUE(QFile::setPermissions(m_folder.path(), QFile::Permissions(0x7777)));
    ASSERT_TRUE(start(commandProbe(path("history")) << text("--without-privileges")));
    EXPECT_TRUE(m_terminal.transcript().contains("history cannot be read: "));
    m_terminal.write("new");
    EXPECT_TRUE(enterGives("new"));
    EXPECT_TRUE(ends());
    EXPECT_EQ(m_terminal.transcript().count("PROBLEM["), 1);
    ASSERT_TRUE(QFile::setPermissions(path("history"), QFile::ReadOwner | QFile::WriteOwner));
    EXPECT_EQ(contentOf(path("history")), "old\n");
}

TEST_F(TerminalLines, TellOnceThatTheHistoryCannotBeWritten)
{
    ASSERT_TRUE(start(commandProbe(path("no such folder/history"))));
    EXPECT_FALSE(m_terminal.transcript().contains("PROBLEM["));
    for (const char* line : {"one", "two"}) {
        m_terminal.write(line);
        ASSERT_TRUE(enterGives(line));
    }
    EXPECT_TRUE(ends());
    EXPECT_EQ(m_terminal.transcript().count("history cannot be written: "), 1);
    EXPECT_EQ(m_terminal.transcript().count("PROBLEM["), 1);
}

TEST_F(TerminalLines, TabCompletesTheOnlyCommand)
{
    ASSERT_TRUE(start(completingProbe("commands", "MENULOAD,MENUUNLOAD,ECHO")));
    m_terminal.write("ec\t");
    EXPECT_TRUE(m_terminal.expect("ECHO "));
    m_terminal.write("hi");
    EXPECT_TRUE(enterGives("ECHO hi"));
}

TEST_F(TerminalLines, TabCompletesWhatSeveralHaveInCommonAndThenListsThem)
{
    ASSERT_TRUE(start(completingProbe("keywords", "Toolbar,Tools,Accelerator")));
    m_terminal.write("t\t");
    EXPECT_TRUE(m_terminal.expect("Tool"));
    m_terminal.write("\t");
    EXPECT_TRUE(m_terminal.expect("\r\nToolbar  Tools\r\nprobe> Tool"));
    m_terminal.write("b\t");
    EXPECT_TRUE(enterGives("Toolbar "));
}

TEST_F(TerminalLines, TabBeepsWhereNothingFits)
{
    ASSERT_TRUE(start(completingProbe("keywords", "Toolbar,Accelerator")));
    m_terminal.write("x\t");
    EXPECT_TRUE(m_terminal.expect(kBeep));
    m_terminal.write("\t");
    EXPECT_TRUE(m_terminal.expect(kBeep));
    EXPECT_TRUE(enterGives("x"));
}

TEST_F(TerminalLines, TabListsNothingAfterAnotherKey)
{
    ASSERT_TRUE(start(completingProbe("keywords", "Toolbar,Tools")));
    m_terminal.write("tool\t");
    EXPECT_TRUE(m_terminal.expect(kBeep));
    m_terminal.write("s\x7F\t\t");
    EXPECT_TRUE(m_terminal.expect("Toolbar  Tools"));
    EXPECT_TRUE(enterGives("tool"));
    EXPECT_EQ(m_terminal.transcript().count("Toolbar  Tools"), 1);
}

TEST_F(TerminalLines, TabCompletesBeforeTheCursor)
{
    ASSERT_TRUE(start(completingProbe("commands", "ECHO")));
    m_terminal.write("ec hi" + kLeft + kLeft + kLeft + "\t");
    EXPECT_TRUE(enterGives("ECHO hi"));
}

TEST_F(TerminalLines, TabListsBelowALineOfSeveralRows)
{
    ASSERT_TRUE(start(completingProbe("keywords", "Toolbar,Tools")));
    m_terminal.write("tool " + QByteArray(200, 'x') + kHome + "\x1B[1;5C");
    m_terminal.write("\t\t");
    EXPECT_TRUE(m_terminal.expect("\n\r\n\r\nToolbar  Tools\r\nprobe> tool xxx"));
    EXPECT_TRUE(enterGives("tool " + QByteArray(200, 'x')));
}

TEST_F(TerminalLines, TabListsNoMoreThanTwoHundred)
{
    QStringList words;
    for (int i = 0; i < 250; ++i)
        words << QStringLiteral("Word%1").arg(i, 3, 10, QLatin1Char('0'));
    ASSERT_TRUE(start(completingProbe("keywords", words.join(QLatin1Char(',')).toUtf8())));
    m_terminal.write("w\t\t");
    EXPECT_TRUE(m_terminal.expect("... and 50 more\r\nprobe> Word"));
    EXPECT_TRUE(m_terminal.transcript().contains("Word199"));
    EXPECT_FALSE(m_terminal.transcript().contains("Word200"));
}

class TabOnPaths : public TerminalLines
{
protected:
    void SetUp() override
    {
        for (const char* folder : {"drawings", "my plans", "ヘルプ"})
            ASSERT_TRUE(QDir().mkpath(path(folder)));
        for (const char* file : {"drawings/pump.cuix", "my plans/site.cuix", "größe.cuix",
                                 "ヘルプ/u\xCC\x88"
                                 "ber.cuix",
                                 ".hidden"})
            ASSERT_TRUE(writeFile(path(file), "x"));
    }
    [[nodiscard]] QByteArray bytes(const char* name) const { return path(name).toUtf8(); }
};

TEST_F(TabOnPaths, EndsAFolderWithASlash)
{
    ASSERT_TRUE(start(completingProbe("paths")));
    m_terminal.write(bytes("dra") + "\t");
    EXPECT_TRUE(m_terminal.expect("wings/"));
    m_terminal.write("\t");
    EXPECT_TRUE(enterGives(bytes("drawings/pump.cuix")));
}

TEST_F(TabOnPaths, QuotesWhatHasABlank)
{
    ASSERT_TRUE(start(completingProbe("paths")));
    m_terminal.write(bytes("my") + "\t\t");
    EXPECT_TRUE(enterGives("\"" + bytes("my plans/site.cuix") + "\""));
}

TEST_F(TabOnPaths, CompletesNamesOfAnyLetters)
{
    ASSERT_TRUE(start(completingProbe("paths")));
    m_terminal.write(bytes("gr") + "\t");
    EXPECT_TRUE(enterGives(bytes("größe.cuix")));
    m_terminal.write(bytes("ヘ") + "\t\t");
    EXPECT_TRUE(enterGives(bytes("ヘルプ/u\xCC\x88"
                                 "ber.cuix")));
}

TEST_F(TabOnPaths, CompletesAnAnswerTypedAheadOfItsPrompt)
{
    ASSERT_TRUE(start(completingProbe("commands", "MENULOAD")));
    m_terminal.write("menul\t" + bytes("gr") + "\t");
    EXPECT_TRUE(enterGives("MENULOAD " + bytes("größe.cuix")));
}

TEST_F(TabOnPaths, LeavesATildeAlone)
{
    ASSERT_TRUE(start(completingProbe("paths")));
    m_terminal.write("~\t");
    EXPECT_TRUE(m_terminal.expect(kBeep));
    EXPECT_TRUE(enterGives("~"));
}

TEST_F(TabOnPaths, BeepsWhereNothingFits)
{
    ASSERT_TRUE(start(completingProbe("paths")));
    m_terminal.write(bytes("nothing") + "\t");
    EXPECT_TRUE(m_terminal.expect(kBeep));
    EXPECT_TRUE(enterGives(bytes("nothing")));
}

struct SimpleTerminal
{
    const char* name;
    const char* term;
};

class WithoutEditing : public TerminalLines, public testing::WithParamInterface<SimpleTerminal>
{};

TEST_P(WithoutEditing, LinesAreReadAllTheSame)
{
    ASSERT_TRUE(start(commandProbe(path("history")), with("TERM", GetParam().term)));
    m_terminal.write("größe\n");
    EXPECT_TRUE(m_terminal.expect("größe\r\nTEXT[größe]\r\nprobe> "));
    m_terminal.write("abc" + kCtrlC);
    EXPECT_TRUE(m_terminal.expect("CANCEL[]\r\nprobe> "));
    m_terminal.write("abc" + kEscape + "\n");
    EXPECT_TRUE(m_terminal.expect("CANCEL[]\r\nprobe> "));
    EXPECT_TRUE(ends());
    EXPECT_TRUE(m_terminal.modes() == m_terminal.initialModes());
    EXPECT_EQ(contentOf(path("history")), "größe\n");
}

TEST_P(WithoutEditing, TheOutputIsPlain)
{
    Environment colourful = with("TERM", GetParam().term);
    colourful.remove(text("NO_COLOR"));
    ASSERT_TRUE(start(probe(), colourful));
    EXPECT_EQ(m_terminal.transcript(), "probe> ");
    EXPECT_TRUE(ends());
    EXPECT_FALSE(m_terminal.transcript().contains('\x1B'));
}

INSTANTIATE_TEST_SUITE_P(Each, WithoutEditing,
                         testing::Values(SimpleTerminal{"Dumb", "dumb"},
                                         SimpleTerminal{"Unknown", "no-such-terminal"},
                                         SimpleTerminal{"Unnamed", ""},
                                         SimpleTerminal{"Emacs", "emacs"}),
                         rowName);

TEST_F(TerminalLines, AreNotEditedWhenTheOutputGoesElsewhere)
{
    const QString command = probe().join(QLatin1Char(' ')) + text(" > ") + path("output");
    ASSERT_TRUE(m_terminal.spawn({text("/bin/sh"), text("-c"), command}, usual()));
    m_terminal.write("hello\n" + kCtrlD);
    EXPECT_TRUE(hasEndedWith(m_terminal.waitExit(), 0));
    EXPECT_EQ(contentOf(path("output")),
              "probe> hello\nTEXT[hello]\nprobe> \nEND[]\nAGAIN END[]\nSIGNALS[restored]\n");
}

class EditedOn : public TerminalLines, public testing::WithParamInterface<SimpleTerminal>
{};

TEST_P(EditedOn, ArrowsAndTabWork)
{
    ASSERT_TRUE(start(completingProbe("commands", "MENULOAD"), with("TERM", GetParam().term)));
    m_terminal.write("ab" + kLeft + "X" + kHome + "men\t");
    EXPECT_TRUE(enterGives("MENULOAD aXb"));
    EXPECT_TRUE(ends());
}

INSTANTIATE_TEST_SUITE_P(Each, EditedOn,
                         testing::Values(SimpleTerminal{"LinuxConsole", "linux"},
                                         SimpleTerminal{"Vt100", "vt100"},
                                         SimpleTerminal{"Vt220", "vt220"},
                                         SimpleTerminal{"Screen", "screen"},
                                         SimpleTerminal{"Tmux", "tmux-256color"},
                                         SimpleTerminal{"Rxvt", "rxvt-unicode-256color"}),
                         rowName);

TEST_F(TerminalLines, ShowABoldPromptWhereColourIsWanted)
{
    Environment colourful = usual();
    colourful.remove(text("NO_COLOR"));
    ASSERT_TRUE(m_terminal.spawn(probe(), colourful));
    EXPECT_TRUE(m_terminal.expect("\x1B[1mprobe>"));
    m_terminal.write("abc");
    EXPECT_TRUE(enterGives("abc"));
}

TEST_F(TerminalLines, ShowABoldPromptWhenNoColorIsEmpty)
{
    ASSERT_TRUE(m_terminal.spawn(probe(), with("NO_COLOR", "")));
    EXPECT_TRUE(m_terminal.expect("\x1B[1mprobe>"));
}

TEST_F(TerminalLines, ShowAPlainPromptUnderNoColor)
{
    ASSERT_TRUE(start());
    EXPECT_EQ(m_terminal.transcript(), "probe> ");
}

struct Prompt
{
    const char* name;
    QByteArray prompt;
};

void PrintTo(const Prompt& prompt, std::ostream* stream)
{
    *stream << prompt.name;
}

class WithPrompt : public TerminalLines, public testing::WithParamInterface<Prompt>
{};

TEST_P(WithPrompt, LinesAreRead)
{
    for (const char* noColor : {"1", ""}) {
        PseudoTerminal terminal({24, 40});
        ASSERT_TRUE(terminal.spawn(
            probe({text("--prompt"), QString::fromUtf8(GetParam().prompt) + text("end>")}),
            with("NO_COLOR", noColor)));
        ASSERT_TRUE(terminal.expect("end"));
        terminal.write("ab" + kLeft + "X\r");
        EXPECT_TRUE(terminal.expect("TEXT[aXb]"));
        ASSERT_TRUE(terminal.expect("end"));
        terminal.write(kCtrlD);
        EXPECT_TRUE(terminal.expect("SIGNALS[restored]"));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Each, WithPrompt,
    testing::Values(Prompt{"WiderThanTheWindow", QByteArray("wide ").repeated(20)},
                    Prompt{"AsWideAsTheWindow", QByteArray(36, 'x')},
                    Prompt{"HigherThanTheWindow", QByteArray("high ").repeated(400)},
                    Prompt{"WideCharacters", QByteArray("中文").repeated(30)},
                    Prompt{"CombiningCharacters", QByteArray("u\xCC\x88").repeated(50)},
                    Prompt{"CombiningCharacterFirst", "\xCC\x88x"},
                    Prompt{"ControlCharacters", "a\tb\x1B[31m\x01\x7F"},
                    Prompt{"Unassigned", "\xF0\x9F\xAB\xA8"}, Prompt{"PercentSigns", "%s%n%ls"}),
    rowName);

TEST_F(TerminalLines, ShowAPromptOfSeveralRows)
{
    ASSERT_TRUE(start(probe({text("--prompt"), text("one\ntwo\nprobe> ")})));
    EXPECT_EQ(m_terminal.transcript(), "one\r\ntwo\r\nprobe> ");
    m_terminal.write("a" + kHome + "b");
    EXPECT_TRUE(enterGives("ba"));
}

TEST_F(TerminalLines, TakeAPasteOfSeveralLinesAsSeveralLines)
{
    ASSERT_TRUE(start());
    m_terminal.write("one\rtwo größe\rthree\r");
    EXPECT_TRUE(m_terminal.expect("TEXT[one]"));
    EXPECT_TRUE(m_terminal.expect("TEXT[two größe]"));
    EXPECT_TRUE(m_terminal.expect("TEXT[three]"));
    EXPECT_TRUE(ends());
}

TEST_F(TerminalLines, TakeALargePaste)
{
    ASSERT_TRUE(start());
    QByteArray paste;
    for (int i = 0; i < 500; ++i)
        paste += "line " + QByteArray::number(i) + " of a long paste\r";
    m_terminal.write(paste);
    for (int i = 0; i < 500; ++i)
        ASSERT_TRUE(m_terminal.expect("TEXT[line " + QByteArray::number(i) + " of a long paste]"));
    EXPECT_TRUE(ends());
}

TEST_F(TerminalLines, MayBeVeryLong)
{
    ASSERT_TRUE(start(commandProbe(path("history"))));
    const QByteArray longLine = QByteArray("0123456789").repeated(500);
    m_terminal.write(longLine);
    EXPECT_TRUE(enterGives(longLine));
    m_terminal.write("short" + kUp + "x" + kHome + "y");
    EXPECT_TRUE(enterGives("y" + longLine + "x"));
    m_terminal.write(longLine + "!" + kUp + kUp + kDown + kDown);
    EXPECT_TRUE(enterGives(longLine + "!"));
    EXPECT_TRUE(ends());

    PseudoTerminal later;
    ASSERT_TRUE(later.spawn(commandProbe(path("history")), usual()));
    ASSERT_TRUE(later.expect("probe> "));
    later.write(kUp + "\r");
    EXPECT_TRUE(later.expect("TEXT[" + longLine + "!]"));
}

TEST_F(TerminalLines, AreNotSearchedForFromAVeryLongLine)
{
    ASSERT_TRUE(start(commandProbe(QString())));
    m_terminal.write("abc");
    ASSERT_TRUE(enterGives("abc"));
    const QByteArray longLine(1500, 'x');
    m_terminal.write(longLine + "\x12\x1B[5~");
    EXPECT_TRUE(m_terminal.expect(kBeep));
    EXPECT_TRUE(enterGives(longLine));
}

TEST_F(TerminalLines, AreDrawnAnewWhenTheWindowChanges)
{
    ASSERT_TRUE(start());
    m_terminal.write("some text");
    ASSERT_TRUE(m_terminal.expect("some text"));
    m_terminal.resize({10, 30});
    EXPECT_TRUE(m_terminal.expect("\r\x1B[Jprobe> some text"));
    m_terminal.write(QByteArray(40, 'x'));
    ASSERT_TRUE(m_terminal.expect("xxx"));
    EXPECT_TRUE(enterGives("some text" + QByteArray(40, 'x')));
}

TEST_F(TerminalLines, OfSeveralRowsAreDrawnAnewFromTheirFirstRow)
{
    ASSERT_TRUE(start());
    m_terminal.write(QByteArray(100, 'x') + "!");
    ASSERT_TRUE(m_terminal.expect("!"));
    // 108 columns: the cursor is on the second row of 80 and stays on it in 100.
    m_terminal.resize({24, 100});
    EXPECT_TRUE(m_terminal.expect("\r\x1B[A\x1B[Jprobe> xxx"));
    EXPECT_TRUE(enterGives(QByteArray(100, 'x') + "!"));
}

TEST_F(TerminalLines, SurviveAWindowOfNoSize)
{
    ASSERT_TRUE(start());
    for (const TerminalSize size : {TerminalSize{0, 0}, TerminalSize{1, 1}, TerminalSize{1, 2},
                                    TerminalSize{3, 2}, TerminalSize{24, 80}}) {
        m_terminal.resize(size);
        m_terminal.write("x中u\xCC\x88" + kHome + kEnd);
    }
    EXPECT_TRUE(enterGives(QByteArray("x中u\xCC\x88").repeated(5)));
    EXPECT_TRUE(ends());
}

} // namespace
