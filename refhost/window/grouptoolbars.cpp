#include "refhost/window/grouptoolbars.h"

#include "refhost/window/groupactions.h"

#include <utility>

namespace quelhost {

namespace {

// Null for a separator.
QList<QAction*> actionsIn(const QToolBar& toolbar)
{
    QList<QAction*> actions;
    for (QAction* const action : toolbar.actions())
        actions << (action->isSeparator() ? nullptr : action);
    return actions;
}

// The toolbar itself would keep its separators.
void empty(QToolBar& toolbar)
{
    for (QAction* const action : toolbar.actions()) {
        toolbar.removeAction(action);
        if (action->isSeparator())
            delete action;
    }
}

} // namespace

GroupToolbars::GroupToolbars(QMainWindow& window, const GroupActions& actions)
    : m_actions(actions)
    , m_places(window)
{}

void GroupToolbars::show(const std::vector<EffectiveToolbar>& toolbars)
{
    m_places.note();
    Toolbars former = std::exchange(m_toolbars, {});
    std::vector<std::pair<QToolBar*, bool>> added; // with whether it is the first of its group
    const QString* group = nullptr;
    for (const EffectiveToolbar& described : toolbars) {
        std::unique_ptr<QToolBar>& toolbar = m_toolbars[described.name];
        toolbar = std::move(former[described.name]);
        if (!toolbar) {
            toolbar = std::make_unique<QToolBar>();
            toolbar->setObjectName(described.name.group + QLatin1Char('/') + described.name.id);
            added.emplace_back(toolbar.get(), group == nullptr || *group != described.name.group);
        }
        fill(*toolbar, described);
        group = &described.name.group;
    }
    letGo(former);
    former.clear();
    // Each group begins a row: side by side, few of their buttons would be seen.
    for (const auto& [toolbar, isFirst] : added)
        m_places.add(*toolbar, isFirst);
}

// The user took away what goes without its group: it was not meant to be hidden when it is back,
// and one of the user's own that comes later is another.
void GroupToolbars::letGo(const Toolbars& gone)
{
    for (const auto& [name, toolbar] : gone) {
        if (toolbar == nullptr)
            continue;
        if (name.group.isEmpty())
            m_places.forget(toolbar->objectName());
        else if (m_actions.hasGroup(name.group))
            m_places.unhide(toolbar->objectName());
    }
}

QList<QAction*> GroupToolbars::actionsOf(const EffectiveToolbar& described) const
{
    QList<QAction*> actions;
    for (const ToolbarEntry& entry : described.shownEntries)
        actions << (isSeparator(entry) ? nullptr : m_actions.find(entry.group, entry.id));
    return actions;
}

void GroupToolbars::fill(QToolBar& toolbar, const EffectiveToolbar& described) const
{
    toolbar.setWindowTitle(described.title);
    const QList<QAction*> wanted = actionsOf(described);
    if (actionsIn(toolbar) == wanted)
        return;
    empty(toolbar);
    for (QAction* const action : wanted) {
        if (action == nullptr)
            toolbar.addSeparator();
        else
            toolbar.addAction(action);
    }
}

QToolBar* GroupToolbars::find(const GroupEntry& name) const
{
    const auto found = m_toolbars.find(name);
    return found == m_toolbars.end() ? nullptr : found->second.get();
}

} // namespace quelhost
