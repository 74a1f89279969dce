#include "refhost/core/aliases.h"

#include "tests/core/childprocess.h"
#include "tests/core/settingssupport.h"
#include "tests/support/rawslots.h"

#include <gtest/gtest.h>

#include <QDir>

#include <string>
#include <vector>

using namespace quelhost;
using namespace quelhost::test;

namespace {

using Rows = std::vector<std::string>;

// "ALIAS=COMMAND" for each alias, sorted.
Rows rowsOf(const AliasTable& aliases)
{
    Rows rows;
    for (auto each = aliases.begin(); each != aliases.end(); ++each)
        rows.push_back((each.key() + QLatin1Char('=') + each.value()).toStdString());
    return rows;
}

Rows aliasesOf(const QByteArray& text)
{
    return rowsOf(parseAliases(text, QStringLiteral("QUELD.pgp")).aliases);
}

// The lines that were reported.
std::vector<qint64> badLines(const QByteArray& text)
{
    std::vector<qint64> lines;
    for (const Fault& fault : parseAliases(text, QStringLiteral("QUELD.pgp")).faults)
        lines.push_back(fault.line);
    return lines;
}

// An alias file in a profile, and what was reported about it.
struct File
{
    File()
        : aliases(profile.file("QUELD.pgp"),
                  [this](const Fault& fault) { reports.push_back(fault.text().toStdString()); })
    {}

    bool write(const QByteArray& text) { return setBytes(profile.file("QUELD.pgp"), text); }

    [[nodiscard]] std::string commandFor(const char* name) const
    {
        return aliases.commandFor(QString::fromUtf8(name)).toStdString();
    }

    ScratchFolder profile;
    Rows reports;
    Aliases aliases;
};

} // namespace

