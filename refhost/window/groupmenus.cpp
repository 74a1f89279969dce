#include "refhost/window/groupmenus.h"

#include <QAction>
#include <QMenu>

#include <algorithm>

namespace quelhost {

namespace {

// Of an action that types a macro: its tip, and whether it begins with a cancel.
constexpr char kTip[] = "quelTip";
constexpr char kCancelsFirst[] = "quelCancelsFirst";

const MenuCommand* find(const MenuGroup& group, const QString& id)
{
    const auto found = std::find_if(group.commands.begin(), group.commands.end(),
                                    [&id](const MenuCommand& each) { return each.id == id; });
    return found == group.commands.end() ? nullptr : &*found;
}

} // namespace

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
            if (const MenuCommand* command = find(group, item.command))
                addCommand(menu, *command);
            break;
        }
    }
}

void GroupMenus::addCommand(QMenu& menu, const MenuCommand& command)
{
    const std::vector<MacroStep> macro = readMacro(command.macro).steps;
    QAction* const action = menu.addAction(command.text);
    action->setProperty(kTip, command.tip);
    action->setProperty(kCancelsFirst,
                        !macro.empty() && macro.front().kind == MacroStep::Kind::Cancel);
    applyTo(*action);
    connect(action, &QAction::triggered, this, [this, macro] { emit chosen(macro); });
}

void GroupMenus::setCommandAsking(bool asking)
{
    if (asking == m_asking)
        return;
    m_asking = asking;
    for (const Entry& entry : m_entries) {
        for (const std::unique_ptr<QMenu>& menu : entry.menus) {
            for (QAction* action : menu->findChildren<QAction*>()) {
                if (action->property(kCancelsFirst).isValid())
                    applyTo(*action);
            }
        }
    }
}

void GroupMenus::applyTo(QAction& action) const
{
    const bool possible = !m_asking || action.property(kCancelsFirst).toBool();
    action.setEnabled(possible);
    const QString tip = possible ? action.property(kTip).toString() : qtTrId("window-asking-first");
    action.setToolTip(tip);
    action.setStatusTip(tip);
}

} // namespace quelhost
