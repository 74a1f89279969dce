// The view of what is loaded.
#include "refhost/window/loadedview.h"
#include "tests/window/groupsfixture.h"

#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTemporaryFile>
#include <QTreeView>
#include <QtTest/QTest>

using namespace quelhost;
using namespace windowtest;

namespace {

ShownGroup full(const char* name, const char* key)
{
    ShownGroup shown = group(name, {"&Things"});
    shown.group.title = QStringLiteral("All of it");
    shown.group.toolbars = {
        {QStringLiteral("bar"), QStringLiteral("&Bar"), {{QStringLiteral("go")}, {}}}};
    shown.group.accelerators = {{QStringLiteral("go"), QKeySequence(QString::fromLatin1(key))},
                                {QStringLiteral("go"), QKeySequence(QStringLiteral("Ctrl+K"))}};
    return shown;
}

const ShownGroup kMain = full("QUELD", "F5");
const ShownGroup kPlant = full("PLANT", "F6");

void addRows(const QAbstractItemModel& model, const QModelIndex& parent, int depth, Texts& rows)
{
    for (int i = 0; i < model.rowCount(parent); ++i) {
        std::string row(std::size_t(depth), ' ');
        for (int column = 0; column < model.columnCount(); ++column)
            row += (column == 0 ? "" : " | ") +
                   model.index(i, column, parent).data().toString().toStdString();
        rows.push_back(row);
        addRows(model, model.index(i, 0, parent), depth + 1, rows);
    }
}

Texts rowsOf(const QAbstractItemModel& model)
{
    Texts rows;
    addRows(model, {}, 0, rows);
    return rows;
}

class LoadedViews : public testing::Test
{
protected:
    LoadedViews()
    {
        QObject::connect(&m_view, &LoadedView::unloadWanted,
                         [this](const QString& path) { m_wanted << path; });
        QObject::connect(&m_view, &LoadedView::loadWanted,
                         [this] { m_wanted << QStringLiteral("load"); });
        QObject::connect(&m_view, &LoadedView::runWanted,
                         [this](const QString& group, const QString& command) {
                             m_wanted << group + QLatin1Char('.') + command;
                         });
        QObject::connect(
            &m_view, &LoadedView::placeWanted,
            [this](const QString& group, const QString& command, const CommandPlace& place) {
                m_wanted << group + QLatin1Char('.') + command + QLatin1Char(' ') + place.text;
            });
        m_view.show(modelOf({kMain, kPlant}), {});
        m_view.resize(500, 500);
        m_view.QWidget::show();
    }

    template<class Widget>
    [[nodiscard]] Widget& part(const char* name)
    {
        return *m_view.findChild<Widget*>(QString::fromLatin1(name));
    }
    [[nodiscard]] QTreeView& tree() { return part<QTreeView>("loadedTree"); }
    [[nodiscard]] QPushButton& button(const char* name) { return part<QPushButton>(name); }
    [[nodiscard]] std::string current()
    {
        return tree().currentIndex().siblingAtColumn(0).data().toString().toStdString();
    }
    // Goes to the first row that is called so.
    void goTo(const char* name)
    {
        const QModelIndexList found = tree().model()->match(
            tree().model()->index(0, 0), Qt::DisplayRole, QString::fromUtf8(name), 1,
            Qt::MatchExactly | Qt::MatchRecursive);
        ASSERT_FALSE(found.isEmpty()) << name;
        tree().setCurrentIndex(found.front());
    }

    LoadedView m_view;
    QStringList m_wanted;
};

} // namespace

TEST(LoadedModels, HoldEverythingOfAGroup)
{
    LoadedModel model;
    model.show(modelOf({kMain, kPlant}), {QStringLiteral("/nowhere/gone.cuix")});
    const Texts rows = rowsOf(model);
    const Texts plant{"PLANT – All of it |  | /t/PLANT.cuix",
                      " Menus (1) |  | ",
                      "  Things |  | ",
                      "   Go PLANT | F6 | {cancel}ECHO PLANT",
                      "   (separator) |  | ",
                      "   More |  | ",
                      "    Ask |  | GETVAR",
                      "    Go PLANT | F6 | {cancel}ECHO PLANT",
                      " Toolbars (1) |  | ",
                      "  Bar |  | ",
                      "   Go PLANT | F6 | {cancel}ECHO PLANT",
                      "   (separator) |  | ",
                      " Commands (2) |  | ",
                      "  Go PLANT | F6 | {cancel}ECHO PLANT",
                      "  Ask |  | GETVAR",
                      " Keys (2) |  | ",
                      "  Go PLANT | F6 | {cancel}ECHO PLANT",
                      "  Go PLANT | Ctrl+K (stays with QUELD) | {cancel}ECHO PLANT",
                      "gone.cuix (missing) |  | /nowhere/gone.cuix"};
    ASSERT_EQ(rows.size(), 2 * (plant.size() - 1) + 1);
    EXPECT_EQ(Texts(rows.begin() + std::ptrdiff_t(plant.size()) - 1, rows.end()), plant);
}

