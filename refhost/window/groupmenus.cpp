#include "refhost/window/groupmenus.h"

#include "refhost/window/macroaction.h"

#include <QMenu>

#include <algorithm>

namespace quelhost {

GroupMenus::GroupMenus(QMenuBar& bar)
    : m_bar(bar)
{}

GroupMenus::~GroupMenus() = default;

void GroupMenus::show(const std::vector<ShownGroup>& groups)
{
    std::vector<Entry> entries;
    for (const ShownGroup& shown : groups) {
        const auto known =
            std::find_if(m_entries.begin(), m_entries.end(), [&shown](const Entry& entry) {
                return entry.path == shown.path && entry.name == shown.group.name;
            });
        if (known == m_entries.end()) {
            entries.push_back(makeEntry(shown));
        } else {
            entries.push_back(std::move(*known));
            m_entries.erase(known);
        }
    }
    m_bar.clear();
    m_entries = std::move(entries);
    for (const Entry& entry : m_entries) {
        for (const std::unique_ptr<QMenu>& menu : entry.menus)
            m_bar.addMenu(menu.get());
    }
}

GroupMenus::Entry GroupMenus::makeEntry(const ShownGroup& shown)
{
    Entry entry{shown.path, shown.group.name, {}};
    for (const Menu& menu : shown.group.menus) {
        entry.menus.push_back(std::make_unique<QMenu>(menu.text));
        fill(*entry.menus.back(), menu.items, shown.group);
    }
    return entry;
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
    if (asking == m_asking)
        return;
    m_asking = asking;
    for (const Entry& entry : m_entries) {
        for (const std::unique_ptr<QMenu>& menu : entry.menus) {
            for (MacroAction* action : menu->findChildren<MacroAction*>())
                action->setCommandAsking(asking);
        }
    }
}

} // namespace quelhost
