// The texts of the command module by language: none is missing, and each has the conversions that
// its place in the module fills in.
#include "refhost/core/resources.h"
#include "refhost/core/widetext.h"
#include "tests/core/translationfile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <regex>
#include <string>
#include <vector>

using namespace quelhost;
using namespace quelhost::test;

namespace {

using Names = std::vector<std::string>;

// A text that the module looks up.
struct Known
{
    const char* id;
    // The module's own text where it has one; such a text is left out of the English table. The
    // others stand there as given here.
    bool isDefault;
    const char* english;
};

const std::vector<Known> kCommandTexts = {
    {"60005", false, "CUSTOMIZE"},
    {"6700", true, "Re-Load QUELD.pgp?"},
    {"6915", false, "MENU"},
    {"6916", false, "MENULOAD"},
    {"6917", false, "MENUUNLOAD"},
    {"6935", false, "REINIT"},
    {"6940", false, "CUILOAD"},
    {"6941", false, "CUIUNLOAD"},
    {"8051", false, "Customize [Accelerator/Toolbar] <Accelerator>: "},
    {"8052", false, "Accelerator Toolbar"},
    {"11004", true,
     "Customization files(*.cuix)|Menu Template(*.mnu)|Menu File(*.mns)|Menu File(*.menuc)"},
    {"11005", true, "cuix;mnu;mns;menuc"},
    {"11062", true, "Select Menu File"},
    {"11064", true, "\nLoading \"%s\" success.group:%s"},
    {"11065", false, "\"%s\" is already loaded."},
    {"11066", true, "Enter name of menu file to load:"},
    {"11067", true, "Enter the name of a Menu Group to unload:"},
    {"11068", false, "\"%s\" cannot be unloaded."},
    {"11069", true, "Enter customization file name or [. (for none)]<%s>"},
    {"11070", true, "Menu file load failed.  File not found:\"%s\""},
    {"11071", true, "Do you want to unload menu?"},
    {"IDD_MENU_LOAD_DLG.title", false, "Load and Unload Customization Files"},
    {"IDD_MENU_LOAD_DLG.IDC_MENULOAD_GRPFILE", false, "Customization file"},
    {"IDD_MENU_LOAD_DLG.IDC_MENULOAD_GRPMENU", false, "Loaded menu groups"},
    {"IDD_MENU_LOAD_DLG.IDC_MENULOAF_FILENAME", false, "&File name:"},
    {"IDD_MENU_LOAD_DLG.IDC_MENULOAD_EDITCMD.name", false, "Customization file to load"},
    {"IDD_MENU_LOAD_DLG.IDC_MENULOAD_EDITCMD.placeholder", false, "Path of a .cuix file"},
    {"IDD_MENU_LOAD_DLG.IDC_MENULOAD_LIST.name", false, "Loaded menu groups"},
    {"IDD_MENU_LOAD_DLG.IDC_MENULOAD_BROWSE", false, "&Browse..."},
    {"IDD_MENU_LOAD_DLG.IDC_MENULOAD_BROWSE.tip", false, "Pick the file to load"},
    {"IDD_MENU_LOAD_DLG.IDC_MENULOAD_LOAD", false, "&Load"},
    {"IDD_MENU_LOAD_DLG.IDC_MENULOAD_LOAD.tip", false, "Load the named file"},
    {"IDD_MENU_LOAD_DLG.IDC_MENULOAD_BTNUNLOAD", false, "&Unload"},
    {"IDD_MENU_LOAD_DLG.IDC_MENULOAD_BTNUNLOAD.tip", false,
     "Unload the selected group. The first one, of the main file, stays loaded."},
    {"IDD_MENU_LOAD_DLG.IDOK", false, "OK"},
    {"IDD_MENU_LOAD_DLG.IDC_MENULOAD_HELP", false, "&Help"},
};

const std::vector<Known> kHostResourceTexts = {
    {"11005", true, "cuix;mnu;mns;menuc"},
    {"11006", true,
     "Loading a template menu file will result in the loss of any toolbar customization changes "
     "that have been made."},
    {"11008", true, " Continue loading?"},
};

const std::pair<const char*, const std::vector<Known>*> kSets[] = {
    {"VxCuiCmdsRes", &kCommandTexts},
    {"QUELDRes", &kHostResourceTexts},
};

Names idsOf(const std::vector<Known>& texts, bool withDefaults)
{
    Names ids;
    for (const Known& text : texts) {
        if (withDefaults || !text.isDefault)
            ids.emplace_back(text.id);
    }
    std::sort(ids.begin(), ids.end());
    return ids;
}

// The conversions in their order; a percent sign that begins none stands for itself.
Names conversionsOf(const std::string& text)
{
    static const std::regex conversion("%(%|[-+ #0]*[0-9]*(\\.[0-9]*)?[hlLqjzt]*[A-Za-z])?");
    Names found;
    for (std::sregex_iterator each(text.begin(), text.end(), conversion), end; each != end;
         ++each) {
        if (each->str() != "%%")
            found.push_back(each->str());
    }
    return found;
}

// How many texts the module puts in at the text's place, each with %s.
std::size_t textsPutInto(const std::string& id)
{
    if (id == "11064")
        return 2;
    return id == "11065" || id == "11068" || id == "11069" || id == "11070" ? 1 : 0;
}

// The patterns of a list of filters "label(pattern)|label(pattern)".
Names patternsOf(const std::string& filters)
{
    static const std::regex pattern("\\([^)]*\\)(\\||$)");
    return Names(std::sregex_token_iterator(filters.begin(), filters.end(), pattern),
                 std::sregex_token_iterator());
}

// The text of that id in each language that has it, with its place.
std::vector<std::pair<std::string, std::string>> inEachLanguage(const char* set, const char* id)
{
    std::vector<std::pair<std::string, std::string>> found;
    for (const TranslationFile& file : translationsOf(set)) {
        if (const TranslationEntry* entry = file.find(id))
            found.emplace_back(placeOf(file, id), entry->text);
    }
    return found;
}

// Commands look their texts up by number, descriptions of dialogs by name.
bool isNumber(const std::string& id)
{
    return std::isdigit(static_cast<unsigned char>(id.front())) != 0;
}

} // namespace

