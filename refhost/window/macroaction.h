// What the user chooses to type a macro: an item of a menu, a button of a toolbar, a key.
#pragma once

#include "refhost/core/macro.h"
#include "refhost/core/menugroup.h"

#include <QAction>

#include <vector>

namespace quelhost {

// The command of that id, or null.
[[nodiscard]] const MenuCommand* findCommand(const MenuGroup& group, const QString& id);

class MacroAction final : public QAction
{
    Q_OBJECT

public:
    MacroAction(const MenuCommand& command, QObject* parent);

    // While a command asks, only an action that begins with a cancel can be chosen; others say why
    // not.
    void setCommandAsking(bool asking);

signals:
    void chosen(const std::vector<quelhost::MacroStep>& macro);

private:
    const QString m_tip;
    const std::vector<MacroStep> m_macro;
};

} // namespace quelhost
