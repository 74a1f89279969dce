#include "refhost/window/macroaction.h"

#include "refhost/core/menutext.h"
#include "refhost/window/packageicon.h"
#include "refhost/window/plaintip.h"

namespace quelhost {

MacroAction::MacroAction(const MenuGroup& group, const MenuCommand& command)
    : QAction(commandIcon(group, command), command.text)
    , m_group(group.name)
    , m_command(command.id)
    , m_tip(command.tip)
    , m_macro(readMacro(command.macro).steps)
{
    setAutoRepeat(false); // a key held down is no wish for many runs
    connect(this, &QAction::triggered, this, [this] { emit chosen(m_macro); });
    tell();
}

void MacroAction::setCommandAsking(bool asking)
{
    const bool cancelsFirst = !m_macro.empty() && m_macro.front().kind == MacroStep::Kind::Cancel;
    if (isEnabled() == (!asking || cancelsFirst))
        return;
    setEnabled(!isEnabled());
    tell();
}

void MacroAction::setKeys(const QList<QKeySequence>& keys)
{
    if (shortcuts() == keys)
        return;
    setShortcuts(keys);
    tell();
}

// On a toolbar there is just the picture, so the tip begins with the name.
void MacroAction::tell()
{
    const QString tip = isEnabled() ? m_tip : qtTrId("window-asking-first");
    QString name = plainMenuText(text());
    if (!shortcut().isEmpty())
        name += QStringLiteral(" (%1)").arg(shortcut().toString(QKeySequence::NativeText));
    setToolTip(plainTip(tip.isEmpty() ? name : name + QLatin1Char('\n') + tip));
    setStatusTip(tip);
}

} // namespace quelhost
