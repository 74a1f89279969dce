// MENUUNLOAD: dialog or prompt, the prompt's answers, the order of its calls, its statuses.
#include "tests/module/menuunloadfixture.h"

#include "refhost/core/widetext.h"

#include <QDir>

#include <climits>

using quelhost::toUtf8;
using recording::host;
using recording::shown;
using Lines = std::vector<std::string>;

namespace {

const std::string kPrompt = "Enter the name of a Menu Group to unload:";

// The current directory of the process, put back at the end.
struct CurrentDirectory
{
    explicit CurrentDirectory(const std::wstring& path)
    {
        QDir::setCurrent(quelhost::toQString(path));
    }
    ~CurrentDirectory() { QDir::setCurrent(before); }
    const QString before = QDir::currentPath();
};

// The calls from the beginning to the end of the prompt.
Lines promptCalls(const std::string& answer)
{
    return {"enterResourceScope(\"VxCuiCmdsRes.dll\") -> true",
            "commandShouldUseDialog(context) -> false",
            "quedGetVar(\"FILEDIA\") -> 5100",
            "quedInitGet(0, null) -> 5100",
            "qumdQuResourceString(11067, \"" + kPrompt + "\") -> \"" + kPrompt + "\"",
            "quedGetString(0, \"" + kPrompt + "\") -> " + answer,
            "quedInitGet(0, null) -> 5100"};
}

// The calls of a whole run on the command line.
Lines runWith(const std::string& answer, const Lines& behindThePrompt)
{
    Lines lines = promptCalls(answer);
    lines.insert(lines.end(), behindThePrompt.begin(), behindThePrompt.end());
    lines.push_back("leaveResourceScope(0)");
    return lines;
}

} // namespace

TEST_F(MenuUnload, UnloadsATypedFileInThisOrder)
{
    EXPECT_EQ(unload(plant), 5100);
    EXPECT_EQ(host().trace, runWith("5100 " + shown(plant),
                                    {"quelConfig() -> store",
                                     "getValue(4, \"CUIX/LoadedCuix\") -> 0 string " + shown(all),
                                     "setValue(4, \"CUIX/LoadedCuix\", string " +
                                         shown(main + L";" + survey) + ") -> 0",
                                     "GetQuelAppInterface() -> application",
                                     "customizationManager() -> manager", "refresh()"}));
    EXPECT_EQ(host().printed, L"");
}

TEST_F(MenuUnload, EndsBehindTheListWhenNothingMatches)
{
    setList(main);
    EXPECT_EQ(unload(plant), 5100);
    EXPECT_EQ(host().trace,
              runWith("5100 " + shown(plant),
                      {"quelConfig() -> store",
                       "getValue(4, \"CUIX/LoadedCuix\") -> 0 string " + shown(main)}));
}

TEST_F(MenuUnload, EndsBehindTheListWhenTheMainFileIsNamed)
{
    EXPECT_EQ(unload(main), 0);
    EXPECT_EQ(host().trace,
              runWith("5100 " + shown(main),
                      {"quelConfig() -> store",
                       "getValue(4, \"CUIX/LoadedCuix\") -> 0 string " + shown(all)}));
    EXPECT_EQ(stored(), all);
}

TEST_F(MenuUnload, AsksTheHostAboutItsOwnContext)
{
    run();
    EXPECT_EQ(host().lastContext, &context);
}

TEST_F(MenuUnload, OpensTheDialogOnlyWhenItMayAndFileDialogsAreOn)
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
        startAnew(all);
        host().useDialog.usually(row.allowed);
        host().setVariable(L"FILEDIA", row.variable);
        EXPECT_EQ(run(), row.dialog ? 5100 : -5002) << row.name;
        EXPECT_EQ(host().count("DoModal"), row.dialog ? 1 : 0) << row.name;
        EXPECT_EQ(host().count("quedGetString"), row.dialog ? 0 : 1) << row.name;
        EXPECT_EQ(host().count("commandShouldUseDialog"), 1) << row.name;
        EXPECT_EQ(host().count("quedGetVar"), 1) << row.name;
    }
}

