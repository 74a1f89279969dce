#include "menuload/loadedmenufilelist.h"

#include "refhost/core/widetext.h"
#include "tests/support/menufolder.h"
#include "tests/support/recordinghost.h"
#include "tests/support/testrounds.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <iostream>
#include <random>

using quelhost::toUtf8;
using recording::host;
using Lines = std::vector<std::string>;

namespace {

const wchar_t* const kKey = L"CUIX/LoadedCuix";

LoadedMenuFileList listOf(const std::wstring& text)
{
    host().setStringSetting(kKey, text);
    std::optional<LoadedMenuFileList> list = LoadedMenuFileList::read(*quelConfig());
    return list.value();
}

std::wstring writtenTextOf(const LoadedMenuFileList& list)
{
    list.write(*quelConfig());
    return host().stringSetting(kKey);
}

// The rule as it is told, entry by entry, without a thought for time.
bool isLoadedPlainly(const std::wstring& text, const std::wstring& path)
{
    const QString candidate = QFileInfo(quelhost::toQString(path)).baseName().toUpper();
    const QStringList entries = quelhost::toQString(text).split(QLatin1Char(';'));
    for (const QString& entry : entries) {
        if (!QFile::exists(entry))
            continue;
        if (QFileInfo(entry).baseName().toUpper() == candidate)
            return true;
    }
    return false;
}

} // namespace

TEST(LoadedMenuFileList, ReadsAStringAndTakesEverythingElseForEmpty)
{
    struct Row
    {
        const char* name;
        QuelVariant value;
        std::wstring text;
    };
    std::vector<Row> rows(7);
    rows[0].name = "a string";
    rows[0].value.setString(L"/t/a.cuix;/t/b.cuix", QuelVariant::kString);
    rows[0].text = L"/t/a.cuix;/t/b.cuix";
    rows[1].name = "an empty string";
    rows[1].value.setString(L"", QuelVariant::kString);
    rows[2].name = "an integer";
    rows[2].value.setInteger(59);
    rows[3].name = "nothing";
    rows[4].name = "a string of kind 7";
    rows[4].value.setString(L"/t/a.cuix", QuelVariant::kString7);
    rows[5].name = "a string of kind 8";
    rows[5].value.setString(L"/t/a.cuix", QuelVariant::kString8);
    rows[6].name = "a string without a block";
    rows[6].value.install(QuelVariant::kString, nullptr);
    for (const Row& row : rows) {
        host().settings[kKey] = row.value;
        const auto list = LoadedMenuFileList::read(*quelConfig());
        ASSERT_TRUE(list.has_value()) << row.name;
        EXPECT_EQ(writtenTextOf(*list), row.text) << row.name;
    }
}

TEST(LoadedMenuFileList, ReadsItsKeyOnceInCategoryFour)
{
    host().setStringSetting(kKey, L"x");
    EXPECT_TRUE(LoadedMenuFileList::read(*quelConfig()).has_value());
    EXPECT_EQ(host().trace, (Lines{"quelConfig() -> store",
                                   "getValue(4, \"CUIX/LoadedCuix\") -> 0 string \"x\""}));
}

TEST(LoadedMenuFileList, IsNothingWhenTheStoreCannotReadIt)
{
    EXPECT_FALSE(LoadedMenuFileList::read(*quelConfig()).has_value());
    host().setStringSetting(kKey, L"x");
    for (const int failure : {1, -1, 5100}) {
        host().readFailures.next(failure);
        EXPECT_FALSE(LoadedMenuFileList::read(*quelConfig()).has_value()) << failure;
    }
}

TEST(LoadedMenuFileList, WritesAStringAndIgnoresTheResult)
{
    const LoadedMenuFileList list = listOf(L"/t/a.cuix");
    host().trace.clear();
    host().writeFailures.next(1);
    list.write(*quelConfig());
    EXPECT_EQ(host().trace, (Lines{"quelConfig() -> store",
                                   "setValue(4, \"CUIX/LoadedCuix\", string \"/t/a.cuix\") -> 1"}));
}

