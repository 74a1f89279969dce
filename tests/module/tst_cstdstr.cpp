#include "host/cstdstr.h"

#include "tests/support/recordinghost.h"

#include <gtest/gtest.h>

#include <QString>

#include <type_traits>

using recording::host;
using Lines = std::vector<std::string>;

namespace {

const std::wstring kModuleFile = L"VxCuiCmdsRes.dll";

CStdStr<wchar_t> formatted(const wchar_t* format, const std::wstring& argument)
{
    CStdStr<wchar_t> text(L"before");
    text.Format(format, argument.c_str());
    return text;
}

} // namespace

TEST(CStdStr, IsAStandardString)
{
    CStdStr<wchar_t> text;
    EXPECT_TRUE(text.empty());
    text = CStdStr<wchar_t>(L"abc");
    text += L"d";
    EXPECT_EQ(text, L"abcd");
    EXPECT_EQ(CStdStr<wchar_t>(3, L'x'), L"xxx");
    EXPECT_EQ(CStdStr<wchar_t>(std::wstring(L"s")), L"s");
}

TEST(CStdStr, TakesTheTextOfAHostString)
{
    EXPECT_EQ(CStdStr<wchar_t>(QuString(L"text")), L"text");
    EXPECT_EQ(CStdStr<wchar_t>(QuString(L"")), L"");
    EXPECT_EQ(CStdStr<wchar_t>(QuString()), L"");
}

TEST(CStdStr, FormatsWideNames)
{
    EXPECT_EQ(formatted(L"<%s>", L"\u00E9\u4E2D\U0001F600.cuix"), L"<\u00E9\u4E2D\U0001F600.cuix>");
    EXPECT_EQ(formatted(L"<%ls>", L"\u043C\u0435\u043D\u044E"), L"<\u043C\u0435\u043D\u044E>");
    EXPECT_EQ(formatted(L"<%10s>", L"abc"), L"<       abc>");
    EXPECT_EQ(formatted(L"<%-10s>", L"abc"), L"<abc       >");
    EXPECT_EQ(formatted(L"<%%s>", L"abc"), L"<%s>");
    EXPECT_EQ(formatted(L"<%.3s>", L"abcdef"), L"<abc>");
    EXPECT_EQ(formatted(L"no conversion", L"abc"), L"no conversion");
    EXPECT_EQ(formatted(L"", L"abc"), L"");
    EXPECT_EQ(formatted(L"%s", L"%s%n%d"), L"%s%n%d");
}

TEST(CStdStr, FormatsSeveralArguments)
{
    CStdStr<wchar_t> text;
    text.Format(L"%s has %d of %u%%: %c", L"it", -3, 7U, L'x');
    EXPECT_EQ(text, L"it has -3 of 7%: x");
}

TEST(CStdStr, MakesNothingOfANullFormat)
{
    CStdStr<wchar_t> text(L"before");
    const wchar_t* const none = nullptr;
    text.Format(none, L"argument");
    EXPECT_EQ(text, L"");
    text = L"before";
    text.Format(none);
    EXPECT_EQ(text, L"");
}

TEST(CStdStr, CutsAResultThatIsTooLong)
{
    struct Row
    {
        const char* name;
        std::wstring format;
        std::size_t argumentLength;
    };
    for (const Row& row : {Row{"nothing around", L"%s", 3000}, Row{"text around", L"<%s>", 3000},
                           Row{"long format", std::wstring(2000, L'f') + L"%s", 5000}}) {
        const std::wstring argument(row.argumentLength, L'n');
        const CStdStr<wchar_t> text = formatted(row.format.c_str(), argument);
        const std::size_t at = row.format.find(L"%s");
        const std::wstring whole = row.format.substr(0, at) + argument + row.format.substr(at + 2);
        ASSERT_GE(text.size(), row.format.size() + 1022) << row.name;
        ASSERT_LE(text.size(), row.format.size() + 1023) << row.name;
        EXPECT_EQ(text, whole.substr(0, text.size())) << row.name;
    }
}

