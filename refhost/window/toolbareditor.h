// The editor of toolbars.
#pragma once

#include "refhost/core/toolbaredits.h"
#include "refhost/window/commandlooks.h"
#include "refhost/window/toolbarentrymodel.h"
#include "refhost/window/toolbarlistmodel.h"

#include <QDialog>
#include <QKeySequence>
#include <QList>

#include <functional>

class QGridLayout;
class QLabel;
class QListView;
class QMainWindow;
class QPushButton;

namespace quelhost {

class CommandChooser;
class Host;

// Told of what the toolbars are to look like while they are worked on.
using ToolbarPreview = std::function<void(const ToolbarChanges&)>;

// Lets the user work on the toolbars over `window` until they are kept or not. Kept ones are
// stored; when they cannot be, the user is told and they are in force for this run. Otherwise the
// preview is told of the former ones. Returns the status of host/editors.h.
[[nodiscard]] int editToolbars(Host& host, QMainWindow& window, const ToolbarPreview& preview);

// On the left the toolbars, in the middle what stands on the current one, on the right all
// commands.
class ToolbarEditor final : public QDialog
{
    Q_OBJECT

public:
    // REQUIRES: `edits` outlives this object.
    ToolbarEditor(ToolbarEdits& edits, ToolbarPreview preview, QWidget* parent = nullptr);

    // Goes below the toolbars of the window, as far as the screen has room, so that they are seen
    // to change.
    void placeOver(const QMainWindow& window);

private:
    using Action = void (ToolbarEditor::*)();

    void addToolbars(QGridLayout& grid);
    void addEntries(QGridLayout& grid);
    void addCommands(QGridLayout& grid);
    [[nodiscard]] QWidget* makeBottom();
    [[nodiscard]] QPushButton* makeButton(const char* name, const char* textId, Action action,
                                          const QList<QKeySequence>& keys = {},
                                          QWidget* keysIn = nullptr);

    void create();
    void rename();
    void removeToolbar();
    void reset();
    void resetAll();
    void moveUp();
    void moveDown();
    void addSeparator();
    void takeEntry();
    void addCommand();
    void undo();
    void redo();

    void insert(const ToolbarEntry& entry);
    void follow(); // after each change
    void showToolbar();
    void enableButtons();
    void tell(const QString& sentence);
    [[nodiscard]] GroupEntry toolbar() const;
    [[nodiscard]] int place() const; // -1 for none

    ToolbarEdits& m_edits;
    const ToolbarPreview m_preview;
    const CommandLooks m_looks;
    ToolbarListModel m_toolbarRows;
    ToolbarEntryModel m_entryRows;
    QListView* const m_toolbars;
    QListView* const m_entries;
    CommandChooser* const m_commands;
    QLabel* const m_remark;
    QPushButton* m_rename = nullptr;
    QPushButton* m_delete = nullptr;
    QPushButton* m_reset = nullptr;
    QPushButton* m_up = nullptr;
    QPushButton* m_down = nullptr;
    QPushButton* m_separator = nullptr;
    QPushButton* m_remove = nullptr;
    QPushButton* m_add = nullptr;
    QPushButton* m_undo = nullptr;
    QPushButton* m_redo = nullptr;
};

} // namespace quelhost
