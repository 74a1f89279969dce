// The menus of the loaded groups in the menu bar.
#include "tests/window/groupsfixture.h"

#include "refhost/window/groupmenus.h"

#include <QHelpEvent>
#include <QPointer>
#include <QToolTip>
#include <QtTest/QTest>

#include <memory>

using namespace quelhost;
using namespace windowtest;

namespace {

class GroupsInABar : public testing::Test
{
protected:
    void SetUp() override
    {
        QObject::connect(
            &m_actions, &GroupActions::chosen,
            [this](const std::vector<MacroStep>& macro) { m_chosen.push_back(macro); });
    }

    void show(const std::vector<ShownGroup>& groups)
    {
        const GroupActions::Gone gone = m_actions.show(modelOf(groups));
        m_menus->show(groups);
    }

    [[nodiscard]] Texts menusInBar() const
    {
        Texts texts;
        for (const QAction* action : m_bar.actions())
            texts.push_back(action->text().toStdString());
        return texts;
    }

    [[nodiscard]] Texts chosen() const { return macroTexts(m_chosen); }

    // What is shown while the mouse rests on the item.
    [[nodiscard]] static std::string tipOver(QMenu& menu, const QAction& action)
    {
        menu.popup(QPoint(0, 0));
        const QPoint at = menu.actionGeometry(const_cast<QAction*>(&action)).center();
        QHelpEvent rest(QEvent::ToolTip, at, menu.mapToGlobal(at));
        QApplication::sendEvent(&menu, &rest);
        menu.hide();
        return QToolTip::text().toStdString();
    }

    QMenuBar m_bar;
    GroupActions m_actions{m_bar};
    std::unique_ptr<GroupMenus> m_menus = std::make_unique<GroupMenus>(m_bar, m_actions);
    std::vector<std::vector<MacroStep>> m_chosen;
};

const ShownGroup kMain = group("QUELD", {"&File", "&Help"});
const ShownGroup kPlant = group("PLANT", {"&Plant"});
const ShownGroup kSurvey = group("SURVEY", {"&Survey", "S&tations"});
const ShownGroup kBare = group("BARE", {});

} // namespace

TEST_F(GroupsInABar, StandInTheOrderOfTheGroups)
{
    show({kMain, kPlant, kBare, kSurvey});
    EXPECT_EQ(menusInBar(), (Texts{"&File", "&Help", "&Plant", "&Survey", "S&tations"}));
    show({kSurvey, kMain, kPlant});
    EXPECT_EQ(menusInBar(), (Texts{"&Survey", "S&tations", "&File", "&Help", "&Plant"}));
    show({});
    EXPECT_EQ(menusInBar(), Texts());
}

TEST_F(GroupsInABar, HaveTheirItemsSeparatorsAndInnerMenusInOrder)
{
    show({kPlant});
    EXPECT_EQ(itemsOf(m_bar),
              (Texts{"&Plant", " &Go PLANT", " --", " &More", "  &Ask", "  &Go PLANT"}));
}

TEST_F(GroupsInABar, AnEmptyMenuIsAMenu)
{
    ShownGroup made = kPlant;
    made.group.menus = {{QStringLiteral("empty"), QStringLiteral("Empty"), {}}};
    show({made});
    EXPECT_EQ(itemsOf(m_bar), (Texts{"Empty"}));
}

TEST_F(GroupsInABar, AnItemTypesItsMacro)
{
    show({kMain, kPlant});
    itemNamed(m_bar, "&Go PLANT")->trigger();
    itemNamed(m_bar, "&Go QUELD")->trigger();
    itemNamed(m_bar, "&Ask")->trigger();
    EXPECT_EQ(chosen(), (Texts{"^ECHO PLANT/", "^ECHO QUELD/", "GETVAR/"}));
}