TEST(Texts, EachSetIsThereInEnglishAndGerman)
{
    for (const auto& [set, texts] : kSets) {
        Names languages;
        for (const TranslationFile& file : translationsOf(set))
            languages.push_back(file.language);
        EXPECT_EQ(std::count(languages.begin(), languages.end(), "en"), 1) << set;
        EXPECT_EQ(std::count(languages.begin(), languages.end(), "de"), 1) << set;
    }
}

TEST(Texts, EachLanguageHasEveryTextAndEnglishThoseWithoutADefault)
{
    for (const auto& [set, texts] : kSets) {
        for (const TranslationFile& file : translationsOf(set)) {
            SCOPED_TRACE(placeOf(file, ""));
            EXPECT_EQ(file.ids(), idsOf(*texts, file.language != "en"));
        }
    }
}

TEST(Texts, EachIsFinishedAndTranslatesTheEnglishText)
{
    for (const auto& [set, texts] : kSets) {
        for (const TranslationFile& file : translationsOf(set)) {
            for (const Known& known : *texts) {
                const TranslationEntry* entry = file.find(known.id);
                if (entry == nullptr) // of the English table: told above for the others
                    continue;
                SCOPED_TRACE(placeOf(file, known.id));
                EXPECT_TRUE(entry->finished);
                EXPECT_EQ(entry->source, known.english);
                EXPECT_NE(entry->text, "");
                EXPECT_TRUE(file.language != "en" || entry->text == known.english) << entry->text;
            }
        }
    }
}