TEST_F(MenuUnload, HandsAnEmptyRecordToTheHost)
{
    run();
    ASSERT_EQ(host().seenRecords.size(), 1U);
    const recording::SeenRecord& record = host().seenRecords.front();
    EXPECT_FALSE(record.linked);
    EXPECT_EQ(record.type, -1);
    EXPECT_EQ(record.value, decltype(record.value){});
}

TEST_F(MenuUnload, TakesAVariableThatCannotBeReadForOff)
{
    host().useDialog.usually(true);
    host().variables.clear();
    EXPECT_EQ(run(), -5002);
    EXPECT_EQ(host().count("DoModal"), 0);
    host().variables[L"FILEDIA"] = [](resbuf&) { return 5100; }; // and writes nothing
    EXPECT_EQ(run(), -5002);
    EXPECT_EQ(host().count("DoModal"), 0);
}

TEST_F(MenuUnload, ReturnsEveryOtherStatusOfThePromptAndDoesNothing)
{
    for (const int status :
         {-5002, 5000, 0, 1, -1, -5001, -5003, 5099, 5101, -5100, INT_MIN, INT_MAX}) {
        for (const std::wstring& buffer : {std::wstring(), std::wstring(L"~"), plant}) {
            startAnew(all);
            host().strings.next({status, buffer});
            EXPECT_EQ(run(), status) << toUtf8(buffer);
            EXPECT_EQ(host().trace, runWith(std::to_string(status) + " " + shown(buffer), {}));
            EXPECT_EQ(stored(), all) << status;
        }
    }
}

TEST_F(MenuUnload, AsksOnce)
{
    EXPECT_EQ(unload(L"nowhere.cuix"), 5100);
    EXPECT_EQ(host().count("quedGetString"), 1);
    EXPECT_EQ(unload(L""), 5100);
    EXPECT_EQ(host().count("quedGetString"), 2);
}

TEST_F(MenuUnload, GivesEachQuestionAnEmptyBuffer)
{
    unload(std::wstring(2047, L'x'));
    unload(L"y");
    run();
    EXPECT_EQ(host().answerWasZeroed, std::vector<bool>(3, true));
}

TEST_F(MenuUnload, ATildeFurtherOnIsPartOfAName)
{
    for (const wchar_t* answer : {L" ~", L"a~"}) {
        EXPECT_EQ(unload(answer), 5100) << toUtf8(answer);
        EXPECT_EQ(host().printed, L"") << toUtf8(answer);
    }
    EXPECT_EQ(host().count("DoModal"), 0);
    EXPECT_EQ(host().count("quutPrintf"), 2);
    const std::wstring named = folder.file(L"a~.cuix");
    setList(main + L";" + named);
    EXPECT_EQ(unload(named), 5100);
    EXPECT_EQ(stored(), main);
}

TEST_F(MenuUnload, SaysOfEveryFileThatIsNotThereThatItCannotBeUnloaded)
{
    host().resources[L"VxCuiCmdsRes.dll"][11068] = L"No: <%s>";
    const std::wstring gone = folder.file(L"gone.cuix");
    setList(all + L";" + gone);
    folder.remove(gone);
    EXPECT_EQ(unload(gone), 5100);
    EXPECT_EQ(host().trace, runWith("5100 " + shown(gone),
                                    {"AfxGetResourceHandle() -> VxCuiCmdsRes.dll",
                                     "LoadStringW(VxCuiCmdsRes.dll, 11068, 1024) -> 8",
                                     "quutPrintf(" + shown(L"No: <" + gone + L">") + ")"}));
    EXPECT_EQ(stored(), all + L";" + gone);
}

