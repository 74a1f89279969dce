#include "refhost/window/groupactions.h"

#include "refhost/core/menutext.h"

#include <QWidget>

#include <algorithm>

namespace quelhost {

GroupActions::GroupActions(QWidget& window)
    : m_window(window)
{}

GroupActions::~GroupActions() = default;

GroupActions::Gone GroupActions::show(const GroupModel& model)
{
    for (auto each = m_byName.begin(); each != m_byName.end();)
        each = model.find(each->first) == nullptr ? m_byName.erase(each) : std::next(each);
    Gone gone = m_actions.follow(
        model.groups(), [this](const ShownGroup& shown) { return makeActions(shown.group); });
    assign(model.keys());
    return gone;
}

GroupObjects<MacroAction>::Objects GroupActions::makeActions(const MenuGroup& group)
{
    GroupObjects<MacroAction>::Objects actions;
    QHash<QString, MacroAction*>& byName = m_byName[group.name];
    byName.clear(); // of a file that had the group's name before
    for (const MenuCommand& command : group.commands) {
        actions.push_back(std::make_unique<MacroAction>(group, command));
        MacroAction* const action = actions.back().get();
        action->setCommandAsking(m_asking);
        connect(action, &MacroAction::chosen, this, &GroupActions::chosen);
        byName.insert(command.id, action);
    }
    return actions;
}

void GroupActions::assign(const KeyAssignment& keys)
{
    QHash<MacroAction*, QList<QKeySequence>> keysOf;
    std::vector<MacroAction*> keyed;
    for (const GroupKey& key : keys.working) {
        MacroAction* const action = find(key.group, key.command);
        if (action == nullptr)
            continue;
        if (!keysOf.contains(action))
            keyed.push_back(action);
        keysOf[action] << key.keys;
    }
    // An action without a key does not hang on the window: its menu may never have been opened.
    for (MacroAction* const action : m_keyed) {
        if (!keysOf.contains(action)) {
            m_window.removeAction(action);
            action->setKeys({});
        }
    }
    for (MacroAction* const action : keyed) {
        action->setKeys(keysOf[action]);
        m_window.addAction(action);
    }
    m_keyed = std::move(keyed);
    std::vector<GroupKey> lost;
    for (const LostKey& key : keys.lost) {
        if (std::find(m_lost.begin(), m_lost.end(), key.wanted) == m_lost.end())
            m_toTell << lostSentence(key);
        lost.push_back(key.wanted);
    }
    m_lost = std::move(lost);
}

QString GroupActions::lostSentence(const LostKey& key) const
{
    return qtTrId("window-key-lost")
        .arg(key.wanted.keys.toString(QKeySequence::NativeText), key.kept.group, nameOf(key.kept),
             key.wanted.group, nameOf(key.wanted));
}

// As the user knows it; the host's own commands have no text here.
QString GroupActions::nameOf(const GroupKey& key) const
{
    const MacroAction* const action = find(key.group, key.command);
    return action == nullptr ? key.command : plainMenuText(action->text());
}

QStringList GroupActions::takeLostKeys()
{
    return std::exchange(m_toTell, {});
}

MacroAction* GroupActions::find(const QString& group, const QString& command) const
{
    const auto actions = m_byName.find(group);
    return actions == m_byName.end() ? nullptr : actions->second.value(command);
}

void GroupActions::setCommandAsking(bool asking)
{
    m_asking = asking;
    m_actions.forEach([asking](MacroAction& action) { action.setCommandAsking(asking); });
}

} // namespace quelhost
