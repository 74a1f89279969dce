// Which keys work for which commands while several menu groups are shown.
#pragma once

#include "refhost/core/shownmenugroups.h"

#include <QKeySequence>
#include <QString>

#include <vector>

namespace quelhost {

// A key that a group's accelerator wants, or one of the host itself.
struct GroupKey
{
    QString group;   // the group's name, or the host's
    QString command; // the command's id in that group
    QKeySequence keys;

    [[nodiscard]] bool operator==(const GroupKey& other) const
    {
        return group == other.group && command == other.command && keys == other.keys;
    }
};

// One that another command has already.
struct LostKey
{
    GroupKey wanted;
    GroupKey kept;
};

struct KeyAssignment
{
    std::vector<GroupKey> working; // of the groups
    std::vector<LostKey> lost;
};

// The host keeps its own keys and Esc, and what the user chose goes before what packages want. The
// group that was loaded first, that is, stands first in `groups`, keeps a key from the others;
// within a group the first accelerator does. What is lost comes back when the other group goes.
// Keys typed one after the other are lost to a command that has the first of them.
[[nodiscard]] KeyAssignment assignKeys(const std::vector<GroupKey>& hostKeys,
                                       const std::vector<ShownGroup>& groups);

} // namespace quelhost
