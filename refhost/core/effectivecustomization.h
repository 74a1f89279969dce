// Keys and toolbars as they are in force: what the packages have, with the user's changes.
#pragma once

#include "refhost/core/keyassignment.h"
#include "refhost/core/shownmenugroups.h"
#include "refhost/core/userchanges.h"

#include <QString>

#include <vector>

namespace quelhost {

// The keys of one command.
struct CommandKeys
{
    GroupEntry command;
    Keys keys;        // in force
    Keys packageKeys; // what a reset brings back

    [[nodiscard]] bool isChanged() const { return keys != packageKeys; }
};

// Every command of the groups in their order, also those without keys.
[[nodiscard]] std::vector<CommandKeys> commandKeys(const std::vector<ShownGroup>& groups,
                                                   const KeyChanges& changes);

// Notes in `changes` that the command is to have these keys: no change when they are the package's.
void noteKeys(KeyChanges& changes, const CommandKeys& command, const Keys& keys);

// The groups with the accelerators that are in force; those that the user chose are marked.
[[nodiscard]] std::vector<ShownGroup> withUserKeys(std::vector<ShownGroup> groups,
                                                   const KeyChanges& changes);

// The same for keys of the host's own actions, which have no packages.
[[nodiscard]] std::vector<GroupKey> withUserKeys(const std::vector<GroupKey>& hostKeys,
                                                 const KeyChanges& changes);

struct EffectiveToolbar
{
    GroupEntry name; // with an empty group for one of the user's
    QString title;   // plain text
    // All of it, commands of groups that are not loaded too.
    std::vector<ToolbarEntry> entries;
    // What can be shown now. Where commands are left out, so are the separators that would stand at
    // an end or beside each other.
    std::vector<ToolbarEntry> shownEntries;
    bool changed = false; // by the user; always so for one of the user's
    bool hidden = false;
    bool deleted = false;

    [[nodiscard]] bool isOwn() const { return name.group.isEmpty(); }
};

// The toolbars of the groups in their order, hidden and deleted ones too, then the user's.
[[nodiscard]] std::vector<EffectiveToolbar> effectiveToolbars(const std::vector<ShownGroup>& groups,
                                                              const ToolbarChanges& changes);

// The change that makes of a package's toolbar one with this title and these entries.
[[nodiscard]] ToolbarChange changeOf(const QString& group, const Toolbar& toolbar,
                                     const QString& title,
                                     const std::vector<ToolbarEntry>& entries);

} // namespace quelhost
