// Loading and unloading are exact inverses of each other, for the example packages in every order.
#include "refhost/core/package.h"
#include "refhost/window/mainwindow.h"
#include "tests/window/groupsfixture.h"

#include <QDir>
#include <QLayout>
#include <QToolBar>
#include <QTreeView>

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

void addActions(const QWidget& of, const std::string& place, Texts& list)
{
    int number = 0; // the order counts
    for (const QAction* action : of.actions()) {
        std::string row =
            std::to_string(++number) + " in " + place + " > " + action->text().toStdString();
        for (const QKeySequence& keys : action->shortcuts())
            row += " [" + keys.toString().toStdString() + "]";
        row += action->isEnabled() ? "" : " (grey)";
        row += " " + action->toolTip().toStdString() + " " + action->statusTip().toStdString();
        list.push_back(row);
        if (action->menu() != nullptr)
            addActions(*action->menu(), row, list);
    }
}

// Every menu, action, key, toolbar with its place, row of the view, and object of the window.
Texts flatList(const MainWindow& window)
{
    Texts list;
    addActions(*window.menuBar(), "bar", list);
    addActions(window, "window", list);
    for (int i = 0; QLayoutItem* const item = window.layout()->itemAt(i); ++i) {
        auto* const toolbar = qobject_cast<QToolBar*>(item->widget());
        if (toolbar == nullptr)
            continue;
        const std::string place = std::to_string(i) + ". " + toolbar->objectName().toStdString() +
                                  " in " + std::to_string(window.toolBarArea(toolbar)) +
                                  (window.toolBarBreak(toolbar) ? " new row" : "");
        list.push_back(place);
        addActions(*toolbar, place, list);
    }
    const QAbstractItemModel& rows =
        *window.findChild<QTreeView*>(QStringLiteral("loadedTree"))->model();
    for (const QModelIndex& row : rows.match(rows.index(0, 0), Qt::DisplayRole, QString(), -1,
                                             Qt::MatchStartsWith | Qt::MatchRecursive))
        list.push_back(row.data().toString().toStdString() + " " +
                       row.siblingAtColumn(1).data().toString().toStdString());
    Texts objects;
    addObjects(window, 0, objects);
    list.insert(list.end(), objects.begin(), objects.end());
    std::sort(list.begin(), list.end());
    return list;
}

// What stands in one of the lists only, "+" before what came.
Texts difference(const Texts& before, const Texts& after)
{
    Texts gone;
    std::set_difference(before.begin(), before.end(), after.begin(), after.end(),
                        std::back_inserter(gone));
    Texts came;
    std::set_difference(after.begin(), after.end(), before.begin(), before.end(),
                        std::back_inserter(came));
    for (std::string& each : gone)
        each.insert(0, "-");
    for (std::string& each : came)
        gone.push_back("+" + each);
    return gone;
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
