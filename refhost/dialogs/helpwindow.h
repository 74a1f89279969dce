// Help pages shown to a user who has a display.
#pragma once

#include <QString>

class QWidget;

namespace quelhost {

// Opens a page in the system's browser; false when there is none.
[[nodiscard]] bool openInBrowser(const QString& file);

// Shows a page in a window over `parent`, or `sentence` where there is no page. The window is
// `parent`'s, and stays while it is worked on; without a parent the call returns when it is closed.
void showHelpWindow(QWidget* parent, const QString& file, const QString& sentence);

} // namespace quelhost
