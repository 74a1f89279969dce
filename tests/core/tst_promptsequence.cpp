// What one prompt leaves for the next: typed-ahead text, cancels, the end of input, and answers
// that were prepared.
#include "refhost/core/prompts.h"

#include "tests/support/scriptedlines.h"

#include <gtest/gtest.h>

#include <string>

using namespace quelhost;
using namespace quelhost::test;

namespace {

LineRequest prompt(const wchar_t* text)
{
    return {text, Completion::Nothing, {}, false};
}

// "<text>", "Enter" or "cancelled".
std::wstring asked(Prompts& prompts, AnswerEnd end = AnswerEnd::Blank)
{
    const Answer answer = prompts.ask(prompt(L"?"), end);
    switch (answer.kind) {
    case Answer::Kind::Text:
        return L"<" + answer.text + L">";
    case Answer::Kind::Empty:
        return L"Enter";
    case Answer::Kind::Cancelled:
        break;
    }
    return L"cancelled";
}

// "<text>", or "ended".
std::wstring nextCommand(Prompts& prompts)
{
    const std::optional<std::wstring> word = prompts.nextCommand(prompt(L"Command: "));
    return word ? L"<" + *word + L">" : L"ended";
}

// Says that it has ended, and gives a line all the same when it is asked once more.
class LyingLines final : public LineSource
{
public:
    Line readLine(const LineRequest&) override
    {
        ++asked;
        return asked == 1 ? Line{} : Line{Line::Kind::Text, L"more"};
    }
    bool isScript() const override { return false; }

    int asked = 0;
};

struct Conversation
{
    Conversation(std::initializer_list<const wchar_t*> typed, Typist typist = Typist::Person)
        : lines(output, typed, typist)
        , prompts(lines, output)
    {}

    CollectedOutput output;
    ScriptedLines lines;
    Prompts prompts;
};

} // namespace

TEST(PromptSequence, WhatFollowsACommandAnswersItsPrompts)
{
    Conversation talk{L"MENULOAD /t/a.cuix", L"GROUPS"};
    EXPECT_EQ(nextCommand(talk.prompts), L"<MENULOAD>");
    EXPECT_EQ(asked(talk.prompts), L"</t/a.cuix>");
    EXPECT_EQ(nextCommand(talk.prompts), L"<GROUPS>");
}

TEST(PromptSequence, WhatACommandLeavesIsTheNextCommand)
{
    Conversation talk{L"MENULOAD /t/a.cuix GROUPS"};
    EXPECT_EQ(nextCommand(talk.prompts), L"<MENULOAD>");
    EXPECT_EQ(asked(talk.prompts), L"</t/a.cuix>");
    EXPECT_EQ(nextCommand(talk.prompts), L"<GROUPS>");
    EXPECT_EQ(nextCommand(talk.prompts), L"ended");
}

TEST(PromptSequence, ACancelledPromptTakesNothingElseAway)
{
    Conversation talk{L"MENULOAD", L"^C", L"GROUPS x"};
    EXPECT_EQ(nextCommand(talk.prompts), L"<MENULOAD>");
    EXPECT_EQ(asked(talk.prompts), L"cancelled");
    EXPECT_FALSE(talk.prompts.hasEnded());
    EXPECT_EQ(nextCommand(talk.prompts), L"<GROUPS>");
    EXPECT_EQ(asked(talk.prompts), L"<x>");
}

TEST(PromptSequence, ACancelAtTheCommandPromptAsksAgain)
{
    Conversation talk{L"^C", L"^C", L"GROUPS"};
    EXPECT_EQ(nextCommand(talk.prompts), L"<GROUPS>");
    EXPECT_EQ(talk.lines.requests.size(), 3U);
}

TEST(PromptSequence, EnterAtTheCommandPromptIsTheEmptyText)
{
    Conversation talk{L"", L"  ", L"A"};
    EXPECT_EQ(nextCommand(talk.prompts), L"<>");
    EXPECT_EQ(nextCommand(talk.prompts), L"<>");
    EXPECT_EQ(nextCommand(talk.prompts), L"<A>");
}

TEST(PromptSequence, OnlyTheCommandPromptAllowsAScriptsRemarks)
{
    Conversation talk({L"; a remark", L"", L"  ; another", L"MENU", L"; no remark", L""},
                      Typist::Script);
    EXPECT_EQ(nextCommand(talk.prompts), L"<MENU>");
    EXPECT_EQ(asked(talk.prompts, AnswerEnd::Enter), L"<; no remark>");
    EXPECT_EQ(asked(talk.prompts), L"Enter");
    ASSERT_EQ(talk.lines.requests.size(), 3U);
    EXPECT_TRUE(talk.lines.requests[0].remarksAllowed);
    EXPECT_FALSE(talk.lines.requests[1].remarksAllowed);
    EXPECT_FALSE(talk.lines.requests[2].remarksAllowed);
}

