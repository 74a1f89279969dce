// Names what a library needs and nobody in the process has.
#pragma once

#include <QStringList>

namespace quelhost {

// After the dynamic loader has refused the library at `path` with `loaderMessage`: the symbols that
// it needs and that neither this process nor the libraries it is linked with define, readable. The
// loader names only the first; a module writer wants them all. Empty when the library was refused
// for another reason. The library itself is read as a file and never loaded.
[[nodiscard]] QStringList missingSymbols(const char* path, const QString& loaderMessage);

} // namespace quelhost
