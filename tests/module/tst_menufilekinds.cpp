// Menu file kinds, and dialogs or prompts.
#include "menufile/menufilekinds.h"

#include "tests/support/globallocale.h"
#include "tests/support/recordinghost.h"
#include "tests/support/thrownerror.h"

#include <gtest/gtest.h>

namespace {

using recording::host;
using Lines = std::vector<std::string>;

constexpr wchar_t kHostFile[] = L"QUELDRes.dll";

const Lines kLookup{"SetCurrentResourceName(\"QUELDRes.dll\") -> true",
                    "qumdQuResourceString(11005, \"cuix;mnu;mns;menuc\")"
                    " -> \"cuix;mnu;mns;menuc\"",
                    "RestorePreviousResource()"};

struct KindRow
{
    const char* name;
    const wchar_t* kinds; // null for the module's own list
    const wchar_t* extension;
    int supported;
};

class KindOf : public testing::TestWithParam<KindRow>
{
protected:
    KindOf()
    {
        if (GetParam().kinds != nullptr)
            host().resources[kHostFile][11005] = GetParam().kinds;
    }
    static int supported() { return IsSupportMenuExt(GetParam().extension); }
};

std::string nameOf(const testing::TestParamInfo<KindRow>& row)
{
    return row.param.name;
}

INSTANTIATE_TEST_SUITE_P(
    MenuFiles, KindOf,
    testing::Values(KindRow{"OfTheDefaultInCapitals", nullptr, L".CUIX", 1},
                    KindRow{"OfTheDefaultMixed", nullptr, L".Mns", 1},
                    KindRow{"OfTheDefaultSecond", nullptr, L".mnu", 1},
                    KindRow{"LastOfTheDefaultIsNeverTried", nullptr, L".menuc", 0},
                    KindRow{"LastOfTwoIsNeverTried", L"a;b", L".b", 0},
                    KindRow{"FirstOfTwo", L"a;b", L".A", 1},
                    KindRow{"LastBeforeASeparatorIsNeverTriedEither", L"a;b;", L".b", 0},
                    KindRow{"WithoutDot", nullptr, L"cuix", 0}, KindRow{"Empty", nullptr, L"", 0},
                    KindRow{"LoneDot", nullptr, L".", 0}, KindRow{"TwoDots", nullptr, L"..cuix", 0},
                    KindRow{"WholeList", nullptr, L".cuix;mnu;mns;menuc", 0},
                    KindRow{"TrailingBlank", nullptr, L".cuix ", 0},
                    KindRow{"LeadingBlank", nullptr, L" .cuix", 0},
                    KindRow{"LongerThanTheKind", nullptr, L".cuixx", 0},
                    KindRow{"ShorterThanTheKind", nullptr, L".cui", 0},
                    KindRow{"BlanksInTheListCount", L"cuix; mnu;x", L".mnu", 0},
                    KindRow{"BlanksInTheListAreMet", L"cuix; mnu;x", L". mnu", 1}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    Separators, KindOf,
    testing::Values(KindRow{"OnlyOneKind", L"mnu", L".MNU", 1},
                    KindRow{"OtherThanTheOnlyOne", L"mnu", L".mns", 0},
                    KindRow{"AreTrimmedAtTheEnds", L";mnu;", L".mnu", 1},
                    KindRow{"AreTrimmedHoweverMany", L";;;mnu;;", L".mnu", 1},
                    KindRow{"AreTrimmedBeforeSeveralKinds", L";;a;b", L".a", 1},
                    KindRow{"DoubledEndTheSearch", L"cuix;;mnu;x", L".mnu", 0},
                    KindRow{"DoubledEndTheSearchForALoneDotToo", L"cuix;;mnu;x", L".", 0},
                    KindRow{"DoubledBehindTheKind", L"cuix;;mnu", L".cuix", 1},
                    KindRow{"NoKindsAndALoneDot", L"", L".", 1},
                    KindRow{"AloneAndALoneDot", L";;", L".", 1},
                    KindRow{"NoKindsAndNoDot", L"", L"", 0}, KindRow{"NoKinds", L"", L".cuix", 0}),
    nameOf);

// Only the letters A to Z have another case.
INSTANTIATE_TEST_SUITE_P(Letters, KindOf,
                         testing::Values(KindRow{"WithAccent", L"\u00E9;x", L".\u00C9", 0},
                                         KindRow{"WithAccentAlike", L"\u00E9;x", L".\u00E9", 1},
                                         KindRow{"KelvinSign", L"k;x", L".\u212A", 0},
                                         KindRow{"DottedCapitalI", L"i;x", L".\u0130", 0},
                                         KindRow{"LongS", L"s;x", L".\u017F", 0},
                                         KindRow{"WideA", L"\uFF41;x", L".\uFF21", 0},
                                         KindRow{"CyrillicEm", L"\u043C;x", L".\u041C", 0},
                                         KindRow{"OnlyOneKind", L"\u00E9", L".\u00C9", 0}),
                         nameOf);

struct AsCommandLine : testing::Test
{
    AsCommandLine() { host().setVariable(L"FILEDIA", short{1}); }
};

} // namespace

TEST_P(KindOf, ExtensionIsCompared)
{
    EXPECT_EQ(supported(), GetParam().supported);
    EXPECT_EQ(host().count("SetCurrentResourceName"), 1);
    EXPECT_EQ(host().resourceStack.size(), 1U);
}

TEST_P(KindOf, ExtensionIsComparedAlikeInAnotherGlobalLocale)
{
    const recording::GlobalLocale changed("C.UTF-8");
    EXPECT_EQ(supported(), GetParam().supported);
}

TEST(MenuFileKinds, AreReadFromTheHostsFileOnEveryCall)
{
    EXPECT_EQ(IsSupportMenuExt(L".cuix"), 1);
    EXPECT_EQ(host().trace, kLookup);
    host().trace.clear();
    EXPECT_EQ(IsSupportMenuExt(L".menuc"), 0);
    EXPECT_EQ(host().trace, kLookup);

    host().resources[kHostFile][11005] = L"one;two";
    EXPECT_EQ(IsSupportMenuExt(L".cuix"), 0);
    EXPECT_EQ(IsSupportMenuExt(L".ONE"), 1);
}

TEST(MenuFileKinds, AreNotReadFromTheCurrentFile)
{
    host().resources[L"VxCuiCmdsRes.dll"][11005] = L"own;x";
    host().resourceStack.push_back(L"VxCuiCmdsRes.dll");
    EXPECT_EQ(IsSupportMenuExt(L".own"), 0);
    EXPECT_EQ(IsSupportMenuExt(L".cuix"), 1);
    EXPECT_EQ(host().resourceStack.back(), L"VxCuiCmdsRes.dll");
}

TEST(MenuFileKinds, DoNotRestoreAFileThatWasNotSelected)
{
    host().globalScope.usually(false);
    EXPECT_EQ(IsSupportMenuExt(L".cuix"), 1);
    EXPECT_EQ(host().count("RestorePreviousResource"), 0);
}

TEST(MenuFileKinds, WithoutATextLeaveTheLoneDot)
{
    host().resources[kHostFile][11005] = std::nullopt;
    EXPECT_EQ(IsSupportMenuExt(L"."), 1);
    EXPECT_EQ(IsSupportMenuExt(L".cuix"), 0);
    EXPECT_EQ(IsSupportMenuExt(L""), 0);
}

TEST(MenuFileKinds, LetEveryErrorPassAndRestoreTheFile)
{
    EXPECT_EQ(IsSupportMenuExt(L".cuix"), 1);
    const auto calls = recording::callsThatMayThrow(host().trace);
    ASSERT_EQ(calls.size(), 2U);
    for (const auto& call : calls) {
        recording::reset();
        const VxErrorStatus* const thrown = host().throwOnCall(call.function, call.which);
        const auto error = recording::errorThrownBy([] { return IsSupportMenuExt(L".cuix"); });
        EXPECT_EQ(error.get(), thrown) << call.function;
        EXPECT_TRUE(recording::onlyGivesBackBehind(host().trace, call.line)) << call.function;
        EXPECT_EQ(host().count("RestorePreviousResource"), call.line == 0 ? 0 : 1);
        EXPECT_EQ(host().resourceStack.size(), 1U) << call.function;
    }
}

TEST_F(AsCommandLine, IsNotTheCaseWhenFileDialogsAreOn)
{
    EXPECT_EQ(IsRunAsCmdLineCommand(), 0);
    EXPECT_EQ(host().trace,
              (Lines{"GetQuelAppCtxActiveDocData() -> flags 0", "quedScriptAppRunning() -> false",
                     "quedGetVar(\"FILEDIA\") -> 5100"}));
}

TEST_F(AsCommandLine, IsTheCaseForEveryOtherValue)
{
    for (const int value : {0, 2, -1, 3, 257, 32767, -32768}) {
        host().setVariable(L"FILEDIA", static_cast<short>(value));
        EXPECT_EQ(IsRunAsCmdLineCommand(), 1) << value;
    }
}

TEST_F(AsCommandLine, IsTheCaseInAScriptWithoutALookAtTheVariable)
{
    for (const int flags : {0, 1}) {
        recording::reset();
        host().documentFlags = static_cast<unsigned char>(flags);
        host().setVariable(L"FILEDIA", short{1});
        host().scriptRuns.next(true);
        EXPECT_EQ(IsRunAsCmdLineCommand(), 1);
        EXPECT_EQ(host().trace,
                  (Lines{"GetQuelAppCtxActiveDocData() -> flags " + std::to_string(flags),
                         "quedScriptAppRunning() -> true"}));
    }
}

TEST_F(AsCommandLine, IsTheCaseForADocumentWithoutDialogs)
{
    for (const int flags : {0x01, 0xFF, 0x81}) {
        host().trace.clear();
        host().documentFlags = static_cast<unsigned char>(flags);
        EXPECT_EQ(IsRunAsCmdLineCommand(), 1) << flags;
        EXPECT_EQ(host().trace,
                  (Lines{"GetQuelAppCtxActiveDocData() -> flags " + std::to_string(flags),
                         "quedScriptAppRunning() -> false"}));
    }
}

TEST_F(AsCommandLine, LooksAtTheLowestBitOfTheDocumentOnly)
{
    for (const int flags : {0xFE, 0x02, 0x80}) {
        host().documentFlags = static_cast<unsigned char>(flags);
        EXPECT_EQ(IsRunAsCmdLineCommand(), 0) << flags;
    }
}

TEST_F(AsCommandLine, TakesNoDocumentForOneThatAllowsDialogs)
{
    host().documentFlags = std::nullopt;
    EXPECT_EQ(IsRunAsCmdLineCommand(), 0);
    host().scriptRuns.next(true);
    EXPECT_EQ(IsRunAsCmdLineCommand(), 1);
}

TEST_F(AsCommandLine, IsTheCaseWhenTheVariableCannotBeRead)
{
    host().variables.clear();
    EXPECT_EQ(IsRunAsCmdLineCommand(), 1);
    host().variables[L"FILEDIA"] = [](resbuf&) { return 5100; }; // and writes nothing
    EXPECT_EQ(IsRunAsCmdLineCommand(), 1);
    ASSERT_EQ(host().seenRecords.size(), 2U);
    for (const recording::SeenRecord& record : host().seenRecords) {
        EXPECT_FALSE(record.linked);
        EXPECT_EQ(record.type, -1);
        EXPECT_EQ(record.value, decltype(record.value){});
    }
}

TEST_F(AsCommandLine, LooksAtSixteenBitsOnlyWhateverTheStatus)
{
    host().variables[L"FILEDIA"] = [](resbuf& record) {
        record.type = QuelResultType::kLong;
        record.value.longInteger = static_cast<int>(0xFFFF0001);
        return -5001;
    };
    EXPECT_EQ(IsRunAsCmdLineCommand(), 0);
}

TEST_F(AsCommandLine, GivesAStringBackThatIsNoNumber)
{
    host().setVariable(L"FILEDIA", std::wstring(L"1"));
    EXPECT_EQ(IsRunAsCmdLineCommand(), 1);
    EXPECT_TRUE(host().buffers.empty());
}

TEST_F(AsCommandLine, LetsEveryErrorPass)
{
    EXPECT_EQ(IsRunAsCmdLineCommand(), 0);
    const auto calls = recording::callsThatMayThrow(host().trace);
    ASSERT_EQ(calls.size(), 3U);
    for (const auto& call : calls) {
        recording::reset();
        host().setVariable(L"FILEDIA", std::wstring(L"1"));
        const VxErrorStatus* const thrown = host().throwOnCall(call.function, call.which);
        const auto error = recording::errorThrownBy([] { return IsRunAsCmdLineCommand(); });
        EXPECT_EQ(error.get(), thrown) << call.function;
        EXPECT_TRUE(recording::onlyGivesBackBehind(host().trace, call.line)) << call.function;
        EXPECT_TRUE(host().buffers.empty()) << call.function;
    }
}
