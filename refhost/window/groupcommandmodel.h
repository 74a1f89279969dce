// The commands of all loaded groups as a tree to choose and drag from.
#pragma once

#include "refhost/window/commandlooks.h"

#include <QStandardItemModel>

#include <optional>

namespace quelhost {

// Outermost are the groups, in them their commands.
class GroupCommandModel final : public QStandardItemModel
{
    Q_OBJECT

public:
    // What a search looks into: name, id and tip of a command, and its group.
    static constexpr int kSearchRole = Qt::UserRole;

    GroupCommandModel(const std::vector<ShownGroup>& groups, const CommandLooks& looks,
                      QObject* parent = nullptr);

    // The command of a row of this model or of one over it; nothing for a group.
    [[nodiscard]] static std::optional<GroupEntry> commandOf(const QModelIndex& index);

    [[nodiscard]] Qt::DropActions supportedDragActions() const override { return Qt::CopyAction; }
    [[nodiscard]] QStringList mimeTypes() const override;
    [[nodiscard]] QMimeData* mimeData(const QModelIndexList& indexes) const override;
};

} // namespace quelhost