TEST_F(MenuUnload, RefusesGroupNamesAndFilesOfOtherKinds)
{
    for (const wchar_t* name : {L"notes.txt", L"a.cui", L"a.mnu", L"uix", L"a.cuix.bak", L"a.cuix ",
                                L"a.cuxi", L"a.\u0421UIX", L"plant"}) {
        const std::wstring path = folder.file(name);
        startAnew(all + L";" + path);
        host().resources[L"VxCuiCmdsRes.dll"][11068] = L"No: <%s>";
        EXPECT_EQ(unload(path), 5100) << toUtf8(name);
        EXPECT_EQ(host().printed, L"No: <" + path + L">") << toUtf8(name);
        EXPECT_EQ(host().count("quelConfig"), 0) << toUtf8(name);
    }
    for (const wchar_t* name : {L"", L"PLANT", L"plant"}) {
        startAnew(all);
        host().resources[L"VxCuiCmdsRes.dll"][11068] = L"No: <%s>";
        EXPECT_EQ(unload(name), 5100) << toUtf8(name);
        EXPECT_EQ(host().printed, std::wstring(L"No: <") + name + L">") << toUtf8(name);
        EXPECT_EQ(host().count("quelConfig"), 0) << toUtf8(name);
    }
}

TEST_F(MenuUnload, RefusesNamesOfLessThanFourCharacters)
{
    const CurrentDirectory here(folder.path(L""));
    for (const wchar_t* name : {L"uix", L"ix", L"x"}) {
        folder.file(name);
        startAnew(main + L";" + name);
        EXPECT_EQ(unload(name), 5100) << toUtf8(name);
        EXPECT_EQ(host().count("quutPrintf"), 1) << toUtf8(name);
        EXPECT_EQ(writes(), 0) << toUtf8(name);
    }
}

TEST_F(MenuUnload, TakesEveryExistingFileWhoseNameEndsInTheFourLetters)
{
    for (const wchar_t* name :
         {L"a.cuix", L"b.CUIX", L"c.cUiX", L"mycuix", L"cuix", L".cuix", L"my.menu.cuix",
          L"e.cu\u0131x", L"\U0001F600.cuix", L"with two blanks.cuix", L"%s%n%ls.cuix",
          L"back\\slash.cuix", L"\"quoted\".cuix", L" leading.cuix"}) {
        const std::wstring path = folder.file(name);
        startAnew(main + L";" + path);
        EXPECT_EQ(unload(path), 5100) << toUtf8(name);
        EXPECT_EQ(stored(), main) << toUtf8(name);
        EXPECT_EQ(messages(), 0) << toUtf8(name);
    }
}

TEST_F(MenuUnload, TakesFoldersAndLinksThatLeadSomewhere)
{
    const std::wstring inside = folder.folder(L"d.cuix");
    const std::wstring link = folder.link(L"l.cuix", folder.file(L"other.xml"));
    const std::wstring broken = folder.link(L"b.cuix", folder.path(L"nowhere.cuix"));
    for (const std::wstring& path : {inside, link}) {
        startAnew(main + L";" + path);
        EXPECT_EQ(unload(path), 5100) << toUtf8(path);
        EXPECT_EQ(stored(), main) << toUtf8(path);
    }
    startAnew(main + L";" + broken);
    EXPECT_EQ(unload(broken), 5100);
    EXPECT_EQ(host().count("quutPrintf"), 1);
    EXPECT_EQ(writes(), 0);
}

TEST_F(MenuUnload, ResolvesRelativeNamesInTheCurrentDirectory)
{
    const CurrentDirectory here(folder.path(L""));
    for (const wchar_t* name : {L"plant.cuix", L"./plant.cuix", L"../%/plant.cuix"}) {
        std::wstring answer = name;
        if (const std::size_t at = answer.find(L'%'); at != answer.npos)
            answer.replace(at, 1, quelhost::toWide(QDir::current().dirName()));
        startAnew(main + L";plant.cuix;" + plant);
        EXPECT_EQ(unload(answer), 5100) << toUtf8(answer);
        EXPECT_EQ(stored(), main) << toUtf8(answer);
    }
}

