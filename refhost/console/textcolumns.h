// Lists many short texts in columns, read downwards.
#pragma once

#include <QStringList>

#include <string>

namespace quelhost {

// Rows of `texts`, each ended by a newline, as wide as `width` columns at most where the longest
// text fits. REQUIRES: the thread's characters are UTF-8 (Utf8Locale).
[[nodiscard]] std::wstring inColumns(const QStringList& texts, int width);

} // namespace quelhost
