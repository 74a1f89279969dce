// The face with a display: boxes, the file dialog and help in windows of their own.
#pragma once

#include "refhost/core/face.h"
#include "refhost/core/helppages.h"

class QWidget;

namespace quelhost {

// Everything is shown over the window that is in front.
class WidgetFace : public Face
{
public:
    // `window` is behind everything when no other window is in front; null for none. It outlives
    // the face.
    explicit WidgetFace(HelpPages help, QWidget* window = nullptr);

    [[nodiscard]] int askBox(const BoxRequest& request) override;
    // The toolkit's own dialog, not the desktop's: it behaves the same everywhere.
    [[nodiscard]] std::optional<PickedFile> pickFile(const FileRequest& request) override;
    // In the system's browser; where there is none, as text in a window.
    void showHelp(const QString& page) override;

private:
    [[nodiscard]] QWidget* frontWindow() const;

    const HelpPages m_help;
    QWidget* const m_window;
};

} // namespace quelhost
