// MENU: what is asked, how the answer is cleaned, what is searched and told.
#include "menufile/menucommand.h"

#include "tests/module/filedialogfixture.h"
#include "tests/support/globallocale.h"
#include "tests/support/thrownerror.h"

namespace {

using filedialog::joined;
using filedialog::kExists;
using filedialog::kFileArgument;
using filedialog::kFilterArgument;
using filedialog::kLookups;
using filedialog::opened;
using recording::host;
using Lines = std::vector<std::string>;

// A new command for every run needs no memory of its own.
static_assert(sizeof(Quel6915Command) == sizeof(IQuelBuildInCommand));

const std::wstring kNotFound = L"Menu file load failed.  File not found:";

// Parts of the trace.
const std::string kEnter = "enterResourceScope(\"VxCuiCmdsRes.dll\") -> true";
const std::string kLeave = "leaveResourceScope(0)";
const Lines kHowToAsk{"GetQuelAppCtxActiveDocData() -> flags 0", "quedScriptAppRunning() -> false",
                      "quedGetVar(\"FILEDIA\") -> 5100"};
const Lines kReadKinds{"SetCurrentResourceName(\"QUELDRes.dll\") -> true", kLookups.back(),
                       "RestorePreviousResource()"};

Lines prompted(const std::string& answer)
{
    const std::string start = "\"Enter customization file name or [. (for none)]<";
    return {"quedGetVar(\"MENUNAME\") -> 5100",
            "qumdQuResourceString(11069, " + start + "%s>\") -> " + start + "%s>\"",
            "quedInitGet(0, null) -> 5100",
            "quedGetString(0, " + start + "mymenu>\") -> " + answer,
            "quedInitGet(0, null) -> 5100",
            "quutDelBuffer(buffer)"};
}

struct Menu : testing::Test
{
    recording::Context context;
    Quel6915Command command;

    Menu() { prepare(0); }
    static void prepare(short fileDialogs)
    {
        recording::reset();
        host().setVariable(L"FILEDIA", fileDialogs);
        host().setVariable(L"MENUNAME", std::wstring(L"mymenu"));
    }

