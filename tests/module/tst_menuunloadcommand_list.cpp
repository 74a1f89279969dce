// MENUUNLOAD: which entries of the list go, which stay, and how the list is stored.
#include "menuload/loadedmenufilelist.h"
#include "tests/module/menuunloadfixture.h"

#include "refhost/core/widetext.h"

#include <cstring>
#include <optional>

using quelhost::toUtf8;
using recording::host;

namespace {

// Names of a row are files of a folder of its own, in which there are the folders x, y and d.cuix
// and a link to nowhere.
struct ListRow
{
    const char* name;
    const wchar_t* files; // separated by blanks
    const wchar_t* list;
    const wchar_t* answer;
    int status;
    const wchar_t* after; // null: nothing is written
};

std::vector<std::wstring> split(const std::wstring& text, wchar_t separator)
{
    std::vector<std::wstring> parts;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(separator, begin), text.size());
        parts.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return parts;
}

// The list with the folder in front of each name that is not empty.
std::wstring listIn(const recording::MenuFolder& folder, const std::wstring& names)
{
    std::wstring result;
    bool first = true;
    for (const std::wstring& name : split(names, L';')) {
        if (!first)
            result += L';';
        first = false;
        result += name.empty() ? name : folder.path(name);
    }
    return result;
}

struct UnloadFromList : testing::TestWithParam<ListRow>
{
    recording::MenuFolder folder;
    recording::Context context;
    Quel6917Command command;

    UnloadFromList()
    {
        for (const wchar_t* inside : {L"x", L"y", L"d.cuix"})
            folder.folder(inside);
        for (const std::wstring& name : split(GetParam().files, L' '))
            folder.file(name);
        folder.link(L"away.cuix", folder.path(L"nowhere"));
        MenuUnload::startAnew(listIn(folder, GetParam().list));
        MenuUnload::type(folder.path(GetParam().answer));
    }
};

