// The prompt for a menu file.
#include "menufile/menufilepath.h"

#include "tests/support/recordinghost.h"
#include "tests/support/thrownerror.h"

#include <gtest/gtest.h>

namespace {

using recording::host;
using Lines = std::vector<std::string>;

// What the file dialog was opened with, as the trace has it: the start and the filter.
std::string dialogCall()
{
    const Lines calls = host().calls("vxGetFileDialog");
    return calls.size() == 1 ? calls.front() : std::to_string(calls.size()) + " calls";
}

bool contains(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

struct FilePrompt : testing::Test
{
    CStdStr<wchar_t> path{L"before"};

    FilePrompt() { host().setVariable(L"MENUNAME", std::wstring(L"mymenu")); }
    int type(const wchar_t* answer)
    {
        host().strings.next({5100, answer});
        return getMenuFilePathByCmd(path);
    }
};

} // namespace

TEST_F(FilePrompt, OffersTheMainMenuFile)
{
    EXPECT_EQ(type(L""), 5100);
    EXPECT_EQ(path, L"mymenu");
    EXPECT_TRUE(contains(host().calls("quedGetString").front(),
                         "quedGetString(0, \"Enter customization file name or [. (for "
                         "none)]<mymenu>\")"));
    EXPECT_EQ(host().count("quedInitGet"), 2);
    EXPECT_EQ(host().answerWasZeroed, std::vector<bool>{true});
    EXPECT_TRUE(host().buffers.empty());
    EXPECT_EQ(host().count("quutDelBuffer"), 1);
}

TEST_F(FilePrompt, LooksAtTheFirstCharacterOnly)
{
    EXPECT_EQ(type(L"."), 5100);
    EXPECT_EQ(path, L"");
    path = L"before";
    EXPECT_EQ(type(L"./menu.cuix"), 5100);
    EXPECT_EQ(path, L"");
    EXPECT_EQ(type(L"x.cuix"), 5100);
    EXPECT_EQ(path, L"x.cuix");
    EXPECT_EQ(type(L" ~"), 5100);
    EXPECT_EQ(path, L" ~");
    EXPECT_EQ(host().count("vxGetFileDialog"), 0);
}

TEST_F(FilePrompt, ATildeOpensTheDialogOnTheMainMenuFile)
{
    host().fileDialogs.next({5100, L"/picked.cuix", 0, 0});
    EXPECT_EQ(type(L"~anything"), 5100);
    EXPECT_EQ(path, L"/picked.cuix");
    EXPECT_TRUE(contains(dialogCall(), "\"mymenu\"")) << dialogCall();
    EXPECT_TRUE(host().buffers.empty());
    EXPECT_EQ(type(L"~"), -5002);
    EXPECT_TRUE(host().buffers.empty());
}

TEST_F(FilePrompt, PassesOtherStatusesThrough)
{
    for (const int status : {-5002, -5001, 5000, 0, 1, 5101, 5100 + 0x10000}) {
        for (const wchar_t* answer : {L"junk", L"~", L".", L""}) {
            host().trace.clear();
            host().strings.next({status, answer});
            EXPECT_EQ(getMenuFilePathByCmd(path), status);
            EXPECT_EQ(path, L"before");
            EXPECT_EQ(host().count("quedInitGet"), 2);
            EXPECT_EQ(host().trace.back(), "quutDelBuffer(buffer)");
            EXPECT_EQ(host().trace.size(), 6U); // as for an answer: no dialog
        }
    }
    EXPECT_TRUE(host().buffers.empty());
}

TEST_F(FilePrompt, DoesWithoutAMainMenuFile)
{
    host().variables.clear();
    EXPECT_EQ(type(L""), 5100);
    EXPECT_EQ(path, L"");
    EXPECT_TRUE(contains(host().calls("quedGetString").front(), "none)]<>\")"));
    host().setVariable(L"MENUNAME", std::nullopt);
    path = L"before";
    EXPECT_EQ(type(L""), 5100);
    EXPECT_EQ(path, L"");
    EXPECT_EQ(type(L"~"), -5002);
    EXPECT_TRUE(contains(dialogCall(), "\"Select Menu File\", \"\"")) << dialogCall();
}

TEST_F(FilePrompt, AsksInThisOrder)
{
    const std::string format = "\"Enter customization file name or [. (for none)]<%s>\"";
    const std::string asked = "\"Enter customization file name or [. (for none)]<mymenu>\"";
    EXPECT_EQ(type(L"x.cuix"), 5100);
    EXPECT_EQ(host().trace, (Lines{"quedGetVar(\"MENUNAME\") -> 5100",
                                   "qumdQuResourceString(11069, " + format + ") -> " + format,
                                   "quedInitGet(0, null) -> 5100",
                                   "quedGetString(0, " + asked + ") -> 5100 \"x.cuix\"",
                                   "quedInitGet(0, null) -> 5100", "quutDelBuffer(buffer)"}));
    ASSERT_EQ(host().seenRecords.size(), 1U);
    EXPECT_FALSE(host().seenRecords.front().linked);
    EXPECT_EQ(host().seenRecords.front().type, -1);
    EXPECT_EQ(host().seenRecords.front().value, decltype(recording::SeenRecord::value){});
}

TEST_F(FilePrompt, TakesItsTextFromTheCurrentFile)
{
    host().resources[L"QUELDRes.dll"][11069] = L"wrong file";
    host().resources[L"VxCuiCmdsRes.dll"][11069] = L"Datei <%10s> %%s:";
    host().resourceStack.push_back(L"VxCuiCmdsRes.dll");
    host().setVariable(L"MENUNAME", std::wstring(L"\u043C%s\u4E2D"));
    EXPECT_EQ(type(L"x"), 5100);
    EXPECT_EQ(host().calls("quedGetString").front(),
              "quedGetString(0, \"Datei <      \u043C%s\u4E2D> %s:\") -> 5100 \"x\"");
}

TEST_F(FilePrompt, AsksWithoutATextWhenThereIsNone)
{
    host().resources[L"QUELDRes.dll"][11069] = std::nullopt;
    EXPECT_EQ(type(L"x"), 5100);
    EXPECT_EQ(host().calls("quedGetString").front(), "quedGetString(0, \"\") -> 5100 \"x\"");
    EXPECT_EQ(path, L"x");
}

TEST_F(FilePrompt, TakesTheLongestAnswer)
{
    EXPECT_EQ(type(std::wstring(5000, L'x').c_str()), 5100);
    EXPECT_EQ(path, std::wstring(2047, L'x'));
}

TEST_F(FilePrompt, UsesATextOfAnyTypeButFreesOnlyStrings)
{
    std::wstring own = L"hostsown";
    host().variables[L"MENUNAME"] = [&own](resbuf& record) {
        record.value.string = own.data();
        return -5001; // the status is not looked at
    };
    EXPECT_EQ(type(L""), 5100);
    EXPECT_EQ(path, L"hostsown");
    EXPECT_TRUE(contains(host().calls("quedGetString").front(), "none)]<hostsown>\""));
    EXPECT_EQ(host().count("quutDelBuffer"), 0);
}

TEST_F(FilePrompt, GivesTheMainMenuFileBackBehindTheDialog)
{
    host().fileDialogs.next({5100, L"/picked.cuix", 0, 1});
    EXPECT_EQ(type(L"~"), 5100);
    EXPECT_EQ(host().count("quedInitGet"), 2);
    EXPECT_EQ(host().count("quedGetString"), 1);
    EXPECT_EQ(host().count("quutDelBuffer"), 2);
    EXPECT_EQ(host().trace.back(), "quutDelBuffer(buffer)");
    EXPECT_EQ(*(host().trace.end() - 2), "quutRelRb(chain)");
    EXPECT_TRUE(host().buffers.empty());
    EXPECT_EQ(host().foreignFrees, 0);
}

TEST_F(FilePrompt, ATildeWithoutAStoreIsAnError)
{
    host().storeIsThere.next(false);
    EXPECT_EQ(type(L"~"), -5001);
    EXPECT_EQ(path, L"before");
    EXPECT_TRUE(host().buffers.empty());
}

TEST_F(FilePrompt, LetsEveryErrorPassAndGivesEverythingBack)
{
    const auto prepare = [] {
        recording::reset();
        host().setVariable(L"MENUNAME", std::wstring(L"mymenu"));
        host().fileDialogs.next({5100, L"/picked.cuix", 0, 1});
    };
    prepare();
    ASSERT_EQ(type(L"~"), 5100);
    const auto calls = recording::callsThatMayThrow(host().trace);
    ASSERT_EQ(calls.size(), 15U);
    for (const auto& call : calls) {
        prepare();
        const VxErrorStatus* const thrown = host().throwOnCall(call.function, call.which);
        const auto error = recording::errorThrownBy([this] { return type(L"~"); });
        EXPECT_EQ(error.get(), thrown) << call.function << call.which;
        EXPECT_TRUE(recording::onlyGivesBackBehind(host().trace, call.line))
            << call.function << call.which;
        EXPECT_TRUE(host().buffers.empty()) << call.function << call.which;
        EXPECT_EQ(host().foreignFrees, 0) << call.function << call.which;
    }
}

TEST_F(FilePrompt, CutsALongDefaultInThePrompt)
{
    host().setVariable(L"MENUNAME", std::wstring(3000, L'm'));
    EXPECT_EQ(type(L""), 5100);
    EXPECT_EQ(path.size(), 3000U);
    const std::string call = host().calls("quedGetString").front();
    EXPECT_TRUE(contains(call, "none)]<mmmm"));
    EXPECT_FALSE(contains(call, "m>"));
}