TEST(LoadedModels, TellTheFilesThatAreNotShownApart)
{
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    LoadedModel model;
    model.show(modelOf({kMain}), {file.fileName(), QStringLiteral("/nowhere/x.cuix")});
    const LoadedRow& refused = *model.row(model.index(1, 0));
    EXPECT_FALSE(refused.isMissing);
    EXPECT_TRUE(refused.name.endsWith(QStringLiteral("(not shown)"))) << refused.name.toStdString();
    EXPECT_TRUE(model.row(model.index(2, 0))->isMissing);
}

TEST(LoadedModels, SayWhereARowComesFrom)
{
    LoadedModel model;
    model.show(modelOf({kMain}), {});
    const QModelIndex go = model.keyIndex(QStringLiteral("QUELD"), QStringLiteral("F5"));
    EXPECT_EQ(go.data(Qt::ToolTipRole).toString(),
              QStringLiteral("Go QUELD\nGoes\nF5, Ctrl+K\n{cancel}ECHO QUELD\n/t/QUELD.cuix"));
    EXPECT_EQ(model.row(go)->path, QStringLiteral("/t/QUELD.cuix"));
    EXPECT_FALSE(model.keyIndex(QStringLiteral("NONE"), QStringLiteral("F5")).isValid());
    EXPECT_FALSE(model.keyIndex(QStringLiteral("QUELD"), QStringLiteral("F9")).isValid());
}

TEST_F(LoadedViews, AreSearchedInNamesKeysMacrosAndFiles)
{
    auto& search = part<QLineEdit>("loadedSearch");
    struct Row
    {
        const char* typed;
        const char* found;
    };
    for (const Row& row : {Row{"ask", "Ask"}, Row{"getvar", "Ask"}, Row{"f6", "Go PLANT"},
                           Row{"/t/plant", "PLANT – All of it"}}) {
        search.setText(QString::fromLatin1(row.typed));
        Texts names;
        for (const std::string& each : rowsOf(*tree().model()))
            names.push_back(each.substr(0, each.find(" | ")));
        const auto isFound = [&row](const std::string& name) {
            return name.substr(std::min(name.find_first_not_of(' '), name.size())) == row.found;
        };
        EXPECT_TRUE(std::any_of(names.begin(), names.end(), isFound)) << row.typed;
    }
    search.setText(QStringLiteral("nothing like it"));
    EXPECT_EQ(rowsOf(*tree().model()), Texts());
    search.clear();
    EXPECT_EQ(tree().model()->rowCount(), 2);
}

TEST_F(LoadedViews, UnfoldWhatIsFound)
{
    part<QLineEdit>("loadedSearch").setText(QStringLiteral("f6"));
    const QModelIndex plant = tree().model()->index(0, 0);
    EXPECT_TRUE(tree().isExpanded(plant));
    EXPECT_TRUE(tree().isExpanded(tree().model()->index(0, 0, plant)));
}

TEST_F(LoadedViews, StayAsTheUserLeftThem)
{
    goTo("PLANT – All of it");
    const QModelIndex plant = tree().currentIndex();
    const QModelIndex commands = plant.model()->index(2, 0, plant);
    tree().expand(commands);
    tree().setCurrentIndex(commands.model()->index(1, 0, commands));
    ASSERT_EQ(current(), "Ask");
    m_view.show(modelOf({kMain, kPlant, full("ROADS", "F7")}), {});
    EXPECT_EQ(current(), "Ask");
    EXPECT_TRUE(tree().isExpanded(tree().currentIndex().parent()));
    EXPECT_TRUE(tree().isExpanded(tree().model()->index(2, 0))); // new ones show what they have
    tree().collapse(tree().model()->index(0, 0));
    m_view.show(modelOf({kMain, kPlant}), {});
    EXPECT_FALSE(tree().isExpanded(tree().model()->index(0, 0)));
    EXPECT_TRUE(tree().isExpanded(tree().model()->index(1, 0)));
}

TEST_F(LoadedViews, LoadAndUnload)
{
    QTest::mouseClick(&button("loadedLoad"), Qt::LeftButton);
    EXPECT_FALSE(button("loadedUnload").isEnabled());
    goTo("Ask"); // the first is one of the main file
    EXPECT_FALSE(button("loadedUnload").isEnabled());
    EXPECT_EQ(button("loadedUnload").toolTip(), qtTrId("loaded-main-file"));
    goTo("PLANT – All of it");
    ASSERT_TRUE(button("loadedUnload").isEnabled());
    EXPECT_EQ(button("loadedUnload").toolTip(),
              QStringLiteral("Unload PLANT: removes 1 menu, 1 toolbar, 1 accelerator"));
    QTest::mouseClick(&button("loadedUnload"), Qt::LeftButton);
    EXPECT_EQ(m_wanted, (QStringList{QStringLiteral("load"), QStringLiteral("/t/PLANT.cuix")}));
}

