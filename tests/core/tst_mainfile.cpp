// The main customization file: that it exists, and that it is entry 0 of the list of loaded files.
#include "refhost/core/profile.h"

#include "refhost/core/settingsfiles.h"
#include "refhost/core/widetext.h"
#include "tests/core/childprocess.h"
#include "tests/core/settingssupport.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace quelhost;
using namespace quelhost::test;

namespace {

const wchar_t* const kList = L"CUIX/LoadedCuix";

// A profile that is open with its settings and was used before.
struct OpenProfile
{
    explicit OpenProfile(const QString& folder)
        : made(openStore(folder)->write(Item::integer(4, L"Used", 1)))
        , profile(Profile::open(folder))
        , settings(openStore(folder))
    {}

    [[nodiscard]] bool isOpen() const { return made && profile && settings; }

    bool made;
    Result<std::unique_ptr<Profile>> profile;
    std::unique_ptr<SettingsStore> settings;
};

// The sentences, or the kind of the fault as the only one.
std::vector<std::string> ensured(const Profile& profile, SettingsStore& settings)
{
    const auto sentences = ensureMainFile(profile, settings, "package");
    if (!sentences)
        return {nameOf(sentences.fault().kind)};
    std::vector<std::string> result;
    for (const QString& sentence : sentences.value())
        result.push_back(sentence.toStdString());
    return result;
}

} // namespace

TEST(MainFile, ANewProfileGetsItsListSilently)
{
    const ScratchFolder scratch;
    const auto profile = Profile::open(scratch.path());
    ASSERT_TRUE(profile);
    ASSERT_EQ(told(profile.value()->writeStarterFiles("package", "aliases")), "done");
    const auto settings = openStore(scratch.path());
    ASSERT_TRUE(settings);
    EXPECT_EQ(ensured(*profile.value(), *settings), std::vector<std::string>());
    const std::string mainFile = scratch.path().toStdString() + "/QUELD.cuix";
    EXPECT_EQ(valueIn(*settings, kList), "string " + mainFile);
    EXPECT_EQ(ensured(*profile.value(), *settings), std::vector<std::string>());
    EXPECT_EQ(bytesOf(scratch.file("QUELD.cuix")), QByteArray("package"));
}

TEST(MainFile, ANewProfileGetsItsFileSilentlyToo)
{
    const ScratchFolder scratch;
    const auto profile = Profile::open(scratch.path());
    ASSERT_TRUE(profile);
    const auto settings = openStore(scratch.path());
    ASSERT_TRUE(settings);
    EXPECT_EQ(ensured(*profile.value(), *settings), std::vector<std::string>());
    EXPECT_EQ(bytesOf(scratch.file("QUELD.cuix")), QByteArray("package"));
}

TEST(MainFile, SettingsThatNeverHadAnItemGetTheirListSilently)
{
    const ScratchFolder scratch;
    ASSERT_TRUE(openStore(scratch.path())); // as a first start does before it is ended
    const auto profile = Profile::open(scratch.path());
    ASSERT_TRUE(profile);
    EXPECT_FALSE(profile.value()->isNew());
    ASSERT_TRUE(setBytes(scratch.file("QUELD.cuix"), "package"));
    const auto settings = openStore(scratch.path());
    ASSERT_TRUE(settings);
    EXPECT_EQ(ensured(*profile.value(), *settings), std::vector<std::string>());
    EXPECT_EQ(valueIn(*settings, kList), "string " + scratch.path().toStdString() + "/QUELD.cuix");
}

