// Tool tips that show their text as it stands.
#pragma once

#include <QString>
#include <QTextDocument>

namespace quelhost {

// The toolkit takes a tool tip that looks like a page of a browser for one, pictures from files
// included; what comes from a package or was typed is no page.
[[nodiscard]] inline QString plainTip(const QString& text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

} // namespace quelhost
