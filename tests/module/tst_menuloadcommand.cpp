// MENULOAD: dialog or prompt, the prompt's answers, the order of its calls, errors on the way.
#include "tests/module/menuloadfixture.h"

#include "refhost/core/widetext.h"
#include "tests/support/memorywatch.h"
#include "tests/support/tracetext.h"

#include <climits>
#include <stdexcept>

using quelhost::toUtf8;
using recording::host;
using Lines = std::vector<std::string>;

namespace {

const char* const kPromptLine = "quedGetString(0, \"Enter name of menu file to load:\") -> ";

} // namespace

TEST_F(MenuLoad, LoadsATypedFileInThisOrder)
{
    const std::wstring path = folder.file(L"plant.cuix");
    const std::string p = toUtf8(path);
    host().loads.next({true, L"PLANT"});
    type(path);
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(
        host().trace,
        (Lines{"enterResourceScope(\"VxCuiCmdsRes.dll\") -> true",
               "commandShouldUseDialog(context) -> false", "quedGetVar(\"FILEDIA\") -> 5100",
               "GetOemProductName() -> \"Drafting Desk\"", "quedInitGet(0, null) -> 5100",
               "qumdQuResourceString(11066, \"Enter name of menu file to load:\")"
               " -> \"Enter name of menu file to load:\"",
               kPromptLine + ("5100 \"" + p + "\""), "quedInitGet(0, null) -> 5100",
               "quelConfig() -> store", "getValue(4, \"CUIX/LoadedCuix\") -> 0 string \"\"",
               "setValue(4, \"CUIX/LoadedCuix\", string \";" + p + "\") -> 0",
               "GetQuelAppInterface() -> application", "customizationManager() -> manager",
               "refresh()", "loadMenuFile(\"" + p + "\", empty) -> true \"PLANT\"",
               "qumdQuResourceString(11064, \"\\nLoading \\\"%s\\\" success.group:%s\")"
               " -> \"\\nLoading \\\"%s\\\" success.group:%s\"",
               "promptf(\"\\nLoading \\\"%s\\\" success.group:%s\", \"" + p + "\", \"PLANT\")",
               "promptf(\"\\n\")", "leaveResourceScope(0)"}));
    EXPECT_EQ(host().printed, L"\nLoading \"" + path + L"\" success.group:PLANT\n");
}

TEST_F(MenuLoad, AsksTheHostAboutItsOwnContext)
{
    run();
    EXPECT_EQ(host().lastContext, &context);
}

TEST_F(MenuLoad, OpensTheDialogOnlyWhenItMayAndFileDialogsAreOn)
{
    struct Row
    {
        const char* name;
        bool allowed;
        short variable;
        bool dialog;
    };
    for (const Row& row :
         {Row{"allowed and on", true, 1, true}, Row{"allowed and off", true, 0, false},
          Row{"allowed and 2", true, 2, false}, Row{"allowed and -1", true, -1, false},
          Row{"forbidden and on", false, 1, false}, Row{"forbidden and off", false, 0, false}}) {
        recording::reset();
        host().useDialog.usually(row.allowed);
        host().setVariable(L"FILEDIA", row.variable);
        EXPECT_EQ(run(), row.dialog ? 5100 : -5002) << row.name;
        EXPECT_EQ(host().count("DoModal"), row.dialog ? 1 : 0) << row.name;
        EXPECT_EQ(prompts(), row.dialog ? 0 : 1) << row.name;
        EXPECT_EQ(host().count("commandShouldUseDialog"), 1) << row.name;
        EXPECT_EQ(host().count("quedGetVar"), 1) << row.name;
    }
}

TEST_F(MenuLoad, HandsAnEmptyRecordToTheHost)
{
    run();
    ASSERT_EQ(host().seenRecords.size(), 1U);
    const recording::SeenRecord& record = host().seenRecords.front();
    EXPECT_FALSE(record.linked);
    EXPECT_EQ(record.type, -1);
    EXPECT_EQ(record.value, decltype(record.value){});
}

