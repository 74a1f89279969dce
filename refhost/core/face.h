// How the host asks and shows what is more than a line: the console answers in text, a display has
// boxes and dialogs.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <string>

class CWnd;

namespace quelhost {

struct BoxRequest
{
    std::wstring text;
    std::wstring caption;
    unsigned int flags = 0; // of host/messageboxes.h
};

struct FileRequest
{
    QString title;
    QString start;       // a file or a folder to open on, empty for the face's choice
    QStringList filters; // "label(pattern)"
    int filterIndex = 0; // shown first
};

struct PickedFile
{
    QString path;
    int filterIndex = 0; // last chosen
};

// What the customization editors change.
enum class CustomizationEditor { Accelerators, Toolbars };

class Face
{
public:
    virtual ~Face() = default;

    // Shows a message box and returns its answer (host/messageboxes.h).
    [[nodiscard]] virtual int askBox(const BoxRequest& request) = 0;
    // Lets the user pick an existing file; nothing when the user cancelled.
    [[nodiscard]] virtual std::optional<PickedFile> pickFile(const FileRequest& request) = 0;
    // Shows the help page of that name.
    virtual void showHelp(const QString& page) = 0;
    // Opens a customization editor and returns its status when it is closed: 5100 when the user
    // kept the changes, -5002 when the user cancelled. Nothing where the face has no such editor.
    [[nodiscard]] virtual std::optional<int> openEditor(CustomizationEditor editor)
    {
        static_cast<void>(editor);
        return std::nullopt;
    }
    // The main window, owned by the face; null where there is none.
    [[nodiscard]] virtual CWnd* mainWindow() { return nullptr; }
};

} // namespace quelhost
