// Texts of groups, menus and toolbars, with and without letters to press.
#pragma once

#include "refhost/core/menugroup.h"

#include <QString>

namespace quelhost {

// The text without the mark of its letter to press: "&Save && Go" becomes "Save & Go".
[[nodiscard]] inline QString plainMenuText(QString text)
{
    text.replace(QStringLiteral("&&"), QChar(0));
    text.remove(QLatin1Char('&'));
    return text.replace(QChar(0), QLatin1Char('&'));
}

// The text for a menu or a button, where it has no letter to press and reads as it stands.
[[nodiscard]] inline QString unmarkedMenuText(QString text)
{
    return text.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

// What a group is called: its name, which no other group has, and its title if it has one.
[[nodiscard]] inline QString groupTitle(const MenuGroup& group)
{
    return group.title.isEmpty() ? group.name
                                 : QStringLiteral("%1 – %2").arg(group.name, group.title);
}

} // namespace quelhost
