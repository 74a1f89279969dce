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

    void show(const std::vector<ShownGroup>& groups)
    {
        const GroupModel model = modelOf(groups);
        const GroupActions::Gone gone = m_actions.show(model);
        m_toolbars->show(model.toolbars());
    }

    QMainWindow m_window;
    GroupActions m_actions{m_window};
    std::unique_ptr<GroupToolbars> m_toolbars =
        std::make_unique<GroupToolbars>(m_window, m_actions);
};

const ShownGroup kMain = withToolbars("QUELD", {"File"});
const ShownGroup kPlant = withToolbars("PLANT", {"Piping", "Equipment"});
const ShownGroup kSurvey = withToolbars("SURVEY", {"File"});

} // namespace

TEST_F(GroupsInToolbars, HaveTheirButtonsAndSeparators)
{
    show({kMain});
    ASSERT_EQ(toolbars().size(), 1U);
    EXPECT_EQ(toolbars().front()->windowTitle(), QStringLiteral("File"));
    Texts items;
    addItems(*toolbars().front(), 0, items);
    EXPECT_EQ(items, (Texts{"&Go QUELD", "--", "&Ask"}));
    EXPECT_EQ(m_window.toolBarArea(toolbars().front()), Qt::TopToolBarArea);
}

TEST_F(GroupsInToolbars, BeginARowForEachGroup)
{
    show({kMain, kPlant});
    ASSERT_EQ(toolbars().size(), 3U);
    m_window.resize(800, 300);
    m_window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_window));
    EXPECT_LT(toolbars()[0]->y(), toolbars()[1]->y());
    EXPECT_EQ(toolbars()[1]->y(), toolbars()[2]->y());
}

TEST_F(GroupsInToolbars, OfTheSameNameStayApart)
{
    show({kMain, kSurvey});
    ASSERT_EQ(toolbars().size(), 2U);
    EXPECT_EQ(toolbars()[0]->objectName(), QStringLiteral("QUELD/file"));
    EXPECT_EQ(toolbars()[1]->objectName(), QStringLiteral("SURVEY/file"));
    Texts items;
    addItems(*toolbars()[1], 0, items);
    EXPECT_EQ(items.front(), "&Go SURVEY");
}

TEST_F(GroupsInToolbars, ThatStayKeepTheirToolbarsWhereTheUserPutThem)
{
    show({kMain, kPlant});
    QToolBar* const piping = toolbars()[1];
    m_window.addToolBar(Qt::LeftToolBarArea, piping);
    show({kPlant, kSurvey});
    ASSERT_EQ(toolbars().size(), 3U);
    const std::vector<QToolBar*> now = toolbars();
    EXPECT_EQ(std::count(now.begin(), now.end(), piping), 1);
    EXPECT_EQ(m_window.toolBarArea(piping), Qt::LeftToolBarArea);
}

