// The host's own sentences: each that the code names is there in each language, with the same
// places to fill in, and none is there for nothing.
#include "tests/core/settingssupport.h"
#include "tests/core/translationfile.h"

#include <gtest/gtest.h>

#include <QDirIterator>
#include <QTranslator>

#include <algorithm>
#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <vector>

using namespace quelhost;
using namespace quelhost::test;

namespace {

using Names = std::set<std::string>;

// Everything that `pattern` finds in its first group, in every source of the host.
Names foundInSources(const char* pattern)
{
    const std::regex wanted(pattern);
    Names found;
    QDirIterator files(QStringLiteral(QUEL_HOST_SOURCES),
                       {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const std::string source = bytesOf(files.next()).toStdString();
        for (std::sregex_iterator each(source.begin(), source.end(), wanted), end; each != end;
             ++each)
            found.insert((*each)[1].str());
    }
    return found;
}

TranslationFile texts(const std::string& language)
{
    for (TranslationFile& file : translationsOf("quelhost")) {
        if (file.language == language)
            return std::move(file);
    }
    return {};
}

Names idsOf(const TranslationFile& file)
{
    const std::vector<std::string> ids = file.ids();
    return Names(ids.begin(), ids.end());
}

Names without(const Names& all, const Names& taken)
{
    Names rest;
    std::set_difference(all.begin(), all.end(), taken.begin(), taken.end(),
                        std::inserter(rest, rest.end()));
    return rest;
}

std::string firstWord(const std::string& id)
{
    return id.substr(0, id.find('-'));
}

Names placeholdersOf(const std::string& text)
{
    static const std::regex placeholder("%L?[0-9]+");
    return Names(std::sregex_token_iterator(text.begin(), text.end(), placeholder),
                 std::sregex_token_iterator());
}

} // namespace

TEST(HostTexts, EachLanguageHasTheSameSentencesOnceAndFinished)
{
    const TranslationFile english = texts("en");
    ASSERT_FALSE(english.entries.empty());
    const std::vector<TranslationFile> files = translationsOf("quelhost");
    EXPECT_GE(files.size(), 2U);
    for (const TranslationFile& file : files) {
        SCOPED_TRACE(file.language);
        const Names once = idsOf(file);
        EXPECT_EQ(file.ids(), std::vector<std::string>(once.begin(), once.end()));
        EXPECT_EQ(without(idsOf(english), once), Names{});
        EXPECT_EQ(without(once, idsOf(english)), Names{});
        for (const TranslationEntry& entry : file.entries) {
            EXPECT_TRUE(entry.finished) << entry.id;
            EXPECT_NE(entry.text, "") << entry.id;
        }
    }
}

TEST(HostTexts, EachLanguageTranslatesTheEnglishSentenceWithItsPlaces)
{
    const TranslationFile english = texts("en");
    for (const TranslationFile& file : translationsOf("quelhost")) {
        for (const TranslationEntry& entry : file.entries) {
            SCOPED_TRACE(placeOf(file, entry.id));
            const TranslationEntry* original = english.find(entry.id);
            ASSERT_NE(original, nullptr);
            EXPECT_EQ(entry.source, original->text);
            EXPECT_EQ(placeholdersOf(entry.text), placeholdersOf(original->text));
        }
    }
}

TEST(HostTexts, PlacesAreNumberedWithoutAGap)
{
    for (const TranslationEntry& entry : texts("en").entries) {
        const Names places = placeholdersOf(entry.text);
        Names expected;
        for (std::size_t i = 1; i <= places.size(); ++i)
            expected.insert("%" + std::to_string(i));
        EXPECT_EQ(places, expected) << entry.id;
    }
}

TEST(HostTexts, EachThatTheCodeNamesIsThere)
{
    const Names ids = idsOf(texts("en"));
    const Names named = foundInSources("qtTrId\\(\\s*\"([^\"]*)\"\\s*\\)");
    ASSERT_GT(named.size(), 50U);
    EXPECT_EQ(without(named, ids), Names{});

    // Ids also reach qtTrId by way of tables and parameters: whatever is written like one.
    Names areas;
    for (const std::string& id : ids)
        areas.insert(firstWord(id));
    Names written;
    for (const std::string& word : foundInSources("\"([a-z]+(-[a-z0-9]+)+)\"")) {
        if (areas.count(firstWord(word)) > 0)
            written.insert(word);
    }
    EXPECT_EQ(without(written, ids), Names{});
}

TEST(HostTexts, NoneIsThereForNothing)
{
    const Names written = foundInSources("\"([a-z0-9]+(-[a-z0-9]+)+)\"");
    EXPECT_EQ(without(idsOf(texts("en")), written), Names{});
}

TEST(HostTexts, TheProgramReadsThemAsTheyAreWritten)
{
    for (const TranslationFile& file : translationsOf("quelhost")) {
        QTranslator translator;
        ASSERT_TRUE(translator.load(compiledFile(file))) << file.language;
        for (const TranslationEntry& entry : file.entries) {
            const int number = entry.hasForms ? 2 : -1;
            EXPECT_EQ(translator.translate("", entry.id.c_str(), nullptr, number).toStdString(),
                      entry.text)
                << placeOf(file, entry.id);
        }
    }
}