TEST_F(GroupsInABar, AreChosenWithTheMouse)
{
    show({kPlant});
    m_bar.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_bar));
    QTest::mouseClick(&m_bar, Qt::LeftButton, Qt::NoModifier,
                      m_bar.actionGeometry(m_bar.actions().at(0)).center());
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier,
                      menu->actionGeometry(menu->actions().at(0)).center());
    EXPECT_EQ(chosen(), (Texts{"^ECHO PLANT/"}));
}

TEST_F(GroupsInABar, LoadingAndUnloadingFiveTimesLeavesNothingBehind)
{
    show({});
    const Texts nothing = everythingOf(m_bar);
    show({kMain});
    const Texts main = everythingOf(m_bar);
    show({kMain, kPlant});
    const Texts plant = everythingOf(m_bar);
    show({kMain, kPlant, kSurvey});
    const Texts both = everythingOf(m_bar);
    ASSERT_NE(main, plant);
    ASSERT_NE(plant, both);
    for (int round = 0; round < 5; ++round) {
        SCOPED_TRACE(round);
        show({kMain, kPlant});
        EXPECT_EQ(everythingOf(m_bar), plant);
        show({kMain});
        EXPECT_EQ(everythingOf(m_bar), main);
        show({kMain, kPlant});
        EXPECT_EQ(everythingOf(m_bar), plant);
        show({kMain, kPlant, kSurvey});
        EXPECT_EQ(everythingOf(m_bar), both);
    }
    show({});
    EXPECT_EQ(everythingOf(m_bar), nothing);
}

TEST_F(GroupsInABar, UnloadingInTheOtherOrderLeavesNothingBehindEither)
{
    show({kMain});
    const Texts main = everythingOf(m_bar);
    show({kMain, kSurvey});
    const Texts survey = everythingOf(m_bar);
    show({kMain, kPlant, kSurvey});
    const Texts both = everythingOf(m_bar);
    for (int round = 0; round < 5; ++round) {
        SCOPED_TRACE(round);
        show({kMain, kSurvey});
        EXPECT_EQ(everythingOf(m_bar), survey);
        show({kMain});
        EXPECT_EQ(everythingOf(m_bar), main);
        show({kMain, kSurvey});
        show({kMain, kPlant, kSurvey});
        EXPECT_EQ(everythingOf(m_bar), both);
    }
}

TEST_F(GroupsInABar, AGroupThatStaysKeepsItsMenus)
{
    show({kMain, kPlant});
    const QPointer<QMenu> file = m_bar.actions().at(0)->menu();
    const QPointer<QMenu> plant = m_bar.actions().at(2)->menu();
    show({kSurvey, kMain});
    EXPECT_EQ(m_bar.actions().at(2)->menu(), file);
    EXPECT_TRUE(plant.isNull());
}

TEST_F(GroupsInABar, AFileUnderAnotherNameIsAnotherGroup)
{
    show({kMain, kPlant});
    const QPointer<QMenu> plant = m_bar.actions().at(2)->menu();
    ShownGroup moved = group("PLANT", {"P&lant 2"});
    moved.path = L"/elsewhere/PLANT.cuix";
    show({kMain, moved});
    EXPECT_TRUE(plant.isNull());
    EXPECT_EQ(menusInBar(), (Texts{"&File", "&Help", "P&lant 2"}));
}

TEST_F(GroupsInABar, TwoGroupsWithTheSameNamesInThemStayApart)
{
    const ShownGroup first = group("ONE", {"&Same"});
    const ShownGroup second = group("TWO", {"&Same"});
    show({first, second});
    EXPECT_EQ(itemsOf(m_bar), (Texts{"&Same", " &Go ONE", " --", " &More", "  &Ask", "  &Go ONE",
                                     "&Same", " &Go TWO", " --", " &More", "  &Ask", "  &Go TWO"}));
    itemNamed(m_bar, "&Go TWO")->trigger();
    itemNamed(m_bar, "&Go ONE")->trigger();
    show({second});
    EXPECT_EQ(itemsOf(m_bar), (Texts{"&Same", " &Go TWO", " --", " &More", "  &Ask", "  &Go TWO"}));
    itemNamed(m_bar, "&Go TWO")->trigger();
    EXPECT_EQ(chosen(), (Texts{"^ECHO TWO/", "^ECHO ONE/", "^ECHO TWO/"}));
}

