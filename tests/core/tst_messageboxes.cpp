// Message boxes as they are asked on the command line.
#include "refhost/core/messageboxes.h"

#include "host/messageboxes.h"
#include "tests/support/germantexts.h"
#include "tests/support/scriptedlines.h"

#include <gtest/gtest.h>

#include <string>

using namespace quelhost;
using namespace quelhost::test;

namespace {

struct Box
{
    Box(std::initializer_list<const wchar_t*> typed)
        : lines(output, typed)
        , prompts(lines, output)
    {}

    int ask(unsigned int flags)
    {
        return askMessageBox(prompts, output, L"Do you want to unload menu?", flags);
    }

    CollectedOutput output;
    ScriptedLines lines;
    Prompts prompts;
};

constexpr unsigned int kOkCancel = QuelBox::kOkCancel;
constexpr unsigned int kYesNo = QuelBox::kYesNo;

struct Row
{
    const char* name;
    unsigned int flags;
    const wchar_t* typed;
    int answer;
};

} // namespace

TEST(MessageBoxes, AreAnsweredByNameOrFirstLetter)
{
    const Row rows[] = {
        {"OK", kOkCancel, L"OK", 1},
        {"OK in small letters", kOkCancel, L"ok", 1},
        {"the first letter of OK", kOkCancel, L"o", 1},
        {"Cancel", kOkCancel, L"Cancel", 2},
        {"CANCEL in capitals", kOkCancel, L"CANCEL", 2},
        {"the first letter of Cancel", kOkCancel, L"C", 2},
        {"with an icon", kOkCancel | QuelBox::kExclamation, L"OK", 1},
        {"Yes", kYesNo, L"yes", 6},
        {"the first letter of Yes", kYesNo, L"Y", 6},
        {"No", kYesNo, L"No", 7},
        {"the first letter of No", kYesNo, L"n", 7},
        {"a quoted name", kYesNo, L"\"yes\"", 6},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        Box box{row.typed};
        EXPECT_EQ(box.ask(row.flags), row.answer);
        EXPECT_EQ(box.lines.requests.size(), 1U);
    }
}

TEST(MessageBoxes, AreAnsweredInTheUsersLanguageToo)
{
    const GermanTexts german;
    ASSERT_TRUE(german.loaded());
    const Row rows[] = {
        {"Ja", kYesNo, L"ja", 6},
        {"the first letter of Ja", kYesNo, L"j", 6},
        {"Nein", kYesNo, L"Nein", 7},
        {"the first letter of Nein", kYesNo, L"n", 7},
        {"Yes", kYesNo, L"Yes", 6},
        {"the first letter of Yes", kYesNo, L"y", 6},
        {"No", kYesNo, L"No", 7},
        {"Abbrechen", kOkCancel, L"abbrechen", 2},
        {"the first letter of Abbrechen", kOkCancel, L"a", 2},
        {"Cancel", kOkCancel, L"cancel", 2},
        {"the first letter of Cancel", kOkCancel, L"c", 2},
        {"OK", kOkCancel, L"ok", 1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        Box box{row.typed};
        EXPECT_EQ(box.ask(row.flags), row.answer);
        EXPECT_EQ(box.lines.requests.size(), 1U);
    }
}

TEST(MessageBoxes, AskAgainUntilAButtonIsNamed)
{
    Box box{L"maybe", L"", L"  ", L"ye", L"1", L"ok", L"y"};
    EXPECT_EQ(box.ask(kYesNo), 6);
    EXPECT_EQ(box.lines.unread(), 0U);
}

TEST(MessageBoxes, TakeTypedAheadText)
{
    Box box{L"MENUUNLOAD c rest"};
    EXPECT_EQ(box.prompts.nextCommand({}), L"MENUUNLOAD");
    EXPECT_EQ(box.ask(kOkCancel), 2);
    EXPECT_EQ(box.lines.requests.size(), 1U);
    EXPECT_EQ(box.prompts.takeTypedAhead(), L"rest");
}

TEST(MessageBoxes, TheSafeAnswerIsWhatACancelAndTheEndGive)
{
    const Row rows[] = {
        {"cancelled OK and Cancel", kOkCancel, L"^C", 2},
        {"cancelled Yes and No", kYesNo, L"^C", 7},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        Box box{row.typed, L"yes"};
        EXPECT_EQ(box.ask(row.flags), row.answer);
        EXPECT_EQ(box.lines.unread(), 1U);
    }
    Box ended{};
    EXPECT_EQ(ended.ask(kOkCancel), 2);
    EXPECT_EQ(ended.ask(kYesNo), 7);
    EXPECT_TRUE(ended.prompts.hasEnded());
}

TEST(MessageBoxes, TheSafeAnswerIsWhatACallWithoutTheUserGets)
{
    Box box{L"yes"};
    const Prompts::Prepared prepared(box.prompts, {});
    EXPECT_EQ(box.ask(kYesNo), 7);
    EXPECT_EQ(box.lines.unread(), 1U);
}

TEST(MessageBoxes, WithOkAloneTakeNoInput)
{
    for (const unsigned int flags : {QuelBox::kOk, QuelBox::kOk | QuelBox::kExclamation}) {
        Box box{L"typed"};
        EXPECT_EQ(box.ask(flags), 1);
        EXPECT_TRUE(box.lines.requests.empty());
        EXPECT_EQ(box.output.text(), "Do you want to unload menu?\n");
    }
}

TEST(MessageBoxes, WithOkAloneLeaveTypedAheadText)
{
    Box box{L"A rest"};
    EXPECT_EQ(box.prompts.nextCommand({}), L"A");
    EXPECT_EQ(box.ask(QuelBox::kOk), 1);
    EXPECT_EQ(box.prompts.takeTypedAhead(), L"rest");
}

TEST(MessageBoxes, ShowTheQuestionAndWhatCanBeAnswered)
{
    Box box{L"ok"};
    box.output.write(L"a message");
    EXPECT_EQ(box.ask(kOkCancel), 1);
    EXPECT_EQ(box.output.text(), "a message\nDo you want to unload menu?\n[OK/Cancel]: ok\n");
    ASSERT_EQ(box.lines.requests.size(), 1U);
    EXPECT_EQ(box.lines.requests[0].completion, Completion::Keywords);
    EXPECT_EQ(box.lines.requests[0].words,
              (QStringList{QStringLiteral("OK"), QStringLiteral("Cancel")}));
}
