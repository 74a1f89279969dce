// Searches among the commands of all loaded groups.
#pragma once

#include "refhost/window/groupcommandmodel.h"

#include <QSortFilterProxyModel>
#include <QWidget>

#include <optional>

class QLineEdit;
class QTreeView;

namespace quelhost {

// A field to search in and a tree of what was found, to be chosen by Enter or a double click, or
// dragged.
class CommandChooser final : public QWidget
{
    Q_OBJECT

public:
    // REQUIRES: `looks` outlives this object.
    CommandChooser(const std::vector<ShownGroup>& groups, const CommandLooks& looks,
                   QWidget* parent = nullptr);

    // The command that the user is at, if it is one.
    [[nodiscard]] std::optional<GroupEntry> current() const;

signals:
    void currentChanged();
    // Enter or a double click on the current command.
    void chosen();
    // What is searched for was found, or not.
    void searched(bool found);

protected:
    // Enter chooses here instead of closing the window.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addTree();
    void search(const QString& text);
    [[nodiscard]] QModelIndex bestFound(const QString& text) const;

    GroupCommandModel m_commands;
    QSortFilterProxyModel m_found;
    QLineEdit* const m_search;
    QTreeView* const m_tree;
};

} // namespace quelhost
