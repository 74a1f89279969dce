// The toolbars of an editor, to be renamed, shown and hidden in their list.
#pragma once

#include "refhost/core/toolbaredits.h"

#include <QAbstractListModel>

#include <vector>

namespace quelhost {

// Each row is a title and, in a second line, whose toolbar it is and what became of it in words. A
// tick stands for a toolbar that is shown.
class ToolbarListModel final : public QAbstractListModel
{
    Q_OBJECT

public:
    // REQUIRES: `edits` outlives this object.
    explicit ToolbarListModel(ToolbarEdits& edits, QObject* parent = nullptr);

    // Shows what the edits have now.
    void follow();

    // The toolbar of that row; one with an empty id for an index of none.
    [[nodiscard]] GroupEntry toolbar(const QModelIndex& index) const;
    // The row of that toolbar; invalid when there is none.
    [[nodiscard]] QModelIndex indexOf(const GroupEntry& toolbar) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

signals:
    void edited();
    // What the user is to know about what was typed.
    void told(const QString& sentence);

private:
    void tick(const GroupEntry& toolbar, bool ticked);
    void rename(const GroupEntry& toolbar, const QString& title);

    ToolbarEdits& m_edits;
    std::vector<GroupEntry> m_names; // in the order of the rows
};

} // namespace quelhost
