#include "refhost/window/groupmenus.h"

#include "refhost/window/groupactions.h"

#include <utility>

namespace quelhost {

GroupMenus::GroupMenus(QMenuBar& bar, const GroupActions& actions)
    : m_bar(bar)
    , m_actions(actions)
{}

void GroupMenus::show(const std::vector<ShownGroup>& groups)
{
    m_menus.follow(groups, [this](const ShownGroup& shown) { return makeMenus(shown); });
    QList<QAction*> wanted;
    m_menus.forEach([&wanted](QMenu& menu) { wanted << menu.menuAction(); });
    QList<QAction*> stand;
    for (QAction* const action : m_bar.actions()) {
        if (wanted.contains(action))
            stand << action;
    }
    // Those that stand already stay: the bar reckons itself anew for each.
    if (wanted.mid(0, stand.size()) != stand) {
        for (QAction* const action : std::exchange(stand, {}))
            m_bar.removeAction(action);
    }
    m_bar.addActions(wanted.mid(stand.size()));
}

GroupObjects<QMenu>::Objects GroupMenus::makeMenus(const ShownGroup& shown) const
{
    GroupObjects<QMenu>::Objects menus;
    for (const Menu& menu : shown.group.menus) {
        menus.push_back(std::make_unique<QMenu>(menu.text));
        fill(*menus.back(), menu, shown.group.name);
    }
    return menus;
}

void GroupMenus::fill(QMenu& menu, const Menu& described, const QString& group) const
{
    menu.setObjectName(group + QLatin1Char('/') + described.id);
    menu.setToolTipsVisible(true);
    for (const MenuItem& item : described.items) {
        switch (item.kind) {
        case MenuItem::Kind::Separator:
            menu.addSeparator();
            break;
        case MenuItem::Kind::Menu:
            fill(*menu.addMenu(item.menu.text), item.menu, group);
            break;
        case MenuItem::Kind::Command:
            if (MacroAction* const action = m_actions.find(group, item.command))
                menu.addAction(action);
            break;
        }
    }
}

void GroupMenus::open(const QString& group, const QStringList& ids, QAction& action) const
{
    QMenu* menu = nullptr;
    const QString first = group + QLatin1Char('/') + ids.value(0);
    m_menus.forEach([&](QMenu& top) {
        if (top.objectName() == first)
            menu = &top;
    });
    if (menu == nullptr)
        return;
    m_bar.setActiveAction(menu->menuAction());
    for (const QString& id : ids.mid(1)) {
        auto* const inner = menu->findChild<QMenu*>(group + QLatin1Char('/') + id);
        if (inner == nullptr)
            return;
        menu->setActiveAction(inner->menuAction());
        menu = inner;
    }
    menu->setActiveAction(&action);
}

} // namespace quelhost
