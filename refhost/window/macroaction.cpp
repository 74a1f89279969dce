#include "refhost/window/macroaction.h"

#include "refhost/window/plaintip.h"

#include <algorithm>

namespace quelhost {

const MenuCommand* findCommand(const MenuGroup& group, const QString& id)
{
    const auto found = std::find_if(group.commands.begin(), group.commands.end(),
                                    [&id](const MenuCommand& each) { return each.id == id; });
    return found == group.commands.end() ? nullptr : &*found;
}

MacroAction::MacroAction(const MenuCommand& command, QObject* parent)
    : QAction(command.text, parent)
    , m_tip(command.tip)
    , m_macro(readMacro(command.macro).steps)
{
    connect(this, &QAction::triggered, this, [this] { emit chosen(m_macro); });
    setCommandAsking(false);
}

void MacroAction::setCommandAsking(bool asking)
{
    const bool cancelsFirst = !m_macro.empty() && m_macro.front().kind == MacroStep::Kind::Cancel;
    const bool possible = !asking || cancelsFirst;
    setEnabled(possible);
    const QString tip = possible ? m_tip : qtTrId("window-asking-first");
    setToolTip(plainTip(tip));
    setStatusTip(tip);
}

} // namespace quelhost