TEST(MainFile, ItBecomesEntryZeroAndAllElseStays)
{
    // M stands for the main file's path, P for the profile's, L for a link to the profile.
    struct Row
    {
        const char* name;
        const char* before;
        const char* after;
        bool told;
    };
    const Row rows[] = {
        {"alone", "M", "M", false},
        {"in front", "M;/a.cuix", "M;/a.cuix", false},
        {"in front with empty entries", "M;;/a.cuix;", "M;;/a.cuix;", false},
        {"in front and once more", "M;/a.cuix;M", "M;/a.cuix;M", false},
        {"empty list", "", "M", true},
        {"one empty entry and a file", ";/a.cuix", "M;;/a.cuix", true},
        {"only empty entries", ";;", "M;;;", true},
        {"not in the list", "/a.cuix;/b.cuix", "M;/a.cuix;/b.cuix", true},
        {"empty entries between and behind", "/a.cuix;;/b.cuix;", "M;/a.cuix;;/b.cuix;", true},
        {"second", "/a.cuix;M;/b.cuix", "M;/a.cuix;/b.cuix", true},
        {"last", "/a.cuix;M", "M;/a.cuix", true},
        {"twice behind", "/a.cuix;M;;M", "M;/a.cuix;", true},
        {"after an empty entry", ";M", "M;", true},
        {"other entries twice", "/a.cuix;/a.cuix", "M;/a.cuix;/a.cuix", true},
        {"blanks are no part of the path", " M", "M; M", true},
        {"another case", "P/queld.cuix", "M;P/queld.cuix", true},
        {"another file of that name", "/x/QUELD.cuix;M", "M;/x/QUELD.cuix", true},
        {"a relative entry of that name", "QUELD.cuix", "M;QUELD.cuix", true},
        {"in front, written in another way", "P/./QUELD.cuix;/a.cuix", "P/./QUELD.cuix;/a.cuix",
         false},
        {"behind, written in another way", "/a.cuix;L/QUELD.cuix", "M;/a.cuix", true},
        {"entries that need escaping elsewhere", "/50%d.cuix;/%1.cuix;\\\\x\\y",
         "M;/50%d.cuix;/%1.cuix;\\\\x\\y", true},
    };
    const ScratchFolder scratch;
    const std::string folder = scratch.path().toStdString();
    ASSERT_TRUE(QDir().mkpath(scratch.file("p")));
    ASSERT_TRUE(QFile::link(scratch.file("p"), scratch.file("link")));
    const auto meant = [&](const char* text) {
        std::string result;
        for (const char* letter = text; *letter != '\0'; ++letter) {
            const bool first = letter == text || letter[-1] == ';' || letter[-1] == ' ';
            if (first && *letter == 'M')
                result += folder + "/p/QUELD.cuix";
            else if (first && *letter == 'P')
                result += folder + "/p";
            else if (first && *letter == 'L')
                result += folder + "/link";
            else
                result += *letter;
        }
        return result;
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        OpenProfile open(scratch.file("p"));
        ASSERT_TRUE(open.isOpen());
        ASSERT_TRUE(setBytes(scratch.file("p/QUELD.cuix"), "package"));
        const std::wstring before = fromUtf8(meant(row.before));
        ASSERT_EQ(told(open.settings->write(Item::string(4, kList, before))), "done");

        const auto sentences = ensured(*open.profile.value(), *open.settings);
        EXPECT_EQ(valueIn(*open.settings, kList), "string " + meant(row.after));
        ASSERT_EQ(sentences.size(), row.told ? 1U : 0U);
        EXPECT_TRUE(!row.told || sentences[0].find(folder + "/p/QUELD.cuix") != std::string::npos);
        EXPECT_EQ(ensured(*open.profile.value(), *open.settings), std::vector<std::string>());
    }
}

TEST(MainFile, OtherEntriesKeepEveryCharacter)
{
    const ScratchFolder scratch;
    OpenProfile open(scratch.path());
    ASSERT_TRUE(open.isOpen());
    ASSERT_TRUE(setBytes(scratch.file("QUELD.cuix"), "package"));
    std::wstring odd = L"/a";
    odd += {static_cast<wchar_t>(0xD800), static_cast<wchar_t>(0x110000), L'\0', L'b'};
    ASSERT_EQ(told(open.settings->write(Item::string(4, kList, odd))), "done");
    ASSERT_EQ(ensured(*open.profile.value(), *open.settings).size(), 1U);
    const auto list = open.settings->read(4, kList);
    ASSERT_TRUE(list && list.value());
    EXPECT_EQ(list.value()->text, toWide(scratch.file("QUELD.cuix")) + L";" + odd);
}

TEST(MainFile, AListThatIsNoTextOrMissingIsMadeAnewAndTold)
{
    const std::vector<std::pair<const char*, std::optional<Item>>> rows = {
        {"missing", std::nullopt},
        {"a number", Item::integer(4, kList, 42)},
        {"a section", Item::section(4, kList)},
    };
    for (const auto& [name, item] : rows) {
        SCOPED_TRACE(name);
        const ScratchFolder scratch;
        OpenProfile open(scratch.path());
        ASSERT_TRUE(open.isOpen());
        ASSERT_TRUE(setBytes(scratch.file("QUELD.cuix"), "package"));
        ASSERT_TRUE(!item || open.settings->write(*item));
        const std::string mainFile = scratch.file("QUELD.cuix").toStdString();
        const auto sentences = ensured(*open.profile.value(), *open.settings);
        ASSERT_EQ(sentences.size(), 1U);
        EXPECT_NE(sentences[0].find(mainFile), std::string::npos);
        EXPECT_EQ(valueIn(*open.settings, kList), "string " + mainFile);
    }
}

