#include "refhost/core/linecompletion.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <ostream>
#include <string>

namespace {

using quelhost::CompletedLine;
using quelhost::completeLine;
using quelhost::Completion;
using quelhost::LineRequest;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

struct Case
{
    const char* name;
    Completion completion;
    const char* typed;
    const char* completed;
    const char* candidates; // separated by "|"
    bool found = true;
};

struct SuggestionCase
{
    const char* name;
    Completion completion;
    const char* typed;
    const char* whileTyping; // "TEXT=LINE", separated by "|"
    const char* onDemand;    // likewise; null where it is the same
};

void PrintTo(const SuggestionCase& row, std::ostream* stream)
{
    *stream << row.name;
}

void PrintTo(const Case& row, std::ostream* stream)
{
    *stream << row.name;
}

const QStringList& words()
{
    static const QStringList list = {text("MENULOAD"),   text("MENUUNLOAD"), text("ECHO"),
                                     text("Menü laden"), text("Größe"),      text("echo")};
    return list;
}

// A folder of files as the current one.
class InFolder : public testing::Test
{
protected:
    void SetUp() override
    {
        const QDir folder(m_folder.path());
        for (const char* name : {"drawings", "my plans", ".config", "ten/eleven"})
            ASSERT_TRUE(folder.mkpath(text(name)));
        for (const char* name :
             {"plant.cuix", "plans.scr", "größe.cuix", "a b.cuix", "a c.cuix", "say \"hi\" there",
              ".hidden", "line\nbreak", "drawings/pump.cuix", "my plans/site.cuix", "~tilde"}) {
            QFile file(folder.filePath(text(name)));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        }
        ASSERT_TRUE(QDir::setCurrent(m_folder.path()));
    }
    void TearDown() override { ASSERT_TRUE(QDir::setCurrent(m_before)); }

