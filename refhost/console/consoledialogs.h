// Dialogs of the console face on a machine with a display.
#pragma once

#include "refhost/core/host.h"
#include "refhost/dialogs/widgetface.h"

#include <QTimer>

namespace quelhost {

// Commands' dialogs, the file dialog and help open as windows. A message box belongs to where the
// user is looking: over a dialog that is open, and on the command line otherwise. An interrupt on
// the terminal closes the window in front as Esc would.
class ConsoleDialogs final : public WidgetFace
{
public:
    // Becomes the face of `host`. REQUIRES: both live until the session has ended.
    ConsoleDialogs(Host& host, HelpPages help);

    [[nodiscard]] int askBox(const BoxRequest& request) override;

private:
    Face& m_textFace;
    QTimer m_interrupts;
};

} // namespace quelhost