TEST(LoadedMenuFileList, AppendsWithASeparatorAlways)
{
    struct Row
    {
        const wchar_t* before;
        const wchar_t* path;
        const wchar_t* after;
    };
    for (const Row& row :
         {Row{L"", L"/t/a.cuix", L";/t/a.cuix"},
          Row{L"/t/a.cuix", L"/t/b.cuix", L"/t/a.cuix;/t/b.cuix"}, Row{L";", L"b", L";;b"},
          Row{L"a;;", L"b", L"a;;;b"}, Row{L"a", L"", L"a;"}, Row{L"a", L"b;c", L"a;b;c"},
          Row{L" a ", L" b ", L" a ; b "},
          Row{L"\U0001F600", L"\uFEFF\u00E9", L"\U0001F600;\uFEFF\u00E9"}}) {
        LoadedMenuFileList list = listOf(row.before);
        list.append(row.path);
        EXPECT_EQ(writtenTextOf(list), row.after)
            << toUtf8(row.before) << " + " << toUtf8(row.path);
    }
}

TEST(LoadedMenuFileList, AppendsOneAfterTheOther)
{
    LoadedMenuFileList list = listOf(L"");
    list.append(L"/t/a.cuix");
    list.append(L"/t/b.cuix");
    EXPECT_EQ(writtenTextOf(list), L";/t/a.cuix;/t/b.cuix");
}

TEST(LoadedMenuFileList, FindsAnExistingFileByItsBaseNameInCapitals)
{
    const recording::MenuFolder folder;
    struct Row
    {
        const char* name;
        const wchar_t* entry;     // a file that exists
        const wchar_t* candidate; // a path without one
        bool loaded;
    };
    const Row rows[] = {
        {"the same name", L"plant.cuix", L"/x/plant.cuix", true},
        {"other case", L"Menu1.cuix", L"/x/MENU1.cuix", true},
        {"other extension", L"plant2.xml", L"/x/plant2.cuix", true},
        {"other extensions behind the first dot", L"my.menu.cuix", L"my.other.cuix", true},
        {"no extension", L"plain", L"/x/PLAIN", true},
        {"another name", L"plant3.cuix", L"/x/plants.cuix", false},
        {"a longer entry", L"plants4.cuix", L"/x/plants.cuix", false},
        {"a shorter entry", L"plan5.cuix", L"/x/plan56.cuix", false},
        {"sharp s and its capitals", L"stra\u00DFe.cuix", L"/x/STRASSE.cuix", true},
        {"capitals and sharp s", L"MASSE.cuix", L"/x/ma\u00DFe.cuix", true},
        {"sharp s and small letters", L"gro\u00DF.cuix", L"/x/gross.cuix", true},
        {"the ligature fi", L"\uFB01le.cuix", L"/x/FILE.cuix", true},
        {"n preceded by an apostrophe", L"\u0149x.cuix", L"/x/\u02BCNX.cuix", true},
        {"the Kelvin sign and k", L"\u212Aold.cuix", L"/x/kold.cuix", false},
        {"k and the Kelvin sign", L"kalt.cuix", L"/x/\u212Aalt.cuix", false},
        {"dotless i and I", L"d\u0131e.cuix", L"/x/DIE.cuix", true},
        {"i and dotless i", L"hier.cuix", L"/x/h\u0131er.cuix", true},
        {"I with a dot and i", L"\u0130ch.cuix", L"/x/ich.cuix", false},
        {"umlauts in other case", L"\u00E4rger.cuix", L"/x/\u00C4RGER.cuix", true},
        {"an umlaut and its letter", L"\u00E4.cuix", L"/x/a.cuix", false},
        {"outside the basic plane", L"\U0001F600.cuix", L"/x/\U0001F600.CUIX", true},
        {"small and capital outside the basic plane", L"\U00010428.cuix", L"/\U00010400.cuix",
         true},
        {"a name of nothing", L".cuix", L"/x/.hidden", true},
        {"a name of nothing and a folder", L".config", L"/x/", true},
        {"a percent sign", L"%s%n.cuix", L"/x/%S%N.cuix", true},
        {"blanks count", L"with blank.cuix", L"/x/with blank .cuix", false},
        {"signs behind the letters", L"{x}~.cuix", L"/x/{X}~.cuix", true},
        {"another sign behind the letters", L"y|.cuix", L"/x/y}.cuix", false},
        {"a backslash is a character", L"a\\b.cuix", L"/x/b.cuix", false},
    };
    for (const Row& row : rows) {
        const std::wstring entry = folder.file(row.entry);
        EXPECT_EQ(listOf(entry).isLoaded(row.candidate), row.loaded) << row.name;
        EXPECT_EQ(listOf(L"/t/x;" + entry + L";/t/y").isLoaded(row.candidate), row.loaded)
            << row.name;
        folder.remove(entry);
        EXPECT_FALSE(listOf(entry).isLoaded(row.candidate)) << row.name;
    }
}

