// Where toolbars stand, those that are away included.
#include "refhost/window/toolbarplaces.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLayout>
#include <QMainWindow>
#include <QToolBar>

#include <algorithm>
#include <memory>
#include <string>

using namespace quelhost;

namespace {

class Places : public testing::Test
{
protected:
    // Toolbars stand as "row of names / next row / ..." in an area.
    [[nodiscard]] std::string standIn(Qt::ToolBarArea area) const
    {
        std::string text;
        const QLayout& layout = *m_window->layout();
        for (int i = 0; QLayoutItem* const item = layout.itemAt(i); ++i) {
            auto* const bar = qobject_cast<QToolBar*>(item->widget());
            if (bar == nullptr || m_window->toolBarArea(bar) != area)
                continue;
            text += text.empty() ? "" : m_window->toolBarBreak(bar) ? " / " : " ";
            text += bar->objectName().toStdString();
        }
        return text;
    }
    [[nodiscard]] std::string stand() const { return standIn(Qt::TopToolBarArea); }

    static std::unique_ptr<QToolBar> make(const char* name)
    {
        auto bar = std::make_unique<QToolBar>(QString::fromLatin1(name));
        bar->setObjectName(QString::fromLatin1(name));
        return bar;
    }
    [[nodiscard]] QToolBar* find(const char* name) const
    {
        return m_window->findChild<QToolBar*>(QString::fromLatin1(name));
    }
    QToolBar& add(const char* name, bool inNewRow = true)
    {
        QToolBar* const bar = make(name).release(); // the window owns it from now on
        m_places->add(*bar, inNewRow);
        return *bar;
    }
    // As when groups go: the places are noted first.
    void remove(std::initializer_list<const char*> names)
    {
        m_places->note();
        for (const char* name : names)
            delete find(name);
    }
    void restart()
    {
        m_places->note();
        const QVariantMap kept = m_places->toValues();
        m_window = std::make_unique<QMainWindow>();
        m_places = std::make_unique<ToolbarPlaces>(*m_window);
        m_places->fromValues(kept);
    }

    std::unique_ptr<QMainWindow> m_window = std::make_unique<QMainWindow>();
    std::unique_ptr<ToolbarPlaces> m_places = std::make_unique<ToolbarPlaces>(*m_window);
};

} // namespace

TEST_F(Places, NewToolbarsGoBehindInRowsAsWanted)
{
    add("a");
    add("b", false);
    add("c");
    EXPECT_EQ(stand(), "a b / c");
}

TEST_F(Places, OneThatComesBackStandsWhereItStood)
{
    const char* const all[] = {"a", "b", "c", "d", "e", "f"};
    for (const char* name : all)
        add(name, name[0] == 'a' || name[0] == 'd' || name[0] == 'f');
    const std::string whole = "a b c / d e / f";
    ASSERT_EQ(stand(), whole);
    for (const char* name : all) {
        SCOPED_TRACE(name);
        remove({name});
        ASSERT_NE(stand(), whole);
        add(name);
        EXPECT_EQ(stand(), whole);
    }
}

TEST_F(Places, AnyThatComeBackInAnyOrderStandWhereTheyStood)
{
    const std::vector<const char*> all{"a", "b", "c", "d", "e"};
    for (const char* name : all)
        add(name, name[0] == 'a' || name[0] == 'c');
    const std::string whole = "a b / c d e";
    ASSERT_EQ(stand(), whole);
    std::vector<std::size_t> order{0, 1, 2, 3, 4};
    do {
        remove({all[order[0]], all[order[1]], all[order[2]]});
        m_places->note();
        add(all[order[1]]);
        remove({all[order[3]]});
        add(all[order[0]]);
        m_places->note();
        add(all[order[2]]);
        add(all[order[3]]);
        ASSERT_EQ(stand(), whole) << order[0] << order[1] << order[2] << order[3];
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST_F(Places, AllThatWereAwayStandInTheirRowsAgain)
{
    for (const char* name : {"a", "b", "c"})
        add(name, name[0] != 'b');
    remove({"a", "b", "c"});
    m_places->note();
    add("c");
    add("b");
    add("a");
    EXPECT_EQ(stand(), "a b / c");
}

TEST_F(Places, FollowTheUser)
{
    add("a");
    QToolBar& b = add("b");
    add("c");
    m_window->addToolBar(Qt::LeftToolBarArea, &b);
    m_window->insertToolBar(find("a"), find("c"));
    remove({"b", "a"});
    EXPECT_EQ(stand(), "c");
    add("a");
    add("b");
    EXPECT_EQ(stand(), "c a");
    EXPECT_EQ(standIn(Qt::LeftToolBarArea), "b");
}

TEST_F(Places, KeepWhatIsHidden)
{
    add("a").hide();
    add("b");
    remove({"a", "b"});
    EXPECT_TRUE(add("a").testAttribute(Qt::WA_WState_ExplicitShowHide));
    EXPECT_FALSE(add("b").testAttribute(Qt::WA_WState_ExplicitShowHide));
    m_window->show();
    EXPECT_FALSE(find("a")->isVisible());
    EXPECT_TRUE(find("b")->isVisible());
    find("a")->show();
    remove({"a"});
    const QToolBar& back = add("a");
    QApplication::processEvents();
    EXPECT_TRUE(back.isVisible());
}

TEST_F(Places, OutliveARestart)
{
    for (const char* name : {"a", "b", "c", "d"})
        add(name, name[0] != 'b');
    m_window->addToolBar(Qt::BottomToolBarArea, find("d"));
    find("b")->hide();
    remove({"c"});
    restart();
    add("c");
    add("d");
    EXPECT_TRUE(add("b").isHidden());
    add("a");
    EXPECT_EQ(stand(), "a b / c");
    EXPECT_EQ(standIn(Qt::BottomToolBarArea), "d");
}

TEST_F(Places, TakeNothingFromValuesThatAreNone)
{
    m_places->fromValues({{QStringLiteral("top"), 5},
                          {QStringLiteral("left"), QVariantList{QVariant(), QStringList()}},
                          {QStringLiteral("hidden"), QVariantMap()}});
    add("a");
    add("b");
    EXPECT_EQ(stand(), "a / b");
}

TEST_F(Places, AreForgottenWhenAToolbarIsGoneForGood)
{
    add("a");
    add("b").hide();
    add("c");
    remove({"b"});
    m_places->forget(QStringLiteral("b"));
    EXPECT_FALSE(add("b").testAttribute(Qt::WA_WState_ExplicitShowHide));
    EXPECT_EQ(stand(), "a / c / b");
}

TEST_F(Places, AreKeptWhenAToolbarIsToBeSeenAgain)
{
    add("a");
    add("b").hide();
    add("c");
    remove({"b"});
    m_places->unhide(QStringLiteral("b"));
    EXPECT_FALSE(add("b").testAttribute(Qt::WA_WState_ExplicitShowHide));
    EXPECT_EQ(stand(), "a / b / c");
}
