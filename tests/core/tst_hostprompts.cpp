// The prompts and boxes of the host interface, as modules call them.
#include "host/filedialog.h"
#include "host/messageboxes.h"
#include "host/prompts.h"
#include "host/settings.h"

#include "refhost/core/widetext.h"
#include "tests/support/functioncommand.h"
#include "tests/support/testhost.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

using namespace quelhost;
using namespace quelhost::test;

namespace {

// "STATUS <text>"; the text is "#" where the caller's buffer was left alone.
template<typename Ask>
std::wstring asked(Ask ask, std::size_t room)
{
    std::vector<wchar_t> buffer(room, L'#');
    const int status = ask(buffer.data());
    const std::wstring text(buffer.data(), ::wcsnlen(buffer.data(), room));
    const bool untouched = text == std::wstring(room, L'#');
    return std::to_wstring(status) + L" <" + (untouched ? L"#" : text) + L">";
}

std::wstring string(int onlyEnterEnds = 0)
{
    const auto ask = [=](wchar_t* answer) {
        return quedGetString(onlyEnterEnds, L"Name: ", answer);
    };
    return asked(ask, kQuelStringAnswerRoom);
}

std::wstring keyword()
{
    return asked([](wchar_t* answer) { return quedGetKword(L"Which: ", answer); },
                 kQuelKeywordAnswerRoom);
}

// The files that are offered at a prompt of a command of that name.
QStringList offeredTo(const wchar_t* command)
{
    TestHost test{command, L"x"};
    QuelVariant list;
    list.setString(L"/p/MAIN.cuix;/p/plant.cuix;;/q/a b.cuix", QuelVariant::kString);
    EXPECT_EQ(quelConfig()->setValue(QueldConfig::kUserProfile, L"CUIX/LoadedCuix", list), 0);
    static_cast<void>(test.host->commands.removeCommand(command));
    FunctionCommand asks(command, [](IQuelBuildInCommandContext&) {
        string();
        return QuelStatus::kNormal;
    });
    EXPECT_EQ(test.host->commands.addCommand(&asks, 0), 0);
    test.run();
    return test.lines.requests.size() < 2 ? QStringList(QStringLiteral("no prompt"))
                                          : test.lines.requests[1].words;
}

} // namespace

TEST(HostPrompts, AStringEndsAtABlankOrAtEnter)
{
    const TestHost test{L"a b", L"\"c d\" e", L"f g", L""};
    EXPECT_EQ(string(), L"5100 <a>");
    EXPECT_EQ(string(1), L"5100 <b>");
    EXPECT_EQ(string(), L"5100 <c d>");
    EXPECT_EQ(string(), L"5100 <e>");
    EXPECT_EQ(string(1), L"5100 <f g>");
    EXPECT_EQ(string(), L"5100 <>");
    EXPECT_EQ(test.output.text(),
              "Name: a b\nName: b\nName: \"c d\" e\nName: e\nName: f g\nName: \n");
}

TEST(HostPrompts, EnterIsAnEmptyString)
{
    const TestHost test{L"", L"   "};
    EXPECT_EQ(string(), L"5100 <>");
    EXPECT_EQ(string(1), L"5100 <>");
}

TEST(HostPrompts, ACancelAndTheEndLeaveTheAnswerAlone)
{
    const TestHost test{L"^C", L"a", L"^C"};
    EXPECT_EQ(string(), L"-5002 <#>");
    EXPECT_EQ(string(), L"5100 <a>");
    EXPECT_EQ(keyword(), L"-5002 <#>");
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(string(), L"-5002 <#>");
        EXPECT_EQ(keyword(), L"-5002 <#>");
    }
}

TEST(HostPrompts, AnswersAreCutToTheRoomOfTheCaller)
{
    TestHost test;
    const std::wstring longAnswer(5000, L'x');
    test.lines.add(longAnswer);
    test.lines.add(std::wstring(2047, L'y'));
    EXPECT_EQ(string(), L"5100 <" + longAnswer.substr(0, 2047) + L">");
    EXPECT_EQ(string(), L"5100 <" + std::wstring(2047, L'y') + L">");

    const std::wstring longKeyword(5000, L'K');
    ASSERT_EQ(quedInitGet(0, longKeyword.c_str()), 5100);
    test.lines.add(longKeyword);
    EXPECT_EQ(keyword(), L"5100 <" + longKeyword.substr(0, 1023) + L">");
}

TEST(HostPrompts, AKeywordComesBackWhole)
{
    const TestHost test{L"tool", L"ACCELERATOR", L"a"};
    for (const wchar_t* expected : {L"Toolbar", L"Accelerator", L"Accelerator"}) {
        ASSERT_EQ(quedInitGet(0, L"Accelerator  Toolbar"), 5100);
        EXPECT_EQ(keyword(), std::wstring(L"5100 <") + expected + L">");
    }
    ASSERT_EQ(test.lines.requests.size(), 3U);
    EXPECT_EQ(test.lines.requests[0].completion, Completion::Keywords);
    EXPECT_EQ(test.lines.requests[0].words,
              (QStringList{QStringLiteral("Accelerator"), QStringLiteral("Toolbar")}));
}

TEST(HostPrompts, EnterAtAKeywordIsTheEmptyAnswer)
{
    const TestHost test{L""};
    ASSERT_EQ(quedInitGet(0, L"Accelerator Toolbar"), 5100);
    EXPECT_EQ(keyword(), L"5000 <#>");
}

