// The search for a menu file that was named.
#include "menufile/menufilepath.h"

#include "host/commands.h"
#include "tests/support/globallocale.h"
#include "tests/support/recordinghost.h"
#include "tests/support/thrownerror.h"

#include <gtest/gtest.h>

namespace {

using recording::host;
using Lines = std::vector<std::string>;

struct SearchRow
{
    const char* name;
    const wchar_t* kinds; // null for the module's own list
    const wchar_t* file;
    Lines candidates;
};

class SearchFor : public testing::TestWithParam<SearchRow>
{};

INSTANTIATE_TEST_SUITE_P(
    MenuFiles, SearchFor,
    testing::Values(
        SearchRow{
            "NoDot", nullptr, L"mymenu", {"mymenu.cuix", "mymenu.cuix.mnu", "mymenu.cuix.mnu.mns"}},
        SearchRow{"Supported", nullptr, L"mymenu.CUIX", {"mymenu.CUIX"}},
        SearchRow{"SupportedBehindBlanks", nullptr, L"mymenu.cuix ", {"mymenu.cuix "}},
        SearchRow{"LastKindIsUnsupported",
                  nullptr,
                  L"mymenu.menuc",
                  {"mymenu.menuc.cuix", "mymenu.menuc.cuix.mnu", "mymenu.menuc.cuix.mnu.mns"}},
        SearchRow{
            "DotFirst", nullptr, L".cuix", {".cuix.cuix", ".cuix.cuix.mnu", ".cuix.cuix.mnu.mns"}},
        SearchRow{"OtherExtension",
                  nullptr,
                  L"a.txt",
                  {"a.txt.cuix", "a.txt.cuix.mnu", "a.txt.cuix.mnu.mns"}},
        SearchRow{"SeveralDots", nullptr, L"a.b.mns", {"a.b.mns"}},
        SearchRow{"Empty", nullptr, L"", {".cuix", ".cuix.mnu", ".cuix.mnu.mns"}},
        SearchRow{"NoKinds", L"", L"a", {}}, SearchRow{"OneKindIsTheLast", L"mnu", L"a", {}},
        SearchRow{"LeadingSeparator", L";a;b", L"x", {}},
        SearchRow{"DoubledSeparator", L"a;;b", L"x", {"x.a"}},
        SearchRow{"TrailingSeparator", L"a;b;", L"x", {"x.a", "x.a.b"}}),
    [](const auto& row) { return std::string(row.param.name); });

// A host whose search gives this status, and leaves something in the result whatever it is.
class SearchingContext final : public IQuelBuildInCommandContext
{
public:
    explicit SearchingContext(int status)
        : m_status(status)
    {}
    const wchar_t* globalName() const override { return L"MENU"; }
    bool isCommandLineOnly() const override { return false; }
    bool enterResourceScope(const wchar_t*) override { return false; }
    void leaveResourceScope(int) override {}
    int findFile(const wchar_t*, wchar_t* result) override
    {
        ++searches;
        result[0] = L'/';
        result[1] = L'\0';
        return m_status;
    }

    int searches = 0;

private:
    const int m_status;
};

} // namespace

TEST_P(SearchFor, TriesTheCandidatesInOrder)
{
    if (GetParam().kinds != nullptr)
        host().resources[L"QUELDRes.dll"][11005] = GetParam().kinds;
    recording::Context context;
    CStdStr<wchar_t> found(L"untouched");
    EXPECT_EQ(getMenuFullPath(&context, GetParam().file, found), 0);
    EXPECT_EQ(found, L"untouched");
    Lines expected;
    for (const std::string& candidate : GetParam().candidates)
        expected.push_back("findFile(\"" + candidate + "\") -> 1");
    EXPECT_EQ(host().calls("findFile"), expected);
}

TEST(MenuFileSearch, StopsAtTheFirstFileFound)
{
    recording::Context context;
    host().filesToFind[L"mymenu.cuix.mnu"] = L"/full/mymenu.cuix.mnu";
    CStdStr<wchar_t> found;
    EXPECT_EQ(getMenuFullPath(&context, L"mymenu", found), 1);
    EXPECT_EQ(found, L"/full/mymenu.cuix.mnu");
    EXPECT_EQ(host().count("findFile"), 2);
}

TEST(MenuFileSearch, ExtensionsPileUpAndTheLastKindIsNeverTried)
{
    for (const wchar_t* file :
         {L"mymenu.mnu", L"mymenu.mns", L"mymenu.menuc", L"mymenu", L"mymenu.cuix.mnu.mns.menuc"})
        host().filesToFind[file] = L"/full";
    recording::Context context;
    CStdStr<wchar_t> found(L"untouched");
    EXPECT_EQ(getMenuFullPath(&context, L"mymenu", found), 0);
    EXPECT_EQ(found, L"untouched");
    host().filesToFind[L"mymenu.cuix.mnu.mns"] = L"/piled/up";
    EXPECT_EQ(getMenuFullPath(&context, L"mymenu", found), 1);
    EXPECT_EQ(found, L"/piled/up");
}

TEST(MenuFileSearch, ANameWithAnExtensionIsSearchedOnceAsItIs)
{
    for (const wchar_t* file : {L"mymenu", L"mymenu.cuix", L"mymenu.cuix .cuix"})
        host().filesToFind[file] = L"/full";
    recording::Context context;
    CStdStr<wchar_t> found(L"untouched");
    EXPECT_EQ(getMenuFullPath(&context, L"mymenu.cuix ", found), 0);
    EXPECT_EQ(found, L"untouched");
    EXPECT_EQ(host().calls("findFile"), Lines{"findFile(\"mymenu.cuix \") -> 1"});
    EXPECT_EQ(host().count("SetCurrentResourceName"), 1);
}

