// The menus of the loaded menu groups in the menu bar.
#pragma once

#include "refhost/window/groupobjects.h"

#include <QMenu>
#include <QMenuBar>

#include <vector>

namespace quelhost {

class GroupActions;

// Keeps the menu bar as the groups stand: a group that stays keeps its menus, one that goes takes
// all of its objects with it. Menus are named "GROUP/ID".
class GroupMenus final
{
public:
    // The menus stand behind those that the bar has already.
    // REQUIRES: both outlive this object.
    GroupMenus(QMenuBar& bar, const GroupActions& actions);

    // REQUIRES: the actions show these groups.
    void show(const std::vector<ShownGroup>& groups);

    // Opens the menus of those ids, from the bar inwards, on the action.
    void open(const QString& group, const QStringList& ids, QAction& action) const;

private:
    [[nodiscard]] GroupObjects<QMenu>::Objects makeMenus(const ShownGroup& shown) const;
    void fill(QMenu& menu, const Menu& described, const QString& group) const;

    QMenuBar& m_bar;
    const GroupActions& m_actions;
    GroupObjects<QMenu> m_menus;
};

} // namespace quelhost
