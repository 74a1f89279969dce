#include "refhost/window/groupmenus.h"

namespace quelhost {

GroupMenus::GroupMenus(QMenuBar& bar)
    : m_bar(bar)
{}

GroupMenus::~GroupMenus() = default;

void GroupMenus::show(const std::vector<ShownGroup>& groups)
{
    m_bar.clear();
    m_menus.follow(groups, [this](const ShownGroup& shown) { return makeMenus(shown); });
    m_menus.forEach([this](QMenu& menu) { m_bar.addMenu(&menu); });
}

GroupObjects<QMenu>::Objects GroupMenus::makeMenus(const ShownGroup& shown)
{
    GroupObjects<QMenu>::Objects menus;
    for (const Menu& menu : shown.group.menus) {
        menus.push_back(std::make_unique<QMenu>(menu.text));
        fill(*menus.back(), menu.items, shown.group);
    }
    return menus;
}

void GroupMenus::fill(QMenu& menu, const std::vector<MenuItem>& items, const MenuGroup& group)
{
    menu.setToolTipsVisible(true);
    for (const MenuItem& item : items) {
        switch (item.kind) {
        case MenuItem::Kind::Separator:
            menu.addSeparator();
            break;
        case MenuItem::Kind::Menu:
            fill(*menu.addMenu(item.menu.text), item.menu.items, group);
            break;
        case MenuItem::Kind::Command:
            if (const MenuCommand* command = findCommand(group, item.command))
                addCommand(menu, *command);
            break;
        }
    }
}

void GroupMenus::addCommand(QMenu& menu, const MenuCommand& command)
{
    auto* const action = new MacroAction(command, &menu); // which owns it
    action->setCommandAsking(m_asking);
    connect(action, &MacroAction::chosen, this, &GroupMenus::chosen);
    menu.addAction(action);
}

void GroupMenus::setCommandAsking(bool asking)
{
    m_asking = asking;
    m_menus.setCommandAsking(asking);
}

} // namespace quelhost