TEST_F(GroupsInToolbars, ThatGoLeaveNothingBehindInEveryOrder)
{
    const std::vector<ShownGroup> groups{kMain, kPlant, kSurvey};
    std::vector<std::size_t> order{0, 1, 2};
    show({});
    const Texts empty = everything();
    do {
        for (int round = 0; round < 5; ++round) {
            std::vector<ShownGroup> shown;
            std::vector<Texts> before;
            for (const std::size_t each : order) {
                before.push_back(everything());
                shown.push_back(groups[each]);
                show(shown);
                EXPECT_NE(everything(), before.back());
            }
            while (!shown.empty()) {
                shown.pop_back();
                show(shown);
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
    QObject::connect(&m_actions, &GroupActions::chosen,
                     [&chosen](const std::vector<MacroStep>& macro) { chosen.push_back(macro); });
    show({kMain});
    itemNamed(*toolbars().front(), "&Go QUELD")->trigger();
    EXPECT_EQ(macroTexts(chosen), (Texts{"^ECHO QUELD/"}));
}

TEST_F(GroupsInToolbars, AreGreyWhileACommandAsksUnlessTheyCancelIt)
{
    show({kMain});
    m_actions.setCommandAsking(true);
    const QAction& ask = *itemNamed(*toolbars().front(), "&Ask");
    EXPECT_FALSE(ask.isEnabled());
    EXPECT_EQ(ask.statusTip(), qtTrId("window-asking-first"));
    EXPECT_TRUE(itemNamed(*toolbars().front(), "&Go QUELD")->isEnabled());
    show({kMain, kSurvey});
    EXPECT_FALSE(itemNamed(*toolbars()[1], "&Ask")->isEnabled());
    m_actions.setCommandAsking(false);
    EXPECT_TRUE(ask.isEnabled());
    EXPECT_TRUE(itemNamed(*toolbars()[1], "&Ask")->isEnabled());
}

TEST_F(GroupsInToolbars, GoWithTheirOwner)
{
    show({kMain, kPlant});
    m_toolbars.reset();
    EXPECT_TRUE(toolbars().empty());
}

TEST_F(GroupsInToolbars, OfTheUserShowWhatIsLoadedAndAreWholeAgain)
{
    UserChanges changes;
    ToolbarChange& own = changes.toolbars[{QString(), QStringLiteral("1")}];
    own.title = QStringLiteral("Mine");
    own.entries = std::vector<ToolbarEntry>{{QStringLiteral("PLANT"), QStringLiteral("go")},
                                            {},
                                            {QStringLiteral("SURVEY"), QStringLiteral("go")}};
    const auto mine = [&](const std::vector<ShownGroup>& groups) {
        const GroupModel model({}, groups, changes);
        const GroupActions::Gone gone = m_actions.show(model);
        m_toolbars->show(model.toolbars());
        Texts items;
        addItems(*m_toolbars->find({QString(), QStringLiteral("1")}), 0, items);
        return items;
    };
    EXPECT_EQ(mine({kMain, kPlant, kSurvey}), (Texts{"&Go PLANT", "--", "&Go SURVEY"}));
    EXPECT_EQ(mine({kMain, kSurvey}), (Texts{"&Go SURVEY"}));
    EXPECT_EQ(mine({kMain}), Texts());
    EXPECT_EQ(mine({kMain, kSurvey, kPlant}), (Texts{"&Go PLANT", "--", "&Go SURVEY"}));
    EXPECT_EQ(toolbars().size(), 5U);
}

TEST_F(GroupsInToolbars, ThatTheUserChangesChangeWhereTheyStand)
{
    show({kMain, kPlant});
    QToolBar* const piping = toolbars()[1];
    m_window.addToolBar(Qt::LeftToolBarArea, piping);
    UserChanges changes;
    const GroupEntry name{QStringLiteral("PLANT"), QStringLiteral("piping")};
    changes.toolbars[name].title = QStringLiteral("Pipes");
    changes.toolbars[name].entries =
        std::vector<ToolbarEntry>{{QStringLiteral("PLANT"), QStringLiteral("ask")}, {}};
    changes.toolbars[{QStringLiteral("PLANT"), QStringLiteral("equipment")}].deleted = true;
    m_toolbars->show(GroupModel({}, {kMain, kPlant}, changes).toolbars());
    ASSERT_EQ(toolbars().size(), 2U);
    EXPECT_EQ(m_toolbars->find(name), piping);
    EXPECT_EQ(piping->windowTitle(), QStringLiteral("Pipes"));
    EXPECT_EQ(m_window.toolBarArea(piping), Qt::LeftToolBarArea);
    Texts items;
    addItems(*piping, 0, items);
    EXPECT_EQ(items, (Texts{"&Ask", "--"}));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const auto objects = piping->children().size();
    for (int round = 0; round < 5; ++round) {
        show({kMain, kPlant});
        m_toolbars->show(GroupModel({}, {kMain, kPlant}, changes).toolbars());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    EXPECT_EQ(piping->children().size(), objects); // separators are not kept
}

TEST_F(GroupsInToolbars, OfAFileUnderAnotherNameAreFilledAnew)
{
    show({kMain, kPlant});
    ShownGroup moved = kPlant;
    moved.path = L"/elsewhere/PLANT.cuix";
    show({kMain, moved});
    Texts items;
    addItems(*toolbars()[1], 0, items);
    EXPECT_EQ(items, (Texts{"&Go PLANT", "--", "&Ask"}));
}

TEST_F(GroupsInToolbars, ThatTheUserTakesAwayAndBringsBackAreNotHidden)
{
    show({kMain, kPlant});
    const GroupEntry name{QStringLiteral("PLANT"), QStringLiteral("piping")};
    m_toolbars->find(name)->hide();
    UserChanges changes;
    changes.toolbars[name].hidden = true;
    m_toolbars->show(GroupModel({}, {kMain, kPlant}, changes).toolbars());
    ASSERT_EQ(m_toolbars->find(name), nullptr);
    show({kMain, kPlant});
    EXPECT_FALSE(m_toolbars->find(name)->testAttribute(Qt::WA_WState_ExplicitShowHide));
    // Hidden in the window, it stays so while its group is away.
    m_toolbars->find(name)->hide();
    show({kMain});
    show({kMain, kPlant});
    EXPECT_TRUE(m_toolbars->find(name)->isHidden());
}