TEST(HostPrompts, AnUnknownKeywordIsToldAndAskedForAgain)
{
    const TestHost test{L"%1 what", L"t"};
    ASSERT_EQ(quedInitGet(0, L"Accelerator Toolbar"), 5100);
    EXPECT_EQ(keyword(), L"5100 <Toolbar>");
    EXPECT_EQ(test.output.text(), "Which: %1 what\n\"%1\" is none of Accelerator, Toolbar.\n"
                                  "Which: what\n\"what\" is none of Accelerator, Toolbar.\n"
                                  "Which: t\n");
}

TEST(HostPrompts, KeywordsAreThoseOfTheNextPromptOnly)
{
    const TestHost test{L"t", L"t", L"x", L"t"};
    ASSERT_EQ(quedInitGet(0, L"Accelerator Toolbar"), 5100);
    EXPECT_EQ(keyword(), L"5100 <Toolbar>");
    EXPECT_EQ(keyword(), L"-5002 <#>"); // nothing that is typed is a keyword now
    EXPECT_EQ(test.lines.unread(), 0U);
}

TEST(HostPrompts, AStringPromptUsesTheKeywordsUp)
{
    const TestHost test{L"a", L"t"};
    ASSERT_EQ(quedInitGet(0, L"Accelerator Toolbar"), 5100);
    EXPECT_EQ(string(), L"5100 <a>");
    EXPECT_EQ(keyword(), L"-5002 <#>");
}

TEST(HostPrompts, NullClearsTheKeywords)
{
    const TestHost test{L"t"};
    ASSERT_EQ(quedInitGet(0, L"Accelerator Toolbar"), 5100);
    ASSERT_EQ(quedInitGet(0, nullptr), 5100);
    EXPECT_EQ(keyword(), L"-5002 <#>");
}

TEST(HostPrompts, AMissingPromptIsAnEmptyOne)
{
    const TestHost test{L"a", L""};
    std::array<wchar_t, kQuelStringAnswerRoom> answer{};
    EXPECT_EQ(quedGetString(0, nullptr, answer.data()), 5100);
    EXPECT_EQ(quedGetKword(nullptr, answer.data()), 5000);
    EXPECT_EQ(test.output.text(), "a\n\n");
}

TEST(HostPrompts, AScriptIsKnownAsOne)
{
    {
        const TestHost test({}, {Typist::Script});
        EXPECT_TRUE(quedScriptAppRunning());
    }
    const TestHost test;
    EXPECT_FALSE(quedScriptAppRunning());
}

TEST(HostBoxes, AllThreeAskTheSameWay)
{
    const TestHost test{L"c", L"n", L"ok"};
    EXPECT_EQ(MessageBoxW(L"Unload?", nullptr, QuelBox::kOkCancel | QuelBox::kExclamation), 2);
    EXPECT_EQ(MessageBoxW(nullptr, L"Sure?", L"Caption", QuelBox::kYesNo), 7);
    EXPECT_EQ(AfxMessageBox(L"Reload?", 1, 0), 1);
    EXPECT_EQ(MessageBoxW(L"%s%n done", GetOemProductName(), 0x30), 1);
    EXPECT_EQ(test.output.text(), "Unload?\n[OK/Cancel]: c\nSure?\n[Yes/No]: n\n"
                                  "Reload?\n[OK/Cancel]: ok\n%s%n done\n");
}

TEST(HostBoxes, ANullTextIsAnEmptyBox)
{
    const TestHost test;
    EXPECT_EQ(AfxMessageBox(nullptr, 0, 0), 1);
    EXPECT_EQ(AfxMessageBox(nullptr, 1, 0), 2);
}

TEST(HostFileDialog, AFileIsPickedInText)
{
    TestHost test;
    const QString file = test.profile.file("a b.cuix");
    ASSERT_TRUE(setBytes(file, "x"));
    test.lines.add(toWide(file));
    resbuf result{};
    int filter = 3;
    ASSERT_EQ(vxGetFileDialog(L"Select Menu File", L"", L"cuix", 0x18080002, &result, nullptr,
                              filter, L"All(*.*)|Some(*.cuix)", nullptr),
              5100);
    EXPECT_EQ(result.type, 5005);
    EXPECT_EQ(std::wstring(result.value.string), toWide(file));
    EXPECT_EQ(filter, 3);
    void* buffer = result.value.string;
    quutDelBuffer(buffer);
}

TEST(HostFileDialog, ACancelLeavesEverythingAlone)
{
    const TestHost test{L"^C"};
    resbuf result{};
    result.type = 77;
    int filter = 3;
    EXPECT_EQ(vxGetFileDialog(L"Select Menu File", nullptr, nullptr, 0, &result, nullptr, filter,
                              nullptr, nullptr),
              -5002);
    EXPECT_EQ(result.type, 77);
    EXPECT_EQ(result.value.string, nullptr);
    EXPECT_EQ(filter, 3);
}

TEST(HostPrompts, WhoUnloadsIsOfferedTheLoadedFilesButTheMainOne)
{
    const QStringList loaded{QStringLiteral("/p/plant.cuix"), QStringLiteral("/q/a b.cuix")};
    EXPECT_EQ(offeredTo(L"MENUUNLOAD"), loaded);
    EXPECT_EQ(offeredTo(L"CUIUNLOAD"), loaded);
    EXPECT_EQ(offeredTo(L"MENULOAD"), QStringList());
}
