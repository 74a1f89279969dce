#include "refhost/core/keywords.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

using namespace quelhost;

namespace {

QStringList words(const char* separatedByBlanks)
{
    return QString::fromUtf8(separatedByBlanks).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

std::string nearest(const char* names, const char* typed)
{
    return nearestNames(words(names), QString::fromUtf8(typed))
        .join(QLatin1Char(' '))
        .toStdString();
}

constexpr char kCommands[] = "MENU MENULOAD MENUUNLOAD CUILOAD CUIUNLOAD CUSTOMIZE REINIT SETVAR "
                             "GETVAR SETTINGS GROUPS ALIASES COMMANDS ECHO HELP QUIT";

} // namespace

TEST(Keywords, AreMatchedByTheirCapitalsOrABeginning)
{
    struct Row
    {
        const char* name;
        const char* keywords;
        const char* typed;
        const char* expected;
    };
    const Row rows[] = {
        {"whole", "Accelerator Toolbar", "Toolbar", "Toolbar"},
        {"whole, in another case", "Accelerator Toolbar", "TOOLBAR", "Toolbar"},
        {"its capital", "Accelerator Toolbar", "T", "Toolbar"},
        {"its capital as a small letter", "Accelerator Toolbar", "a", "Accelerator"},
        {"a beginning", "Accelerator Toolbar", "acc", "Accelerator"},
        {"too long", "Accelerator Toolbar", "Toolbars", ""},
        {"something else", "Accelerator Toolbar", "x", ""},
        {"an end", "Accelerator Toolbar", "bar", ""},
        {"nothing", "Accelerator Toolbar", "", ""},
        {"no keywords", "", "a", ""},
        {"two capitals", "LType LAyer", "la", "LAyer"},
        {"fewer letters than capitals", "LType LAyer", "l", ""},
        {"capitals that are no beginning", "eXit EDge", "x", "eXit"},
        {"a beginning with as many letters as capitals", "eXit EDge", "ex", "eXit"},
        {"capitals apart", "UndoAll", "ua", "UndoAll"},
        {"the first one that fits", "Add All", "a", "Add"},
        {"a longer beginning decides", "Add All", "al", "All"},
        {"no capitals: whole only", "off", "o", ""},
        {"no capitals: whole", "off", "OFF", "off"},
        {"letters of another script", "\xC3\x84ndern", "\xC3\xA4", "\xC3\x84ndern"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(matchKeyword(words(row.keywords), QString::fromUtf8(row.typed)).toStdString(),
                  row.expected);
    }
}

TEST(Keywords, TheNearestNamesComeFirst)
{
    struct Row
    {
        const char* name;
        const char* typed;
        const char* expected;
    };
    const Row rows[] = {
        {"two letters swapped", "MENULAOD", "MENULOAD"},
        {"a letter left out", "menulod", "MENULOAD"},
        {"a letter too many", "ECHOO", "ECHO"},
        {"a letter replaced", "HELF", "HELP"},
        {"a beginning", "CUST", "CUSTOMIZE"},
        {"the beginning of several", "cui", "CUILOAD CUIUNLOAD"},
        {"nothing like it", "zzzzzz", ""},
        {"nothing at all", "", ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const std::string found = nearest(kCommands, row.typed);
        EXPECT_EQ(found.substr(0, std::string(row.expected).size()), row.expected);
        EXPECT_EQ(found.empty(), std::string(row.expected).empty());
    }
}

TEST(Keywords, TheNearestNamesAreThreeAtMost)
{
    EXPECT_EQ(words(nearest("PIPE1 PIPE2 PIPE3 PIPE4 PIPE5", "PIPE").c_str()).size(), 3);
    EXPECT_EQ(nearest("PUMP", "PUMP1"), "PUMP");
}

TEST(Keywords, MoreLikeIsNamedBeforeLessLike)
{
    EXPECT_EQ(nearest("ABCDEFXY ABCDEFGX ABCDEFGH", "ABCDEFGI"), "ABCDEFGH ABCDEFGX ABCDEFXY");
}

TEST(Keywords, ALongTextIsNoBurden)
{
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(nearestNames(words(kCommands), QString(1'000'000, QLatin1Char('M'))).isEmpty());
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
}
