#include "refhost/window/grouptoolbars.h"

namespace quelhost {

GroupToolbars::GroupToolbars(QMainWindow& window)
    : m_window(window)
{}

GroupToolbars::~GroupToolbars() = default;

void GroupToolbars::show(const std::vector<ShownGroup>& groups)
{
    m_toolbars.follow(groups, [this](const ShownGroup& shown) { return makeToolbars(shown); });
}

GroupObjects<QToolBar>::Objects GroupToolbars::makeToolbars(const ShownGroup& shown)
{
    GroupObjects<QToolBar>::Objects toolbars;
    for (const Toolbar& described : shown.group.toolbars) {
        auto toolbar = std::make_unique<QToolBar>(described.text);
        // Names tell the toolbars of all groups apart.
        toolbar->setObjectName(shown.group.name + QLatin1Char('/') + described.id);
        fill(*toolbar, described, shown.group);
        // Each group begins a row: side by side, few of their buttons would be seen.
        if (toolbars.empty())
            m_window.addToolBarBreak();
        m_window.addToolBar(toolbar.get());
        toolbars.push_back(std::move(toolbar));
    }
    return toolbars;
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
    m_asking = asking;
    m_toolbars.setCommandAsking(asking);
}

} // namespace quelhost