TEST(AliasFile, GoodLinesDefineAliases)
{
    struct Row
    {
        const char* name;
        QByteArray text;
        Rows expected;
    };
    const Row rows[] = {
        {"an empty file", "", {}},
        {"one line", "ML = MENULOAD\n", {"ML=MENULOAD"}},
        {"no end of the last line", "ML = MENULOAD", {"ML=MENULOAD"}},
        {"no blanks", "mu=MENUUNLOAD\n", {"MU=MENUUNLOAD"}},
        {"blanks and tabs around", " \tML\t =  MENULOAD \t\n", {"ML=MENULOAD"}},
        {"CR LF", "A = ECHO\r\nB = QUIT\r\n", {"A=ECHO", "B=QUIT"}},
        {"both ends of lines", "A = ECHO\r\nB = QUIT\nC = HELP", {"A=ECHO", "B=QUIT", "C=HELP"}},
        {"a byte order mark",
         "\xEF\xBB\xBF"
         "A = ECHO\n",
         {"A=ECHO"}},
        {"a byte order mark before a comment", "\xEF\xBB\xBF# A\nA = ECHO\n", {"A=ECHO"}},
        {"a comment behind", "ML = MENULOAD      # load one\n", {"ML=MENULOAD"}},
        {"a comment right behind", "ML = MENULOAD#load # one\n", {"ML=MENULOAD"}},
        {"comments and empty lines", "# one\n\n  \t\n   # two\nA = ECHO\n#A = QUIT", {"A=ECHO"}},
        {"any character", "? = HELP\nlad\xC3\xA9 = CUILOAD\n", {"?=HELP", "LAD\xC3\x89=CUILOAD"}},
        {"a localized command", "ML = MEN\xC3\x9CLADEN\n", {"ML=MEN\xC3\x9CLADEN"}},
        {"a command as written", "e = Echo\n", {"E=Echo"}},
        {"a no-break space is a character",
         "a\xC2\xA0"
         "b = ECHO",
         {"A\xC2\xA0"
          "B=ECHO"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(aliasesOf(row.text), row.expected);
        EXPECT_EQ(badLines(row.text), std::vector<qint64>{});
    }
}

TEST(AliasFile, ABadLineIsReportedAndSkipped)
{
    struct Row
    {
        const char* name;
        QByteArray line;
    };
    const Row rows[] = {
        {"no equals sign", "ML MENULOAD"},
        {"one word", "ML"},
        {"no alias", "= MENULOAD"},
        {"no command", "ML ="},
        {"the command is a comment", "ML = # later"},
        {"the equals sign is a comment", "ML # = MENULOAD"},
        {"an equals sign alone", "="},
        {"an alias of two words", "M L = MENULOAD"},
        {"a command with an answer", "ML = MENULOAD plant.cuix"},
        {"a quoted alias", "\"ML\" = MENULOAD"},
        {"a quoted command", "ML = \"MENULOAD\""},
        {"a second equals sign", "ML = MENU = LOAD"},
        {"two equals signs", "ML == MENULOAD"},
        {"a control character", "M\x01L = MENULOAD"},
        {"a CR inside", "ML\r = MENULOAD"},
        {"a null character", QByteArray("M\0L = MENULOAD", 14)},
        {"no UTF-8", "M\xFFL = MENULOAD"},
        {"no UTF-8 in a comment", "ML = MENULOAD # \xC3"},
        {"an overlong character", "M\xC0\xAFL = MENULOAD"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const QByteArray text = "A = ECHO\n" + row.line + "\nB = QUIT\n";
        EXPECT_EQ(aliasesOf(text), (Rows{"A=ECHO", "B=QUIT"}));
        EXPECT_EQ(badLines(text), std::vector<qint64>{2});
        EXPECT_EQ(badLines(row.line), std::vector<qint64>{1});
    }
}

TEST(AliasFile, AFaultNamesTheFileAndTheLine)
{
    const AliasReading reading = parseAliases("\n\nML MENULOAD\n", QStringLiteral("QUELD.pgp"));
    ASSERT_EQ(reading.faults.size(), 1U);
    EXPECT_EQ(reading.faults[0].kind, FaultKind::BadInput);
    EXPECT_EQ(reading.faults[0].text().toStdString(),
              "QUELD.pgp:3:1: This line is not ALIAS = COMMAND, each one word, and is skipped.");
}

TEST(AliasFile, TheLaterOfTwoLinesHoldsAndTheEarlierIsReported)
{
    const QByteArray text = "x = QUIT\nbad\nX = ECHO\nX = HELP\n";
    EXPECT_EQ(aliasesOf(text), Rows{"X=HELP"});
    const AliasReading reading = parseAliases(text, QStringLiteral("QUELD.pgp"));
    ASSERT_EQ(reading.faults.size(), 3U);
    EXPECT_EQ(reading.faults[0].text().toStdString(),
              "QUELD.pgp:1:1: The alias X is replaced in line 3.");
    EXPECT_EQ(reading.faults[1].line, 2);
    EXPECT_EQ(reading.faults[2].text().toStdString(),
              "QUELD.pgp:3:1: The alias X is replaced in line 4.");
}

TEST(AliasFile, ABadLineReplacesNothing)
{
    EXPECT_EQ(aliasesOf("X = QUIT\nX = ECHO this\n"), Rows{"X=QUIT"});
    EXPECT_EQ(badLines("X = QUIT\nX = ECHO this\n"), std::vector<qint64>{2});
}

TEST(AliasFile, TheExampleThatComesWithTheProgramIsGood)
{
    const QByteArray example = bytesOf(QStringLiteral(QUEL_EXAMPLES "/QUELD.pgp"));
    ASSERT_FALSE(example.isEmpty());
    EXPECT_EQ(badLines(example), std::vector<qint64>{});
    EXPECT_FALSE(aliasesOf(example).empty());
}

TEST(Aliases, AreFoundInAnyCase)
{
    File file;
    ASSERT_TRUE(file.write("Ml = MENULOAD\nlad\xC3\xA9 = CUILOAD\n"));
    EXPECT_EQ(file.commandFor("ML"), "");
    EXPECT_TRUE(file.aliases.initAliasNameList(true));
    for (const char* name : {"ml", "Ml", "ML"})
        EXPECT_EQ(file.commandFor(name), "MENULOAD");
    EXPECT_EQ(file.commandFor("LAD\xC3\x89"), "CUILOAD");
    for (const char* name : {"", "M", "MLX", "MENULOAD"})
        EXPECT_EQ(file.commandFor(name), "");
    EXPECT_EQ(rowsOf(file.aliases.all()), (Rows{"LAD\xC3\x89=CUILOAD", "ML=MENULOAD"}));
}

TEST(Aliases, RereadingTakesTheFileAsItIsNow)
{
    File file;
    ASSERT_TRUE(file.write("A = ECHO\nB = QUIT\n"));
    EXPECT_TRUE(file.aliases.initAliasNameList(false));
    ASSERT_TRUE(file.write("A = HELP\nC = GROUPS\n"));
    EXPECT_TRUE(file.aliases.initAliasNameList(false));
    EXPECT_EQ(file.commandFor("A"), "ECHO");
    EXPECT_TRUE(file.aliases.initAliasNameList(true));
    EXPECT_EQ(rowsOf(file.aliases.all()), (Rows{"A=HELP", "C=GROUPS"}));
}

TEST(Aliases, DiscardedOnesAreGoneUntilTheFileIsReadAgain)
{
    File file;
    ASSERT_TRUE(file.write("A = ECHO\n"));
    EXPECT_TRUE(file.aliases.initAliasNameList(true));
    file.aliases.uninitAliasNameList();
    EXPECT_TRUE(file.aliases.all().isEmpty());
    EXPECT_TRUE(file.aliases.initAliasNameList(false));
    EXPECT_EQ(file.commandFor("A"), "ECHO");
}

TEST(Aliases, BadLinesAreReportedEachTimeTheFileIsRead)
{
    File file;
    ASSERT_TRUE(file.write("bad\nA = ECHO\n"));
    EXPECT_TRUE(file.aliases.initAliasNameList(true));
    EXPECT_TRUE(file.aliases.initAliasNameList(true));
    ASSERT_EQ(file.reports.size(), 2U);
    EXPECT_EQ(file.reports[0].rfind("QUELD.pgp:1:1: ", 0), 0U) << file.reports[0];
}

TEST(Aliases, AFileThatCannotBeReadIsToldAndLeavesNoneAfterADiscard)
{
    File file;
    EXPECT_FALSE(file.aliases.initAliasNameList(true));
    ASSERT_EQ(file.reports.size(), 1U);
    EXPECT_NE(file.reports[0].find("QUELD.pgp"), std::string::npos);

    ASSERT_TRUE(file.write("A = ECHO\n"));
    EXPECT_TRUE(file.aliases.initAliasNameList(true));
    ASSERT_TRUE(QFile::remove(file.profile.file("QUELD.pgp")));
    ASSERT_TRUE(QDir().mkdir(file.profile.file("QUELD.pgp"))); // a folder is no alias file
    file.aliases.uninitAliasNameList();
    EXPECT_FALSE(file.aliases.initAliasNameList(true));
    EXPECT_TRUE(file.aliases.all().isEmpty());
    EXPECT_EQ(file.reports.size(), 2U);
}

TEST(Aliases, AFileThatMayNotBeReadIsTold)
{
    File file;
    ASSERT_TRUE(file.write("A = ECHO\n"));
    ASSERT_TRUE(setMode(file.profile.file("QUELD.pgp"), 0));
    const ChildEnd end = runInChild([&]() -> std::string {
        if (!becomeOrdinaryUser())
            return "cannot become another user";
        const bool read = file.aliases.initAliasNameList(true);
        return (read ? "read, " : "not read, ") + std::to_string(file.reports.size());
    });
    EXPECT_EQ(end.output, "not read, 1");
}

TEST(Aliases, AModuleReachesThemThroughTheirThreeSlots)
{
    File file;
    ASSERT_TRUE(file.write("A = ECHO\n"));
    const auto* manager = static_cast<QuCmdAliasManager*>(&file.aliases);
    EXPECT_TRUE(raw::call<bool>(manager, 2, true));
    EXPECT_EQ(file.commandFor("A"), "ECHO");
    raw::call<void>(manager, 1);
    EXPECT_EQ(file.commandFor("A"), "");
    EXPECT_STREQ(file.aliases.getCurValidPgpFileName().kwszPtr(), L"QUELD.pgp");
}
