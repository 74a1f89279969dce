// Where measurements keep what has to be on a disk.
#pragma once

#include <QString>

namespace ratios {

// The template of a temporary folder beside the running program: a build is on a disk where the
// system's own temporary folder is in memory.
[[nodiscard]] QString diskFolderTemplate();

// Whether what is written there stays in memory, however it is synchronised: on a tmpfs, a ramfs,
// or an overlay whose upper layer can be seen to be on one.
[[nodiscard]] bool isInMemory(const QString& path);

// What is said of such a folder.
inline constexpr char kInMemory[] =
    "the folder of the build is in memory: build on a disk to measure one";

} // namespace ratios
