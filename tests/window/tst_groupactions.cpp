// The commands of the loaded groups as actions, and their keys in a window.
#include "tests/window/groupsfixture.h"

#include "refhost/core/hostkeys.h"
#include "refhost/window/groupactions.h"

#include <QtTest/QTest>

#include <memory>

using namespace quelhost;
using namespace windowtest;

namespace {

// The group of groupsfixture.h with a key for its command "go" and one for "ask".
ShownGroup withKeys(const char* name, const char* go, const char* ask)
{
    ShownGroup shown = group(name, {});
    shown.group.accelerators = {{QStringLiteral("go"), QKeySequence(QString::fromLatin1(go))},
                                {QStringLiteral("ask"), QKeySequence(QString::fromLatin1(ask))}};
    return shown;
}

class GroupsWithKeys : public testing::Test
{
protected:
    void SetUp() override
    {
        QObject::connect(m_actions.get(), &GroupActions::chosen,
                         [this](const std::vector<MacroStep>& macro) {
                             for (const MacroStep& step : macro)
                                 m_typed += step.text.toStdString();
                             m_typed += ";";
                         });
        m_window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
    }
    // Shows the groups and returns what is told about them.
    QStringList show(const std::vector<ShownGroup>& groups)
    {
        const GroupActions::Gone gone = m_actions->show(modelOf(groups));
        return m_actions->takeLostKeys();
    }
    // What is typed by Ctrl and the key.
    [[nodiscard]] std::string press(Qt::Key key)
    {
        m_typed.clear();
        QTest::keyClick(&m_window, key, Qt::ControlModifier);
        return m_typed;
    }

    QWidget m_window;
    std::unique_ptr<GroupActions> m_actions = std::make_unique<GroupActions>(m_window);
    std::string m_typed;
};

const ShownGroup kPlant = withKeys("PLANT", "Ctrl+K", "Ctrl+P");
const ShownGroup kSurvey = withKeys("SURVEY", "Ctrl+K", "Ctrl+S");

} // namespace

TEST_F(GroupsWithKeys, TypeTheirMacros)
{
    EXPECT_EQ(show({kPlant}), QStringList());
    EXPECT_EQ(press(Qt::Key_K), "ECHO PLANT;");
    EXPECT_EQ(press(Qt::Key_P), "GETVAR;");
    EXPECT_EQ(press(Qt::Key_S), "");
}

TEST_F(GroupsWithKeys, KeepTheirKeysFromLaterGroupsWhichAreTold)
{
    EXPECT_EQ(show({kPlant, kSurvey}),
              QStringList(qtTrId("window-key-lost")
                              .arg(QStringLiteral("Ctrl+K"), QStringLiteral("PLANT"),
                                   QStringLiteral("Go PLANT"), QStringLiteral("SURVEY"),
                                   QStringLiteral("Go SURVEY"))));
    EXPECT_EQ(press(Qt::Key_K), "ECHO PLANT;");
    EXPECT_EQ(press(Qt::Key_S), "GETVAR;");
}

TEST_F(GroupsWithKeys, GiveBackWhatTheyHadTaken)
{
    show({kPlant, kSurvey});
    EXPECT_EQ(show({kSurvey}), QStringList());
    EXPECT_EQ(press(Qt::Key_K), "ECHO SURVEY;");
    EXPECT_EQ(press(Qt::Key_P), "");
}

TEST_F(GroupsWithKeys, AreToldOfALossOnceUntilTheKeyWasBack)
{
    EXPECT_EQ(show({kPlant, kSurvey}).size(), 1);
    EXPECT_EQ(show({kPlant, kSurvey}).size(), 0);
    EXPECT_EQ(show({kSurvey}).size(), 0);
    EXPECT_EQ(show({kPlant, kSurvey}).size(), 1);
}

TEST_F(GroupsWithKeys, ThatGoLeaveNothingBehind)
{
    Texts before;
    addObjects(m_window, 0, before);
    for (int round = 0; round < 5; ++round) {
        show({kPlant, kSurvey});
        EXPECT_EQ(m_window.actions().size(), 3);
        show({});
        EXPECT_TRUE(m_window.actions().isEmpty());
        Texts after;
        addObjects(m_window, 0, after);
        EXPECT_EQ(after, before);
    }
}

TEST_F(GroupsWithKeys, AreDeadWhileACommandAsksUnlessTheyCancelIt)
{
    show({kPlant});
    m_actions->setCommandAsking(true);
    EXPECT_EQ(press(Qt::Key_P), "");
    EXPECT_EQ(press(Qt::Key_K), "ECHO PLANT;");
    show({kPlant, kSurvey});
    EXPECT_EQ(press(Qt::Key_S), "");
    m_actions->setCommandAsking(false);
    EXPECT_EQ(press(Qt::Key_P), "GETVAR;");
}

TEST_F(GroupsWithKeys, TheHostsOwnKeysStayWithIt)
{
    const ShownGroup greedy = withKeys("GREEDY", "Ctrl+Alt+I", "Ctrl+J");
    const GroupActions::Gone gone = m_actions->show(GroupModel(hostKeys(), {greedy}));
    EXPECT_EQ(m_actions->takeLostKeys(),
              QStringList(qtTrId("window-key-lost")
                              .arg(QStringLiteral("Ctrl+Alt+I"), QStringLiteral("Quelhost"),
                                   QStringLiteral("findcommand"), QStringLiteral("GREEDY"),
                                   QStringLiteral("Go GREEDY"))));
    EXPECT_EQ(press(Qt::Key_J), "GETVAR;");
}

TEST_F(GroupsWithKeys, AreFoundByTheirNames)
{
    show({kPlant, kSurvey});
    QAction* const plant = m_actions->find(QStringLiteral("PLANT"), QStringLiteral("go"));
    ASSERT_NE(plant, nullptr);
    EXPECT_EQ(plant->text(), QStringLiteral("&Go PLANT"));
    EXPECT_NE(m_actions->find(QStringLiteral("SURVEY"), QStringLiteral("go")), plant);
    EXPECT_EQ(m_actions->find(QStringLiteral("PLANT"), QStringLiteral("none")), nullptr);
    show({kSurvey});
    EXPECT_EQ(m_actions->find(QStringLiteral("PLANT"), QStringLiteral("go")), nullptr);
}

TEST_F(GroupsWithKeys, TellTheirKeysAndWhatTheyDo)
{
    show({kPlant});
    QAction* const go = m_actions->find(QStringLiteral("PLANT"), QStringLiteral("go"));
    EXPECT_EQ(go->toolTip(), QStringLiteral("Go PLANT (Ctrl+K)\nGoes"));
    m_actions->setCommandAsking(true);
    QAction* const ask = m_actions->find(QStringLiteral("PLANT"), QStringLiteral("ask"));
    EXPECT_EQ(ask->toolTip(), QStringLiteral("Ask (Ctrl+P)\n") + qtTrId("window-asking-first"));
    show({group("PLANT", {})});
    EXPECT_EQ(go->toolTip(), QStringLiteral("Go PLANT\nGoes"));
}
