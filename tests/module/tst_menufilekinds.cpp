// Menu file kinds, dialogs or prompts, and the warning before a template is loaded.
#include "menufile/menufilekinds.h"

#include "tests/support/recordinghost.h"

#include <gtest/gtest.h>

#include <locale>

namespace {

using recording::host;
using Lines = std::vector<std::string>;

constexpr wchar_t kHostFile[] = L"QUELDRes.dll";

struct KindRow
{
    const char* name;
    const wchar_t* kinds; // null for the module's own list
    const wchar_t* extension;
    int supported;
};

class KindOf : public testing::TestWithParam<KindRow>
{};

INSTANTIATE_TEST_SUITE_P(
    MenuFiles, KindOf,
    testing::Values(KindRow{"OfTheDefaultInCapitals", nullptr, L".CUIX", 1},
                    KindRow{"OfTheDefaultMixed", nullptr, L".Mns", 1},
                    KindRow{"OfTheDefaultSecond", nullptr, L".mnu", 1},
                    KindRow{"LastOfTheDefaultIsNeverTried", nullptr, L".menuc", 0},
                    KindRow{"WithoutDot", nullptr, L"cuix", 0}, KindRow{"Empty", nullptr, L"", 0},
                    KindRow{"TrailingBlank", nullptr, L".cuix ", 0},
                    KindRow{"LongerThanTheKind", nullptr, L".cuixx", 0},
                    KindRow{"ShorterThanTheKind", nullptr, L".cui", 0},
                    KindRow{"OnlyOneKind", L"mnu", L".MNU", 1},
                    KindRow{"OuterSeparatorsAreTrimmed", L";mnu;", L".mnu", 1},
                    KindRow{"ManyOuterSeparators", L";;;mnu;;", L".mnu", 1},
                    KindRow{"EmptyKindEndsTheSearch", L"cuix;;mnu", L".mnu", 0},
                    KindRow{"BeforeAnEmptyKind", L"cuix;;mnu", L".cuix", 1},
                    KindRow{"NoKindsAndALoneDot", L"", L".", 1},
                    KindRow{"OnlySeparatorsAndALoneDot", L";;", L".", 1},
                    KindRow{"NoKinds", L"", L".cuix", 0},
                    KindRow{"OtherLettersKeepTheirCase", L"\u00E9;x", L".\u00C9", 0},
                    KindRow{"KelvinSignIsNoK", L"k;x", L".\u212A", 0}),
    [](const auto& row) { return std::string(row.param.name); });

struct AsCommandLine : testing::Test
{
    AsCommandLine() { host().setVariable(L"FILEDIA", short{1}); }
};

struct ReplaceWarning : testing::Test
{
    ReplaceWarning()
    {
        host().setVariable(L"FILEDIA", short{1});
        host().productName = L"Product";
    }
};

} // namespace

TEST_P(KindOf, ExtensionIsCompared)
{
    if (GetParam().kinds != nullptr)
        host().resources[kHostFile][11005] = GetParam().kinds;
    const std::size_t before = host().resourceStack.size();
    EXPECT_EQ(IsSupportMenuExt(CStdStr<wchar_t>(GetParam().extension)), GetParam().supported);
    EXPECT_EQ(host().count("SetCurrentResourceName"), 1);
    EXPECT_EQ(host().resourceStack.size(), before);
}

TEST(MenuFileKinds, AreReadFromTheHostsFileOnEveryCall)
{
    EXPECT_EQ(IsSupportMenuExt(CStdStr<wchar_t>(L".cuix")), 1);
    host().resources[kHostFile][11005] = L"one;two";
    EXPECT_EQ(IsSupportMenuExt(CStdStr<wchar_t>(L".cuix")), 0);
    EXPECT_EQ(IsSupportMenuExt(CStdStr<wchar_t>(L".ONE")), 1);
    EXPECT_EQ(host().calls("SetCurrentResourceName").front().substr(0, 38),
              "SetCurrentResourceName(\"QUELDRes.dll\")");
}

TEST(MenuFileKinds, DoNotRestoreAFileThatWasNotSelected)
{
    host().globalScope.next(false);
    EXPECT_EQ(IsSupportMenuExt(CStdStr<wchar_t>(L".cuix")), 1);
    EXPECT_EQ(host().count("RestorePreviousResource"), 0);
}

TEST(MenuFileKinds, RestoreTheFileWhenTheHostThrows)
{
    host().resources[kHostFile];
    const VxErrorStatus* expected = host().throwOnCall("qumdQuResourceString");
    try {
        IsSupportMenuExt(CStdStr<wchar_t>(L".cuix"));
        ADD_FAILURE() << "nothing was thrown";
    } catch (VxErrorStatus* error) {
        EXPECT_EQ(error, expected);
        delete error;
    }
    EXPECT_EQ(host().count("RestorePreviousResource"), 1);
}

TEST(MenuFileKinds, WithoutATextLeaveTheLoneDot)
{
    host().resources[kHostFile][11005] = std::nullopt;
    EXPECT_EQ(IsSupportMenuExt(CStdStr<wchar_t>(L".")), 1);
    EXPECT_EQ(IsSupportMenuExt(CStdStr<wchar_t>(L".cuix")), 0);
}

