// From the user's choice of a menu file to a path.
#include "menufile/menufilepath.h"

#include "tests/support/recordinghost.h"

#include <gtest/gtest.h>

#include <locale>

namespace {

using recording::host;
using Lines = std::vector<std::string>;

constexpr wchar_t kSection[] = L"UserInterfaceSettings\\Select Menu File";
const std::wstring kFilterKey = std::wstring(kSection) + L"\\InitialFilterIndex";
const std::wstring kFileKey = std::wstring(kSection) + L"\\InitialDirectory";

void setInteger(const std::wstring& key, int number)
{
    QuelVariant value;
    value.setInteger(number);
    host().settings[key] = value;
}

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

struct FileDialog : testing::Test
{
    CStdStr<wchar_t> path{L"before"};

    int ask(const wchar_t* initial = L"") { return getMenuFilePathByDialog(path, initial); }
    static void pick(const wchar_t* file, int filter = 0)
    {
        host().fileDialogs.next({5100, file, filter, 0});
    }
};

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

} // namespace

TEST_F(FileDialog, OpensOnTheGivenPathTheFirstTime)
{
    EXPECT_EQ(ask(L"/start"), -5002);
    EXPECT_EQ(dialogCall().substr(0, 16), "vxGetFileDialog(");
    EXPECT_TRUE(contains(dialogCall(), "\"Select Menu File\"")) << dialogCall();
    EXPECT_TRUE(contains(dialogCall(), "\"/start\"")) << dialogCall();
    EXPECT_TRUE(contains(dialogCall(), "\"cuix;mnu;mns;menuc\"")) << dialogCall();
    EXPECT_TRUE(contains(dialogCall(), "\"Customization files(*.cuix)|Menu Template(*.mnu)|Menu "
                                       "File(*.mns)|Menu File(*.menuc)\""))
        << dialogCall();
    EXPECT_EQ(path, L"before");
    EXPECT_TRUE(host().settings.empty());
    EXPECT_TRUE(host().sections.empty());
}

TEST_F(FileDialog, LooksItsTextsUpInOrder)
{
    EXPECT_EQ(ask(), -5002);
    Lines ids;
    for (const std::string& call : host().calls("qumdQuResourceString"))
        ids.push_back(call.substr(0, 26));
    EXPECT_EQ(ids, (Lines{"qumdQuResourceString(11062", "qumdQuResourceString(11004",
                          "qumdQuResourceString(11005"}));
}

TEST_F(FileDialog, RemembersFileAndFilter)
{
    pick(L"/d/chosen.mns", 2);
    EXPECT_EQ(ask(), 5100);
    EXPECT_EQ(path, L"/d/chosen.mns");
    EXPECT_EQ(host().settings[kFilterKey].integerOrZero(), 3);
    EXPECT_EQ(host().settings[kFileKey].stringOrEmpty(), L"/d/chosen.mns");
    EXPECT_EQ(host().sections.count(kSection), 1U);
    EXPECT_TRUE(host().buffers.empty());
    EXPECT_EQ(host().count("quutDelBuffer"), 1);
    EXPECT_EQ(host().foreignFrees, 0);

    EXPECT_EQ(host().count("addItem"), 1);

    host().trace.clear();
    EXPECT_EQ(ask(L"/start"), -5002);
    EXPECT_TRUE(contains(dialogCall(), "\"/d/chosen.mns\"")) << dialogCall();
    EXPECT_FALSE(contains(dialogCall(), "/start"));
    EXPECT_TRUE(contains(dialogCall(), ", 2, \"Custom")) << dialogCall();
    EXPECT_EQ(host().count("addItem"), 0);
}

TEST_F(FileDialog, TakesValuesOfTheWrongKindForNothing)
{
    host().sections.insert(kSection);
    setInteger(kFileKey, 7);
    host().setStringSetting(kFilterKey, L"2");
    EXPECT_EQ(ask(L"/start"), -5002);
    EXPECT_FALSE(contains(dialogCall(), "/start")) << dialogCall();
    EXPECT_TRUE(contains(dialogCall(), ", 0, \"Custom")) << dialogCall();
}

