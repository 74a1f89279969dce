// The face with a display: boxes, the file dialog and help in windows of their own.
#pragma once

#include "refhost/core/face.h"
#include "refhost/core/helppages.h"

namespace quelhost {

// Everything is shown over the window that is in front.
class WidgetFace : public Face
{
public:
    explicit WidgetFace(HelpPages help);

    [[nodiscard]] int askBox(const BoxRequest& request) override;
    // The toolkit's own dialog, not the desktop's: it behaves the same everywhere.
    [[nodiscard]] std::optional<PickedFile> pickFile(const FileRequest& request) override;
    // In the system's browser; where there is none, as text in a window.
    void showHelp(const QString& page) override;

private:
    const HelpPages m_help;
};

} // namespace quelhost
