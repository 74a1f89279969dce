// Which menu groups are shown, in which order, and what the user is told about those that are not.
#include "refhost/core/shownmenugroups.h"

#include "refhost/core/settingsstore.h"
#include "refhost/core/storedconfig.h"
#include "refhost/core/widetext.h"
#include "tests/core/settingssupport.h"
#include "tests/support/testhost.h"

#include <gtest/gtest.h>

#include <QFile>

#include <string>
#include <vector>

using namespace quelhost;
using namespace quelhost::test;

namespace {

using Names = std::vector<std::string>;

class MenuGroups : public testing::Test
{
protected:
    // Packages PLANT, SURVEY and OTHER, and one that is no package.
    void SetUp() override
    {
        m_plant = writePackage(m_folder, "plant.cuix", "PLANT");
        m_survey = writePackage(m_folder, "survey.cuix", "SURVEY");
        m_other = writePackage(m_folder, "other.cuix", "OTHER");
        m_bad = toWide(m_folder.file("bad.cuix"));
        m_lost = toWide(m_folder.file("lost.cuix"));
        ASSERT_FALSE(m_plant.empty() || m_survey.empty() || m_other.empty());
        ASSERT_TRUE(setBytes(m_folder.file("bad.cuix"), "This is no package.\n"));
    }

    // Stores the list as the commands do.
    void list(std::initializer_list<std::wstring> paths)
    {
        std::wstring text;
        for (const std::wstring& path : paths)
            text += (&path == paths.begin() ? L"" : L";") + path;
        QuelVariant value;
        value.setString(text.c_str(), QuelVariant::kString);
        ASSERT_EQ(m_config.setValue(QueldConfig::kUserProfile, L"CUIX/LoadedCuix", value), 0);
    }

    [[nodiscard]] Names shown() const
    {
        Names names;
        for (const ShownGroup& group : m_groups.groups())
            names.push_back(group.group.name.toStdString());
        return names;
    }

    // What loadMenuFile makes of a path: the group, or "refused" with the caller's text untouched.
    std::wstring load(const std::wstring& path)
    {
        QuString group(L"untouched");
        const bool loaded = m_groups.loadMenuFile(QuString(path.c_str()), group);
        const std::wstring text = group.kwszPtr();
        if (loaded)
            return text;
        return text == L"untouched" ? L"refused" : L"refused and changed";
    }

    ScratchFolder m_folder;
    std::unique_ptr<SettingsStore> m_store = openStore(m_folder.path());
    StoredConfig m_config{*m_store, [](const Fault&) {}};
    Names m_told;
    ShownMenuGroups m_groups{
        m_config, [this](const Fault& fault) { m_told.push_back(fault.text().toStdString()); }};
    std::wstring m_plant;
    std::wstring m_survey;
    std::wstring m_other;
    std::wstring m_bad;
    std::wstring m_lost;
};

} // namespace

TEST_F(MenuGroups, WithoutAListNothingIsShown)
{
    m_groups.refresh();
    EXPECT_EQ(shown(), Names{});
    EXPECT_TRUE(m_groups.listedPaths().empty());
    EXPECT_EQ(m_told, Names{});
}

TEST_F(MenuGroups, ExactlyWhatIsListedIsShownInTheListsOrder)
{
    list({m_survey, L"", m_plant});
    m_groups.refresh();
    EXPECT_EQ(shown(), (Names{"SURVEY", "PLANT"}));
    EXPECT_EQ(m_groups.listedPaths(), (std::vector<std::wstring>{m_survey, L"", m_plant}));

    list({m_plant, m_other, m_survey});
    m_groups.refresh();
    EXPECT_EQ(shown(), (Names{"PLANT", "OTHER", "SURVEY"}));

    list({m_other});
    m_groups.refresh();
    EXPECT_EQ(shown(), Names{"OTHER"});

    list({L""});
    m_groups.refresh();
    EXPECT_EQ(shown(), Names{});
    EXPECT_EQ(m_told, Names{});
}

TEST_F(MenuGroups, AListThatIsNoTextIsEmpty)
{
    list({m_plant});
    m_groups.refresh();
    QuelVariant number;
    number.setInteger(7);
    ASSERT_EQ(m_config.setValue(QueldConfig::kUserProfile, L"CUIX/LoadedCuix", number), 0);
    m_groups.refresh();
    EXPECT_EQ(shown(), Names{});
}

TEST_F(MenuGroups, AnEntryThatIsListedTwiceIsShownOnce)
{
    list({m_plant, m_survey, m_plant});
    m_groups.refresh();
    EXPECT_EQ(shown(), (Names{"PLANT", "SURVEY"}));
    EXPECT_EQ(m_told, Names{});
}

TEST_F(MenuGroups, AGroupStaysAsItWasLoaded)
{
    list({m_plant});
    m_groups.refresh();
    ASSERT_FALSE(writePackage(m_folder, "plant.cuix", "CHANGED").empty());
    m_groups.refresh();
    EXPECT_EQ(shown(), Names{"PLANT"});
    list({});
    m_groups.refresh();
    list({m_plant});
    m_groups.refresh();
    EXPECT_EQ(shown(), Names{"CHANGED"});
}

