#include "refhost/core/effectivecustomization.h"

#include "refhost/core/menutext.h"

#include <algorithm>
#include <set>

namespace quelhost {

namespace {

using Entries = std::vector<ToolbarEntry>;

const Keys* chosenKeys(const KeyChanges& changes, const GroupEntry& command)
{
    const auto change = changes.find(command);
    return change == changes.end() ? nullptr : &change->second;
}

std::map<QString, Keys> packageKeysOf(const MenuGroup& group)
{
    std::map<QString, Keys> keys;
    for (const Accelerator& accelerator : group.accelerators)
        keys[accelerator.command] << accelerator.keys;
    return keys;
}

std::set<GroupEntry> commandsOf(const std::vector<ShownGroup>& groups)
{
    std::set<GroupEntry> commands;
    for (const ShownGroup& shown : groups) {
        for (const MenuCommand& command : shown.group.commands)
            commands.insert({shown.group.name, command.id});
    }
    return commands;
}

Entries packageEntries(const QString& group, const Toolbar& toolbar)
{
    Entries entries;
    for (const ToolbarItem& item : toolbar.items)
        entries.push_back(item.isSeparator() ? ToolbarEntry() : ToolbarEntry{group, item.command});
    return entries;
}

Entries withoutLooseSeparators(const Entries& entries)
{
    Entries result;
    for (const ToolbarEntry& entry : entries) {
        if (!isSeparator(entry) || (!result.empty() && !isSeparator(result.back())))
            result.push_back(entry);
    }
    if (!result.empty() && isSeparator(result.back()))
        result.pop_back();
    return result;
}

Entries shownOf(const Entries& entries, const std::set<GroupEntry>& commands)
{
    Entries shown;
    for (const ToolbarEntry& entry : entries) {
        if (isSeparator(entry) || commands.count(entry) > 0)
            shown.push_back(entry);
    }
    return shown.size() == entries.size() ? shown : withoutLooseSeparators(shown);
}

// User-made toolbars have numbers for ids: 10 comes behind 2.
bool isEarlier(const EffectiveToolbar& left, const EffectiveToolbar& right)
{
    const auto order = [](const QString& id) { return std::make_pair(id.size(), id); };
    return order(left.name.id) < order(right.name.id);
}

} // namespace

std::vector<CommandKeys> commandKeys(const std::vector<ShownGroup>& groups,
                                     const KeyChanges& changes)
{
    std::vector<CommandKeys> result;
    for (const ShownGroup& shown : groups) {
        const std::map<QString, Keys> packageKeys = packageKeysOf(shown.group);
        for (const MenuCommand& command : shown.group.commands) {
            const GroupEntry name{shown.group.name, command.id};
            const auto ofPackage = packageKeys.find(command.id);
            const Keys keys = ofPackage == packageKeys.end() ? Keys() : ofPackage->second;
            const Keys* const chosen = chosenKeys(changes, name);
            result.push_back({name, chosen == nullptr ? keys : *chosen, keys});
        }
    }
    return result;
}

void noteKeys(KeyChanges& changes, const CommandKeys& command, const Keys& keys)
{
    if (keys == command.packageKeys)
        changes.erase(command.command);
    else
        changes.insert_or_assign(command.command, keys);
}

std::vector<ShownGroup> withUserKeys(std::vector<ShownGroup> groups, const KeyChanges& changes)
{
    for (ShownGroup& shown : groups) {
        std::vector<Accelerator> accelerators;
        for (const Accelerator& accelerator : shown.group.accelerators) {
            if (chosenKeys(changes, {shown.group.name, accelerator.command}) == nullptr)
                accelerators.push_back(accelerator);
        }
        for (const MenuCommand& command : shown.group.commands) {
            const Keys* const chosen = chosenKeys(changes, {shown.group.name, command.id});
            if (chosen == nullptr)
                continue;
            for (const QKeySequence& keys : *chosen)
                accelerators.push_back({command.id, keys, true});
        }
        shown.group.accelerators = std::move(accelerators);
    }
    return groups;
}

std::vector<GroupKey> withUserKeys(const std::vector<GroupKey>& hostKeys, const KeyChanges& changes)
{
    std::vector<GroupKey> result;
    std::set<GroupEntry> done;
    for (const GroupKey& key : hostKeys) {
        const GroupEntry action{key.group, key.command};
        const Keys* const chosen = chosenKeys(changes, action);
        if (chosen == nullptr) {
            result.push_back(key);
        } else if (done.insert(action).second) {
            for (const QKeySequence& keys : *chosen)
                result.push_back({key.group, key.command, keys});
        }
    }
    return result;
}

std::vector<EffectiveToolbar> effectiveToolbars(const std::vector<ShownGroup>& groups,
                                                const ToolbarChanges& changes)
{
    const std::set<GroupEntry> commands = commandsOf(groups);
    const auto make = [&commands](const GroupEntry& name, const ToolbarChange& change,
                                  const QString& title, const Entries& entries) {
        const Entries all = change.entries.value_or(entries);
        return EffectiveToolbar{name,
                                change.title.value_or(title),
                                all,
                                shownOf(all, commands),
                                !change.isNone(),
                                change.hidden,
                                change.deleted};
    };
    std::vector<EffectiveToolbar> toolbars;
    for (const ShownGroup& shown : groups) {
        for (const Toolbar& toolbar : shown.group.toolbars) {
            const GroupEntry name{shown.group.name, toolbar.id};
            const auto change = changes.find(name);
            toolbars.push_back(
                make(name, change == changes.end() ? ToolbarChange() : change->second,
                     plainMenuText(toolbar.text), packageEntries(shown.group.name, toolbar)));
        }
    }
    std::vector<EffectiveToolbar> own;
    for (const auto& [name, change] : changes) {
        if (name.group.isEmpty())
            own.push_back(make(name, change, QString(), {}));
    }
    std::sort(own.begin(), own.end(), isEarlier);
    toolbars.insert(toolbars.end(), own.begin(), own.end());
    return toolbars;
}

ToolbarChange changeOf(const QString& group, const Toolbar& toolbar, const QString& title,
                       const std::vector<ToolbarEntry>& entries)
{
    ToolbarChange change;
    if (title != plainMenuText(toolbar.text))
        change.title = title;
    if (entries != packageEntries(group, toolbar))
        change.entries = entries;
    return change;
}

} // namespace quelhost