TEST_F(MenuLoad, TakesAVariableThatCannotBeReadForOff)
{
    host().useDialog.usually(true);
    host().variables.clear();
    EXPECT_EQ(run(), -5002);
    EXPECT_EQ(host().count("DoModal"), 0);
    host().variables[L"FILEDIA"] = [](resbuf&) { return 5100; }; // and writes nothing
    EXPECT_EQ(run(), -5002);
    EXPECT_EQ(host().count("DoModal"), 0);
}

TEST_F(MenuLoad, ReadsSixteenBitsOfTheVariable)
{
    host().useDialog.usually(true);
    host().variables[L"FILEDIA"] = [](resbuf& record) {
        record.type = QuelResultType::kShort;
        record.value.longInteger = static_cast<int>(0xFFFF0001);
        return 5100;
    };
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(host().count("DoModal"), 1);
}

TEST_F(MenuLoad, ATildeOpensTheDialogWhateverForbidsIt)
{
    for (const wchar_t* answer : {L"~", L"~~", L"~/menus/plant.cuix", L"~ "}) {
        recording::reset();
        host().setVariable(L"FILEDIA", short{0});
        type(answer);
        EXPECT_EQ(run(), 5100) << toUtf8(answer);
        EXPECT_EQ(host().count("DoModal"), 1) << toUtf8(answer);
        EXPECT_EQ(prompts(), 1) << toUtf8(answer);
        EXPECT_EQ(messages(), 0) << toUtf8(answer);
        EXPECT_EQ(host().trace.back(), "leaveResourceScope(0)") << toUtf8(answer);
    }
}

TEST_F(MenuLoad, ATildeFurtherOnIsPartOfAName)
{
    type(L" ~");
    type(L"a~");
    EXPECT_EQ(run(), -5002);
    EXPECT_EQ(host().count("DoModal"), 0);
    EXPECT_EQ(messages(), 2);
}

TEST_F(MenuLoad, EndsWhenTheUserCancels)
{
    answerStatus(-5002);
    EXPECT_EQ(run(), -5002);
    EXPECT_EQ(prompts(), 1);
    EXPECT_EQ(writes(), 0);
    EXPECT_EQ(messages(), 0);
    EXPECT_EQ(host().trace.back(), "leaveResourceScope(0)");
}

TEST_F(MenuLoad, ACancelCountsWhateverTheBufferHolds)
{
    host().strings.next({-5002, L"~"});
    EXPECT_EQ(run(), -5002);
    EXPECT_EQ(host().count("DoModal"), 0);
}

TEST_F(MenuLoad, EndsWhenTheInputIsUsedUp)
{
    EXPECT_EQ(run(), -5002);
    EXPECT_EQ(prompts(), 1);
}

TEST_F(MenuLoad, AsksAgainWithoutAWordOnAnyOtherPromptResult)
{
    const std::wstring path = folder.file(L"plant.cuix");
    for (const int status : {5000, 0, 1, -1, -5001, -5003, 5101, INT_MIN, INT_MAX}) {
        for (const std::wstring& buffer : {std::wstring(), std::wstring(L"~"), path}) {
            recording::reset();
            host().setVariable(L"FILEDIA", short{0});
            host().strings.next({status, buffer});
            EXPECT_EQ(run(), -5002) << status;
            EXPECT_EQ(prompts(), 2) << status;
            EXPECT_EQ(host().count("DoModal"), 0) << status;
            EXPECT_EQ(host().count("quelConfig"), 0) << status;
            EXPECT_EQ(host().printed, L"") << status;
        }
    }
}

TEST_F(MenuLoad, NeverTiresOfAsking)
{
    for (int i = 0; i < 2000; ++i)
        answerStatus(i % 2 == 0 ? 5000 : -5001);
    EXPECT_EQ(run(), -5002);
    EXPECT_EQ(prompts(), 2001);
}