TEST(PromptSequence, TheEndOfInputCancelsEveryPromptForEver)
{
    CollectedOutput output;
    LyingLines lines;
    Prompts prompts(lines, output);
    EXPECT_EQ(asked(prompts), L"cancelled");
    EXPECT_TRUE(prompts.hasEnded());
    EXPECT_EQ(asked(prompts), L"cancelled");
    EXPECT_EQ(asked(prompts, AnswerEnd::Enter), L"cancelled");
    EXPECT_EQ(nextCommand(prompts), L"ended");
    EXPECT_EQ(lines.asked, 1);
}

TEST(PromptSequence, TheEndOfInputAtTheCommandPromptEndsTheSession)
{
    Conversation talk{};
    EXPECT_EQ(nextCommand(talk.prompts), L"ended");
    EXPECT_EQ(asked(talk.prompts), L"cancelled");
}

TEST(PromptSequence, EndingCancelsWhatWouldStillBeAnswered)
{
    Conversation talk{L"QUIT and more", L"MENULOAD"};
    EXPECT_EQ(nextCommand(talk.prompts), L"<QUIT>");
    talk.prompts.end();
    EXPECT_TRUE(talk.prompts.hasEnded());
    EXPECT_EQ(asked(talk.prompts), L"cancelled");
    EXPECT_EQ(nextCommand(talk.prompts), L"ended");
    EXPECT_EQ(talk.lines.unread(), 1U);
}

TEST(PromptSequence, TheRestOfTheLineCanBeTakenAsItStands)
{
    Conversation talk{L"ECHO  \"a\"  b;  %s", L"ECHO", L"x"};
    EXPECT_EQ(nextCommand(talk.prompts), L"<ECHO>");
    EXPECT_EQ(talk.prompts.takeTypedAhead(), L"\"a\"  b;  %s");
    EXPECT_EQ(talk.prompts.takeTypedAhead(), L"");
    EXPECT_EQ(nextCommand(talk.prompts), L"<ECHO>");
    EXPECT_EQ(talk.prompts.takeTypedAhead(), L"");
    EXPECT_EQ(asked(talk.prompts), L"<x>");
}

TEST(PromptSequence, PreparedAnswersAreWholeAndThenEveryPromptIsCancelled)
{
    Conversation talk{L"typed"};
    {
        const Prompts::Prepared prepared(talk.prompts, {L"a b \"c", L"  d  "});
        EXPECT_EQ(asked(talk.prompts), L"<a b \"c>");
        EXPECT_EQ(asked(talk.prompts, AnswerEnd::Enter), L"<  d  >");
        EXPECT_EQ(asked(talk.prompts), L"cancelled");
        EXPECT_EQ(asked(talk.prompts), L"cancelled");
        EXPECT_TRUE(talk.lines.requests.empty());
        EXPECT_FALSE(talk.prompts.hasEnded());
    }
    EXPECT_EQ(asked(talk.prompts), L"<typed>");
}

TEST(PromptSequence, PreparedAnswersAreShownBehindTheirPrompts)
{
    Conversation talk{};
    const Prompts::Prepared prepared(talk.prompts, {L"/t/a b.cuix"});
    EXPECT_EQ(talk.prompts.ask(prompt(L"File: "), AnswerEnd::Blank).text, L"/t/a b.cuix");
    EXPECT_EQ(talk.output.text(), "File: /t/a b.cuix\n");
}

TEST(PromptSequence, PreparedAnswersLeaveTypedAheadTextAlone)
{
    Conversation talk{L"MENULOAD x"};
    EXPECT_EQ(nextCommand(talk.prompts), L"<MENULOAD>");
    {
        const Prompts::Prepared prepared(talk.prompts, {L"p"});
        EXPECT_EQ(asked(talk.prompts), L"<p>");
        EXPECT_EQ(asked(talk.prompts), L"cancelled");
    }
    EXPECT_EQ(asked(talk.prompts), L"<x>");
}

TEST(PromptSequence, PreparedAnswersNest)
{
    Conversation talk{};
    const Prompts::Prepared outer(talk.prompts, {L"1", L"2"});
    EXPECT_EQ(asked(talk.prompts), L"<1>");
    {
        const Prompts::Prepared inner(talk.prompts, {L"i"});
        EXPECT_EQ(asked(talk.prompts), L"<i>");
        EXPECT_EQ(asked(talk.prompts), L"cancelled");
    }
    EXPECT_EQ(asked(talk.prompts), L"<2>");
    EXPECT_EQ(asked(talk.prompts), L"cancelled");
}

TEST(PromptSequence, ItKnowsWhetherAScriptTypes)
{
    EXPECT_FALSE(Conversation({}, Typist::Person).prompts.isScript());
    EXPECT_TRUE(Conversation({}, Typist::Script).prompts.isScript());
}
