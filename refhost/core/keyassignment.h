// Which keys work for which commands while several menu groups are shown.
#pragma once

#include "refhost/core/shownmenugroups.h"

#include <QKeySequence>
#include <QString>

#include <vector>

namespace quelhost {

// A key that a group's accelerator wants.
struct GroupKey
{
    QString group;   // the group's name
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
    std::vector<GroupKey> working;
    std::vector<LostKey> lost;
};

// The group that was loaded first, that is, stands first in `groups`, keeps a key; within a group
// the first accelerator does. What is lost comes back when the other group goes.
[[nodiscard]] KeyAssignment assignKeys(const std::vector<ShownGroup>& groups);

} // namespace quelhost
