// Keys as a file that users export, carry elsewhere and import. docs/format-keys.md is the grammar.
#pragma once

#include "refhost/core/result.h"
#include "refhost/core/userchanges.h"

#include <QByteArray>
#include <QString>

namespace quelhost {

// The file with these changes, a line each, by group and command.
[[nodiscard]] QByteArray keyFileText(const KeyChanges& changes);

// The changes of such a file, called `file` in the fault: the first thing that is wrong, with its
// line.
[[nodiscard]] Result<KeyChanges> parseKeyFile(const QByteArray& text, const QString& file);

// Writes the file at `path` in one step; on a fault a former one is as it was.
[[nodiscard]] Status exportKeys(const QString& path, const KeyChanges& changes);

// Reads the file at `path`.
[[nodiscard]] Result<KeyChanges> importKeys(const QString& path);

} // namespace quelhost