const ListRow kRows[] = {
    // What counts as the first entry.
    {"FirstOfTwo", L"m.cuix a.cuix", L"m.cuix;a.cuix", L"m.cuix", 0, nullptr},
    {"OnlyEntry", L"a.cuix", L"a.cuix", L"a.cuix", 0, nullptr},
    {"OnlyEntryAndSeparators", L"a.cuix", L"a.cuix;;", L"a.cuix", 0, nullptr},
    {"FirstOfAnotherFolder", L"x/a.cuix a.cuix", L"x/a.cuix", L"a.cuix", 0, nullptr},
    {"FirstAndLater", L"a.cuix m.cuix", L"a.cuix;m.cuix;a.cuix", L"a.cuix", 0, nullptr},
    {"FirstAndLaterOfAnotherFolder", L"a.cuix x/A.cuix", L"a.cuix;x/A.cuix", L"x/A.cuix", 0,
     nullptr},
    {"FirstAndMissingOnes", L"a.cuix", L"a.cuix;gone.cuix;;a.cuix", L"a.cuix", 0, nullptr},
    {"FirstIsEmpty", L"a.cuix", L";a.cuix", L"a.cuix", 5100, L""},
    {"FirstIsEmptyAndOneMore", L"a.cuix b.cuix", L";a.cuix;b.cuix", L"a.cuix", 5100, L"b.cuix"},
    {"FirstIsMissing", L"a.cuix", L"gone.cuix;a.cuix", L"a.cuix", 5100, L""},
    {"FirstIsMissingAndTwoMatch", L"a.cuix", L"gone.cuix;a.cuix;a.cuix", L"a.cuix", 5100, L""},
    {"FirstIsMissingAndHasTheName", L"a.cuix", L"x/a.cuix;a.cuix", L"a.cuix", 5100, L""},
    {"FirstIsMissingAndLaterOnesStay", L"a.cuix b.cuix", L"gone.cuix;b.cuix;a.cuix", L"a.cuix",
     5100, L"b.cuix"},
    {"SecondCountsThoughItIsShownFirst", L"a.cuix b.cuix", L"gone.cuix;a.cuix;b.cuix", L"a.cuix",
     5100, L"b.cuix"},

    // What goes.
    {"Last", L"m.cuix a.cuix b.cuix", L"m.cuix;a.cuix;b.cuix", L"b.cuix", 5100, L"m.cuix;a.cuix"},
    {"Middle", L"m.cuix a.cuix b.cuix", L"m.cuix;a.cuix;b.cuix", L"a.cuix", 5100, L"m.cuix;b.cuix"},
    {"OnlyOther", L"m.cuix a.cuix", L"m.cuix;a.cuix", L"a.cuix", 5100, L"m.cuix"},
    {"Twice", L"m.cuix a.cuix", L"m.cuix;a.cuix;a.cuix", L"a.cuix", 5100, L"m.cuix"},
    {"TwiceApart", L"m.cuix a.cuix b.cuix", L"m.cuix;a.cuix;b.cuix;a.cuix", L"a.cuix", 5100,
     L"m.cuix;b.cuix"},
    {"OfAllFolders", L"m.cuix a.cuix x/a.cuix y/A.Cuix", L"m.cuix;x/a.cuix;y/A.Cuix", L"a.cuix",
     5100, L"m.cuix"},
    {"InAnyCase", L"m.cuix Extra.CuiX x/Extra.cuix y/extra.cuix",
     L"m.cuix;x/Extra.cuix;y/extra.cuix", L"Extra.CuiX", 5100, L"m.cuix"},
    {"UpToTheFirstDot", L"m.cuix a.b.cuix a.c.cuix", L"m.cuix;a.b.cuix", L"a.c.cuix", 5100,
     L"m.cuix"},
    {"WithAnotherExtension", L"m.cuix a.cuix a.xml", L"m.cuix;a.xml", L"a.cuix", 5100, L"m.cuix"},
    {"MissingOnesGoToo", L"m.cuix a.cuix b.cuix", L"m.cuix;;gone.cuix;a.cuix;b.cuix", L"b.cuix",
     5100, L"m.cuix;a.cuix"},
    {"MissingOnesBehindGoToo", L"m.cuix a.cuix b.cuix", L"m.cuix;a.cuix;b.cuix;gone.cuix;;",
     L"a.cuix", 5100, L"m.cuix;b.cuix"},
    {"OnlySeparatorsAround", L"a.cuix", L";;a.cuix;;", L"a.cuix", 5100, L""},
    {"BrokenLinksCountAsMissing", L"m.cuix a.cuix", L"m.cuix;away.cuix;a.cuix", L"a.cuix", 5100,
     L"m.cuix"},
    {"FoldersExist", L"m.cuix a.cuix", L"m.cuix;x;a.cuix", L"a.cuix", 5100, L"m.cuix;x"},
    {"AFolderByItsName", L"m.cuix", L"m.cuix;d.cuix", L"d.cuix", 5100, L"m.cuix"},
    {"WithoutABaseName", L"m.cuix .cuix x/.cuix", L"m.cuix;x/.cuix;x/;.cuix", L".cuix", 5100,
     L"m.cuix"},
    {"LettersBeyondAscii", L"m.cuix \u00C4rger.cuix x/\u00E4RGER.cuix", L"m.cuix;x/\u00E4RGER.cuix",
     L"\u00C4rger.cuix", 5100, L"m.cuix"},
    {"ALetterOfTwoCapitals", L"m.cuix stra\u00DFe.cuix x/STRASSE.cuix",
     L"m.cuix;stra\u00DFe.cuix;x/STRASSE.cuix", L"stra\u00DFe.cuix", 5100, L"m.cuix"},
    {"CharactersOfTheOtherPlanes", L"m.cuix \U0001F600.cuix \U0001F601.cuix",
     L"m.cuix;\U0001F600.cuix;\U0001F601.cuix", L"\U0001F600.cuix", 5100,
     L"m.cuix;\U0001F601.cuix"},
    {"AnotherNameForTheFile", L"m.cuix a.cuix", L"m.cuix;x/../a.cuix;a.cuix", L"./a.cuix", 5100,
     L"m.cuix"},

    // What stays: without a match everything, missing ones included.
    {"NothingInAnEmptyList", L"a.cuix", L"", L"a.cuix", 5100, nullptr},
    {"NothingBetweenSeparators", L"a.cuix", L";;", L"a.cuix", 5100, nullptr},
    {"NotLoaded", L"m.cuix a.cuix b.cuix", L"m.cuix;a.cuix", L"b.cuix", 5100, nullptr},
    {"NotLoadedAndMissingOnes", L"m.cuix b.cuix", L"m.cuix;;gone.cuix", L"b.cuix", 5100, nullptr},
    {"OnlyMissingOnes", L"a.cuix", L"gone.cuix;x/gone.cuix", L"a.cuix", 5100, nullptr},
    {"TheNamesakeIsMissing", L"m.cuix a.cuix", L"m.cuix;x/a.cuix", L"a.cuix", 5100, nullptr},
    {"PartOfAName", L"m.cuix ab.cuix a.cuix", L"m.cuix;ab.cuix", L"a.cuix", 5100, nullptr},
    {"LongerName", L"m.cuix ab.cuix a.cuix", L"m.cuix;a.cuix", L"ab.cuix", 5100, nullptr},
    {"OtherDot", L"m.cuix a-b.cuix a.b.cuix", L"m.cuix;a-b.cuix", L"a.b.cuix", 5100, nullptr},
    {"AMarkIsPartOfAName", L"m.cuix a.cuix \uFEFFa.cuix", L"m.cuix;\uFEFFa.cuix", L"a.cuix", 5100,
     nullptr},
    {"ASeparatorInTheName", L"m.cuix a;b.cuix b.cuix", L"m.cuix;a;b.cuix", L"a;b.cuix", 5100,
     nullptr},
    {"ABlankBeforeAName", L"m.cuix a.cuix", L"m.cuix; /a.cuix", L"a.cuix", 5100, nullptr},
};