TEST(LoadedMenuFileList, CountsFoldersAndLinksAsFarAsTheyExist)
{
    const recording::MenuFolder folder;
    const std::wstring file = folder.file(L"other.xml");
    EXPECT_TRUE(listOf(folder.folder(L"d.cuix")).isLoaded(L"d.cuix"));
    EXPECT_TRUE(listOf(folder.path(L"d.cuix/")).isLoaded(L"/x/"));
    EXPECT_TRUE(listOf(folder.link(L"l.cuix", file)).isLoaded(L"l.cuix"));
    EXPECT_FALSE(listOf(folder.link(L"m.cuix", folder.path(L"gone"))).isLoaded(L"m.cuix"));
}

TEST(LoadedMenuFileList, ADeletedEntryHidesNoLaterOne)
{
    const recording::MenuFolder folder;
    folder.folder(L"a");
    const std::wstring there = folder.file(L"a/plant.cuix");
    EXPECT_TRUE(listOf(folder.path(L"plant.cuix") + L";" + there).isLoaded(L"PLANT"));
    EXPECT_FALSE(listOf(folder.path(L"plant.cuix") + L";;").isLoaded(L"PLANT"));
}

TEST(LoadedMenuFileList, AnEmptyListHoldsNothing)
{
    for (const wchar_t* text : {L"", L";", L";;;"}) {
        EXPECT_FALSE(listOf(text).isLoaded(L"/t/plant.cuix"));
        EXPECT_FALSE(listOf(text).isLoaded(L""));
        EXPECT_FALSE(listOf(text).isLoaded(L"/x/"));
    }
}

TEST(LoadedMenuFileList, BlanksAroundASeparatorBelongToTheNames)
{
    const recording::MenuFolder folder;
    const std::wstring there = folder.file(L"plant.cuix");
    EXPECT_FALSE(listOf(L"x; " + there).isLoaded(L"plant"));
    EXPECT_FALSE(listOf(there + L" ;x").isLoaded(L"plant"));
    EXPECT_TRUE(listOf(L"x;" + there + L";x").isLoaded(L"plant"));
}

TEST(LoadedMenuFileList, ShowsTheBaseNamesOfTheEntriesThatExistInTheirOrder)
{
    const recording::MenuFolder folder;
    folder.folder(L"x");
    const std::wstring a = folder.file(L"a.cuix");
    const std::wstring capital = folder.file(L"x/A.b.cuix");
    const std::wstring mark = folder.file(L"\uFEFFm.cuix");
    const std::wstring smile = folder.file(L"\U0001F600.\u00E9");
    const std::wstring script = folder.file(L"\u754C\uAC00.x.y");
    const std::wstring gone = folder.path(L"gone.cuix");
    struct Row
    {
        std::wstring text;
        std::vector<std::wstring> names;
    };
    for (const Row& row :
         {Row{L"", {}}, Row{L";", {}}, Row{gone, {}}, Row{a, {L"a"}}, Row{a + L";", {L"a"}},
          Row{L";" + a, {L"a"}}, Row{a + L";;" + a, {L"a", L"a"}},
          Row{gone + L";" + capital + L";" + gone + L";" + a, {L"A", L"a"}},
          Row{mark + L";" + smile, {L"\uFEFFm", L"\U0001F600"}}, Row{script, {L"\u754C\uAC00"}},
          Row{L".", {L""}}, Row{L" " + a, {}},
          Row{folder.path(L"x") + L";" + folder.path(L"x/"), {L"x", L""}},
          Row{folder.link(L"l.cuix", a) + L";" + folder.link(L"m.cuix", gone), {L"l"}}}) {
        const LoadedMenuFileList list = listOf(row.text);
        EXPECT_EQ(list.shownNames(), row.names) << toUtf8(row.text);
        EXPECT_EQ(writtenTextOf(list), row.text) << toUtf8(row.text);
    }
}

