// What the customization editors change, as tables of text for where there are no editors.
#pragma once

#include "refhost/core/userchanges.h"

#include <QStringList>

#include <vector>

namespace quelhost {

struct ShownGroup;

// Command, keys, group and whether the user changed it, of every command that has keys or had them
// taken away, by command and group, under a heading; one sentence when there is none.
[[nodiscard]] QStringList acceleratorRows(const std::vector<ShownGroup>& groups,
                                          const KeyChanges& changes);

// Title, group, commands and how the user changed it, of every toolbar, by title and group, under a
// heading; one sentence when there is none.
[[nodiscard]] QStringList toolbarRows(const std::vector<ShownGroup>& groups,
                                      const ToolbarChanges& changes);

} // namespace quelhost