TEST_F(GroupsInABar, WhileACommandAsksOnlyItemsThatCancelItCanBeChosen)
{
    show({kPlant});
    QAction& go = *itemNamed(m_bar, "&Go PLANT");
    QAction& ask = *itemNamed(m_bar, "&Ask");
    EXPECT_TRUE(go.isEnabled());
    EXPECT_TRUE(ask.isEnabled());
    m_actions.setCommandAsking(true);
    EXPECT_TRUE(go.isEnabled());
    EXPECT_FALSE(ask.isEnabled());
    EXPECT_TRUE(itemNamed(m_bar, "&More")->isEnabled());
    m_actions.setCommandAsking(true);
    EXPECT_FALSE(ask.isEnabled());
    m_actions.setCommandAsking(false);
    EXPECT_TRUE(ask.isEnabled());
}

TEST_F(GroupsInABar, AGroupThatComesWhileACommandAsksIsGreyedToo)
{
    show({kMain});
    m_actions.setCommandAsking(true);
    show({kMain, kPlant});
    const QMenu& plant = *m_bar.actions().at(2)->menu();
    EXPECT_FALSE(itemNamed(plant, "&Ask")->isEnabled());
    EXPECT_TRUE(itemNamed(plant, "&Go PLANT")->isEnabled());
    m_actions.setCommandAsking(false);
    EXPECT_TRUE(itemNamed(plant, "&Ask")->isEnabled());
}

TEST_F(GroupsInABar, GreyedItemsSayWhy)
{
    show({kPlant});
    QMenu& menu = *m_bar.actions().at(0)->menu();
    QMenu& more = *itemNamed(menu, "&More")->menu();
    QAction& ask = *itemNamed(more, "&Ask");
    QAction& go = *itemNamed(menu, "&Go PLANT");
    EXPECT_EQ(tipOver(menu, go), "Go PLANT\nGoes");
    EXPECT_EQ(go.statusTip().toStdString(), "Goes");
    m_actions.setCommandAsking(true);
    const std::string why = qtTrId("window-asking-first").toStdString();
    ASSERT_NE(why, "window-asking-first");
    EXPECT_EQ(tipOver(more, ask), "Ask\n" + why);
    EXPECT_EQ(ask.statusTip().toStdString(), why);
    EXPECT_EQ(tipOver(menu, go), "Go PLANT\nGoes");
    m_actions.setCommandAsking(false);
    EXPECT_EQ(ask.statusTip().toStdString(), "");
    EXPECT_EQ(tipOver(more, ask), "Ask");
}

TEST_F(GroupsInABar, ATipIsNoPage)
{
    ShownGroup made = kPlant;
    made.group.commands[0].text = QStringLiteral("<img src='file:///etc/x.png'> <b>bold</b>");
    made.group.commands[0].tip = made.group.commands[0].text;
    show({made});
    const QAction& go = *itemNamed(m_bar, "<img src='file:///etc/x.png'> <b>bold</b>");
    EXPECT_TRUE(go.toolTip().contains(QStringLiteral("&lt;img"))) << go.toolTip().toStdString();
    EXPECT_FALSE(go.toolTip().contains(QStringLiteral("<img")));
    EXPECT_EQ(go.statusTip(), made.group.commands[0].tip);
}

TEST_F(GroupsInABar, TheMenusGoWithWhoeverShowsThem)
{
    show({});
    const Texts nothing = everythingOf(m_bar);
    show({kMain, kSurvey});
    m_menus.reset();
    EXPECT_EQ(everythingOf(m_bar), nothing);
}