TEST_F(LoadedViews, UnloadWhatWasRefusedButNotWhatIsMissing)
{
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    m_view.show(modelOf({kMain}), {file.fileName(), QStringLiteral("/nowhere/x.cuix")});
    tree().setCurrentIndex(tree().model()->index(1, 0));
    EXPECT_TRUE(button("loadedUnload").isEnabled());
    QTest::mouseClick(&button("loadedUnload"), Qt::LeftButton);
    EXPECT_EQ(m_wanted, QStringList(file.fileName()));
    tree().setCurrentIndex(tree().model()->index(2, 0));
    EXPECT_FALSE(button("loadedUnload").isEnabled());
    EXPECT_EQ(button("loadedUnload").toolTip(), qtTrId("loaded-missing-tip"));
}

TEST_F(LoadedViews, DoNotTakeAnotherFileForTheMainFile)
{
    QTemporaryFile main;
    ASSERT_TRUE(main.open());
    m_view.show(GroupModel({}, {kPlant}, {}, main.fileName()), {main.fileName()});
    goTo("PLANT – All of it");
    EXPECT_TRUE(button("loadedUnload").isEnabled());
    tree().setCurrentIndex(tree().model()->index(1, 0));
    EXPECT_FALSE(button("loadedUnload").isEnabled());
    EXPECT_EQ(button("loadedUnload").toolTip(), qtTrId("loaded-main-file"));
}

TEST_F(LoadedViews, CanDoNeitherWhileACommandAsksAndSayWhy)
{
    goTo("PLANT – All of it");
    m_view.setCommandAsking(true);
    for (const char* name : {"loadedLoad", "loadedUnload"}) {
        EXPECT_FALSE(button(name).isEnabled()) << name;
        EXPECT_EQ(button(name).toolTip(), qtTrId("window-asking-first")) << name;
    }
    m_view.setCommandAsking(false);
    EXPECT_TRUE(button("loadedLoad").isEnabled());
    EXPECT_TRUE(button("loadedUnload").isEnabled());
}

TEST_F(LoadedViews, ShowWhereACommandStands)
{
    QPushButton& where = button("loadedWhere");
    goTo("Menus (1)");
    EXPECT_FALSE(where.isEnabled());
    goTo("Go PLANT");
    ASSERT_TRUE(where.isEnabled());
    emit where.menu()->aboutToShow();
    Texts places;
    for (const QAction* action : where.menu()->actions())
        places.push_back(action->text().toStdString());
    EXPECT_EQ(places, (Texts{"Menu: Things", "Menu: Things > More", "Toolbar: Bar", "Key: F6"}));
    where.menu()->actions().at(1)->trigger();
    where.menu()->actions().at(3)->trigger();
    EXPECT_EQ(m_wanted, (QStringList{QStringLiteral("PLANT.go Things > More"),
                                     QStringLiteral("PLANT.go F6")}));
}

TEST_F(LoadedViews, SayWhenACommandStandsNowhere)
{
    ShownGroup bare = group("BARE", {});
    m_view.show(modelOf({kMain, bare}), {});
    goTo("Go BARE");
    emit button("loadedWhere").menu()->aboutToShow();
    const QList<QAction*> places = button("loadedWhere").menu()->actions();
    ASSERT_EQ(places.size(), 1);
    EXPECT_EQ(places.front()->text(), qtTrId("loaded-place-none"));
    EXPECT_FALSE(places.front()->isEnabled());
}

TEST_F(LoadedViews, RunTheCommandThatIsActivated)
{
    goTo("Go PLANT");
    QTest::keyClick(&tree(), Qt::Key_Return);
    goTo("Menus (1)");
    QTest::keyClick(&tree(), Qt::Key_Return);
    EXPECT_EQ(m_wanted, QStringList(QStringLiteral("PLANT.go")));
}

TEST_F(LoadedViews, GoToAKeyWhateverIsSearchedFor)
{
    part<QLineEdit>("loadedSearch").setText(QStringLiteral("nothing like it"));
    m_view.goToKey(QStringLiteral("PLANT"), QStringLiteral("F6"));
    EXPECT_EQ(current(), "Go PLANT");
    EXPECT_EQ(part<QLineEdit>("loadedSearch").text(), QString());
    EXPECT_EQ(tree().currentIndex().parent().data().toString(), QStringLiteral("Keys (2)"));
}

TEST_F(LoadedViews, EveryPartHasANameForThoseWhoDoNotSee)
{
    EXPECT_NE(tree().accessibleName(), QString());
    EXPECT_NE(part<QLineEdit>("loadedSearch").accessibleName(), QString());
}

TEST_F(LoadedViews, ShowAllOfAGroupThatIsSearchedFor)
{
    part<QLineEdit>("loadedSearch").setText(QStringLiteral("/t/plant"));
    const Texts rows = rowsOf(*tree().model());
    ASSERT_FALSE(rows.empty());
    EXPECT_EQ(rows.front(), "PLANT – All of it |  | /t/PLANT.cuix");
    EXPECT_EQ(rows.size(), 18U);
}
