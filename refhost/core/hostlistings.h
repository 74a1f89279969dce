// What the host's own commands print, as rows of text.
#pragma once

#include "refhost/core/aliases.h"
#include "refhost/core/settingsitem.h"

#include <QStringList>

#include <string>
#include <vector>

namespace quelhost {

class CommandStore;
class ShownMenuGroups;

// Columns side by side, each as wide as its widest cell, two blanks between them. Characters that
// take two places of a terminal count twice.
[[nodiscard]] QStringList tableRows(const std::vector<QStringList>& table);

// The shown groups with menus, toolbars and file, then the entries of the list that are not shown.
// A file that is missing or whose name is relative is marked.
[[nodiscard]] QStringList groupRows(const ShownMenuGroups& groups);

[[nodiscard]] QStringList aliasRows(const AliasTable& aliases);

// Every registered command: global name, localized name, module, description.
[[nodiscard]] QStringList commandRows(const CommandStore& commands);

// How to use the command line, with every command in a row.
[[nodiscard]] QStringList helpRows(const CommandStore& commands);

// The items whose key is `key` or begins with it and a separator; all for an empty key.
[[nodiscard]] QStringList settingsRows(const std::vector<Item>& items, const std::wstring& key);

} // namespace quelhost