TEST(CStdStr, KeepsAResultThatJustFits)
{
    const std::wstring argument(1024, L'n'); // with the two characters of the conversion gone
    EXPECT_EQ(formatted(L"%s", argument), argument);
}

TEST(CStdStr, MayFormatItself)
{
    CStdStr<wchar_t> text(L"inner text that is not short");
    text.Format(L"<%s>", text.c_str());
    EXPECT_EQ(text, L"<inner text that is not short>");
}

TEST(CStdStr, FormatsByResource)
{
    recording::Context context;
    ASSERT_TRUE(context.enterResourceScope(kModuleFile.c_str()));
    host().trace.clear();
    host().resources[kModuleFile][11065] = L"\"%s\" is already loaded.";
    CStdStr<wchar_t> text(L"before");
    text.Format(11065U, L"/t/\U0001F600.cuix");
    EXPECT_EQ(text, L"\"/t/\U0001F600.cuix\" is already loaded.");
    EXPECT_EQ(host().trace, (Lines{"AfxGetResourceHandle() -> VxCuiCmdsRes.dll",
                                   "LoadStringW(VxCuiCmdsRes.dll, 11065, 1024) -> 23"}));
}

TEST(CStdStr, StaysAsItIsWithoutTheResource)
{
    CStdStr<wchar_t> text(L"before");
    text.Format(11065U, L"argument");
    EXPECT_EQ(text, L"before");
    for (const int result : {0, -1}) {
        host().loadString = [result](unsigned int, wchar_t* buffer, int) {
            std::wcscpy(buffer, L"ignored %s");
            return result;
        };
        text.Format(11065U, L"argument");
        EXPECT_EQ(text, L"before") << result;
    }
}

TEST(CStdStr, UsesAtMostItsRoomOfAResource)
{
    host().resources[L"QUELDRes.dll"][7] = std::wstring(3000, L'f') + L"%s";
    CStdStr<wchar_t> text;
    text.Format(7U, L"argument");
    EXPECT_EQ(text, std::wstring(1023, L'f'));
}

TEST(CStdStr, CutsAResultByResourceThatIsTooLong)
{
    host().resources[L"QUELDRes.dll"][7] = L"<%s>";
    const std::wstring argument(5000, L'n');
    CStdStr<wchar_t> text;
    text.Format(7U, argument.c_str());
    const std::wstring whole = L"<" + argument + L">";
    ASSERT_GE(text.size(), 4U + 1022);
    ASSERT_LE(text.size(), 4U + 1023);
    EXPECT_EQ(text, whole.substr(0, text.size()));
}

TEST(CStdStr, LeavesSurplusConversionsAsTheyStand)
{
    host().resources[L"QUELDRes.dll"][7] = L"%s %s %n %d";
    CStdStr<wchar_t> text;
    text.Format(7U, L"one");
    EXPECT_EQ(text, L"one %s %n %d");
}

TEST(CStdStr, LetsAnErrorOfTheLookupPassAndStaysAsItIs)
{
    const VxErrorStatus* const thrown = host().throwOnCall("LoadStringW");
    CStdStr<wchar_t> text(L"before");
    const VxErrorStatus* caught = nullptr;
    try {
        text.Format(7U, L"one");
    } catch (VxErrorStatus* error) {
        caught = error;
    }
    EXPECT_EQ(caught, thrown);
    EXPECT_EQ(text, L"before");
    delete caught;
}

TEST(CStdStr, TakesNoStringObjectForAnArgument)
{
    EXPECT_TRUE((std::is_convertible_v<const wchar_t*, FormatArgument>));
    EXPECT_FALSE((std::is_convertible_v<CStdStr<wchar_t>, FormatArgument>));
    EXPECT_FALSE((std::is_convertible_v<std::wstring, FormatArgument>));
    EXPECT_FALSE((std::is_convertible_v<QuString, FormatArgument>));
    EXPECT_FALSE((std::is_convertible_v<QString, FormatArgument>));
    EXPECT_FALSE((std::is_convertible_v<const char*, FormatArgument>));
}
