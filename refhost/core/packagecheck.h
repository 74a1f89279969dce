// Says whether customization packages are good: what `--check FILE.cuix ...` prints.
#pragma once

#include "refhost/core/shownmenugroups.h"
#include "refhost/core/userchanges.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace quelhost {

struct PackageCheck
{
    // Lines to print, without line ends: two for a good package, one for each fault of a bad one.
    QStringList lines;
    bool allGood = true;
};

// What a file is loaded beside.
struct LoadedGroups
{
    std::vector<ShownGroup> groups;
    UserChanges changes;
};

// Checks the files one after the other. A good one's first line counts its commands, the menus of
// the menu bar, its toolbars and its accelerators; the second says what loading it would change
// where `loaded` and the good files before it are loaded. A fault's line begins with `file:` or,
// where it has a place, `file:line:column:`.
[[nodiscard]] PackageCheck checkPackages(const QStringList& paths, const LoadedGroups& loaded);

// What a host would show on this profile. Nothing in it is changed. What keeps a listed file from
// being shown is no obstacle here.
[[nodiscard]] Result<LoadedGroups> groupsOfProfile(const QString& folder);

} // namespace quelhost
