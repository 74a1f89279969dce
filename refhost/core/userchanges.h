// What a user changed about keys and toolbars. Plain values, freely copied.
//
// Changes are about commands and toolbars of menu groups, by name, whether the group is loaded or
// not: a change waits for its group.
#pragma once

#include <QKeySequence>
#include <QList>
#include <QString>

#include <map>
#include <optional>
#include <tuple>
#include <vector>

namespace quelhost {

// A command or a toolbar: its id, and the name of the menu group it belongs to. A toolbar that the
// user made has an empty group.
struct GroupEntry
{
    QString group;
    QString id;

    [[nodiscard]] bool operator==(const GroupEntry& other) const
    {
        return group == other.group && id == other.id;
    }
    [[nodiscard]] bool operator!=(const GroupEntry& other) const { return !(*this == other); }
    [[nodiscard]] bool operator<(const GroupEntry& other) const
    {
        return std::tie(group, id) < std::tie(other.group, other.id);
    }
};

// The keys of one command, the first one shown in menus. Each is one combination or several typed
// one after the other.
using Keys = QList<QKeySequence>;

// The commands whose keys are the user's choice. No keys: the user took them away.
using KeyChanges = std::map<GroupEntry, Keys>;

// What stands on a toolbar: a command, or a separator with neither group nor id.
using ToolbarEntry = GroupEntry;

[[nodiscard]] inline bool isSeparator(const ToolbarEntry& entry)
{
    return entry.id.isEmpty();
}

// How a toolbar differs from what its package has, or what a toolbar of the user's is.
struct ToolbarChange
{
    std::optional<QString> title;                     // plain text
    std::optional<std::vector<ToolbarEntry>> entries; // commands of any groups
    bool hidden = false;                              // kept, but not to be seen
    bool deleted = false;                             // of a package's toolbar: gone until reset

    [[nodiscard]] bool operator==(const ToolbarChange& other) const
    {
        return title == other.title && entries == other.entries && hidden == other.hidden &&
               deleted == other.deleted;
    }
    // Whether it says nothing and the toolbar is the package's.
    [[nodiscard]] bool isNone() const { return *this == ToolbarChange(); }
};

using ToolbarChanges = std::map<GroupEntry, ToolbarChange>;

// Everything together.
struct UserChanges
{
    KeyChanges keys;
    ToolbarChanges toolbars;
};

} // namespace quelhost
