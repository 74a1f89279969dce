#include "refhost/window/toolbarlistmodel.h"

#include "refhost/window/plaintip.h"

#include <QStringList>

#include <algorithm>

namespace quelhost {

namespace {

QStringList remarks(const EffectiveToolbar& toolbar)
{
    QStringList words{toolbar.isOwn() ? qtTrId("toolbars-own") : toolbar.name.group};
    if (toolbar.deleted)
        return words << qtTrId("customize-deleted");
    if (toolbar.changed && !toolbar.isOwn())
        words << qtTrId("toolbars-changed");
    if (toolbar.hidden)
        words << qtTrId("customize-hidden");
    return words;
}

QString rowText(const EffectiveToolbar& toolbar, const QString& between)
{
    return toolbar.title + between + remarks(toolbar).join(QStringLiteral(", "));
}

QString tipOf(const EffectiveToolbar& toolbar)
{
    const QString text = rowText(toolbar, QStringLiteral("\n"));
    return plainTip(toolbar.deleted ? text + QLatin1Char('\n') + qtTrId("toolbars-deleted-hint")
                                    : text + QLatin1Char('\n') + qtTrId("toolbars-shown-tip"));
}

} // namespace

ToolbarListModel::ToolbarListModel(ToolbarEdits& edits, QObject* parent)
    : QAbstractListModel(parent)
    , m_edits(edits)
{
    follow();
}

// Rows that stay are not made anew: one of them may just be typed into.
void ToolbarListModel::follow()
{
    std::vector<GroupEntry> names;
    for (const EffectiveToolbar& toolbar : m_edits.toolbars())
        names.push_back(toolbar.name);
    if (names == m_names) {
        if (!m_names.empty())
            emit dataChanged(index(0), index(rowCount() - 1));
        return;
    }
    beginResetModel();
    m_names = std::move(names);
    endResetModel();
}

GroupEntry ToolbarListModel::toolbar(const QModelIndex& index) const
{
    return index.isValid() ? m_names[static_cast<std::size_t>(index.row())] : GroupEntry();
}

QModelIndex ToolbarListModel::indexOf(const GroupEntry& toolbar) const
{
    const auto found = std::find(m_names.begin(), m_names.end(), toolbar);
    return found == m_names.end() ? QModelIndex()
                                  : index(static_cast<int>(found - m_names.begin()));
}

int ToolbarListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_names.size());
}

QVariant ToolbarListModel::data(const QModelIndex& index, int role) const
{
    const EffectiveToolbar* const found = m_edits.find(toolbar(index));
    if (found == nullptr)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return rowText(*found, QStringLiteral("\n"));
    case Qt::AccessibleTextRole:
        return rowText(*found, QStringLiteral(", "));
    case Qt::EditRole:
        return found->title;
    case Qt::ToolTipRole:
        return tipOf(*found);
    case Qt::CheckStateRole:
        return found->hidden || found->deleted ? Qt::Unchecked : Qt::Checked;
    default:
        return {};
    }
}

// One that is deleted can be ticked too, which brings it back.
Qt::ItemFlags ToolbarListModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags all = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsUserCheckable |
                              Qt::ItemNeverHasChildren;
    return m_edits.isEditable(toolbar(index)) ? all | Qt::ItemIsEditable : all;
}

bool ToolbarListModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    const GroupEntry name = toolbar(index);
    const bool isEditable = m_edits.isEditable(name);
    if (role == Qt::EditRole && isEditable)
        rename(name, value.toString());
    else if (role == Qt::CheckStateRole)
        tick(name, value.toInt() != Qt::Unchecked);
    return isEditable || role == Qt::CheckStateRole;
}

void ToolbarListModel::tick(const GroupEntry& toolbar, bool ticked)
{
    const bool isEditable = m_edits.isEditable(toolbar);
    if (isEditable ? m_edits.setHidden(toolbar, !ticked) : m_edits.reset(toolbar))
        emit edited();
}

void ToolbarListModel::rename(const GroupEntry& toolbar, const QString& title)
{
    const QString given = title.simplified();
    if (m_edits.rename(toolbar, given))
        emit edited();
    const QString got = m_edits.find(toolbar)->title;
    if (given.isEmpty())
        emit told(qtTrId("toolbars-name-needed"));
    else if (got != given)
        emit told(qtTrId("toolbars-name-taken").arg(got));
}

} // namespace quelhost
