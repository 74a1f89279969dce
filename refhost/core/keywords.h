// Matching typed words against keyword lists and known names.
#pragma once

#include <QString>
#include <QStringList>

namespace quelhost {

// The keyword of `keywords` that `typed` stands for, whole; empty when there is none. In any case,
// a keyword may be shortened to its capital letters, or to any beginning that has as many letters;
// the first one that fits is meant.
[[nodiscard]] QString matchKeyword(const QStringList& keywords, const QString& typed);

// Up to three of `names` that are most like `typed`, the most alike first: names that begin with it
// and names that differ by few letters. None when nothing is like it.
[[nodiscard]] QStringList nearestNames(const QStringList& names, const QString& typed);

} // namespace quelhost
