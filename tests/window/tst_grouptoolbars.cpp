// The toolbars of the loaded groups in a window.
#include "tests/window/groupsfixture.h"

#include "refhost/window/grouptoolbars.h"

#include <QMainWindow>
#include <QToolBar>
#include <QtTest/QTest>

#include <algorithm>
#include <memory>

using namespace quelhost;
using namespace windowtest;

namespace {

// The group of groupsfixture.h with a toolbar for each of the texts.
ShownGroup withToolbars(const char* name, const std::vector<const char*>& toolbars)
{
    ShownGroup shown = group(name, {});
    for (const char* text : toolbars)
        shown.group.toolbars.push_back({QString::fromUtf8(text).toLower(),
                                        QString::fromUtf8(text),
                                        {{QStringLiteral("go")}, {}, {QStringLiteral("ask")}}});
    return shown;
}

class GroupsInToolbars : public testing::Test
{
protected:
    [[nodiscard]] std::vector<QToolBar*> toolbars() const
    {
        const QList<QToolBar*> found =
            m_window.findChildren<QToolBar*>(QString(), Qt::FindDirectChildrenOnly);
        return {found.begin(), found.end()};
    }
    // Every toolbar with its buttons, and everything else that hangs below the window.
    [[nodiscard]] Texts everything() const
    {
        Texts texts;
        for (const QToolBar* toolbar : toolbars()) {
            texts.push_back(toolbar->objectName().toStdString() + ": " +
                            toolbar->windowTitle().toStdString());
            addItems(*toolbar, 1, texts);
        }
        std::sort(texts.begin(), texts.end());
        Texts objects;
        addObjects(m_window, 0, objects);
        std::sort(objects.begin(), objects.end());
        texts.insert(texts.end(), objects.begin(), objects.end());
        return texts;
    }

    QMainWindow m_window;
    std::unique_ptr<GroupToolbars> m_toolbars = std::make_unique<GroupToolbars>(m_window);
};

const ShownGroup kMain = withToolbars("QUELD", {"File"});
const ShownGroup kPlant = withToolbars("PLANT", {"Piping", "Equipment"});
const ShownGroup kSurvey = withToolbars("SURVEY", {"File"});

} // namespace

TEST_F(GroupsInToolbars, HaveTheirButtonsAndSeparators)
{
    m_toolbars->show({kMain});
    ASSERT_EQ(toolbars().size(), 1U);
    EXPECT_EQ(toolbars().front()->windowTitle(), QStringLiteral("File"));
    Texts items;
    addItems(*toolbars().front(), 0, items);
    EXPECT_EQ(items, (Texts{"&Go QUELD", "--", "&Ask"}));
    EXPECT_EQ(m_window.toolBarArea(toolbars().front()), Qt::TopToolBarArea);
}

TEST_F(GroupsInToolbars, BeginARowForEachGroup)
{
    m_toolbars->show({kMain, kPlant});
    ASSERT_EQ(toolbars().size(), 3U);
    m_window.resize(800, 300);
    m_window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_window));
    EXPECT_LT(toolbars()[0]->y(), toolbars()[1]->y());
    EXPECT_EQ(toolbars()[1]->y(), toolbars()[2]->y());
}

TEST_F(GroupsInToolbars, OfTheSameNameStayApart)
{
    m_toolbars->show({kMain, kSurvey});
    ASSERT_EQ(toolbars().size(), 2U);
    EXPECT_EQ(toolbars()[0]->objectName(), QStringLiteral("QUELD/file"));
    EXPECT_EQ(toolbars()[1]->objectName(), QStringLiteral("SURVEY/file"));
    Texts items;
    addItems(*toolbars()[1], 0, items);
    EXPECT_EQ(items.front(), "&Go SURVEY");
}

TEST_F(GroupsInToolbars, ThatStayKeepTheirToolbarsWhereTheUserPutThem)
{
    m_toolbars->show({kMain, kPlant});
    QToolBar* const piping = toolbars()[1];
    m_window.addToolBar(Qt::LeftToolBarArea, piping);
    m_toolbars->show({kPlant, kSurvey});
    ASSERT_EQ(toolbars().size(), 3U);
    const std::vector<QToolBar*> now = toolbars();
    EXPECT_EQ(std::count(now.begin(), now.end(), piping), 1);
    EXPECT_EQ(m_window.toolBarArea(piping), Qt::LeftToolBarArea);
}

TEST_F(GroupsInToolbars, ThatGoLeaveNothingBehindInEveryOrder)
{
    const std::vector<ShownGroup> groups{kMain, kPlant, kSurvey};
    std::vector<std::size_t> order{0, 1, 2};
    m_toolbars->show({});
    const Texts empty = everything();
    do {
        for (int round = 0; round < 5; ++round) {
            std::vector<ShownGroup> shown;
            std::vector<Texts> before;
            for (const std::size_t each : order) {
                before.push_back(everything());
                shown.push_back(groups[each]);
                m_toolbars->show(shown);
                EXPECT_NE(everything(), before.back());
            }
            while (!shown.empty()) {
                shown.pop_back();
                m_toolbars->show(shown);
                EXPECT_EQ(everything(), before.back());
                before.pop_back();
            }
        }
    } while (std::next_permutation(order.begin(), order.end()));
    EXPECT_EQ(everything(), empty);
}

TEST_F(GroupsInToolbars, TypeTheirMacros)
{
    std::vector<std::vector<MacroStep>> chosen;
    QObject::connect(m_toolbars.get(), &GroupToolbars::chosen,
                     [&chosen](const std::vector<MacroStep>& macro) { chosen.push_back(macro); });
    m_toolbars->show({kMain});
    itemNamed(*toolbars().front(), "&Go QUELD")->trigger();
    ASSERT_EQ(chosen.size(), 1U);
    ASSERT_EQ(chosen[0].size(), 3U);
    EXPECT_EQ(chosen[0][0].kind, MacroStep::Kind::Cancel);
    EXPECT_EQ(chosen[0][1].text, QStringLiteral("ECHO QUELD"));
    EXPECT_EQ(chosen[0][2].kind, MacroStep::Kind::Enter);
}

TEST_F(GroupsInToolbars, AreGreyWhileACommandAsksUnlessTheyCancelIt)
{
    m_toolbars->show({kMain});
    m_toolbars->setCommandAsking(true);
    const QAction& ask = *itemNamed(*toolbars().front(), "&Ask");
    EXPECT_FALSE(ask.isEnabled());
    EXPECT_EQ(ask.statusTip(), qtTrId("window-asking-first"));
    EXPECT_TRUE(itemNamed(*toolbars().front(), "&Go QUELD")->isEnabled());
    m_toolbars->show({kMain, kSurvey});
    EXPECT_FALSE(itemNamed(*toolbars()[1], "&Ask")->isEnabled());
    m_toolbars->setCommandAsking(false);
    EXPECT_TRUE(ask.isEnabled());
    EXPECT_TRUE(itemNamed(*toolbars()[1], "&Ask")->isEnabled());
}

TEST_F(GroupsInToolbars, GoWithTheirOwner)
{
    m_toolbars->show({kMain, kPlant});
    m_toolbars.reset();
    EXPECT_TRUE(toolbars().empty());
}
