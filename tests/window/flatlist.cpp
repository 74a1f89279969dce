#include "tests/window/flatlist.h"

#include "refhost/window/mainwindow.h"

#include <QLayout>
#include <QToolBar>
#include <QTreeView>

#include <algorithm>

namespace windowtest {

namespace {

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

} // namespace

Texts flatList(const quelhost::MainWindow& window)
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

} // namespace windowtest
