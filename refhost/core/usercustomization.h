// The user's own keys and toolbars, kept in the profile and never in a package.
//
// They stand in the settings, beside what modules keep there, an item for each change:
//
//     Accelerators/GROUP/COMMAND   string   the keys, "Ctrl+Shift+P; F7"; empty: none
//     Toolbars/GROUP/TOOLBAR       string   how a package's toolbar was changed
//     OwnToolbars/ID               string   a toolbar that the user made
//
// The values are those of userchangetexts.h. What is not changed, or was reset, has no item.
#pragma once

#include "refhost/core/result.h"
#include "refhost/core/userchanges.h"

#include <functional>
#include <map>
#include <string>

namespace quelhost {

class SettingsStore;

class UserCustomization
{
public:
    using Report = std::function<void(const Fault&)>;

    // Reads what is stored. `report` is told of each item that cannot be read; it is not used, and
    // goes with the next change that is stored.
    // REQUIRES: `store` outlives this object.
    UserCustomization(SettingsStore& store, const Report& report);

    [[nodiscard]] const UserChanges& changes() const { return m_changes; }
    [[nodiscard]] const KeyChanges& keys() const { return m_changes.keys; }
    [[nodiscard]] const ToolbarChanges& toolbars() const { return m_changes.toolbars; }

    // Each of these puts changes in force at once and stores them, all together or none. Those that
    // cannot be stored stay in force for this run, the next change tries to store them too, and the
    // fault is the caller's to tell.

    // Makes these the user's keys, or toolbars, in place of all former ones; empty resets all.
    // Changes of toolbars that say nothing are left out.
    [[nodiscard]] Status replaceKeys(KeyChanges changes);
    [[nodiscard]] Status replaceToolbars(ToolbarChanges changes);
    // Gives a command these keys and no others.
    [[nodiscard]] Status setKeys(const GroupEntry& command, const Keys& keys);
    // Gives a command the keys that its package has for it.
    [[nodiscard]] Status resetKeys(const GroupEntry& command);
    [[nodiscard]] Status setToolbar(const GroupEntry& toolbar, const ToolbarChange& change);
    // Makes a toolbar what its package has; one of the user's is gone for good.
    [[nodiscard]] Status resetToolbar(const GroupEntry& toolbar);

    // `changed` is called after each change. Empty for nobody.
    void setListener(std::function<void()> changed) { m_changed = std::move(changed); }

private:
    // By the key in the settings; nothing for what cannot be read.
    using Texts = std::map<std::wstring, std::optional<std::wstring>>;

    [[nodiscard]] bool take(const std::wstring& key, const std::wstring& text);
    [[nodiscard]] Status put(UserChanges changes);
    [[nodiscard]] Status store();

    SettingsStore& m_store;
    std::function<void()> m_changed;
    UserChanges m_changes;
    Texts m_stored; // as far as it is known
};

// The name for a further toolbar of the user's.
[[nodiscard]] GroupEntry newOwnToolbar(const ToolbarChanges& changes);

} // namespace quelhost