INSTANTIATE_TEST_SUITE_P(Lists, UnloadFromList, testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.name); });

std::uint32_t sizeFieldOf(const QuelVariant& value)
{
    std::uint32_t size = 0;
    std::memcpy(&size, value.block(), sizeof size);
    return size;
}

} // namespace

TEST_P(UnloadFromList, RemovesWhatHasTheNameBehindTheFirstEntry)
{
    const ListRow& row = GetParam();
    const bool isWritten = row.after != nullptr;
    EXPECT_EQ(command.execute(&context), row.status);
    EXPECT_EQ(toUtf8(MenuUnload::stored()),
              toUtf8(listIn(folder, isWritten ? row.after : row.list)));
    EXPECT_EQ(MenuUnload::writes(), isWritten ? 1 : 0);
    EXPECT_EQ(MenuUnload::refreshes(), isWritten ? 1 : 0);
    EXPECT_EQ(host().count("GetQuelAppInterface"), isWritten ? 1 : 0);
    EXPECT_EQ(MenuUnload::messages(), 0);
}

TEST_P(UnloadFromList, ChangesTheListInMemoryInTheSameWay)
{
    const ListRow& row = GetParam();
    std::optional<LoadedMenuFileList> list = LoadedMenuFileList::read(*quelConfig());
    ASSERT_TRUE(list.has_value());
    using Found = LoadedMenuFileList::Found;
    const Found found = row.status == 0        ? Found::MainFile
                        : row.after == nullptr ? Found::Nothing
                                               : Found::Removed;
    EXPECT_EQ(list->unload(folder.path(row.answer)), found);
    EXPECT_EQ(MenuUnload::writes(), 0);
    list->write(*quelConfig());
    EXPECT_EQ(toUtf8(MenuUnload::stored()),
              toUtf8(listIn(folder, row.after == nullptr ? row.list : row.after)));
}

