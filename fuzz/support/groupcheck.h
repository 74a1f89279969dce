// What holds for every menu group that was read, and for every list of faults.
#pragma once

#include "refhost/core/menugroup.h"
#include "refhost/core/result.h"

#include <set>
#include <vector>

namespace fuzzing {

// Ids that are unique, names that lead somewhere, single keys; and that the group, written down
// again, is read as the same group. `entries` are the files that icons may name.
void checkGroup(const quelhost::MenuGroup& group, const std::set<QString>& entries);

// That each says something about a file whose name begins with `file`.
void checkFaults(const std::vector<quelhost::Fault>& faults, const QString& file);

} // namespace fuzzing
