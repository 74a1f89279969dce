// MENULOAD: which typed names are files to load, what is stored and what is said about them.
#include "tests/module/menuloadfixture.h"

#include "refhost/core/widetext.h"

#include <QDir>

#include <cstdint>
#include <cwchar>

using quelhost::toUtf8;
using recording::host;
using Lines = std::vector<std::string>;

namespace {

constexpr wchar_t kMissing[] = L"Menu file load failed.  File not found:\"%s\"";

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

std::wstring missingMessage(const std::wstring& name)
{
    return L"Menu file load failed.  File not found:\"" + name + L"\"";
}

} // namespace

TEST_F(MenuLoad, TakesFilesWhoseNameEndsInTheFourLetters)
{
    for (const wchar_t* name :
         {L"a.cuix", L"b.CUIX", L"c.Cuix", L"d.cUiX", L"mycuix", L"cuix", L".cuix", L"my.menu.cuix",
          L"e.cu\u0131x", L"\U0001F600.cuix", L"f.\u00E9cuix", L"with two blanks.cuix",
          L"%s%n%ls.cuix", L"50%d.cuix", L"a;b.cuix", L"~.cuix", L"back\\slash.cuix",
          L"\"quoted\".cuix", L" leading.cuix"}) {
        recording::reset();
        host().setVariable(L"FILEDIA", short{0});
        setList(L"");
        const std::wstring path = folder.file(name);
        type(path);
        EXPECT_EQ(run(), 5100) << toUtf8(name);
        EXPECT_EQ(stored(), L";" + path) << toUtf8(name);
        EXPECT_EQ(host().printed, L"\nLoading \"" + path + L"\" success.group:GROUP\n")
            << toUtf8(name);
    }
}

TEST_F(MenuLoad, SaysOfEveryOtherFileThatItIsMissing)
{
    for (const wchar_t* name : {L"a.cui", L"a.xml", L"a.mnu", L"uix", L"a.cuix.bak", L"a.cuix ",
                                L"a.cuix\n", L"a.cuxi", L"a.\u0421UIX", L"a"}) {
        recording::reset();
        host().setVariable(L"FILEDIA", short{0});
        setList(L"");
        const std::wstring path = folder.file(name);
        type(path);
        EXPECT_EQ(run(), -5002) << toUtf8(name);
        EXPECT_EQ(prompts(), 2) << toUtf8(name);
        EXPECT_EQ(host().printed, missingMessage(path)) << toUtf8(name);
        EXPECT_EQ(writes(), 0) << toUtf8(name);
        EXPECT_EQ(host().count("quelConfig"), 0) << toUtf8(name);
    }
}

TEST_F(MenuLoad, SaysThatAMissingFileIsMissingAndAsksAgain)
{
    const std::wstring path = folder.path(L"missing.cuix");
    type(path);
    EXPECT_EQ(run(), -5002);
    EXPECT_EQ(prompts(), 2);
    EXPECT_EQ(writes(), 0);
    EXPECT_EQ(host().calls("quutPrintf"),
              Lines{"quutPrintf(\"Menu file load failed.  File not found:\\\"" + toUtf8(path) +
                    "\\\"\")"});
}

TEST_F(MenuLoad, AnEmptyAnswerIsAMissingFileWithAnEmptyName)
{
    type(L"");
    EXPECT_EQ(run(), -5002);
    EXPECT_EQ(prompts(), 2);
    EXPECT_EQ(host().printed, missingMessage(L""));
}

TEST_F(MenuLoad, GoesOnAfterAMissingFile)
{
    const std::wstring path = folder.file(L"plant.cuix");
    type(folder.path(L"missing.cuix"));
    type(path);
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(stored(), L";" + path);
}

TEST_F(MenuLoad, AddsNothingToATypedNameAndTrimsNothing)
{
    const std::wstring path = folder.file(L"plant.cuix");
    host().filesToFind[L"plant.cuix"] = path;
    for (const std::wstring& answer :
         {folder.path(L"plant"), folder.path(L"plant."), path + L" ", L" " + path,
          L"\"" + path + L"\"", path + L"/", path + L";", std::wstring(L"plant.cuix")}) {
        recording::reset();
        host().setVariable(L"FILEDIA", short{0});
        setList(L"");
        type(answer);
        EXPECT_EQ(run(), -5002) << toUtf8(answer);
        EXPECT_EQ(host().printed, missingMessage(answer)) << toUtf8(answer);
        EXPECT_EQ(host().count("findFile"), 0) << toUtf8(answer);
    }
}

