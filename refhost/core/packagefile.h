// Reads a package's file into memory, and tells plainly why it cannot.
#pragma once

#include "refhost/core/result.h"

#include <QByteArray>
#include <QString>

namespace quelhost {

// The bytes of the plain file at `path`. Folders, pipes and devices are refused without waiting
// for them, and a file of more than `maxBytes` without reading it.
[[nodiscard]] Result<QByteArray> readPackageFile(const QString& path, qint64 maxBytes);

} // namespace quelhost