    int run() { return command.execute(&context); }
    int type(const std::wstring& answer)
    {
        host().strings.next({5100, answer});
        return run();
    }
};

struct AnswerRow
{
    const char* name;
    const wchar_t* answer;
    const wchar_t* cleaned;
};

class MenuAnswer : public Menu, public testing::WithParamInterface<AnswerRow>
{};

INSTANTIATE_TEST_SUITE_P(
    MenuFiles, MenuAnswer,
    testing::Values(AnswerRow{"AsItIs", L"a.cuix", L"a.cuix"},
                    AnswerRow{"Blanks", L" \t a.cuix \n ", L"a.cuix"},
                    AnswerRow{"Quotes", L"\"/d e/a.cuix\"", L"/d e/a.cuix"},
                    AnswerRow{"ManyQuotes", L"\"\"\"a.cuix\"\"", L"a.cuix"},
                    AnswerRow{"OneQuoteAtTheFront", L"\"a.cuix", L"a.cuix"},
                    AnswerRow{"OneQuoteAtTheEnd", L"a.cuix\"", L"a.cuix"},
                    AnswerRow{"BlanksAroundQuotes", L"  \"a.cuix\"  ", L"a.cuix"},
                    AnswerRow{"BlanksInQuotes", L"\" a.cuix \"", L"a.cuix"},
                    AnswerRow{"QuotesAndBlanksOnBothSides", L" \"\" a b.cuix \"\" ", L"a b.cuix"},
                    AnswerRow{"QuotesAreTakenAwayOnce", L"\" \"a.cuix\" \"", L"\"a.cuix\""},
                    AnswerRow{"QuotesInside", L"a\"b\".cuix", L"a\"b\".cuix"},
                    AnswerRow{"OtherQuotes", L"'a.cuix'", L"'a.cuix'"},
                    AnswerRow{"HardBlank", L"\u00A0a.cuix", L"\u00A0a.cuix"}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace

TEST_P(MenuAnswer, IsSearchedAndToldWithoutQuotesAndBlanks)
{
    const std::wstring cleaned = GetParam().cleaned;
    EXPECT_EQ(type(GetParam().answer), -5001);
    EXPECT_EQ(host().printed, kNotFound + cleaned);
    host().filesToFind[cleaned] = L"/full/a.cuix";
    host().filesToFind[cleaned + L".cuix"] = L"/full/a.cuix";
    EXPECT_EQ(type(GetParam().answer), 5100);
    EXPECT_EQ(host().printed, kNotFound + cleaned);
}

TEST_F(Menu, CleansByTheGlobalLocale)
{
    EXPECT_EQ(type(L"\u3000\"\u3000a.cuix\u3000\"\u3000"), -5001);
    EXPECT_EQ(host().printed, kNotFound + L"\u3000\"\u3000a.cuix\u3000\"\u3000");
    prepare(0);
    const recording::GlobalLocale changed("C.UTF-8");
    EXPECT_EQ(type(L"\u3000\"\u3000a.cuix\u3000\"\u3000"), -5001);
    EXPECT_EQ(host().printed, kNotFound + L"a.cuix");
}

TEST_F(Menu, FindsTheDefaultThroughTheKindsAndLoadsNothing)
{
    host().filesToFind[L"mymenu.cuix"] = L"/full/mymenu.cuix";
    EXPECT_EQ(type(L""), 5100);
    EXPECT_EQ(host().trace,
              joined({{kEnter},
                      kHowToAsk,
                      prompted("5100 \"\""),
                      kReadKinds,
                      {"findFile(\"mymenu.cuix\") -> 0 \"/full/mymenu.cuix\"", kLeave}}));
    EXPECT_EQ(host().printed, L"");
}

TEST_F(Menu, TellsAFileThatIsNotThereWithoutQuotes)
{
    EXPECT_EQ(type(L""), -5001);
    const std::string message = "\"Menu file load failed.  File not found:";
    EXPECT_EQ(host().trace,
              joined({{kEnter},
                      kHowToAsk,
                      prompted("5100 \"\""),
                      kReadKinds,
                      {"findFile(\"mymenu.cuix\") -> 1", "findFile(\"mymenu.cuix.mnu\") -> 1",
                       "findFile(\"mymenu.cuix.mnu.mns\") -> 1",
                       "qumdQuResourceString(11070, " + message + "%s\") -> " + message + "%s\"",
                       "quutPrintf(" + message + "mymenu\")", kLeave}}));
}

TEST_F(Menu, ADotMeansNone)
{
    for (const wchar_t* answer : {L".", L"./menu.cuix", L". x"}) {
        prepare(0);
        EXPECT_EQ(type(answer), 5100);
        EXPECT_EQ(host().printed, L"");
        EXPECT_EQ(host().count("findFile"), 0);
    }
}

TEST_F(Menu, WithoutADefaultEnterMeansNone)
{
    host().setVariable(L"MENUNAME", std::nullopt);
    EXPECT_EQ(type(L""), 5100);
    EXPECT_EQ(host().printed, L"");
    EXPECT_EQ(host().count("findFile"), 0);
}

TEST_F(Menu, OnlyQuotesAndBlanksAreAnEmptyNameThatIsSearched)
{
    for (const wchar_t* answer : {L"\" \"", L"\"", L"\"\"", L" ", L" \"\t\" "}) {
        prepare(0);
        EXPECT_EQ(type(answer), -5001);
        EXPECT_EQ(host().printed, kNotFound);
        EXPECT_EQ(host().calls("findFile"),
                  (Lines{"findFile(\".cuix\") -> 1", "findFile(\".cuix.mnu\") -> 1",
                         "findFile(\".cuix.mnu.mns\") -> 1"}));
    }
}

TEST_F(Menu, PrintsWhatWasTypedAndDoesNotObeyIt)
{
    EXPECT_EQ(type(L"/t/%s%n%ls\u043C%%.cuix"), -5001);
    EXPECT_EQ(
        host().calls("quutPrintf"),
        Lines{"quutPrintf(\"Menu file load failed.  File not found:/t/%s%n%ls\u043C%%.cuix\")"});
}

TEST_F(Menu, TellsItInTheWordsOfTheModulesFile)
{
    host().resources[L"QUELDRes.dll"][11070] = L"wrong file";
    host().resources[L"VxCuiCmdsRes.dll"][11070] = L"%%s: <%8s> fehlt\n";
    EXPECT_EQ(type(L"\u00E4.cuix"), -5001);
    EXPECT_EQ(host().printed, L"%s: <  \u00E4.cuix> fehlt\n");
}

TEST_F(Menu, PrintsNothingWithoutAText)
{
    host().resources[L"VxCuiCmdsRes.dll"][11070] = std::nullopt;
    EXPECT_EQ(type(L"x"), -5001);
    EXPECT_EQ(host().calls("quutPrintf"), Lines{"quutPrintf(\"\")"});
}

TEST_F(Menu, CutsALongNameInTheMessage)
{
    EXPECT_EQ(type(std::wstring(2000, L'n')), -5001);
    EXPECT_EQ(host().printed.substr(0, kNotFound.size() + 1), kNotFound + L"n");
    const std::size_t cut = kNotFound.size() + 2 + 1022;
    EXPECT_TRUE(host().printed.size() == cut || host().printed.size() == cut + 1)
        << host().printed.size();
}

TEST_F(Menu, PassesOtherStatusesOfThePromptOn)
{
    for (const int status : {-5002, -5001, 5000, 0, 1, 5101}) {
        prepare(0);
        host().strings.next({status, L"junk.cuix"});
        EXPECT_EQ(run(), status);
        EXPECT_EQ(host().trace, joined({{kEnter},
                                        kHowToAsk,
                                        prompted(std::to_string(status) + " \"junk.cuix\""),
                                        {kLeave}}));
    }
}

TEST_F(Menu, UsesTheDialogWhenFileDialogsAreOn)
{
    prepare(1);
    host().fileDialogs.next({5100, L"/d/x.cuix", 0, 0});
    host().filesToFind[L"/d/x.cuix"] = L"/full/x.cuix";
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(host().trace,
              joined({{kEnter},
                      kHowToAsk,
                      {"quelConfig() -> store", kExists + "false"},
                      kLookups,
                      {opened("\"\"", 0, 5100), "quutDelBuffer(buffer)", kExists + "false",
                       R"(addItem(4, "UserInterfaceSettings\\Select Menu File") -> 0)",
                       "setValue" + kFilterArgument + ", integer 1) -> 0",
                       "setValue" + kFileArgument + ", string \"/d/x.cuix\") -> 0"},
                      kReadKinds,
                      {"findFile(\"/d/x.cuix\") -> 0 \"/full/x.cuix\"", kLeave}}));
}

TEST_F(Menu, TellsAFileOfTheDialogThatIsNotThere)
{
    prepare(1);
    host().fileDialogs.next({5100, L"/d/x.cuix", 0, 0});
    EXPECT_EQ(run(), -5001);
    EXPECT_EQ(host().printed, kNotFound + L"/d/x.cuix");
}

TEST_F(Menu, PassesOtherStatusesOfTheDialogOnAndStoresNothing)
{
    for (const int status : {-5002, -5001, 5000, 0, 5101}) {
        prepare(1);
        host().fileDialogs.next({status, std::nullopt, 0, 0});
        EXPECT_EQ(run(), status);
        EXPECT_EQ(host().trace, joined({{kEnter},
                                        kHowToAsk,
                                        {"quelConfig() -> store", kExists + "false"},
                                        kLookups,
                                        {opened("\"\"", 0, status), kLeave}}));
    }
}

TEST_F(Menu, ADialogWithoutAFileMeansNone)
{
    for (const short type : {short{-1}, short{5003}, short{5005}}) {
        prepare(1);
        host().fileDialog = [type](resbuf& result, int&) {
            result.type = type;
            return 5100;
        };
        EXPECT_EQ(run(), 5100);
        EXPECT_EQ(host().count("findFile"), 0);
        EXPECT_EQ(host().printed, L"");
    }
}

TEST_F(Menu, ATildeAtThePromptOpensTheDialogOnTheDefault)
{
    host().fileDialogs.next({5100, L"/d/x.cuix", 0, 0});
    host().filesToFind[L"/d/x.cuix"] = L"/full/x.cuix";
    EXPECT_EQ(type(L"~"), 5100);
    EXPECT_EQ(host().calls("vxGetFileDialog"), Lines{opened("\"mymenu\"", 0, 5100)});
    EXPECT_EQ(host().calls("findFile"), Lines{"findFile(\"/d/x.cuix\") -> 0 \"/full/x.cuix\""});
}

TEST_F(Menu, EndsQuietlyInDialogModeWithoutAStore)
{
    prepare(1);
    host().storeIsThere.next(false);
    EXPECT_EQ(run(), -5001);
    EXPECT_EQ(host().trace, joined({{kEnter}, kHowToAsk, {"quelConfig() -> null", kLeave}}));
}

TEST_F(Menu, LeavesNoScopeThatItDidNotEnter)
{
    for (const wchar_t* answer : {L"x", L"."}) {
        prepare(0);
        host().contextScope.next(false);
        type(answer);
        EXPECT_EQ(host().count("leaveResourceScope"), 0);
    }
    prepare(0);
    host().contextScope.next(false);
    const VxErrorStatus* const thrown = host().throwOnCall("findFile");
    EXPECT_EQ(recording::errorThrownBy([this] { return type(L"x"); }).get(), thrown);
    EXPECT_EQ(host().count("leaveResourceScope"), 0);
}

TEST_F(Menu, LetsEveryErrorPassAndLeavesItsScope)
{
    for (const short fileDialogs : {short{0}, short{1}}) {
        const auto runOnce = [&] { return fileDialogs == 1 ? run() : type(L"x"); };
        const auto again = [&] {
            prepare(fileDialogs);
            host().fileDialogs.next({5100, L"x", 0, 1});
        };
        again();
        ASSERT_EQ(runOnce(), -5001);
        const auto calls = recording::callsThatMayThrow(host().trace);
        ASSERT_EQ(calls.size(), fileDialogs == 1 ? 21U : 16U);
        for (const auto& call : calls) {
            again();
            const VxErrorStatus* const thrown = host().throwOnCall(call.function, call.which);
            const auto error = recording::errorThrownBy(runOnce);
            EXPECT_EQ(error.get(), thrown) << call.function << call.which;
            EXPECT_TRUE(recording::onlyGivesBackBehind(host().trace, call.line))
                << call.function << call.which;
            EXPECT_EQ(host().count("leaveResourceScope"), call.line == 0 ? 0 : 1)
                << call.function << call.which;
            EXPECT_EQ(host().resourceStack.size(), 1U) << call.function << call.which;
            EXPECT_TRUE(host().buffers.empty()) << call.function << call.which;
            EXPECT_EQ(host().foreignFrees, 0) << call.function << call.which;
        }
    }
}