TEST_F(MenuGroups, AFileThatCannotBeShownIsToldOnceARun)
{
    list({m_bad, m_plant, m_lost});
    m_groups.refresh();
    EXPECT_EQ(shown(), Names{"PLANT"});
    ASSERT_EQ(m_told.size(), 2U);
    EXPECT_NE(m_told[0].find("bad.cuix"), std::string::npos) << m_told[0];
    EXPECT_NE(m_told[1].find("lost.cuix"), std::string::npos) << m_told[1];

    m_groups.refresh();
    EXPECT_EQ(load(m_bad), L"refused");
    EXPECT_EQ(load(m_lost), L"refused");
    EXPECT_EQ(m_told.size(), 2U);
}

TEST_F(MenuGroups, AFileThatIsListedAnewIsToldAnew)
{
    list({m_lost});
    m_groups.refresh();
    list({m_plant});
    m_groups.refresh();
    list({m_plant, m_lost});
    m_groups.refresh();
    EXPECT_EQ(m_told.size(), 2U);
}

TEST_F(MenuGroups, AFileThatCameBackIsShown)
{
    list({m_lost});
    m_groups.refresh();
    ASSERT_FALSE(writePackage(m_folder, "lost.cuix", "LOST").empty());
    m_groups.refresh();
    EXPECT_EQ(shown(), Names{"LOST"});
}

TEST_F(MenuGroups, EveryFaultOfAPackageIsTold)
{
    list({writePackage(m_folder, "faulty.cuix", "BAD NAME", "<unknown/>")});
    m_groups.refresh();
    EXPECT_EQ(shown(), Names{});
    EXPECT_EQ(m_told.size(), 2U);
}

TEST_F(MenuGroups, TheSameGroupInALaterFileIsRefused)
{
    const std::wstring twin = writePackage(m_folder, "twin.cuix", "PLANT");
    list({m_plant, twin});
    m_groups.refresh();
    EXPECT_EQ(shown(), Names{"PLANT"});
    ASSERT_EQ(m_told.size(), 1U);
    EXPECT_EQ(m_told[0], toUtf8(twin) + " is not shown: its group PLANT is shown already, from " +
                             toUtf8(m_plant) + ".");
    EXPECT_EQ(load(twin), L"refused");
    EXPECT_EQ(m_told.size(), 1U);

    list({twin});
    m_groups.refresh();
    ASSERT_EQ(m_groups.groups().size(), 1U);
    EXPECT_EQ(m_groups.groups()[0].path, twin);
}

TEST_F(MenuGroups, LoadingAShownFileNamesItsGroupAndChangesNothing)
{
    list({m_plant, m_survey});
    m_groups.refresh();
    const ShownGroup* const before = m_groups.groups().data();
    EXPECT_EQ(load(m_plant), L"PLANT");
    EXPECT_EQ(load(m_survey), L"SURVEY");
    EXPECT_EQ(shown(), (Names{"PLANT", "SURVEY"}));
    EXPECT_EQ(m_groups.groups().data(), before);
    EXPECT_FALSE(m_groups.groups()[0].unlisted);
}

TEST_F(MenuGroups, AListedFileCanBeLoadedBeforeARefresh)
{
    list({m_plant, m_survey});
    EXPECT_EQ(load(m_survey), L"SURVEY");
    m_groups.refresh();
    EXPECT_EQ(shown(), (Names{"PLANT", "SURVEY"}));
    list({m_plant});
    m_groups.refresh();
    EXPECT_EQ(shown(), Names{"PLANT"});
}

TEST_F(MenuGroups, AGroupThatIsNotListedStaysForThisRunBehindTheOthers)
{
    list({m_plant});
    m_groups.refresh();
    EXPECT_EQ(load(m_survey), L"SURVEY");
    EXPECT_EQ(load(m_survey), L"SURVEY");
    EXPECT_TRUE(m_groups.groups().back().unlisted);
    list({m_plant, m_other});
    m_groups.refresh();
    EXPECT_EQ(shown(), (Names{"PLANT", "OTHER", "SURVEY"}));
    list({});
    m_groups.refresh();
    EXPECT_EQ(shown(), Names{"SURVEY"});
}

TEST_F(MenuGroups, OnceListedAGroupGoesWithItsEntry)
{
    EXPECT_EQ(load(m_survey), L"SURVEY");
    list({m_survey});
    m_groups.refresh();
    EXPECT_EQ(shown(), Names{"SURVEY"});
    EXPECT_FALSE(m_groups.groups()[0].unlisted);
    list({});
    m_groups.refresh();
    EXPECT_EQ(shown(), Names{});
}

TEST_F(MenuGroups, AFileThatCannotBeLoadedLeavesTheCallersTextAlone)
{
    EXPECT_EQ(load(m_lost), L"refused");
    EXPECT_EQ(load(m_bad), L"refused");
    EXPECT_EQ(load(L""), L"refused");
    EXPECT_EQ(m_told.size(), 3U);
    EXPECT_EQ(shown(), Names{});
}
