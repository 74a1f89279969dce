// Loading and unloading are exact inverses of each other, for the example packages in every order.
#include "refhost/core/package.h"
#include "refhost/window/mainwindow.h"
#include "tests/window/flatlist.h"
#include "tests/window/groupsfixture.h"

#include <QDir>
#include <QToolBar>

#include <algorithm>

using namespace quelhost;
using namespace windowtest;

namespace {

std::vector<ShownGroup> exampleGroups()
{
    const QDir folder(QStringLiteral(QUEL_EXAMPLES));
    std::vector<ShownGroup> groups{group("MAIN", {"&Main"})};
    for (const char* name : {"queld", "plant", "survey"}) {
        const QString path = folder.filePath(QLatin1String(name) + QStringLiteral(".cuix"));
        const PackageReading reading = readPackage(path);
        if (reading)
            groups.push_back({path.toStdWString(), reading.group(), false});
    }
    return groups;
}

class Inverses : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(m_groups.size(), 4U);
        m_window.show();
        settle();
        showNumbered({});
        m_before = flatList(m_window);
    }
    // A main group and the examples of the given numbers, in that order.
    void showNumbered(const std::vector<std::size_t>& numbers)
    {
        std::vector<ShownGroup> shown{m_groups[0]};
        for (const std::size_t number : numbers)
            shown.push_back(m_groups[number]);
        show(shown);
    }
    void show(const std::vector<ShownGroup>& shown)
    {
        static_cast<void>(m_window.showGroups(modelOf(shown), {}));
        settle();
    }
    // Until what is to be deleted later is gone.
    static void settle()
    {
        QApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    std::vector<ShownGroup> m_groups = exampleGroups();
    MainWindow m_window{QString()};
    Texts m_before;
};

} // namespace

TEST_F(Inverses, EachExampleFiveTimesAlone)
{
    for (int round = 0; round < 5; ++round) {
        for (const std::size_t example : {1U, 2U, 3U}) {
            showNumbered({example});
            EXPECT_NE(flatList(m_window), m_before);
            showNumbered({});
            EXPECT_EQ(difference(m_before, flatList(m_window)), Texts());
        }
    }
}

TEST_F(Inverses, AllExamplesFiveTimesInEveryOrder)
{
    std::vector<std::size_t> loaded{1, 2, 3};
    do {
        std::vector<std::size_t> unloaded{0, 1, 2}; // places among those that are loaded
        do {
            for (int round = 0; round < 5; ++round) {
                std::vector<std::size_t> shown;
                for (const std::size_t example : loaded) {
                    shown.push_back(example);
                    showNumbered(shown);
                }
                for (const std::size_t place : unloaded) {
                    shown.erase(std::find(shown.begin(), shown.end(), loaded[place]));
                    showNumbered(shown);
                }
                ASSERT_EQ(difference(m_before, flatList(m_window)), Texts());
            }
        } while (std::next_permutation(unloaded.begin(), unloaded.end()));
    } while (std::next_permutation(loaded.begin(), loaded.end()));
}

TEST_F(Inverses, UnloadingTheLastUndoesItsLoading)
{
    std::vector<std::size_t> loaded{1, 2, 3};
    do {
        std::vector<Texts> before;
        std::vector<std::size_t> shown;
        for (const std::size_t example : loaded) {
            before.push_back(flatList(m_window));
            shown.push_back(example);
            showNumbered(shown);
            EXPECT_NE(flatList(m_window), before.back());
        }
        for (; !shown.empty(); before.pop_back()) {
            shown.pop_back();
            showNumbered(shown);
            EXPECT_EQ(difference(before.back(), flatList(m_window)), Texts());
        }
    } while (std::next_permutation(loaded.begin(), loaded.end()));
}

TEST_F(Inverses, AToolbarThatTheUserMovedComesBackWhereItWas)
{
    showNumbered({2, 3});
    auto* const moved =
        m_window.findChild<QToolBar*>(QStringLiteral("SURVEY/") + m_groups[3].group.toolbars[0].id);
    ASSERT_NE(moved, nullptr);
    m_window.addToolBar(Qt::LeftToolBarArea, moved);
    auto* const plant =
        m_window.findChild<QToolBar*>(QStringLiteral("PLANT/") + m_groups[2].group.toolbars[0].id);
    plant->hide();
    settle();
    const Texts both = flatList(m_window);
    showNumbered({});
    showNumbered({2, 3});
    EXPECT_EQ(difference(both, flatList(m_window)), Texts());
    EXPECT_TRUE(
        m_window.findChild<QToolBar*>(QStringLiteral("PLANT/") + m_groups[2].group.toolbars[0].id)
            ->isHidden());
}

TEST_F(Inverses, TwoGroupsWithTheSameMenuCommandAndKeyStayApart)
{
    ShownGroup twin = m_groups[2];
    twin.path = L"/t/twin.cuix";
    twin.group.name = QStringLiteral("TWIN");
    showNumbered({2});
    const Texts plant = flatList(m_window);
    const std::vector<ShownGroup> both{m_groups[0], m_groups[2], twin};
    const QStringList told = m_window.showGroups(modelOf(both), {});
    settle();
    EXPECT_EQ(std::size_t(told.size()), twin.group.accelerators.size());
    EXPECT_EQ(m_window.findChildren<QToolBar*>(QString(), Qt::FindDirectChildrenOnly).size(),
              int(m_groups[0].group.toolbars.size() + 2 * twin.group.toolbars.size()));
    showNumbered({2});
    EXPECT_EQ(difference(plant, flatList(m_window)), Texts());
    show({m_groups[0], twin});
    EXPECT_NE(flatList(m_window), plant);
    showNumbered({});
    EXPECT_EQ(difference(m_before, flatList(m_window)), Texts());
}
