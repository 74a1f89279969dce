// What the loaded menu groups put into a window, without a window: who has which key, where a
// command stands, and what loading or unloading would change.
#pragma once

#include "refhost/core/effectivecustomization.h"
#include "refhost/core/keyassignment.h"
#include "refhost/core/userchanges.h"

#include <QString>
#include <QStringList>

#include <cstddef>
#include <vector>

namespace quelhost {

// What differs between two models.
struct GroupChange
{
    std::size_t menus = 0; // of the menu bar
    std::size_t toolbars = 0;
    std::size_t accelerators = 0; // that work
    // Keys that the loaded group does not get, or that another group gets back from the unloaded
    // one.
    std::vector<GroupKey> keysOfOthers;
    // Keys that others lose to the loaded group, because the user chose them for it.
    std::vector<GroupKey> keysTaken;

    // "1 menu, 1 toolbar, 6 accelerators", without what there is none of.
    [[nodiscard]] QString counts() const;
};

// "adds 1 menu, 6 accelerators; Ctrl+K stays with SURVEY".
[[nodiscard]] QString loadingText(const GroupChange& change);
// "removes 1 menu, 6 accelerators; Ctrl+K goes to SURVEY".
[[nodiscard]] QString unloadingText(const GroupChange& change);

// A place where a command can be chosen.
struct CommandPlace
{
    enum class Kind { Menu, Toolbar, Key };

    Kind kind = Kind::Menu;
    QStringList ids; // of the menus from the bar inwards, or a toolbar's group and id
    // What the user calls the place: "Plant > More", a toolbar's text, a key's name.
    QString text;
};

class GroupModel
{
public:
    // The groups as their packages have them, with what the user changed.
    // REQUIRES: no two groups have the same name.
    // `mainFile` is the path of the main customization file; empty for that of the first group.
    GroupModel(const std::vector<GroupKey>& hostKeys, const std::vector<ShownGroup>& groups,
               UserChanges changes = {}, const QString& mainFile = {});

    // With the accelerators that are in force.
    [[nodiscard]] const std::vector<ShownGroup>& groups() const { return m_groups; }
    // Of the host itself, as they are in force.
    [[nodiscard]] const std::vector<GroupKey>& hostKeys() const { return m_hostKeys; }
    [[nodiscard]] const KeyAssignment& keys() const { return m_keys; }
    // Of the groups and the user's own, without those that the user deleted or hid.
    [[nodiscard]] const std::vector<EffectiveToolbar>& toolbars() const { return m_toolbars; }

    [[nodiscard]] bool isMainFile(const QString& path) const { return path == m_mainFile; }

    // The group of that name, or null.
    [[nodiscard]] const ShownGroup* find(const QString& group) const;

    // What would change if the group were loaded behind the others.
    [[nodiscard]] GroupChange changeByLoading(const MenuGroup& group) const;
    // What would change if the group went.
    [[nodiscard]] GroupChange changeByUnloading(const QString& group) const;

    // Menus in the order of the menu bar, then toolbars, then keys that work.
    [[nodiscard]] std::vector<CommandPlace> placesOf(const QString& group,
                                                     const QString& command) const;

private:
    UserChanges m_changes;
    std::vector<GroupKey> m_hostKeys;
    std::vector<ShownGroup> m_groups;
    KeyAssignment m_keys;
    std::vector<EffectiveToolbar> m_toolbars;
    QString m_mainFile;
};

// What loading the group of that file would do, as a user is told beforehand: what it adds, or why
// it would not be shown.
[[nodiscard]] QString loadingPreview(const GroupModel& model, const QString& path,
                                     const MenuGroup& group);

} // namespace quelhost
