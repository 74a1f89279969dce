// Texts of menus and toolbars for readers who press no letters.
#pragma once

#include <QString>

namespace quelhost {

// The text without the mark of its letter to press: "&Save && Go" becomes "Save & Go".
[[nodiscard]] inline QString plainMenuText(QString text)
{
    text.replace(QStringLiteral("&&"), QChar(0));
    text.remove(QLatin1Char('&'));
    return text.replace(QChar(0), QLatin1Char('&'));
}

} // namespace quelhost
