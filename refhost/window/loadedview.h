// The view of what is loaded: every group with its menus, toolbars, commands and keys.
#pragma once

#include "refhost/window/loadedmodel.h"

#include <QSortFilterProxyModel>
#include <QWidget>

#include <optional>

class QLineEdit;
class QMenu;
class QPushButton;
class QTreeView;

namespace quelhost {

// Searches, loads and unloads, and shows where in the window a command stands.
class LoadedView final : public QWidget
{
    Q_OBJECT

public:
    explicit LoadedView(QWidget* parent = nullptr);

    // As LoadedModel shows them. What is unfolded and where the user is stays.
    void show(const GroupModel& model, const QStringList& unshownFiles);

    // While a command asks, nothing can be loaded or unloaded here, and the buttons say why.
    void setCommandAsking(bool asking);

    // Puts the keyboard focus into the search.
    void focusSearch();
    // Goes to the row of a key, whatever is searched for.
    void goToKey(const QString& group, const QString& key);

signals:
    void loadWanted();
    void unloadWanted(const QString& path);
    void runWanted(const QString& group, const QString& command);
    void placeWanted(const QString& group, const QString& command,
                     const quelhost::CommandPlace& place);

private:
    void addTree();
    void addButtons();
    void search(const QString& text);
    void followCurrent();
    void tellUnload(const LoadedRow* row);
    void fillPlaces(QMenu& menu);
    void openContextMenu(const QPoint& at);
    void goTo(const QModelIndex& source);
    void unload();
    [[nodiscard]] const LoadedRow* currentRow() const;

    // What stays unfolded over a change: rows by their names from the outermost on.
    [[nodiscard]] QStringList unfolded(const QModelIndex& parent = {}) const;
    [[nodiscard]] QString nameOf(const QModelIndex& index) const;
    void unfold(const QStringList& names, const QString& current, const QModelIndex& parent = {});

    LoadedModel m_rows;
    QSortFilterProxyModel& m_found;
    std::optional<GroupModel> m_model;
    QLineEdit* const m_search;
    QTreeView* const m_tree;
    QPushButton* const m_load;
    QPushButton* const m_unload;
    QPushButton* const m_where;
    QStringList m_groups; // of the outermost rows
    bool m_asking = false;
};

} // namespace quelhost
