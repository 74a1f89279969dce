// A command of a menu group as the user chooses it: in a menu, on a toolbar, by a key.
#pragma once

#include "refhost/core/macro.h"
#include "refhost/core/menugroup.h"

#include <QAction>

#include <vector>

namespace quelhost {

// One action for all places of a command, so that they look and work alike everywhere.
class MacroAction final : public QAction
{
    Q_OBJECT

public:
    MacroAction(const MenuGroup& group, const MenuCommand& command);

    [[nodiscard]] const QString& group() const { return m_group; }
    [[nodiscard]] const QString& command() const { return m_command; }

    // While a command asks, only an action that begins with a cancel can be chosen; others say why
    // not.
    void setCommandAsking(bool asking);
    // The keys that choose it.
    void setKeys(const QList<QKeySequence>& keys);

signals:
    void chosen(const std::vector<quelhost::MacroStep>& macro);

private:
    void tell();

    const QString m_group;
    const QString m_command;
    const QString m_tip;
    const std::vector<MacroStep> m_macro;
};

} // namespace quelhost
