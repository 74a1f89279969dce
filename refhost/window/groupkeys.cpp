#include "refhost/window/groupkeys.h"

#include "refhost/window/macroaction.h"

#include <QWidget>

#include <algorithm>

namespace quelhost {

namespace {

const MenuCommand* find(const std::vector<ShownGroup>& groups, const GroupKey& key)
{
    for (const ShownGroup& shown : groups) {
        if (shown.group.name == key.group)
            return findCommand(shown.group, key.command);
    }
    return nullptr;
}

} // namespace

GroupKeys::GroupKeys(QWidget& window)
    : m_window(window)
{}

GroupKeys::~GroupKeys() = default;

QStringList GroupKeys::show(const std::vector<ShownGroup>& groups)
{
    const KeyAssignment keys = assignKeys(groups);
    m_actions.clear();
    for (const GroupKey& key : keys.working) {
        const MenuCommand* const command = find(groups, key);
        if (command == nullptr)
            continue;
        m_actions.push_back(std::make_unique<MacroAction>(*command, nullptr));
        MacroAction& action = *m_actions.back();
        action.setShortcut(key.keys);
        action.setCommandAsking(m_asking);
        connect(&action, &MacroAction::chosen, this, &GroupKeys::chosen);
        m_window.addAction(&action);
    }
    QStringList sentences;
    std::vector<GroupKey> lost;
    for (const LostKey& key : keys.lost) {
        if (std::find(m_lost.begin(), m_lost.end(), key.wanted) == m_lost.end())
            sentences << qtTrId("window-key-lost")
                             .arg(key.wanted.keys.toString(QKeySequence::NativeText),
                                  key.kept.group, key.kept.command, key.wanted.group,
                                  key.wanted.command);
        lost.push_back(key.wanted);
    }
    m_lost = std::move(lost);
    return sentences;
}

void GroupKeys::setCommandAsking(bool asking)
{
    m_asking = asking;
    for (const std::unique_ptr<MacroAction>& action : m_actions)
        action->setCommandAsking(asking);
}

} // namespace quelhost