TEST(LoadedMenuFileList, RemovesEveryEntryOfExactlyOneNameWhetherItExistsOrNot)
{
    const recording::MenuFolder folder;
    const std::wstring there = folder.file(L"a.cuix");
    struct Row
    {
        std::wstring before;
        const wchar_t* name;
        int removed;
        std::wstring after;
    };
    for (const Row& row :
         {Row{L"", L"a", 0, L""},
          Row{L";;", L"a", 0, L";;"},
          Row{L"/t/b", L"a", 0, L"/t/b"},
          Row{there, L"a", 1, L""},
          Row{L"/t/a.cuix", L"a", 1, L""},
          Row{L";/t/a.cuix", L"a", 1, L""},
          Row{L"/t/a.cuix;", L"a", 1, L""},
          Row{L";/t/a.cuix;", L"a", 1, L";"},
          Row{L";;/t/a.cuix;;", L"a", 1, L";;;"},
          Row{there + L";/t/b;/u/a.x.y;;/t/gone", L"a", 2, L"/t/b;;/t/gone"},
          Row{L"/t/a;/t/A;/t/aa;/t/b.a;a/b; a", L"a", 1, L"/t/A;/t/aa;/t/b.a;a/b; a"},
          Row{L"a;a;a", L"a", 3, L""},
          Row{L"a;b;a;c;a", L"a", 3, L"b;c"},
          Row{L"/t/a.cuix", L"a.cuix", 0, L"/t/a.cuix"},
          Row{L"/t/a.cuix", L"/t/a", 0, L"/t/a.cuix"},
          Row{L"/t/a.cuix", L"A", 0, L"/t/a.cuix"},
          Row{L"x;;/t/;/t/.hidden;y", L"", 3, L"x;y"},
          Row{L"/t/stra\u00DFe;/t/STRASSE", L"STRASSE", 1, L"/t/stra\u00DFe"},
          Row{L"\uFEFFa;a", L"a", 1, L"\uFEFFa"},
          Row{L"\uFEFFa;a", L"\uFEFFa", 1, L"a"},
          Row{L"\U0001F600.x;\u00E9", L"\U0001F600", 1, L"\u00E9"}}) {
        LoadedMenuFileList list = listOf(row.before);
        host().trace.clear();
        EXPECT_EQ(list.removeNamed(row.name), row.removed) << toUtf8(row.before);
        EXPECT_EQ(host().trace, Lines{});
        EXPECT_EQ(writtenTextOf(list), row.after) << toUtf8(row.before);
    }
}

TEST(LoadedMenuFileList, ALeadingMarkIsACharacterOfAnEntry)
{
    const recording::MenuFolder folder;
    const std::wstring there = folder.file(L"plant.cuix");
    EXPECT_FALSE(listOf(L"\uFEFF" + there).isLoaded(L"plant"));
    EXPECT_FALSE(listOf(L"x;\uFEFF" + there).isLoaded(L"plant"));
    EXPECT_FALSE(listOf(there).isLoaded(L"\uFEFFplant"));
}

TEST(LoadedMenuFileList, AValueThatIsNoCharacterMatchesNoFile)
{
    const recording::MenuFolder folder;
    const std::wstring there = folder.file(L"plant.cuix");
    const std::wstring wrong = folder.path(L"plant") + static_cast<wchar_t>(-5) + L".cuix";
    EXPECT_FALSE(listOf(wrong).isLoaded(wrong));
    EXPECT_FALSE(listOf(there).isLoaded(wrong));
    EXPECT_TRUE(listOf(wrong + L";" + there).isLoaded(there));
}