TEST(Texts, EachHasTheConversionsOfItsPlaceInTheModule)
{
    EXPECT_EQ(conversionsOf("a %s b %-5.2ls %% %d%"), (Names{"%s", "%-5.2ls", "%d", "%"}));
    for (const auto& [set, texts] : kSets) {
        for (const TranslationFile& file : translationsOf(set)) {
            for (const TranslationEntry& entry : file.entries) {
                SCOPED_TRACE(placeOf(file, entry.id));
                EXPECT_EQ(conversionsOf(entry.text), Names(textsPutInto(entry.id), "%s"))
                    << entry.text;
            }
        }
    }
}

TEST(Texts, KeywordsAndKindsAreTheSameInEveryLanguage)
{
    for (const auto& [place, text] : inEachLanguage("VxCuiCmdsRes", "8052"))
        EXPECT_EQ(text, "Accelerator Toolbar") << place;
    for (const char* set : {"VxCuiCmdsRes", "QUELDRes"}) {
        for (const auto& [place, text] : inEachLanguage(set, "11005"))
            EXPECT_EQ(text, "cuix;mnu;mns;menuc") << place;
    }
}

TEST(Texts, QuestionsAreTranslatedAroundTheirKeywordsAndPatterns)
{
    for (const auto& [place, text] : inEachLanguage("VxCuiCmdsRes", "8051")) {
        EXPECT_NE(text.find("[Accelerator/Toolbar] <Accelerator>"), std::string::npos) << place;
    }
    const Names patterns{"(*.cuix)|", "(*.mnu)|", "(*.mns)|", "(*.menuc)"};
    for (const auto& [place, text] : inEachLanguage("VxCuiCmdsRes", "11004"))
        EXPECT_EQ(patternsOf(text), patterns) << place;
    for (const auto& [place, text] : inEachLanguage("VxCuiCmdsRes", "6700"))
        EXPECT_NE(text.find("QUELD.pgp"), std::string::npos) << place;
}

TEST(Texts, TheKindsStandInBothSetsOrInNone)
{
    for (const TranslationFile& file : translationsOf("VxCuiCmdsRes")) {
        for (const TranslationFile& other : translationsOf("QUELDRes")) {
            const bool bothOrNone =
                (file.find("11005") == nullptr) == (other.find("11005") == nullptr);
            EXPECT_TRUE(file.language != other.language || bothOrNone) << file.language;
        }
    }
}

TEST(Texts, TheProgramReadsThemAsTheyAreWritten)
{
    for (const auto& [set, texts] : kSets) {
        for (const TranslationFile& file : translationsOf(set)) {
            const QString folder = QStringLiteral(QUEL_RESOURCES "/") + QString::fromLatin1(set);
            const auto resource =
                QuelResource::open(folder, {QString::fromStdString(file.language)});
            ASSERT_NE(resource, nullptr) << compiledFile(file).toStdString();
            for (const Known& known : *texts) {
                SCOPED_TRACE(placeOf(file, known.id));
                const TranslationEntry* entry = file.find(known.id);
                const std::string expected = entry == nullptr ? "(none)" : entry->text;
                if (isNumber(known.id)) {
                    const auto text =
                        resource->string(static_cast<unsigned int>(std::stoul(known.id)));
                    EXPECT_EQ(toUtf8(text.value_or(L"(none)")), expected);
                } else {
                    const auto installed =
                        installTexts(folder, QString::fromStdString(file.language));
                    EXPECT_EQ(qtTrId(known.id).toStdString(), expected);
                }
            }
        }
    }
}

TEST(Texts, BlanksAndNewlinesAtTheirEndsSurvive)
{
    const auto german = [](const char* set, unsigned int id) {
        const auto resource = QuelResource::open(
            QStringLiteral(QUEL_RESOURCES "/") + QString::fromLatin1(set), {QStringLiteral("de")});
        return resource ? resource->string(id).value_or(L"(none)") : L"(no file)";
    };
    EXPECT_EQ(german("VxCuiCmdsRes", 11064).substr(0, 2), L"\n\"");
    EXPECT_EQ(german("QUELDRes", 11008).substr(0, 2), L" T");
    const std::wstring question = german("VxCuiCmdsRes", 8051);
    EXPECT_EQ(question.substr(question.size() - 2), L": ");
}
