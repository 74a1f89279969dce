// What stands on one toolbar of an editor, to be put in order by dragging.
#pragma once

#include "refhost/core/toolbaredits.h"
#include "refhost/window/commandlooks.h"

#include <QAbstractListModel>

namespace quelhost {

// Takes in commands that are dragged here, and moves its own entries.
class ToolbarEntryModel final : public QAbstractListModel
{
    Q_OBJECT

public:
    // REQUIRES: both outlive this object.
    ToolbarEntryModel(ToolbarEdits& edits, const CommandLooks& looks, QObject* parent = nullptr);

    // Shows that toolbar as the edits have it now; nothing when there is none or it is deleted.
    void show(const GroupEntry& toolbar);

    [[nodiscard]] const GroupEntry& toolbar() const { return m_toolbar; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

    [[nodiscard]] Qt::DropActions supportedDropActions() const override;
    [[nodiscard]] Qt::DropActions supportedDragActions() const override { return Qt::MoveAction; }
    [[nodiscard]] QStringList mimeTypes() const override;
    [[nodiscard]] QMimeData* mimeData(const QModelIndexList& indexes) const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

signals:
    void edited();

private:
    ToolbarEdits& m_edits;
    const CommandLooks& m_looks;
    GroupEntry m_toolbar;
    std::vector<ToolbarEntry> m_entries;
};

} // namespace quelhost
