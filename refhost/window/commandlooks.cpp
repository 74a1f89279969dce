#include "refhost/window/commandlooks.h"

#include "refhost/core/menutext.h"
#include "refhost/core/userchangetexts.h"
#include "refhost/window/packageicon.h"

#include <QStringList>

namespace quelhost {

namespace {

constexpr QSize kLargest(64, 64);

CommandLook lookOf(const MenuGroup& group, const MenuCommand& command)
{
    const QString text = plainMenuText(command.text);
    QStringList tip{text, command.tip, entryText({group.name, command.id}), command.macro};
    tip.removeAll(QString());
    return {text, tip.join(QLatin1Char('\n')), commandIcon(group, command)};
}

} // namespace

QIcon emptyIcon()
{
    QPixmap picture(kLargest);
    picture.fill(Qt::transparent);
    return QIcon(picture);
}

CommandLooks::CommandLooks(const std::vector<ShownGroup>& groups)
    : m_noIcon(emptyIcon())
{
    for (const ShownGroup& shown : groups) {
        m_groups.insert(shown.group.name);
        for (const MenuCommand& command : shown.group.commands) {
            CommandLook look = lookOf(shown.group, command);
            if (look.icon.isNull())
                look.icon = m_noIcon;
            m_looks.emplace(GroupEntry{shown.group.name, command.id}, std::move(look));
        }
    }
}

CommandLook CommandLooks::of(const ToolbarEntry& entry) const
{
    if (isSeparator(entry))
        return {qtTrId("loaded-separator"), {}, m_noIcon};
    const auto found = m_looks.find(entry);
    if (found != m_looks.end())
        return found->second;
    const bool isGroupThere = m_groups.count(entry.group) > 0;
    const QString text =
        qtTrId(isGroupThere ? "toolbars-not-there" : "toolbars-not-loaded").arg(entryText(entry));
    return {text, text, m_noIcon};
}

} // namespace quelhost
