#include "refhost/window/toolbarentrymodel.h"

#include "refhost/window/draggedcommand.h"
#include "refhost/window/plaintip.h"

#include <QFont>

namespace quelhost {

ToolbarEntryModel::ToolbarEntryModel(ToolbarEdits& edits, const CommandLooks& looks,
                                     QObject* parent)
    : QAbstractListModel(parent)
    , m_edits(edits)
    , m_looks(looks)
{}

void ToolbarEntryModel::show(const GroupEntry& toolbar)
{
    beginResetModel();
    m_toolbar = toolbar;
    m_entries.clear();
    if (m_edits.isEditable(toolbar))
        m_entries = m_edits.find(toolbar)->entries;
    endResetModel();
}

int ToolbarEntryModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_entries.size());
}

QVariant ToolbarEntryModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const ToolbarEntry& entry = m_entries[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole: {
        const QString text = m_looks.of(entry).text;
        // A command of another group says so; one that is not there names its group anyway.
        return entry.group == m_toolbar.group || !m_looks.has(entry)
                   ? text
                   : QStringLiteral("%1 (%2)").arg(text, entry.group);
    }
    case Qt::ToolTipRole:
        return plainTip(m_looks.of(entry).tip);
    case Qt::DecorationRole:
        return m_looks.of(entry).icon;
    case Qt::FontRole: {
        // An addition to the words, which say the same.
        QFont font;
        font.setItalic(true);
        return m_looks.has(entry) || isSeparator(entry) ? QVariant() : font;
    }
    default:
        return {};
    }
}

// Nothing is dropped on an entry, only between them.
Qt::ItemFlags ToolbarEntryModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return m_edits.isEditable(m_toolbar) ? Qt::ItemIsDropEnabled : Qt::NoItemFlags;
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsDragEnabled |
           Qt::ItemNeverHasChildren;
}

Qt::DropActions ToolbarEntryModel::supportedDropActions() const
{
    return Qt::CopyAction | Qt::MoveAction;
}

QStringList ToolbarEntryModel::mimeTypes() const
{
    return {DraggedCommand::format()};
}

QMimeData* ToolbarEntryModel::mimeData(const QModelIndexList& indexes) const
{
    if (indexes.isEmpty())
        return nullptr;
    const int row = indexes.front().row();
    return new DraggedCommand(m_entries[static_cast<std::size_t>(row)], row);
}

bool ToolbarEntryModel::dropMimeData(const QMimeData* data, Qt::DropAction, int row, int,
                                     const QModelIndex&)
{
    const auto* const dragged = dynamic_cast<const DraggedCommand*>(data);
    if (dragged == nullptr)
        return false;
    const int to = row < 0 ? rowCount() : row; // below the last one
    const int from = dragged->from();
    const bool done = from < 0 ? m_edits.insert(m_toolbar, to, dragged->entry())
                               : m_edits.move(m_toolbar, from, from < to ? to - 1 : to);
    if (done)
        emit edited();
    return done;
}

} // namespace quelhost
