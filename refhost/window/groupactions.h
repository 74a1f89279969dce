// The commands of the loaded menu groups as actions, with their keys.
#pragma once

#include "refhost/core/groupmodel.h"
#include "refhost/window/groupobjects.h"
#include "refhost/window/macroaction.h"

#include <QHash>
#include <QObject>
#include <QStringList>

#include <map>
#include <vector>

class QWidget;

namespace quelhost {

// An action for each command of each group. Its keys work in the whole window.
class GroupActions final : public QObject
{
    Q_OBJECT

public:
    using Gone = GroupObjects<MacroAction>::Objects;

    // REQUIRES: the window outlives this object.
    explicit GroupActions(QWidget& window);
    ~GroupActions() override;

    // Follows the groups. The actions of those that are gone are returned, so that menus and
    // toolbars can go before them.
    [[nodiscard]] Gone show(const GroupModel& model);

    // What is to be told since the last time: a sentence for each key that a command has lost.
    [[nodiscard]] QStringList takeLostKeys();

    // The action of a command of a shown group, or null.
    [[nodiscard]] MacroAction* find(const QString& group, const QString& command) const;

    [[nodiscard]] bool hasGroup(const QString& group) const { return m_byName.count(group) > 0; }

    // As MacroAction tells.
    void setCommandAsking(bool asking);

signals:
    void chosen(const std::vector<quelhost::MacroStep>& macro);

private:
    [[nodiscard]] GroupObjects<MacroAction>::Objects makeActions(const MenuGroup& group);
    void assign(const KeyAssignment& keys);
    [[nodiscard]] QString lostSentence(const LostKey& key) const;
    [[nodiscard]] QString nameOf(const GroupKey& key) const;

    QWidget& m_window;
    GroupObjects<MacroAction> m_actions;
    std::map<QString, QHash<QString, MacroAction*>> m_byName; // by group, then by command
    std::vector<MacroAction*> m_keyed;                        // those that have keys
    std::vector<GroupKey> m_lost;                             // told already
    QStringList m_toTell;
    bool m_asking = false;
};

} // namespace quelhost