TEST(MenuFileSearch, TakesZeroAloneForFound)
{
    for (const int status : {1, -1, 5100, 0x10000}) {
        SearchingContext context(status);
        CStdStr<wchar_t> found(L"untouched");
        EXPECT_EQ(getMenuFullPath(&context, L"a.cuix", found), 0) << status;
        EXPECT_EQ(context.searches, 1) << status;
        EXPECT_EQ(getMenuFullPath(&context, L"a", found), 0) << status;
        EXPECT_EQ(context.searches, 4) << status;
        EXPECT_EQ(found, L"untouched") << status;
    }
    SearchingContext context(0);
    CStdStr<wchar_t> found;
    EXPECT_EQ(getMenuFullPath(&context, L"a", found), 1);
    EXPECT_EQ(found, L"/");
}

TEST(MenuFileSearch, SelectsTheHostsFileForTheKindsOnly)
{
    recording::Context context;
    CStdStr<wchar_t> found;
    std::size_t filesDuringSearch = 0;
    host().onCall("findFile", 1, [&] { filesDuringSearch = host().resourceStack.size(); });
    EXPECT_EQ(getMenuFullPath(&context, L"a.txt", found), 0);
    const std::string select = "SetCurrentResourceName(\"QUELDRes.dll\") -> true";
    const std::string kinds =
        "qumdQuResourceString(11005, \"cuix;mnu;mns;menuc\") -> \"cuix;mnu;mns;menuc\"";
    const std::string restore = "RestorePreviousResource()";
    EXPECT_EQ(
        host().trace,
        (Lines{select, kinds, restore, select, kinds, restore, "findFile(\"a.txt.cuix\") -> 1",
               "findFile(\"a.txt.cuix.mnu\") -> 1", "findFile(\"a.txt.cuix.mnu.mns\") -> 1"}));
    EXPECT_EQ(filesDuringSearch, 1U);
}

TEST(MenuFileSearch, RestoresNothingThatItDidNotSelect)
{
    host().globalScope.usually(false);
    recording::Context context;
    CStdStr<wchar_t> found;
    EXPECT_EQ(getMenuFullPath(&context, L"a.txt", found), 0);
    EXPECT_EQ(host().count("findFile"), 3);
    EXPECT_EQ(host().count("RestorePreviousResource"), 0);
}

TEST(MenuFileSearch, WithoutATextForTheKindsSearchesNothing)
{
    host().resources[L"QUELDRes.dll"][11005] = std::nullopt;
    recording::Context context;
    CStdStr<wchar_t> found(L"untouched");
    EXPECT_EQ(getMenuFullPath(&context, L"mymenu", found), 0);
    EXPECT_EQ(host().count("findFile"), 0);
    EXPECT_EQ(found, L"untouched");
}

TEST(MenuFileSearch, GivesTheWholePathThatTheHostFound)
{
    const std::wstring longest = L"/" + std::wstring(1022, L'd');
    host().filesToFind[L"mymenu.cuix"] = longest;
    recording::Context context;
    CStdStr<wchar_t> found(L"before");
    EXPECT_EQ(getMenuFullPath(&context, L"mymenu.cuix", found), 1);
    EXPECT_EQ(found, longest);
    EXPECT_EQ(host().count("findFile"), 1);
}

TEST(MenuFileSearch, TrimsTheExtensionByTheGlobalLocaleAndTheNameNever)
{
    recording::Context context;
    CStdStr<wchar_t> found;
    EXPECT_EQ(getMenuFullPath(&context, L"a.cuix\u3000", found), 0);
    EXPECT_EQ(host().count("findFile"), 3);
    recording::reset();
    const recording::GlobalLocale changed("C.UTF-8");
    EXPECT_EQ(getMenuFullPath(&context, L"a.cuix\u3000", found), 0);
    EXPECT_EQ(host().calls("findFile"), Lines{"findFile(\"a.cuix\u3000\") -> 1"});
}

TEST(MenuFileSearch, LetsErrorsPassAndRestoresTheFile)
{
    struct Row
    {
        const char* call;
        int which;
        int restored;
    };
    for (const Row& row : {Row{"SetCurrentResourceName", 1, 0}, Row{"qumdQuResourceString", 1, 1},
                           Row{"SetCurrentResourceName", 2, 1}, Row{"qumdQuResourceString", 2, 2},
                           Row{"findFile", 1, 2}, Row{"findFile", 3, 2}}) {
        recording::reset();
        recording::Context context;
        CStdStr<wchar_t> found(L"untouched");
        const VxErrorStatus* const thrown = host().throwOnCall(row.call, row.which);
        const auto error =
            recording::errorThrownBy([&] { return getMenuFullPath(&context, L"a.txt", found); });
        EXPECT_EQ(error.get(), thrown) << row.call << row.which;
        EXPECT_EQ(host().count("RestorePreviousResource"), row.restored) << row.call << row.which;
        EXPECT_EQ(host().resourceStack.size(), 1U) << row.call << row.which;
        EXPECT_EQ(found, L"untouched") << row.call << row.which;
    }
}

TEST(Trimming, FollowsTheGlobalLocale)
{
    EXPECT_EQ(trimmed(L" \t\n a b \r "), L"a b");
    EXPECT_EQ(trimmed(L"   "), L"");
    EXPECT_EQ(trimmed(L""), L"");
    EXPECT_EQ(trimmed(L"a\u3000"), L"a\u3000");
    const recording::GlobalLocale changed("C.UTF-8");
    EXPECT_EQ(trimmed(L"\u3000a\u3000"), L"a");
    EXPECT_EQ(trimmed(L"\u00A0a\u00A0"), L"\u00A0a\u00A0");
}