TEST_F(MenuLoad, PreparesThePromptBeforeAndAfterEachQuestion)
{
    answerStatus(5000);
    run();
    const std::string text = "qumdQuResourceString(11066, \"Enter name of menu file to load:\")"
                             " -> \"Enter name of menu file to load:\"";
    EXPECT_EQ(host().trace,
              (Lines{"enterResourceScope(\"VxCuiCmdsRes.dll\") -> true",
                     "commandShouldUseDialog(context) -> false", "quedGetVar(\"FILEDIA\") -> 5100",
                     "GetOemProductName() -> \"Drafting Desk\"", "quedInitGet(0, null) -> 5100",
                     text, std::string(kPromptLine) + "5000", "quedInitGet(0, null) -> 5100", text,
                     std::string(kPromptLine) + "-5002", "quedInitGet(0, null) -> 5100",
                     "leaveResourceScope(0)"}));
}

TEST_F(MenuLoad, GivesEachQuestionAnEmptyBuffer)
{
    type(std::wstring(2047, L'x'));
    type(L"y");
    answerStatus(5000);
    run();
    EXPECT_EQ(host().answerWasZeroed, std::vector<bool>(4, true));
    EXPECT_EQ(host().calls("quutPrintf")[1],
              "quutPrintf(\"Menu file load failed.  File not found:\\\"y\\\"\")");
}

TEST_F(MenuLoad, StopsWithoutAWordWhenThereIsNoStore)
{
    host().storeIsThere.usually(false);
    type(folder.file(L"plant.cuix"));
    EXPECT_EQ(run(), 0);
    EXPECT_EQ(prompts(), 1);
    EXPECT_EQ(messages(), 0);
    EXPECT_EQ(host().count("MessageBoxW"), 0);
    EXPECT_EQ(host().count("GetQuelAppInterface"), 0);
    EXPECT_EQ(host().trace.back(), "leaveResourceScope(0)");
}

TEST_F(MenuLoad, AsksAgainWithoutAWordWhenTheListCannotBeRead)
{
    const std::wstring path = folder.file(L"plant.cuix");
    for (const int failure : {1, -1, 42}) {
        recording::reset();
        host().setVariable(L"FILEDIA", short{0});
        setList(L"/t/main.cuix");
        host().readFailures.next(failure);
        type(path);
        EXPECT_EQ(run(), -5002) << failure;
        EXPECT_EQ(prompts(), 2) << failure;
        EXPECT_EQ(host().printed, L"") << failure;
        EXPECT_EQ(writes(), 0) << failure;
        EXPECT_EQ(loads(), 0) << failure;
    }
}

TEST_F(MenuLoad, AsksAgainWhenTheStoreHasNoList)
{
    host().settings.clear();
    type(folder.file(L"plant.cuix"));
    EXPECT_EQ(run(), -5002);
    EXPECT_EQ(prompts(), 2);
    EXPECT_EQ(writes(), 0);
}

TEST_F(MenuLoad, LoadsAllTheSameWhenTheListCannotBeWritten)
{
    host().writeFailures.next(1);
    type(folder.file(L"plant.cuix"));
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(loads(), 1);
    EXPECT_EQ(stored(), L"");
}

TEST_F(MenuLoad, KeepsTheFileInTheListAndAsksAgainWhenNobodyCanShowIt)
{
    const std::wstring path = folder.file(L"plant.cuix");
    for (const bool application : {false, true}) {
        recording::reset();
        host().setVariable(L"FILEDIA", short{0});
        setList(L"");
        host().applicationIsThere.usually(application);
        host().managerIsThere.usually(false);
        type(path);
        EXPECT_EQ(run(), -5002) << application;
        EXPECT_EQ(stored(), L";" + path) << application;
        EXPECT_EQ(prompts(), 2) << application;
        EXPECT_EQ(loads(), 0) << application;
        EXPECT_EQ(host().printed, L"") << application;
        EXPECT_EQ(host().count("customizationManager"), application ? 1 : 0);
    }
}

TEST_F(MenuLoad, FindsTheFileInTheListWhenItIsTypedAgain)
{
    const std::wstring path = folder.file(L"plant.cuix");
    host().applicationIsThere.usually(false);
    type(path);
    type(path);
    EXPECT_EQ(run(), 0);
    EXPECT_EQ(stored(), L";" + path);
    EXPECT_EQ(host().count("MessageBoxW"), 1);
}