TEST(MenuFileKinds, AreComparedByTheClassicLocaleWhateverTheGlobalOne)
{
    const std::locale before = std::locale::global(std::locale("C.UTF-8"));
    host().resources[kHostFile][11005] = L"\u00E9;x";
    const int supported = IsSupportMenuExt(CStdStr<wchar_t>(L".\u00C9"));
    std::locale::global(before);
    EXPECT_EQ(supported, 0);
}

TEST_F(AsCommandLine, IsNotTheCaseWhenFileDialogsAreOn)
{
    EXPECT_EQ(IsRunAsCmdLineCommand(), 0);
    EXPECT_EQ(host().count("quedGetVar"), 1);
}

TEST_F(AsCommandLine, IsTheCaseForEveryOtherValue)
{
    for (const short value : {short{0}, short{2}, short{-1}, short{257}}) {
        host().setVariable(L"FILEDIA", value);
        EXPECT_EQ(IsRunAsCmdLineCommand(), 1) << value;
    }
}

TEST_F(AsCommandLine, IsTheCaseInAScriptWithoutALookAtTheVariable)
{
    host().scriptRuns.next(true);
    EXPECT_EQ(IsRunAsCmdLineCommand(), 1);
    EXPECT_EQ(host().count("quedGetVar"), 0);
}

TEST_F(AsCommandLine, IsTheCaseForADocumentWithoutDialogs)
{
    host().documentFlags = 0x01;
    EXPECT_EQ(IsRunAsCmdLineCommand(), 1);
    EXPECT_EQ(host().count("quedGetVar"), 0);
    host().documentFlags = 0xFE;
    EXPECT_EQ(IsRunAsCmdLineCommand(), 0);
}

TEST_F(AsCommandLine, TakesNoDocumentForOneThatAllowsDialogs)
{
    host().documentFlags = std::nullopt;
    EXPECT_EQ(IsRunAsCmdLineCommand(), 0);
}

TEST_F(AsCommandLine, IsTheCaseWhenTheVariableCannotBeRead)
{
    host().variables.clear();
    EXPECT_EQ(IsRunAsCmdLineCommand(), 1);
    ASSERT_EQ(host().seenRecords.size(), 1U);
    EXPECT_FALSE(host().seenRecords.front().linked);
    EXPECT_EQ(host().seenRecords.front().type, -1);
}

TEST_F(AsCommandLine, LooksAtSixteenBitsOnly)
{
    host().variables[L"FILEDIA"] = [](resbuf& record) {
        record.type = QuelResultType::kLong;
        record.value.longInteger = static_cast<int>(0xFFFF0001);
        return -5001; // the status is not looked at
    };
    EXPECT_EQ(IsRunAsCmdLineCommand(), 0);
}

TEST_F(ReplaceWarning, IsNotShownForAMenuSourceFile)
{
    EXPECT_EQ(MenuLoadReplaceAll(CStdStr<wchar_t>(L"a.MNS")), 0);
    EXPECT_EQ(host().printed, L"");
    EXPECT_EQ(host().count("MessageBoxW"), 0);
    EXPECT_EQ(host().count("qumdQuResourceString"), 0);
}

TEST_F(ReplaceWarning, AsksForEveryOtherName)
{
    const std::string question =
        "Loading a template menu file will result in the loss of any toolbar customization "
        "changes that have been made. Continue loading?";
    for (const wchar_t* name : {L".mns", L"menu.cuix", L"menu.menuc", L""}) {
        recording::reset();
        host().setVariable(L"FILEDIA", short{1});
        host().boxes.next(6);
        EXPECT_EQ(MenuLoadReplaceAll(CStdStr<wchar_t>(name)), 0);
        ASSERT_EQ(host().count("MessageBoxW"), 1);
        EXPECT_NE(host().calls("MessageBoxW").front().find(question), std::string::npos)
            << host().calls("MessageBoxW").front();
        EXPECT_EQ(host().printed, L"");
    }
}

TEST_F(ReplaceWarning, TakesYesAloneForConsent)
{
    for (const int answer : {7, 2, 0, 1, -1}) {
        host().boxes.next(answer);
        EXPECT_EQ(MenuLoadReplaceAll(CStdStr<wchar_t>(L"menu.cuix")), 181) << answer;
    }
}

TEST_F(ReplaceWarning, IsPrintedAndNotAskedOnTheCommandLine)
{
    host().setVariable(L"FILEDIA", short{0});
    EXPECT_EQ(MenuLoadReplaceAll(CStdStr<wchar_t>(L"menu.cuix")), 0);
    EXPECT_EQ(host().printed,
              L"Loading a template menu file will result in the loss of any toolbar "
              L"customization changes that have been made.");
    EXPECT_EQ(host().count("MessageBoxW"), 0);
}

TEST_F(ReplaceWarning, ComesFromTheHostsFileWhichIsRestored)
{
    host().resources[kHostFile] = {{11006, L"W%d"}, {11008, std::nullopt}};
    host().boxes.next(6);
    EXPECT_EQ(MenuLoadReplaceAll(CStdStr<wchar_t>(L"menu.cuix")), 0);
    EXPECT_NE(host().calls("MessageBoxW").front().find("\"W%d\""), std::string::npos)
        << host().calls("MessageBoxW").front();
    EXPECT_EQ(host().count("RestorePreviousResource"), 1);
    host().setVariable(L"FILEDIA", short{0});
    EXPECT_EQ(MenuLoadReplaceAll(CStdStr<wchar_t>(L"menu.cuix")), 0);
    EXPECT_EQ(host().printed, L"W%d");
}