TEST(LoadedMenuFileList, TouchesNothingButTheFileSystemForItsTest)
{
    const LoadedMenuFileList list = listOf(L"/t/a.cuix;/t/b.cuix");
    host().trace.clear();
    EXPECT_FALSE(list.isLoaded(L"/x/a.cuix"));
    EXPECT_EQ(host().trace, Lines{});
    EXPECT_EQ(writtenTextOf(list), L"/t/a.cuix;/t/b.cuix");
}

TEST(LoadedMenuFileList, AgreesWithTheRuleOnRandomLists)
{
    const recording::MenuFolder folder;
    const std::vector<std::wstring> stems{
        L"a",       L"A",         L"ab",       L"my.menu", L"MY",         L"stra\u00DFe",
        L"STRASSE", L"file",      L"\uFB01le", L"k",       L"\u212A",     L"i",
        L"\u0131",  L"\u0130",    L"\u00E4",   L"\u00C4",  L"\U0001F600", L"",
        L"%s%n",    L"two words", L"\u0149",   L"\u02BCn", L"\U00010428", L"\U00010400",
        L"\uFEFFa", L"A\u0301",   L"\u00C1"};
    const std::vector<std::wstring> ends{L".cuix", L".CUIX", L"", L".x.cuix"};
    const std::vector<std::wstring> folders{folder.folder(L"one"), folder.folder(L"two"),
                                            folder.path(L"none")};
    const unsigned int seed = wantedSeed();
    SCOPED_TRACE("QUELHOST_TEST_SEED=" + std::to_string(seed));
    std::cout << "QUELHOST_TEST_SEED=" << seed << "\n";
    std::mt19937 random(seed);
    const auto pick = [&random](const std::vector<std::wstring>& from) {
        return from[std::uniform_int_distribution<std::size_t>(0, from.size() - 1)(random)];
    };
    const auto pickPath = [&] { return pick(folders) + L"/" + pick(stems) + pick(ends); };
    for (int file = 0; file < 160; ++file) { // half of the names that are picked
        const std::wstring name = pick({L"one/", L"two/"}) + pick(stems) + pick(ends);
        if (name.size() > 4)
            folder.file(name);
    }
    int loaded = 0;
    const int rounds = wantedRounds(4000);
    for (int round = 0; round < rounds; ++round) {
        std::wstring text;
        for (int entry = static_cast<int>(random() % 8); entry > 0; --entry)
            text += (random() % 10 == 0 ? std::wstring() : pickPath()) + L";";
        const std::wstring path = pickPath();
        const bool expected = isLoadedPlainly(text, path);
        loaded += expected ? 1 : 0;
        ASSERT_EQ(listOf(text).isLoaded(path), expected) << toUtf8(text) << " : " << toUtf8(path);
    }
    RecordProperty("loaded", loaded);
    // A run without both answers would compare nothing.
    EXPECT_GT(loaded, rounds / 50);
    EXPECT_LT(loaded, rounds - rounds / 50);
}

TEST(IsCustomizationFile, AsksForAnExistingNameThatEndsInTheFourLetters)
{
    const recording::MenuFolder folder;
    struct Row
    {
        const wchar_t* name;
        bool accepted;
    };
    for (const Row& row :
         {Row{L"a.cuix", true}, Row{L"b.CUIX", true}, Row{L"mycuix", true}, Row{L"cuix", true},
          Row{L"c.cu\u0131x", true}, Row{L"d.cuix.", false}, Row{L"uix", false},
          Row{L"e.cui", false}, Row{L"f.cuix\u0301", false}, Row{L"g.\u0441uix", false},
          Row{L"h.cu\u0130x", false}, Row{L"cui\U0001D54F", false}}) {
        const std::wstring path = folder.path(row.name);
        EXPECT_FALSE(isCustomizationFile(path)) << toUtf8(row.name) << " before it exists";
        folder.file(row.name);
        EXPECT_EQ(isCustomizationFile(path), row.accepted) << toUtf8(row.name);
    }
}

TEST(IsCustomizationFile, TakesNoEmptyPathForAFile)
{
    EXPECT_FALSE(isCustomizationFile(L""));
    EXPECT_FALSE(isCustomizationFile(L"cuix"));
}