TEST_F(MenuLoad, PrintsOnlyALineEndWhenTheHostCannotLoadIt)
{
    const std::wstring path = folder.file(L"plant.cuix");
    host().loads.next({false, std::nullopt});
    type(path);
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(host().printed, L"\n");
    EXPECT_EQ(host().count("promptf"), 1);
    EXPECT_EQ(host().defaultTexts.count(11064), 0U);
    EXPECT_EQ(stored(), L";" + path);
}

TEST_F(MenuLoad, RefreshesBeforeItLoads)
{
    type(folder.file(L"plant.cuix"));
    bool loadedBefore = true;
    std::wstring storedThen;
    host().onCall("refresh", 1, [&] {
        loadedBefore = loads() > 0;
        storedThen = stored();
    });
    run();
    EXPECT_FALSE(loadedBefore);
    EXPECT_EQ(storedThen, L";" + folder.path(L"plant.cuix"));
    EXPECT_EQ(host().count("refresh"), 1);
}

TEST_F(MenuLoad, ShowsTheTextsOfTheModulesFile)
{
    host().resources[L"VxCuiCmdsRes.dll"] = {
        {11066, L"Datei: "}, {11070, L"Fehlt: <%s>"}, {11064, L"<%s> ist <%s>."}};
    host().resources[L"QUELDRes.dll"] = {{11066, L"wrong file"}};
    const std::wstring path = folder.file(L"plant.cuix");
    host().loads.next({true, L"PLANT"});
    type(L"nowhere");
    type(path);
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(host().calls("quedGetString")[0],
              "quedGetString(0, \"Datei: \") -> 5100 \"nowhere\"");
    EXPECT_EQ(host().printed, L"Fehlt: <nowhere><" + path + L"> ist <PLANT>.\n");
}

TEST_F(MenuLoad, RunsWithoutAScopeWhenThereIsNone)
{
    host().contextScope.usually(false);
    type(folder.file(L"plant.cuix"));
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(host().count("leaveResourceScope"), 0);
    EXPECT_EQ(host().leavesWithoutEnter, 0);
}

TEST_F(MenuLoad, GetsAlongWithTextsThatAreNull)
{
    host().resources[L"VxCuiCmdsRes.dll"] = {
        {11066, std::nullopt}, {11070, std::nullopt}, {11064, std::nullopt}};
    host().loads.next({true, std::nullopt});
    type(L"nowhere");
    type(folder.file(L"plant.cuix"));
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(host().calls("quedGetString")[0], "quedGetString(0, null) -> 5100 \"nowhere\"");
    EXPECT_EQ(host().calls("quutPrintf"), Lines{"quutPrintf(\"\")"});
    EXPECT_EQ(host().printed, L"\n");
}

TEST_F(MenuLoad, AGroupWithoutANameIsShownAsEmpty)
{
    const std::wstring path = folder.file(L"plant.cuix");
    host().loads.next({true, std::nullopt});
    type(path);
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(host().printed, L"\nLoading \"" + path + L"\" success.group:\n");
}

TEST_F(MenuLoad, LetsErrorsOfTheHostPassAndLeavesItsScope)
{
    struct Row
    {
        const char* call;
        int which;
        const char* answer; // of the first prompt, in the folder
    };
    const Row rows[] = {
        {"commandShouldUseDialog", 1, "plant.cuix"},
        {"quedGetVar", 1, "plant.cuix"},
        {"GetOemProductName", 1, "plant.cuix"},
        {"quedInitGet", 1, "plant.cuix"},
        {"qumdQuResourceString", 1, "plant.cuix"},
        {"quedGetString", 1, "plant.cuix"},
        {"quedInitGet", 2, "plant.cuix"},
        {"quelConfig", 1, "plant.cuix"},
        {"getValue", 1, "plant.cuix"},
        {"setValue", 1, "plant.cuix"},
        {"GetQuelAppInterface", 1, "plant.cuix"},
        {"customizationManager", 1, "plant.cuix"},
        {"refresh", 1, "plant.cuix"},
        {"loadMenuFile", 1, "plant.cuix"},
        {"qumdQuResourceString", 2, "plant.cuix"},
        {"promptf", 1, "plant.cuix"},
        {"promptf", 2, "plant.cuix"},
        {"qumdQuResourceString", 2, "missing.cuix"},
        {"quutPrintf", 1, "missing.cuix"},
        {"AfxGetResourceHandle", 1, "main.cuix"},
        {"LoadStringW", 1, "main.cuix"},
        {"MessageBoxW", 1, "main.cuix"},
        {"GetOemProductName", 2, "main.cuix"},
    };
    folder.file(L"plant.cuix");
    const std::wstring main = folder.file(L"main.cuix");
    for (const Row& row : rows) {
        for (const bool entered : {true, false}) {
            recording::reset();
            host().setVariable(L"FILEDIA", short{0});
            host().contextScope.usually(entered);
            setList(main);
            type(folder.path(quelhost::fromUtf8(row.answer)));
            const VxErrorStatus* const thrown = host().throwOnCall(row.call, row.which);
            const VxErrorStatus* caught = nullptr;
            try {
                run();
            } catch (VxErrorStatus* error) {
                caught = error;
            }
            EXPECT_EQ(caught, thrown) << row.call << " " << row.which << " " << row.answer;
            EXPECT_EQ(host().count("leaveResourceScope"), entered ? 1 : 0) << row.call;
            EXPECT_EQ(host().resourceStack.size(), 1U) << row.call;
            delete caught;
        }
    }
}

