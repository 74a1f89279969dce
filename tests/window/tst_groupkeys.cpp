// The keys of the loaded groups in a window.
#include "tests/window/groupsfixture.h"

#include "refhost/window/groupkeys.h"

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
        QObject::connect(m_keys.get(), &GroupKeys::chosen,
                         [this](const std::vector<MacroStep>& macro) {
                             for (const MacroStep& step : macro)
                                 m_typed += step.text.toStdString();
                             m_typed += ";";
                         });
        m_window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
    }
    // What is typed by Ctrl and the key.
    [[nodiscard]] std::string press(Qt::Key key)
    {
        m_typed.clear();
        QTest::keyClick(&m_window, key, Qt::ControlModifier);
        return m_typed;
    }

    QWidget m_window;
    std::unique_ptr<GroupKeys> m_keys = std::make_unique<GroupKeys>(m_window);
    std::string m_typed;
};

const ShownGroup kPlant = withKeys("PLANT", "Ctrl+K", "Ctrl+P");
const ShownGroup kSurvey = withKeys("SURVEY", "Ctrl+K", "Ctrl+S");

} // namespace

TEST_F(GroupsWithKeys, TypeTheirMacros)
{
    EXPECT_EQ(m_keys->show({kPlant}), QStringList());
    EXPECT_EQ(press(Qt::Key_K), "ECHO PLANT;");
    EXPECT_EQ(press(Qt::Key_P), "GETVAR;");
    EXPECT_EQ(press(Qt::Key_S), "");
}

TEST_F(GroupsWithKeys, KeepTheirKeysFromLaterGroupsWhichAreTold)
{
    EXPECT_EQ(m_keys->show({kPlant, kSurvey}),
              QStringList(qtTrId("window-key-lost")
                              .arg(QStringLiteral("Ctrl+K"), QStringLiteral("PLANT"),
                                   QStringLiteral("go"), QStringLiteral("SURVEY"),
                                   QStringLiteral("go"))));
    EXPECT_EQ(press(Qt::Key_K), "ECHO PLANT;");
    EXPECT_EQ(press(Qt::Key_S), "GETVAR;");
}

TEST_F(GroupsWithKeys, GiveBackWhatTheyHadTaken)
{
    static_cast<void>(m_keys->show({kPlant, kSurvey}));
    EXPECT_EQ(m_keys->show({kSurvey}), QStringList());
    EXPECT_EQ(press(Qt::Key_K), "ECHO SURVEY;");
    EXPECT_EQ(press(Qt::Key_P), "");
}

TEST_F(GroupsWithKeys, AreToldOfALossOnceUntilTheKeyWasBack)
{
    EXPECT_EQ(m_keys->show({kPlant, kSurvey}).size(), 1);
    EXPECT_EQ(m_keys->show({kPlant, kSurvey}).size(), 0);
    EXPECT_EQ(m_keys->show({kSurvey}).size(), 0);
    EXPECT_EQ(m_keys->show({kPlant, kSurvey}).size(), 1);
}

TEST_F(GroupsWithKeys, ThatGoLeaveNothingBehind)
{
    Texts before;
    addObjects(m_window, 0, before);
    for (int round = 0; round < 5; ++round) {
        static_cast<void>(m_keys->show({kPlant, kSurvey}));
        EXPECT_EQ(m_window.actions().size(), 3);
        static_cast<void>(m_keys->show({}));
        EXPECT_TRUE(m_window.actions().isEmpty());
        Texts after;
        addObjects(m_window, 0, after);
        EXPECT_EQ(after, before);
    }
}

TEST_F(GroupsWithKeys, AreDeadWhileACommandAsksUnlessTheyCancelIt)
{
    static_cast<void>(m_keys->show({kPlant}));
    m_keys->setCommandAsking(true);
    EXPECT_EQ(press(Qt::Key_P), "");
    EXPECT_EQ(press(Qt::Key_K), "ECHO PLANT;");
    static_cast<void>(m_keys->show({kPlant, kSurvey}));
    EXPECT_EQ(press(Qt::Key_S), "");
    m_keys->setCommandAsking(false);
    EXPECT_EQ(press(Qt::Key_P), "GETVAR;");
}
