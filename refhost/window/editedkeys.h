// Keys of commands as an editor shows them, and the user's changes that come out of it.
#pragma once

#include "refhost/core/effectivecustomization.h"

#include <QIcon>

#include <vector>

namespace quelhost {

struct EditedCommand
{
    CommandKeys keys; // with those that work, not those that another command has got
    QString text;     // plain
    QIcon icon;
};

// The commands of a menu group, or the host's own.
struct EditedGroup
{
    QString title; // different for each
    std::vector<EditedCommand> commands;
};

// The host's own commands, then those of the groups in their order. `hostKeys` are those that the
// host has without changes.
[[nodiscard]] std::vector<EditedGroup> editedGroups(const std::vector<GroupKey>& hostKeys,
                                                    const std::vector<ShownGroup>& groups,
                                                    const KeyChanges& changes);

// The user's changes when `shown` came of `changes` and the commands, one after the other, have the
// keys `now`. What was not touched stays as it was: a command may want a key and not have it.
[[nodiscard]] KeyChanges changesAfter(KeyChanges changes, const std::vector<EditedGroup>& shown,
                                      const std::vector<Keys>& now);

// Without those of commands that are shown.
[[nodiscard]] KeyChanges changesOfOthers(KeyChanges changes, const std::vector<EditedGroup>& shown);

} // namespace quelhost