TEST_F(MenuUnload, AddsNothingToATypedNameAndTrimsNothing)
{
    host().filesToFind[L"plant.cuix"] = plant;
    for (const std::wstring& answer :
         {folder.path(L"plant"), plant + L" ", L" " + plant, L"\"" + plant + L"\"", plant + L"/",
          plant + L";", L"\uFEFF" + plant, std::wstring(L"plant.cuix")}) {
        startAnew(all);
        EXPECT_EQ(unload(answer), 5100) << toUtf8(answer);
        EXPECT_EQ(host().count("quutPrintf"), 1) << toUtf8(answer);
        EXPECT_EQ(host().count("findFile"), 0) << toUtf8(answer);
        EXPECT_EQ(writes(), 0) << toUtf8(answer);
    }
}

TEST_F(MenuUnload, PrintsAnEmptyTextWhenThereIsNoneForTheMessage)
{
    EXPECT_EQ(unload(L"nowhere.cuix"), 5100);
    EXPECT_EQ(host().calls("LoadStringW"),
              Lines{"LoadStringW(VxCuiCmdsRes.dll, 11068, 1024) -> 0"});
    EXPECT_EQ(host().calls("quutPrintf"), Lines{"quutPrintf(\"\")"});
    EXPECT_EQ(host().count("qumdQuResourceString"), 1);
    host().resources[L"VxCuiCmdsRes.dll"][11068] = std::nullopt;
    EXPECT_EQ(unload(L"nowhere.cuix"), 5100);
    EXPECT_EQ(host().calls("quutPrintf"), Lines(2, "quutPrintf(\"\")"));
}

TEST_F(MenuUnload, PrintsPercentSignsOfANameAsTheyStand)
{
    for (const wchar_t* name :
         {L"%s%n%ls.cuix", L"50%d.cuix", L"%", L"100%", L"%5000000d.cuix", L"%*d.cuix"}) {
        startAnew(all);
        host().resources[L"VxCuiCmdsRes.dll"][11068] = L"No: <%s>";
        EXPECT_EQ(unload(name), 5100) << toUtf8(name);
        EXPECT_EQ(host().calls("quutPrintf"),
                  Lines{"quutPrintf(" + shown(std::wstring(L"No: <") + name + L">") + ")"});
    }
}

TEST_F(MenuUnload, CutsTheMessageAboutAVeryLongName)
{
    host().resources[L"VxCuiCmdsRes.dll"][11068] = L"No: <%s>";
    const std::wstring name(2047, L'n');
    EXPECT_EQ(unload(name), 5100);
    const std::wstring whole = L"No: <" + name + L">";
    const std::size_t least = 8 + 1022;
    ASSERT_GE(host().printed.size(), least);
    ASSERT_LE(host().printed.size(), least + 1);
    EXPECT_EQ(host().printed, whole.substr(0, host().printed.size()));
}

TEST_F(MenuUnload, UnloadsAFileWhoseNameFillsTheAnswer)
{
    std::wstring name = L"d";
    folder.folder(name);
    while (folder.path(name).size() < 1900) {
        name += L"/" + std::wstring(100, L'd');
        folder.folder(name);
    }
    const std::size_t rest = 2047 - folder.path(name).size() - 1 - 5;
    const std::wstring path = folder.file(name + L"/" + std::wstring(rest, L'f') + L".cuix");
    ASSERT_EQ(path.size(), 2047U);
    setList(main + L";" + path);
    EXPECT_EQ(unload(path), 5100);
    EXPECT_EQ(stored(), main);
}

TEST_F(MenuUnload, StopsWithoutAWordWhenThereIsNoStore)
{
    host().storeIsThere.usually(false);
    EXPECT_EQ(unload(plant), 0);
    EXPECT_EQ(host().trace, runWith("5100 " + shown(plant), {"quelConfig() -> null"}));
}

TEST_F(MenuUnload, RefusesAFileBeforeItAsksForAStore)
{
    host().storeIsThere.usually(false);
    EXPECT_EQ(unload(L"nowhere.cuix"), 5100);
    EXPECT_EQ(host().count("quelConfig"), 0);
    EXPECT_EQ(host().count("quutPrintf"), 1);
}

