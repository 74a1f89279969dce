// Says whether customization packages are good: what `--check FILE.cuix ...` prints.
#pragma once

#include <QString>
#include <QStringList>

namespace quelhost {

struct PackageCheck
{
    // Lines to print, without line ends: one for a good package, one for each fault of a bad one.
    QStringList lines;
    bool allGood = true;
};

// Checks the files one after the other. A good one's line counts its commands, the menus of the
// menu bar, its toolbars and its accelerators; a fault's line begins with `file:` or, where it has
// a place, `file:line:column:`.
[[nodiscard]] PackageCheck checkPackages(const QStringList& paths);

} // namespace quelhost