TEST_F(MenuLoad, LetsErrorsOfOtherKindsPassToo)
{
    host().onCall("quedGetString", 1, [] { throw std::runtime_error("broken"); });
    EXPECT_THROW(run(), std::runtime_error);
    host().onCall("quedGetString", 2, [] { throw 17; });
    EXPECT_THROW(run(), int);
    EXPECT_EQ(host().count("leaveResourceScope"), 2);
}

TEST_F(MenuLoad, LetsErrorsOfTheDialogPassAndLeavesItsScope)
{
    for (const bool typed : {false, true}) {
        recording::reset();
        host().useDialog.usually(!typed);
        host().setVariable(L"FILEDIA", short{1});
        type(L"~");
        const VxErrorStatus* const thrown = host().throwOnCall("DoModal");
        const VxErrorStatus* caught = nullptr;
        try {
            run();
        } catch (VxErrorStatus* error) {
            caught = error;
        }
        EXPECT_EQ(caught, thrown);
        EXPECT_EQ(host().trace.back(), "leaveResourceScope(0)");
        delete caught;
    }
}

TEST_F(MenuLoad, EntersNothingWhenEnteringThrows)
{
    const VxErrorStatus* const thrown = host().throwOnCall("enterResourceScope");
    const VxErrorStatus* caught = nullptr;
    try {
        run();
    } catch (VxErrorStatus* error) {
        caught = error;
    }
    EXPECT_EQ(caught, thrown);
    EXPECT_EQ(host().trace.size(), 1U);
    delete caught;
}

TEST_F(MenuLoad, ReportsMemoryThatRunsOutWhileTheListIsBuilt)
{
    const std::wstring path = folder.file(L"plant.cuix");
    const std::wstring old(3000, L'x');
    for (const bool recorder : {true, false}) {
        recording::reset();
        host().setVariable(L"FILEDIA", short{0});
        host().recorderIsThere.usually(recorder);
        setList(old);
        type(path);
        const std::size_t newBlock = (old.size() + 1 + path.size() + 1) * 4 + 4;
        recording::MemoryWatch watch(recording::Refusal::ofSize(newBlock));
        VxErrorStatus* caught = nullptr;
        try {
            watch.run([this] { run(); });
        } catch (VxErrorStatus* error) {
            caught = error;
        }
        ASSERT_NE(caught, nullptr);
        EXPECT_EQ(caught->status(), Quel::eNoMemory);
        EXPECT_EQ(watch.refused(), 1);
        EXPECT_EQ(host().crashes.size(), recorder ? 1U : 0U);
        if (recorder) {
            EXPECT_EQ(host().crashes.front().address, caught);
        }
        EXPECT_EQ(host().trace.back(), "leaveResourceScope(0)");
        EXPECT_EQ(stored(), old);
        EXPECT_EQ(writes(), 0);
        EXPECT_EQ(loads(), 0);
        delete caught;
    }
}
