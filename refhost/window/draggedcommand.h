// What is dragged in the toolbar editor: a command, or an entry of a toolbar to another place.
#pragma once

#include "refhost/core/userchanges.h"

#include <QMimeData>
#include <QString>

namespace quelhost {

// Means something within the program only: others have other commands.
class DraggedCommand final : public QMimeData
{
public:
    static QString format() { return QStringLiteral("application/x-quelhost-toolbar-entry"); }

    // `from` is its place on the toolbar, -1 for a command that comes from elsewhere.
    explicit DraggedCommand(ToolbarEntry entry, int from = -1)
        : m_entry(std::move(entry))
        , m_from(from)
    {
        setData(format(), QByteArrayLiteral("1"));
    }

    [[nodiscard]] const ToolbarEntry& entry() const { return m_entry; }
    [[nodiscard]] int from() const { return m_from; }

private:
    const ToolbarEntry m_entry;
    const int m_from;
};

} // namespace quelhost
