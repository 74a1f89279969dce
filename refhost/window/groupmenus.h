// The menus of the loaded menu groups in the menu bar.
#pragma once

#include "refhost/core/macro.h"
#include "refhost/window/groupobjects.h"

#include <QMenu>
#include <QMenuBar>
#include <QObject>

#include <vector>

namespace quelhost {

// Keeps the menu bar as the groups stand: a group that stays keeps its menus, one that goes takes
// all of its objects with it.
class GroupMenus final : public QObject
{
    Q_OBJECT

public:
    // REQUIRES: the menu bar outlives this object and has no other menus.
    explicit GroupMenus(QMenuBar& bar);
    ~GroupMenus() override;

    void show(const std::vector<ShownGroup>& groups);

    // While a command asks, only the items that begin with a cancel can be chosen; the others say
    // why not.
    void setCommandAsking(bool asking);

signals:
    void chosen(const std::vector<quelhost::MacroStep>& macro);

private:
    [[nodiscard]] GroupObjects<QMenu>::Objects makeMenus(const ShownGroup& shown);
    void fill(QMenu& menu, const std::vector<MenuItem>& items, const MenuGroup& group);
    void addCommand(QMenu& menu, const MenuCommand& command);

    QMenuBar& m_bar;
    GroupObjects<QMenu> m_menus;
    bool m_asking = false;
};

} // namespace quelhost
