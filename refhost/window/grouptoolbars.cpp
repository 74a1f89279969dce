#include "refhost/window/grouptoolbars.h"

#include "refhost/window/macroaction.h"

#include <algorithm>

namespace quelhost {

GroupToolbars::GroupToolbars(QMainWindow& window)
    : m_window(window)
{}

GroupToolbars::~GroupToolbars() = default;

void GroupToolbars::show(const std::vector<ShownGroup>& groups)
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
    m_entries = std::move(entries);
}

GroupToolbars::Entry GroupToolbars::makeEntry(const ShownGroup& shown)
{
    Entry entry{shown.path, shown.group.name, {}};
    for (const Toolbar& described : shown.group.toolbars) {
        auto toolbar = std::make_unique<QToolBar>(described.text);
        // Names tell the toolbars of all groups apart.
        toolbar->setObjectName(shown.group.name + QLatin1Char('/') + described.id);
        fill(*toolbar, described, shown.group);
        m_window.addToolBar(toolbar.get());
        entry.toolbars.push_back(std::move(toolbar));
    }
    return entry;
}

void GroupToolbars::fill(QToolBar& toolbar, const Toolbar& described, const MenuGroup& group)
{
    for (const ToolbarItem& item : described.items) {
        const MenuCommand* const command = findCommand(group, item.command);
        if (command == nullptr) {
            toolbar.addSeparator();
            continue;
        }
        auto* const action = new MacroAction(*command, &toolbar); // which owns it
        action->setCommandAsking(m_asking);
        connect(action, &MacroAction::chosen, this, &GroupToolbars::chosen);
        toolbar.addAction(action);
    }
}

void GroupToolbars::setCommandAsking(bool asking)
{
    if (asking == m_asking)
        return;
    m_asking = asking;
    for (const Entry& entry : m_entries) {
        for (const std::unique_ptr<QToolBar>& toolbar : entry.toolbars) {
            for (MacroAction* action : toolbar->findChildren<MacroAction*>())
                action->setCommandAsking(asking);
        }
    }
}

} // namespace quelhost