TEST_F(MenuLoad, ResolvesRelativeNamesInTheCurrentDirectory)
{
    folder.file(L"plant.cuix");
    folder.file(L"cuix");
    const CurrentDirectory here(folder.path(L""));
    for (const wchar_t* name : {L"plant.cuix", L"./plant.cuix", L"cuix"}) {
        recording::reset();
        host().setVariable(L"FILEDIA", short{0});
        setList(L"");
        type(name);
        EXPECT_EQ(run(), 5100) << toUtf8(name);
        EXPECT_EQ(stored(), std::wstring(L";") + name) << toUtf8(name);
    }
}

TEST_F(MenuLoad, RefusesNamesOfLessThanFourCharacters)
{
    const CurrentDirectory here(folder.path(L""));
    for (const wchar_t* name : {L"uix", L"cui", L"ix", L"x"}) {
        recording::reset();
        host().setVariable(L"FILEDIA", short{0});
        folder.file(name);
        type(name);
        EXPECT_EQ(run(), -5002) << toUtf8(name);
        EXPECT_EQ(host().printed, missingMessage(name)) << toUtf8(name);
    }
}

TEST_F(MenuLoad, TakesFoldersAndLinksThatLeadSomewhere)
{
    const std::wstring inside = folder.folder(L"d.cuix");
    const std::wstring link = folder.link(L"l.cuix", folder.file(L"other.xml"));
    for (const std::wstring& path : {inside, link}) {
        recording::reset();
        host().setVariable(L"FILEDIA", short{0});
        setList(L"");
        type(path);
        EXPECT_EQ(run(), 5100) << toUtf8(path);
        EXPECT_EQ(stored(), L";" + path) << toUtf8(path);
    }
}

TEST_F(MenuLoad, RefusesALinkThatLeadsNowhere)
{
    const std::wstring path = folder.link(L"l.cuix", folder.path(L"nowhere.cuix"));
    type(path);
    EXPECT_EQ(run(), -5002);
    EXPECT_EQ(host().printed, missingMessage(path));
}

TEST_F(MenuLoad, DropsNoCharacterOfAName)
{
    folder.file(L"plant.cuix");
    const CurrentDirectory here(folder.path(L""));
    const std::wstring marked = L"\uFEFFplant.cuix";
    type(marked);
    EXPECT_EQ(run(), -5002);
    EXPECT_EQ(host().printed, missingMessage(marked));
    folder.file(marked);
    type(marked);
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(stored(), L";" + marked);
}

TEST_F(MenuLoad, AnEntryWithItsBytesTurnedAroundIsNotTheFile)
{
    const std::wstring path = folder.file(L"plant.cuix");
    // In front the mark of the byte order in reverse, as a text of the other order has it.
    std::wstring turned;
    for (const wchar_t character : L"\uFEFF" + path)
        turned += static_cast<wchar_t>(__builtin_bswap32(static_cast<std::uint32_t>(character)));
    setList(turned);
    type(path);
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(stored(), turned + L";" + path);
}

TEST_F(MenuLoad, PrintsPercentSignsOfANameAsTheyStand)
{
    for (const wchar_t* name : {L"%s%n%ls.cuix", L"50%d.cuix", L"%", L"100%", L"%5000000d.cuix",
                                L"%*d.cuix", L"%S%hs%c"}) {
        recording::reset();
        host().setVariable(L"FILEDIA", short{0});
        const std::wstring path = L"/nowhere/" + std::wstring(name);
        type(path);
        EXPECT_EQ(run(), -5002) << toUtf8(name);
        EXPECT_EQ(host().calls("quutPrintf"),
                  Lines{"quutPrintf(\"Menu file load failed.  File not found:\\\"" + toUtf8(path) +
                        "\\\"\")"});
        EXPECT_EQ(host().printed, missingMessage(path)) << toUtf8(name);
    }
}

TEST_F(MenuLoad, CutsTheMessageAboutAVeryLongName)
{
    const std::wstring name(2047, L'n');
    type(name);
    EXPECT_EQ(run(), -5002);
    const std::wstring whole = missingMessage(name);
    const std::size_t least = std::wcslen(kMissing) + 1022;
    ASSERT_GE(host().printed.size(), least);
    ASSERT_LE(host().printed.size(), least + 1);
    EXPECT_EQ(host().printed, whole.substr(0, host().printed.size()));
}

TEST_F(MenuLoad, LoadsAFileWhoseNameFillsTheAnswer)
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
    type(path);
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(stored(), L";" + path);
    EXPECT_EQ(host().printed, L"\nLoading \"" + path + L"\" success.group:GROUP\n");
}

