// Where an answer begins and ends on the line that was typed.
#include "refhost/core/prompts.h"

#include "tests/support/scriptedlines.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

using namespace quelhost;
using namespace quelhost::test;

namespace {

constexpr AnswerEnd kBlank = AnswerEnd::Blank;
constexpr AnswerEnd kEnter = AnswerEnd::Enter;

LineRequest prompt(const wchar_t* text)
{
    return {text, Completion::Nothing, {}, false};
}

// What every prompt gets from one line: the answers in their order, in angle brackets, until a
// prompt would need a further line.
std::wstring answersOf(const wchar_t* line, AnswerEnd end)
{
    CollectedOutput output;
    ScriptedLines lines(output, {line});
    Prompts prompts(lines, output);
    std::wstring all;
    for (;;) {
        const Answer answer = prompts.ask(prompt(L"?"), end);
        if (answer.kind == Answer::Kind::Cancelled)
            return all;
        all += answer.kind == Answer::Kind::Empty ? L"Enter" : L"<" + answer.text + L">";
    }
}

} // namespace

TEST(PromptAnswers, EndWhereTheDescriptionSays)
{
    struct Row
    {
        const char* name;
        AnswerEnd end;
        const wchar_t* line;
        const wchar_t* answers;
    };
    const Row rows[] = {
        {"one word", kBlank, L"plant", L"<plant>"},
        {"two words", kBlank, L"a b", L"<a><b>"},
        {"blanks before, between and behind", kBlank, L"  a   b  ", L"<a><b>"},
        {"a quoted answer", kBlank, L"\"a b\"", L"<a b>"},
        {"words behind a quoted answer", kBlank, L"\"a b\" c d", L"<a b><c><d>"},
        {"a word right behind a quoted answer", kBlank, L"\"a b\"c", L"<a b><c>"},
        {"a quoted answer behind a word", kBlank, L"x \"a b\"", L"<x><a b>"},
        {"two quoted answers", kBlank, L"\"a b\" \"c d\"", L"<a b><c d>"},
        {"a quoted answer before blanks", kBlank, L"\"a b\"   ", L"<a b>"},
        {"a pair with nothing between", kBlank, L"\"\"", L"<\"\">"},
        {"a word behind such a pair", kBlank, L"\"\" x", L"<\"\"><x>"},
        {"a pair around a blank", kBlank, L"\" \"", L"< >"},
        {"an unclosed quote", kBlank, L"\"a b", L"<\"a b>"},
        {"an unclosed quote behind a word", kBlank, L"x \"a b", L"<x><\"a b>"},
        {"a quote alone", kBlank, L"\"", L"<\">"},
        {"a quote inside a word", kBlank, L"a\"b c\"", L"<a\"b><c\">"},
        {"a percent sign", kBlank, L"/t/%s%n.cuix", L"</t/%s%n.cuix>"},
        {"Enter", kBlank, L"", L"Enter"},
        {"blanks and Enter", kBlank, L"   ", L"Enter"},

        {"to Enter: one word", kEnter, L"plant", L"<plant>"},
        {"to Enter: two words", kEnter, L"a b", L"<a b>"},
        {"to Enter: blanks around", kEnter, L"  a  b  ", L"<a  b>"},
        {"to Enter: a quoted answer", kEnter, L"\"a b\"", L"<a b>"},
        {"to Enter: what follows a quoted answer", kEnter, L"\"a b\" c d", L"<a b><c d>"},
        {"to Enter: a quote inside", kEnter, L"a \"b\" c", L"<a \"b\" c>"},
        {"to Enter: a pair with nothing between", kEnter, L"\"\"", L"<\"\">"},
        {"to Enter: an unclosed quote", kEnter, L"\"a b", L"<\"a b>"},
        {"to Enter: Enter", kEnter, L"", L"Enter"},
        {"to Enter: blanks and Enter", kEnter, L"  ", L"Enter"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(answersOf(row.line, row.end), row.answers);
    }
}

TEST(PromptAnswers, EachPromptSaysWhereItsOwnAnswerEnds)
{
    CollectedOutput output;
    ScriptedLines lines(output, {L"NAME the rest of it  "});
    Prompts prompts(lines, output);
    EXPECT_EQ(prompts.ask(prompt(L"1: "), kBlank).text, L"NAME");
    EXPECT_EQ(prompts.ask(prompt(L"2: "), kEnter).text, L"the rest of it");
    EXPECT_EQ(lines.requests.size(), 1U);
}

TEST(PromptAnswers, AreNotShortened)
{
    CollectedOutput output;
    ScriptedLines lines(output, {});
    lines.add(std::wstring(100'000, L'x'));
    Prompts prompts(lines, output);
    EXPECT_EQ(prompts.ask(prompt(L"?"), kBlank).text.size(), 100'000U);
}

TEST(PromptAnswers, TheRequestReachesTheSourceOfLines)
{
    CollectedOutput output;
    ScriptedLines lines(output, {L"a"});
    Prompts prompts(lines, output);
    const QStringList words{QStringLiteral("Accelerator"), QStringLiteral("Toolbar")};
    EXPECT_EQ(prompts.ask({L"Which: ", Completion::Keywords, words, false}, kBlank).text, L"a");
    ASSERT_EQ(lines.requests.size(), 1U);
    EXPECT_EQ(lines.requests[0].prompt, L"Which: ");
    EXPECT_EQ(lines.requests[0].completion, Completion::Keywords);
    EXPECT_EQ(lines.requests[0].words, words);
    EXPECT_FALSE(lines.requests[0].remarksAllowed);
}

TEST(PromptAnswers, TheOutputReadsPromptThenAnswer)
{
    CollectedOutput output;
    ScriptedLines lines(output, {L"first \"second one\"", L"third"});
    Prompts prompts(lines, output);
    for (const wchar_t* text : {L"1: ", L"2: ", L"3: "})
        EXPECT_EQ(prompts.ask(prompt(text), kBlank).kind, Answer::Kind::Text);
    EXPECT_EQ(output.text(), "1: first \"second one\"\n2: second one\n3: third\n");
}

TEST(PromptAnswers, APromptNeverBeginsBehindAMessage)
{
    CollectedOutput output;
    ScriptedLines lines(output, {L"a b"});
    Prompts prompts(lines, output);
    output.write(L"a message");
    EXPECT_EQ(prompts.ask(prompt(L"1: "), kBlank).text, L"a");
    output.write(L"another");
    EXPECT_EQ(prompts.ask(prompt(L"2: "), kBlank).text, L"b");
    EXPECT_EQ(output.text(), "a message\n1: a b\nanother\n2: b\n");
}

// No answer costs as much as all of the line behind it.
TEST(PromptAnswers, ManyOnOneLineCostNoMoreThanOneOnEach)
{
    constexpr int kAnswers = 40000;
    std::wstring line;
    for (int i = 0; i < kAnswers; ++i)
        line += L"a ";
    const auto secondsOf = [](const std::wstring& typed, int lines) {
        CollectedOutput output;
        ScriptedLines source(output, {});
        for (int i = 0; i < lines; ++i)
            source.add(typed);
        Prompts prompts(source, output);
        const auto start = std::chrono::steady_clock::now();
        for (int i = 0; i < kAnswers; ++i)
            EXPECT_EQ(prompts.ask(prompt(L"?"), kBlank).text, L"a");
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    const double onEach = secondsOf(L"a", kAnswers);
    EXPECT_LT(secondsOf(line, 1), 2 * onEach);
}
