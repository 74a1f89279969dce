#include "tests/console/terminaltest.h"

#include <gtest/gtest.h>

#include <QDir>

namespace {

using namespace terminaltest;

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

} // namespace
