// The editor of accelerators.
#pragma once

#include "refhost/core/result.h"
#include "refhost/window/editedkeys.h"

#include <QDialog>

#include <functional>
#include <optional>
#include <vector>

class QPushButton;

namespace quelhost {

class Host;
class KeyList;

// Lets the user work on the keys of all commands over `window` until they are kept or not. Kept
// ones are stored; when they cannot be, the user is told and they are in force for this run. Keys
// of commands that are not loaded stay. Returns the status of host/editors.h.
[[nodiscard]] int editAccelerators(Host& host, QWidget& window);

// How the editor asks for files and tells what is wrong with them, over itself.
struct KeyFilePrompts
{
    using Pick = std::function<std::optional<QString>(QWidget& over)>;

    Pick pickToImport;
    Pick pickToExport;
    std::function<void(QWidget& over, const Fault&)> tell;

    // With dialogs.
    [[nodiscard]] static KeyFilePrompts byDialogs();
};

class AcceleratorEditor final : public QDialog
{
    Q_OBJECT

public:
    // `hostKeys` are those that the host has without changes.
    AcceleratorEditor(std::vector<GroupKey> hostKeys, std::vector<ShownGroup> groups,
                      const KeyChanges& changes, KeyFilePrompts prompts, QWidget* parent = nullptr);

    // The user's changes as the editor has them now, those of other commands included.
    [[nodiscard]] KeyChanges changes() const;
    // Shows the keys as they are with these changes, in place of all that was done.
    void showChanges(const KeyChanges& changes);

private:
    void addButtons();
    [[nodiscard]] QPushButton* makeButton(const char* name, const char* textId, const char* tipId,
                                          void (AcceleratorEditor::*action)());
    void enableResets();
    void resetCurrent();
    void resetAll();
    void importFile();
    void exportFile();

    const std::vector<GroupKey> m_hostKeys;
    const std::vector<ShownGroup> m_groups;
    const KeyFilePrompts m_prompts;
    KeyChanges m_changes; // which `m_shown` comes of
    std::vector<EditedGroup> m_shown;
    KeyList* const m_list;
    QPushButton* const m_resetCurrent;
    QPushButton* const m_resetAll;
};

} // namespace quelhost