TEST_F(MenuUnload, ChangesNothingWhenTheListCannotBeRead)
{
    for (const int failure : {1, -1, 42}) {
        startAnew(all);
        host().readFailures.next(failure);
        EXPECT_EQ(unload(plant), 5100) << failure;
        EXPECT_EQ(host().trace,
                  runWith("5100 " + shown(plant),
                          {"quelConfig() -> store",
                           "getValue(4, \"CUIX/LoadedCuix\") -> " + std::to_string(failure)}));
    }
    startAnew(all);
    host().settings.clear();
    EXPECT_EQ(unload(plant), 5100);
    EXPECT_EQ(host().trace.size(), 10U);
    EXPECT_TRUE(host().settings.empty());
}

TEST_F(MenuUnload, RefreshesAllTheSameWhenTheListCannotBeWritten)
{
    for (const int failure : {1, -1}) {
        startAnew(all);
        host().writeFailures.next(failure);
        EXPECT_EQ(unload(plant), 5100) << failure;
        EXPECT_EQ(writes(), 1) << failure;
        EXPECT_EQ(refreshes(), 1) << failure;
        EXPECT_EQ(messages(), 0) << failure;
        EXPECT_EQ(stored(), all) << failure;
    }
}

TEST_F(MenuUnload, WritesTheListEvenWhenNobodyCanShowIt)
{
    for (const bool application : {false, true}) {
        startAnew(all);
        host().applicationIsThere.usually(application);
        host().managerIsThere.usually(false);
        EXPECT_EQ(unload(plant), 5100) << application;
        EXPECT_EQ(stored(), main + L";" + survey) << application;
        EXPECT_EQ(refreshes(), 0) << application;
        EXPECT_EQ(host().count("customizationManager"), application ? 1 : 0);
        EXPECT_EQ(messages(), 0) << application;
    }
}

TEST_F(MenuUnload, RefreshesBehindTheWrite)
{
    std::wstring storedThen;
    host().onCall("refresh", 1, [&] { storedThen = stored(); });
    unload(survey);
    EXPECT_EQ(storedThen, main + L";" + plant);
    EXPECT_EQ(refreshes(), 1);
    EXPECT_EQ(host().count("loadMenuFile"), 0);
}

TEST_F(MenuUnload, ShowsTheTextsOfTheModulesFile)
{
    host().resources[L"VxCuiCmdsRes.dll"] = {{11067, L"Datei: "}, {11068, L"Nicht: <%s>"}};
    host().resources[L"QUELDRes.dll"] = {{11067, L"wrong file"}, {11068, L"wrong file"}};
    EXPECT_EQ(unload(L"nowhere"), 5100);
    EXPECT_EQ(host().calls("quedGetString"),
              Lines{"quedGetString(0, \"Datei: \") -> 5100 \"nowhere\""});
    EXPECT_EQ(host().printed, L"Nicht: <nowhere>");
}

TEST_F(MenuUnload, GetsAlongWithAPromptThatIsNull)
{
    host().resources[L"VxCuiCmdsRes.dll"] = {{11067, std::nullopt}};
    EXPECT_EQ(unload(plant), 5100);
    EXPECT_EQ(host().calls("quedGetString"),
              Lines{"quedGetString(0, null) -> 5100 " + shown(plant)});
    EXPECT_EQ(stored(), main + L";" + survey);
}

TEST_F(MenuUnload, RunsWithoutAScopeWhenThereIsNone)
{
    host().contextScope.usually(false);
    EXPECT_EQ(unload(plant), 5100);
    EXPECT_EQ(stored(), main + L";" + survey);
    EXPECT_EQ(host().count("leaveResourceScope"), 0);
    EXPECT_EQ(host().leavesWithoutEnter, 0);
}

TEST_F(MenuUnload, RunsAgainWithTheSameObject)
{
    EXPECT_EQ(unload(plant), 5100);
    EXPECT_EQ(unload(plant), 5100);
    EXPECT_EQ(writes(), 1);
    EXPECT_EQ(unload(survey), 5100);
    EXPECT_EQ(stored(), main);
    EXPECT_EQ(unload(main), 0);
    EXPECT_EQ(stored(), main);
    EXPECT_EQ(host().resourceStack.size(), 1U);
}
