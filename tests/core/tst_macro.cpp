#include "refhost/core/macro.h"

#include <gtest/gtest.h>

#include <string>

using namespace quelhost;

namespace {

// Typed text in brackets, C for cancel, E for Enter.
std::string stepsOf(const MacroReading& reading)
{
    std::string text;
    for (const MacroStep& step : reading.steps) {
        if (step.kind == MacroStep::Kind::Type)
            text += "[" + step.text.toStdString() + "]";
        else
            text += step.kind == MacroStep::Kind::Cancel ? "C" : "E";
    }
    return text;
}

} // namespace

TEST(Macro, typesTextAndDoesWords)
{
    struct Row
    {
        const char* macro;
        const char* steps;
    };
    const Row rows[] = {
        {"ECHO pump", "[ECHO pump]E"},
        {"{cancel}ECHO pump", "C[ECHO pump]E"},
        {"{cancel}CUSTOMIZE{enter}Toolbar", "C[CUSTOMIZE]E[Toolbar]E"},
        {"{enter}", "EE"},
        {"{cancel}{cancel}", "CCE"},
        {"a {enter} b", "[a ]E[ b]E"},
        {"", "E"},
    };
    for (const Row& row : rows) {
        const MacroReading reading = readMacro(QString::fromUtf8(row.macro));
        EXPECT_TRUE(reading.isGood()) << row.macro;
        EXPECT_EQ(stepsOf(reading), row.steps) << row.macro;
    }
}

TEST(Macro, findsEverythingThatIsWrong)
{
    struct Row
    {
        const char* macro;
        const char* unknown;
        bool notClosed;
        bool notOpened;
    };
    const Row rows[] = {
        {"{escape}", "{escape}", false, false},
        {"{Cancel}", "{Cancel}", false, false},
        {"{ cancel}", "{ cancel}", false, false},
        {"{}", "{}", false, false},
        {"{a}x{b}{a}{enter}{c}", "{a} {b} {c}", false, false},
        {"{", "", true, false},
        {"{cancel", "", true, false},
        {"{{cancel}", "", true, false},
        {"}", "", false, true},
        {"cancel}", "", false, true},
        {"{cancel}}", "", false, true},
        {"}{a}{", "{a}", true, true},
    };
    for (const Row& row : rows) {
        const MacroReading reading = readMacro(QString::fromUtf8(row.macro));
        EXPECT_FALSE(reading.isGood()) << row.macro;
        EXPECT_EQ(reading.unknownWords.join(QLatin1Char(' ')).toStdString(), row.unknown)
            << row.macro;
        EXPECT_EQ(reading.braceNotClosed, row.notClosed) << row.macro;
        EXPECT_EQ(reading.braceNotOpened, row.notOpened) << row.macro;
    }
}