TEST_F(MenuLoad, AppendsBehindWhatIsStored)
{
    const std::wstring path = folder.file(L"plant.cuix");
    struct Row
    {
        const char* name;
        std::wstring before;
    };
    for (const Row& row :
         {Row{"an empty list", L""}, Row{"the main file", L"/t/main.cuix"},
          Row{"an empty first entry", L";/t/a.cuix"}, Row{"a separator at the end", L"/t/a.cuix;"},
          Row{"empty entries", L"/t/a.cuix;;;/t/b.cuix"}, Row{"only a separator", L";"}}) {
        recording::reset();
        host().setVariable(L"FILEDIA", short{0});
        setList(row.before);
        type(path);
        EXPECT_EQ(run(), 5100) << row.name;
        EXPECT_EQ(stored(), row.before + L";" + path) << row.name;
    }
}

TEST_F(MenuLoad, TakesAStoredValueOfAnotherKindForAnEmptyList)
{
    const std::wstring path = folder.file(L"plant.cuix");
    std::vector<QuelVariant> values(5);
    values[1].setInteger(7);
    values[2].setString(path.c_str(), QuelVariant::kString7);
    values[3].setString(path.c_str(), QuelVariant::kString8);
    values[4].install(QuelVariant::kString, nullptr);
    for (const QuelVariant& value : values) {
        recording::reset();
        host().setVariable(L"FILEDIA", short{0});
        host().settings[L"CUIX/LoadedCuix"] = value;
        type(path);
        EXPECT_EQ(run(), 5100) << value.type();
        EXPECT_EQ(stored(), L";" + path) << value.type();
    }
}

TEST_F(MenuLoad, StoresCharactersOutsideTheBasicPlaneWhole)
{
    const std::wstring path = folder.file(L"\U0001F600.cuix");
    type(path);
    EXPECT_EQ(run(), 5100);
    const QuelVariant& value = host().settings[L"CUIX/LoadedCuix"];
    ASSERT_EQ(value.type(), QuelVariant::kString);
    std::uint32_t size = 0;
    std::memcpy(&size, value.block(), sizeof size);
    EXPECT_EQ(size, (1 + path.size() + 2) * 4);
    EXPECT_EQ(value.stringOrEmpty(), L";" + path);
}

TEST_F(MenuLoad, SaysThatAFileOfThatNameIsLoadedAlready)
{
    host().resources[L"VxCuiCmdsRes.dll"][11065] = L"\"%s\" is already loaded.";
    folder.folder(L"a");
    folder.folder(L"b");
    const std::wstring first = folder.file(L"a/Menu.cuix");
    const std::wstring second = folder.file(L"b/MENU.cuix");
    setList(first);
    type(second);
    EXPECT_EQ(run(), 0);
    EXPECT_EQ(host().calls("MessageBoxW"),
              Lines{"MessageBoxW(\"\\\"" + toUtf8(second) +
                    "\\\" is already loaded.\", \"Drafting Desk\", 0x30) -> 1"});
    EXPECT_EQ(host().calls("LoadStringW"),
              Lines{"LoadStringW(VxCuiCmdsRes.dll, 11065, 1024) -> 23"});
    EXPECT_EQ(prompts(), 1);
    EXPECT_EQ(writes(), 0);
    EXPECT_EQ(host().count("GetQuelAppInterface"), 0);
    EXPECT_EQ(host().printed, L"");
    EXPECT_EQ(host().trace.back(), "leaveResourceScope(0)");
}

TEST_F(MenuLoad, ShowsAnEmptyBoxWhenThereIsNoTextForIt)
{
    const std::wstring path = folder.file(L"plant.cuix");
    setList(path);
    type(path);
    EXPECT_EQ(run(), 0);
    EXPECT_EQ(host().calls("MessageBoxW"),
              Lines{"MessageBoxW(\"\", \"Drafting Desk\", 0x30) -> 1"});
}

TEST_F(MenuLoad, IgnoresWhatTheUserAnswersTheBox)
{
    const std::wstring path = folder.file(L"plant.cuix");
    for (const int answer : {0, 1, 2, 6, 7, -1}) {
        recording::reset();
        host().setVariable(L"FILEDIA", short{0});
        setList(path);
        host().boxes.usually(answer);
        type(path);
        EXPECT_EQ(run(), 0) << answer;
    }
}

TEST_F(MenuLoad, LoadsAFileOfTheNameOfADeletedOne)
{
    folder.folder(L"a");
    folder.folder(L"b");
    const std::wstring gone = folder.file(L"a/plant.cuix");
    folder.remove(gone);
    const std::wstring path = folder.file(L"b/plant.cuix");
    setList(gone);
    type(path);
    EXPECT_EQ(run(), 5100);
    EXPECT_EQ(stored(), gone + L";" + path);
}

TEST_F(MenuLoad, ANameEndsAtItsFirstDot)
{
    const std::wstring loaded = folder.file(L"my.menu.cuix");
    setList(loaded);
    type(folder.file(L"my.other.cuix"));
    EXPECT_EQ(run(), 0);
    EXPECT_EQ(host().count("MessageBoxW"), 1);
}