    const QString m_before = QDir::currentPath();
    QTemporaryDir m_folder;
};

class Completed : public InFolder, public testing::WithParamInterface<Case>
{};

TEST_P(Completed, IsTheLine)
{
    const bool isPath = GetParam().completion == Completion::Paths;
    const LineRequest request{L"", GetParam().completion, isPath ? QStringList() : words()};
    const CompletedLine line = completeLine(text(GetParam().typed), false, request);
    EXPECT_EQ(line.found, GetParam().found);
    EXPECT_EQ(line.beforeCursor, text(GetParam().completed));
    EXPECT_EQ(line.candidates.join(QLatin1Char('|')), text(GetParam().candidates));
}

const auto rowName = [](const auto& row) { return std::string(row.param.name); };

constexpr Completion kCommands = Completion::Commands;
constexpr Completion kKeywords = Completion::Keywords;
constexpr Completion kPaths = Completion::Paths;

INSTANTIATE_TEST_SUITE_P(
    Words, Completed,
    testing::Values(Case{"One", kCommands, "menuu", "MENUUNLOAD ", ""},
                    Case{"OneTypedWhole", kCommands, "MENUUNLOAD", "MENUUNLOAD ", ""},
                    Case{"OneInTwoCases", kCommands, "EC", "ECHO ", ""},
                    Case{"LettersBeyondAscii", kKeywords, "gRÖ", "Größe ", ""},
                    Case{"Several", kCommands, "menu", "menu", "MENULOAD|MENUUNLOAD"},
                    Case{"SeveralWithMoreInCommon", kCommands, "m", "MEN",
                         "MENULOAD|MENUUNLOAD|Menü laden"},
                    Case{"All", kKeywords, "", "", "ECHO|Größe|MENULOAD|MENUUNLOAD|Menü laden"},
                    Case{"None", kCommands, "x", "", "", false},
                    Case{"LongerThanAny", kCommands, "echoes", "", "", false},
                    Case{"LeadingBlanks", kCommands, "  ec", "  ECHO ", ""},
                    Case{"WithABlank", kCommands, "menü", "\"Menü laden\" ", ""},
                    Case{"QuotedByTheUser", kCommands, "\"menü l", "\"Menü laden\" ", ""},
                    Case{"QuotedWithoutNeed", kKeywords, "\"ec", "\"ECHO\" ", ""},
                    Case{"SecondWordOfKeywords", kKeywords, "ECHO ec", "", "", false},
                    Case{"NothingToComplete", Completion::Nothing, "ec", "", "", false}),
    rowName);

INSTANTIATE_TEST_SUITE_P(
    Paths, Completed,
    testing::Values(
        Case{"File", kPaths, "plant", "plant.cuix", ""},
        Case{"Folder", kPaths, "dr", "drawings/", ""},
        Case{"InAFolder", kPaths, "drawings/", "drawings/pump.cuix", ""},
        Case{"InTheFolderItself", kPaths, "./dr", "./drawings/", ""},
        Case{"InTheFolderAbove", kPaths, "drawings/../dr", "drawings/../drawings/", ""},
        Case{"FolderAbove", kPaths, "drawings/..", "drawings/../", ""},
        Case{"Several", kPaths, "pl", "plan", "plans.scr|plant.cuix"},
        Case{"CaseMatters", kPaths, "PLANT", "", "", false},
        Case{"LettersBeyondAscii", kPaths, "gr", "größe.cuix", ""},
        Case{"FolderWithABlank", kPaths, "my", "\"my plans/", ""},
        Case{"InAFolderWithABlank", kPaths, "\"my plans/", "\"my plans/site.cuix\"", ""},
        Case{"BlankTypedWithoutQuotes", kPaths, "my plans/s", "\"my plans/site.cuix\"", ""},
        Case{"SeveralWithABlank", kPaths, "a", "\"a ", "a b.cuix|a c.cuix"},
        Case{"QuotedWithoutNeed", kPaths, "\"plant", "\"plant.cuix\"", ""},
        Case{"QuotesInTheName", kPaths, "say", "say \"hi\" there", ""},
        Case{"ClosedQuotes", kPaths, "\"plant.cuix\"", "", "", false},
        Case{"HiddenFilesStayHidden", kPaths, "", "",
             "a b.cuix|a c.cuix|drawings/|größe.cuix|my plans/|plans.scr|plant.cuix|say \"hi\" "
             "there|ten/|~tilde"},
        Case{"HiddenFilesAfterADot", kPaths, ".", ".", ".config/|.hidden"},
        Case{"HiddenFile", kPaths, ".h", ".hidden", ""},
        Case{"NamesThatCannotBeTyped", kPaths, "line", "", "", false},
        Case{"TildeAlone", kPaths, "~", "", "", false},
        Case{"TildeBeforeAName", kPaths, "~t", "~tilde", ""},
        Case{"MissingFolder", kPaths, "nowhere/x", "", "", false},
        Case{"EmptyFolder", kPaths, "ten/eleven/", "", "", false},
        Case{"BehindACommand", kCommands, "MENULOAD pla", "MENULOAD plan", "plans.scr|plant.cuix"},
        Case{"BehindACommandAndBlanks", kCommands, "MENULOAD   plant", "MENULOAD   plant.cuix", ""},
        Case{"BehindACommandQuoted", kCommands, "MENULOAD \"my plans/",
             "MENULOAD \"my plans/site.cuix\"", ""},
        Case{"BehindACommandWithABlank", kCommands, "MENULOAD my", "MENULOAD \"my plans/", ""},
        Case{"BehindAQuotedAnswer", kCommands, "X \"a b\" pla", "X \"a b\" plan",
             "plans.scr|plant.cuix"},
        Case{"BehindAQuotedCommand", kCommands, "\"Menü laden\" plant", "\"Menü laden\" plant.cuix",
             ""}),
    rowName);

TEST(LineCompletion, AddsNoSecondBlank)
{
    const LineRequest request{L"", Completion::Commands, words()};
    EXPECT_EQ(completeLine(text("menuu"), true, request).beforeCursor, text("MENUUNLOAD"));
}

TEST(LineCompletion, TurnsATildeWithASlashIntoTheHomeFolder)
{
    QTemporaryDir home;
    QFile file(home.filePath(text("plant.cuix")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const QByteArray before = qgetenv("HOME");
    ASSERT_TRUE(qputenv("HOME", home.path().toUtf8()));
    const LineRequest request{L"", Completion::Paths, {}};
    const CompletedLine line = completeLine(text("~/pl"), false, request);
    ASSERT_TRUE(qputenv("HOME", before));
    EXPECT_EQ(line.beforeCursor, home.path() + text("/plant.cuix"));
}

struct ExpectedCase
{
    const char* name;
    const char* typed;
    const char* completed;
    const char* candidates;
};

void PrintTo(const ExpectedCase& row, std::ostream* stream)
{
    *stream << row.name;
}

// Files that the command expects: two of them lie where the others of the folder do not.
class ExpectedFile : public testing::TestWithParam<ExpectedCase>
{};

TEST_P(ExpectedFile, GoesBeforeOthers)
{
    const LineRequest request{L"",
                              Completion::Paths,
                              {text("/site/Plant.cuix"), text("/site/pump.cuix"),
                               text("/my site/x.cuix"), text("plans.cuix")}};
    const CompletedLine line = completeLine(text(GetParam().typed), false, request);
    EXPECT_TRUE(line.found);
    EXPECT_EQ(line.beforeCursor, text(GetParam().completed));
    EXPECT_EQ(line.candidates.join(QLatin1Char('|')), text(GetParam().candidates));
}

INSTANTIATE_TEST_SUITE_P(
    Paths, ExpectedFile,
    testing::Values(ExpectedCase{"ByItsName", "pu", "/site/pump.cuix", ""},
                    ExpectedCase{"ByItsNameInAnyCase", "PLANT", "/site/Plant.cuix", ""},
                    ExpectedCase{"ByItsBeginning", "/site/pu", "/site/pump.cuix", ""},
                    ExpectedCase{"Several", "/si", "/site/", "/site/Plant.cuix|/site/pump.cuix"},
                    ExpectedCase{"SeveralByTheirNames", "pl", "pl", "/site/Plant.cuix|plans.cuix"},
                    ExpectedCase{"WithABlank", "x", "\"/my site/x.cuix\"", ""},
                    ExpectedCase{"All", "", "",
                                 "/my site/x.cuix|/site/Plant.cuix|/site/pump.cuix|plans.cuix"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ExpectedFiles, OthersAreFoundWhenNoneFits)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(text("other.cuix")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const LineRequest request{L"", Completion::Paths, {text("/site/pump.cuix")}};
    EXPECT_EQ(completeLine(folder.filePath(text("oth")), false, request).beforeCursor,
              folder.filePath(text("other.cuix")));
}

class Suggested : public InFolder, public testing::WithParamInterface<SuggestionCase>
{
public:
    static QString shown(const SuggestionCase& row, quelhost::Suggest when)
    {
        const bool isPath = row.completion == Completion::Paths;
        const LineRequest request{L"", row.completion,
                                  isPath ? QStringList{text("/site/Plan.cuix")} : words()};
        QStringList all;
        for (const auto& [shown, line] :
             quelhost::suggestLines(text(row.typed), false, request, when))
            all += shown + QLatin1Char('=') + line;
        return all.join(QLatin1Char('|'));
    }
};

TEST_P(Suggested, AreTheWaysToGoOn)
{
    const SuggestionCase& row = GetParam();
    EXPECT_EQ(shown(row, quelhost::Suggest::WhileTyping), text(row.whileTyping));
    EXPECT_EQ(shown(row, quelhost::Suggest::OnDemand),
              text(row.onDemand != nullptr ? row.onDemand : row.whileTyping));
}

INSTANTIATE_TEST_SUITE_P(
    Words, Suggested,
    testing::Values(
        SuggestionCase{"Several", kCommands, "menu", "MENULOAD=MENULOAD |MENUUNLOAD=MENUUNLOAD ",
                       nullptr},
        SuggestionCase{"One", kCommands, "menuu", "MENUUNLOAD=MENUUNLOAD ", nullptr},
        SuggestionCase{"Whole", kCommands, "echo", "", "ECHO=ECHO "},
        SuggestionCase{"Quoted", kKeywords, "\"menü", "Menü laden=\"Menü laden\" ", nullptr},
        SuggestionCase{"NotBegun", kKeywords, "", "",
                       "ECHO=ECHO |Größe=Größe |MENULOAD=MENULOAD |MENUUNLOAD=MENUUNLOAD "
                       "|Menü laden=\"Menü laden\" "},
        SuggestionCase{"None", kCommands, "x", "", nullptr},
        SuggestionCase{"SecondWordOfKeywords", kKeywords, "ECHO e", "", nullptr},
        SuggestionCase{"NothingToComplete", Completion::Nothing, "ec", "", nullptr}),
    rowName);

INSTANTIATE_TEST_SUITE_P(
    Paths, Suggested,
    testing::Values(
        SuggestionCase{"Expected", kPaths, "plan", "/site/Plan.cuix=/site/Plan.cuix", nullptr},
        SuggestionCase{"ExpectedWhole", kPaths, "/site/Plan.cuix", "",
                       "/site/Plan.cuix=/site/Plan.cuix"},
        SuggestionCase{"InAFolder", kPaths, "./pl", "plans.scr=./plans.scr|plant.cuix=./plant.cuix",
                       nullptr},
        SuggestionCase{"FolderStaysOpen", kPaths, "m", "my plans/=\"my plans/", nullptr},
        SuggestionCase{"FileIsClosed", kPaths, "my plans/", "site.cuix=\"my plans/site.cuix\"",
                       nullptr},
        SuggestionCase{"Whole", kPaths, "drawings/pump.cuix", "", "pump.cuix=drawings/pump.cuix"},
        SuggestionCase{"ClosedQuotes", kPaths, "\"plant.cuix\"", "", nullptr},
        SuggestionCase{"BehindACommand", kCommands, "MENULOAD pla", "",
                       "plans.scr=MENULOAD plans.scr|plant.cuix=MENULOAD plant.cuix"},
        SuggestionCase{"BehindACommandWithASlash", kCommands, "MENULOAD ./dr",
                       "drawings/=MENULOAD ./drawings/", nullptr},
        SuggestionCase{"TildeAlone", kPaths, "~", "", nullptr}),
    rowName);

TEST(Suggestions, DoNotLookThroughAHugeFolderAtEveryKey)
{
    const QTemporaryDir folder;
    for (int i = 0; i < 10001; ++i) {
        QFile file(folder.filePath(QString::number(i)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    const LineRequest request{L"", Completion::Paths, {}};
    const auto count = [&](quelhost::Suggest when) {
        return quelhost::suggestLines(folder.filePath(text("99")), false, request, when).size();
    };
    EXPECT_EQ(count(quelhost::Suggest::WhileTyping), 0U);
    EXPECT_EQ(count(quelhost::Suggest::OnDemand), 111U);
    ASSERT_TRUE(QFile::remove(folder.filePath(text("0"))));
    EXPECT_EQ(count(quelhost::Suggest::WhileTyping), 111U);
}

} // namespace
