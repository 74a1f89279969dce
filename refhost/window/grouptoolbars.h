// The toolbars of the loaded menu groups and of the user.
#pragma once

#include "refhost/core/effectivecustomization.h"
#include "refhost/window/toolbarplaces.h"

#include <QMainWindow>
#include <QToolBar>

#include <map>
#include <memory>
#include <vector>

namespace quelhost {

class GroupActions;

// Keeps the window's toolbars as they are in force: one that stays keeps its place, one that goes
// takes all of its objects with it, and one that comes back finds its old place. Toolbars are named
// "GROUP/ID", the user's own "/ID".
class GroupToolbars final
{
public:
    // REQUIRES: both outlive this object, and the window has no other toolbars.
    GroupToolbars(QMainWindow& window, const GroupActions& actions);

    // REQUIRES: the actions show the groups of these toolbars.
    void show(const std::vector<EffectiveToolbar>& toolbars);

    [[nodiscard]] ToolbarPlaces& places() { return m_places; }

    // The toolbar of that group and id, or null.
    [[nodiscard]] QToolBar* find(const GroupEntry& name) const;

private:
    using Toolbars = std::map<GroupEntry, std::unique_ptr<QToolBar>>;

    [[nodiscard]] QList<QAction*> actionsOf(const EffectiveToolbar& described) const;
    void letGo(const Toolbars& gone);
    void fill(QToolBar& toolbar, const EffectiveToolbar& described) const;

    const GroupActions& m_actions;
    ToolbarPlaces m_places;
    Toolbars m_toolbars;
};

} // namespace quelhost