TEST_F(MenuUnload, RefusesADeletedFileThatIsInTheList)
{
    folder.remove(plant);
    EXPECT_EQ(unload(plant), 5100);
    EXPECT_EQ(host().count("quutPrintf"), 1);
    EXPECT_EQ(stored(), all);
    EXPECT_EQ(writes(), 0);
}

TEST_F(MenuUnload, DropsADeletedFileWithTheNextOneThatIsRemoved)
{
    folder.remove(survey);
    EXPECT_EQ(unload(folder.file(L"other.cuix")), 5100);
    EXPECT_EQ(stored(), all);
    EXPECT_EQ(unload(plant), 5100);
    EXPECT_EQ(stored(), main);
}

TEST_F(MenuUnload, ADeletedMainFileIsDroppedAndNoLongerProtected)
{
    folder.remove(main);
    EXPECT_EQ(unload(survey), 5100);
    EXPECT_EQ(stored(), plant);
    EXPECT_EQ(unload(plant), 0);
}

TEST_F(MenuUnload, TakesAStoredValueOfAnotherKindForAnEmptyList)
{
    const std::wstring list = main + L";" + plant;
    std::vector<QuelVariant> values(5);
    values[1].setInteger(7);
    values[2].setString(list.c_str(), QuelVariant::kString7);
    values[3].setString(list.c_str(), QuelVariant::kString8);
    values[4].install(QuelVariant::kString, nullptr);
    for (const QuelVariant& value : values) {
        startAnew(L"");
        host().settings[L"CUIX/LoadedCuix"] = value;
        EXPECT_EQ(unload(plant), 5100) << value.type();
        EXPECT_EQ(writes(), 0) << value.type();
        EXPECT_EQ(messages(), 0) << value.type();
        EXPECT_EQ(host().settings[L"CUIX/LoadedCuix"].type(), value.type());
    }
}

TEST_F(MenuUnload, StoresAnEmptyListAsFourZeroBytes)
{
    setList(L";" + plant);
    EXPECT_EQ(unload(plant), 5100);
    EXPECT_EQ(host().calls("setValue"),
              std::vector<std::string>{"setValue(4, \"CUIX/LoadedCuix\", string \"\") -> 0"});
    const QuelVariant& value = host().settings[L"CUIX/LoadedCuix"];
    ASSERT_EQ(value.type(), QuelVariant::kString);
    ASSERT_NE(value.block(), nullptr);
    ASSERT_EQ(sizeFieldOf(value), 8U);
    const unsigned char zeros[4] = {};
    EXPECT_EQ(std::memcmp(static_cast<const char*>(value.block()) + 4, zeros, 4), 0);
}

TEST_F(MenuUnload, StoresWideCharactersWithTheirZeroBehind)
{
    const std::wstring kept = folder.file(L"\U0001F600\u00E9.cuix");
    setList(kept + L";" + plant);
    EXPECT_EQ(unload(plant), 5100);
    const QuelVariant& value = host().settings[L"CUIX/LoadedCuix"];
    ASSERT_EQ(value.type(), QuelVariant::kString);
    ASSERT_EQ(sizeFieldOf(value), 4 + (kept.size() + 1) * 4);
    EXPECT_EQ(std::memcmp(static_cast<const char*>(value.block()) + 4, kept.c_str(),
                          (kept.size() + 1) * 4),
              0);
}

TEST_F(MenuUnload, FindsItsWayThroughLongLists)
{
    std::wstring before = main;
    std::wstring after = main;
    for (int i = 0; i < 5000; ++i) {
        before += i % 3 == 0 ? L";" + plant : i % 3 == 1 ? L";" + survey : L";/t/gone.cuix;";
        after += i % 3 == 1 ? L";" + survey : L"";
    }
    setList(before);
    EXPECT_EQ(unload(plant), 5100);
    EXPECT_EQ(stored(), after);
}
