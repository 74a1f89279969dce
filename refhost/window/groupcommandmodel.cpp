#include "refhost/window/groupcommandmodel.h"

#include "refhost/core/menutext.h"
#include "refhost/window/draggedcommand.h"
#include "refhost/window/plaintip.h"

namespace quelhost {

namespace {

constexpr int kGroupRole = Qt::UserRole + 1;
constexpr int kIdRole = Qt::UserRole + 2;

QStandardItem* commandItem(const GroupEntry& command, const QString& groupTitle,
                           const CommandLook& look)
{
    auto* const item = new QStandardItem(look.icon, look.text);
    item->setToolTip(plainTip(look.tip));
    item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsDragEnabled |
                   Qt::ItemNeverHasChildren);
    item->setData(look.tip + QLatin1Char('\n') + groupTitle, GroupCommandModel::kSearchRole);
    item->setData(command.group, kGroupRole);
    item->setData(command.id, kIdRole);
    return item;
}

} // namespace

GroupCommandModel::GroupCommandModel(const std::vector<ShownGroup>& groups,
                                     const CommandLooks& looks, QObject* parent)
    : QStandardItemModel(parent)
{
    for (const ShownGroup& shown : groups) {
        const QString title = groupTitle(shown.group);
        auto* const group = new QStandardItem(title);
        group->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
        QFont font;
        font.setBold(true);
        group->setFont(font);
        QList<QStandardItem*> commands;
        for (const MenuCommand& command : shown.group.commands) {
            const GroupEntry name{shown.group.name, command.id};
            commands << commandItem(name, title, looks.of(name));
        }
        group->appendRows(commands);
        appendRow(group);
    }
}

std::optional<GroupEntry> GroupCommandModel::commandOf(const QModelIndex& index)
{
    const QString id = index.data(kIdRole).toString();
    if (id.isEmpty())
        return std::nullopt;
    return GroupEntry{index.data(kGroupRole).toString(), id};
}

QStringList GroupCommandModel::mimeTypes() const
{
    return {DraggedCommand::format()};
}

QMimeData* GroupCommandModel::mimeData(const QModelIndexList& indexes) const
{
    const auto command = indexes.isEmpty() ? std::nullopt : commandOf(indexes.front());
    return command ? new DraggedCommand(*command) : nullptr;
}

} // namespace quelhost
