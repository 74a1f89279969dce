#include "refhost/window/editedkeys.h"

#include "refhost/core/hostkeys.h"
#include "refhost/core/menutext.h"
#include "refhost/window/commandlooks.h"
#include "refhost/window/packageicon.h"

#include <algorithm>
#include <map>

namespace quelhost {

namespace {

using WorkingKeys = std::map<GroupEntry, Keys>;

void add(const std::vector<GroupKey>& keys, WorkingKeys& working)
{
    for (const GroupKey& key : keys)
        working[{key.group, key.command}] << key.keys;
}

Keys keysOf(const GroupEntry& command, const WorkingKeys& working)
{
    const auto keys = working.find(command);
    return keys == working.end() ? Keys() : keys->second;
}

QString hostText(const QString& action)
{
    const char* const ids[][2] = {{kFindCommandAction, "host-menu-find"},
                                  {kCommandLineAction, "host-menu-command-line"},
                                  {kLoadedAction, "host-menu-loaded"}};
    for (const auto& [name, textId] : ids) {
        if (action == QLatin1String(name))
            return plainMenuText(qtTrId(textId));
    }
    return action;
}

EditedGroup hostGroup(const std::vector<GroupKey>& hostKeys, const WorkingKeys& working,
                      const QIcon& noIcon)
{
    EditedGroup host{qtTrId("accelerators-host"), {}};
    for (const GroupKey& key : hostKeys) {
        const GroupEntry name{key.group, key.command};
        const auto known = std::find_if(
            host.commands.begin(), host.commands.end(),
            [&name](const EditedCommand& command) { return command.keys.command == name; });
        if (known != host.commands.end())
            known->keys.packageKeys << key.keys;
        else
            host.commands.push_back(
                {{name, keysOf(name, working), {key.keys}}, hostText(key.command), noIcon});
    }
    return host;
}

} // namespace

std::vector<EditedGroup> editedGroups(const std::vector<GroupKey>& hostKeys,
                                      const std::vector<ShownGroup>& groups,
                                      const KeyChanges& changes)
{
    const std::vector<GroupKey> keysOfHost = withUserKeys(hostKeys, changes);
    WorkingKeys working;
    add(keysOfHost, working);
    add(assignKeys(keysOfHost, withUserKeys(groups, changes)).working, working);

    const QIcon noIcon = emptyIcon();
    std::vector<EditedGroup> edited{hostGroup(hostKeys, working, noIcon)};
    std::vector<CommandKeys> all = commandKeys(groups, changes);
    auto next = all.begin();
    for (const ShownGroup& shown : groups) {
        edited.push_back({groupTitle(shown.group), {}});
        edited.back().commands.reserve(shown.group.commands.size());
        for (const MenuCommand& command : shown.group.commands) {
            next->keys = keysOf(next->command, working);
            const QIcon icon = commandIcon(shown.group, command);
            edited.back().commands.push_back(
                {std::move(*next++), plainMenuText(command.text), icon.isNull() ? noIcon : icon});
        }
    }
    return edited;
}

KeyChanges changesAfter(KeyChanges changes, const std::vector<EditedGroup>& shown,
                        const std::vector<Keys>& now)
{
    auto next = now.begin();
    for (const EditedGroup& group : shown) {
        for (const EditedCommand& command : group.commands) {
            if (next == now.end())
                return changes;
            if (*next != command.keys.keys)
                noteKeys(changes, command.keys, *next);
            ++next;
        }
    }
    return changes;
}

KeyChanges changesOfOthers(KeyChanges changes, const std::vector<EditedGroup>& shown)
{
    for (const EditedGroup& group : shown) {
        for (const EditedCommand& command : group.commands)
            changes.erase(command.keys.command);
    }
    return changes;
}

} // namespace quelhost