TEST(MainFile, AMissingFileIsWrittenAgainAndTold)
{
    const ScratchFolder scratch;
    OpenProfile open(scratch.path());
    ASSERT_TRUE(open.isOpen());
    const std::string mainFile = scratch.file("QUELD.cuix").toStdString();
    ASSERT_TRUE(open.settings->write(Item::string(4, kList, fromUtf8(mainFile + ";/a.cuix"))));
    const auto sentences = ensured(*open.profile.value(), *open.settings);
    ASSERT_EQ(sentences.size(), 1U);
    EXPECT_NE(sentences[0].find(mainFile), std::string::npos);
    EXPECT_EQ(bytesOf(scratch.file("QUELD.cuix")), QByteArray("package"));
    EXPECT_EQ(valueIn(*open.settings, kList), "string " + mainFile + ";/a.cuix");
}

TEST(MainFile, AnExistingFileIsNeverWrittenOver)
{
    const ScratchFolder scratch;
    OpenProfile open(scratch.path());
    ASSERT_TRUE(open.isOpen());
    ASSERT_TRUE(setBytes(scratch.file("QUELD.cuix"), "the user's own"));
    EXPECT_EQ(ensured(*open.profile.value(), *open.settings).size(), 1U);
    EXPECT_EQ(bytesOf(scratch.file("QUELD.cuix")), QByteArray("the user's own"));
}

TEST(MainFile, InAnUnwritableProfileTheListHoldsForThisRun)
{
    struct Row
    {
        const char* name;
        bool mainFileThere;
        const char* sentences;
    };
    for (const Row& row :
         {Row{"main file there", true, "1"}, Row{"main file missing", false, "2"}}) {
        SCOPED_TRACE(row.name);
        const ScratchFolder scratch;
        ASSERT_TRUE(giveToOrdinaryUser(scratch.path().toStdString()));
        {
            const auto settings = openStore(scratch.path());
            ASSERT_TRUE(settings->write(Item::string(4, kList, L"/a.cuix")));
            ASSERT_EQ(told(settings->close()), "done");
        }
        ASSERT_TRUE(!row.mainFileThere || setBytes(scratch.file("QUELD.cuix"), "package"));
        ASSERT_TRUE(setMode(scratch.path(), 0555));
        const ChildEnd end = runInChild([&]() -> std::string {
            if (!becomeOrdinaryUser())
                return "cannot become another user";
            const auto profile = Profile::open(scratch.path());
            if (!profile)
                return "not opened";
            const auto settings = openStore(scratch.path(), profile.value()->settingsAccess());
            const auto sentences = ensured(*profile.value(), *settings);
            return std::to_string(sentences.size()) + " " + valueIn(*settings, kList) + " " +
                   told(settings->write(Item::string(4, kList, L"x")));
        });
        const std::string mainFile = scratch.file("QUELD.cuix").toStdString();
        EXPECT_EQ(end.output,
                  std::string(row.sentences) + " string " + mainFile + ";/a.cuix NotPermitted");
        ASSERT_TRUE(setMode(scratch.path(), 0755));
        EXPECT_EQ(valueIn(*openStore(scratch.path()), kList), "string /a.cuix");
    }
}

TEST(MainFile, AListThatCannotBeStoredIsToldAndHoldsForThisRun)
{
    const ScratchFolder scratch;
    const ChildEnd end = runInChild([&]() -> std::string {
        OpenProfile open(scratch.path());
        if (!open.isOpen() || !setBytes(scratch.file("QUELD.cuix"), "package") ||
            !open.settings->write(Item::string(4, kList, L"/a.cuix")) || !limitFileSize(0))
            return "not prepared";
        const auto sentences = ensured(*open.profile.value(), *open.settings);
        return std::to_string(sentences.size()) + " " + valueIn(*open.settings, kList);
    });
    const std::string mainFile = scratch.file("QUELD.cuix").toStdString();
    EXPECT_EQ(end.output, "2 string " + mainFile + ";/a.cuix");
    EXPECT_EQ(valueIn(*openStore(scratch.path()), kList), "string /a.cuix");
}

TEST(MainFile, ADamagedListIsAFault)
{
    const ScratchFolder scratch;
    OpenProfile open(scratch.path());
    ASSERT_TRUE(open.isOpen());
    ASSERT_TRUE(open.settings->write(Item::string(4, kList, L"/a.cuix")));
    ASSERT_TRUE(runSql(settingsFile(scratch.path()), "UPDATE item SET value = x'00000062'"));
    EXPECT_EQ(ensured(*open.profile.value(), *open.settings), std::vector<std::string>{"Damaged"});
}