TEST_F(FileDialog, KeepsTheGivenPathWhenNothingCanBeRead)
{
    host().sections.insert(kSection);
    EXPECT_EQ(ask(L"/start"), -5002);
    EXPECT_TRUE(contains(dialogCall(), "\"/start\"")) << dialogCall();
}

TEST_F(FileDialog, LeavesANegativeFilterAsItIs)
{
    host().sections.insert(kSection);
    setInteger(kFilterKey, -4);
    pick(L"/a.cuix", -4);
    EXPECT_EQ(ask(), 5100);
    EXPECT_EQ(host().settings[kFilterKey].integerOrZero(), -4);
}

TEST_F(FileDialog, IsNotShownWithoutAStore)
{
    host().storeIsThere.next(false);
    EXPECT_EQ(ask(), -5001);
    EXPECT_EQ(host().count("vxGetFileDialog"), 0);
    EXPECT_EQ(path, L"before");
}

TEST_F(FileDialog, WithoutAFileStoresNothing)
{
    host().fileDialogs.next({5100, std::nullopt, 1, 0});
    EXPECT_EQ(ask(), 5100);
    EXPECT_TRUE(host().buffers.empty());
}

TEST_F(FileDialog, ReleasesFurtherResults)
{
    host().fileDialogs.next({5100, L"/a.cuix", 0, 2});
    EXPECT_EQ(ask(), 5100);
    EXPECT_EQ(host().count("quutRelRb"), 1);
    EXPECT_TRUE(host().buffers.empty());
}

TEST_F(FileDialog, ReleasesEverythingWhenAWriteThrows)
{
    host().fileDialogs.next({5100, L"/a.cuix", 0, 1});
    const VxErrorStatus* expected = host().throwOnCall("setValue", 2);
    try {
        ask();
        ADD_FAILURE() << "nothing was thrown";
    } catch (VxErrorStatus* error) {
        EXPECT_EQ(error, expected);
        delete error;
    }
    EXPECT_EQ(host().count("quutDelBuffer"), 1);
    EXPECT_EQ(host().count("quutRelRb"), 1);
    EXPECT_TRUE(host().buffers.empty());
}

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
    for (const int status : {-5002, -5001, 5000, 0}) {
        host().strings.next({status, L"junk"});
        EXPECT_EQ(getMenuFilePathByCmd(path), status);
        EXPECT_EQ(path, L"before");
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

TEST_F(FilePrompt, FreesTheMainMenuFileWhenThePromptThrows)
{
    const VxErrorStatus* expected = host().throwOnCall("quedGetString");
    try {
        getMenuFilePathByCmd(path);
        ADD_FAILURE() << "nothing was thrown";
    } catch (VxErrorStatus* error) {
        EXPECT_EQ(error, expected);
        delete error;
    }
    EXPECT_TRUE(host().buffers.empty());
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

TEST(MenuFileSearch, SelectsTheHostsFileForTheKindsOnly)
{
    host().resources[L"QUELDRes.dll"];
    recording::Context context;
    CStdStr<wchar_t> found;
    EXPECT_EQ(getMenuFullPath(&context, L"mymenu", found), 0);
    EXPECT_EQ(host().trace.at(2).substr(0, 23), "RestorePreviousResource") << host().trace.at(2);
    EXPECT_EQ(host().count("SetCurrentResourceName"), 1);
    EXPECT_EQ(host().count("RestorePreviousResource"), 1);
}

TEST(Trimming, FollowsTheGlobalLocale)
{
    EXPECT_EQ(trimmed(L" \t\n a b \r "), L"a b");
    EXPECT_EQ(trimmed(L"   "), L"");
    EXPECT_EQ(trimmed(L""), L"");
    EXPECT_EQ(trimmed(L"a\u3000"), L"a\u3000");
    const std::locale before = std::locale::global(std::locale("C.UTF-8"));
    const std::wstring result = trimmed(L"\u3000a\u3000");
    std::locale::global(before);
    EXPECT_EQ(result, L"a");
}
