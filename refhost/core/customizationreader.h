// Reads `customization.xml` of a package: the grammar of menu groups.
//
// Reading goes on after a fault, so that all faults of a file are told at once, each with its line
// and column; only a text that is no XML, or leaves the limits, ends it early.
#pragma once

#include "refhost/core/menugroup.h"
#include "refhost/core/result.h"

#include <QByteArray>
#include <QString>

#include <set>
#include <vector>

namespace quelhost {

struct CustomizationReading
{
    MenuGroup group;           // without images; of use only when there are no faults
    std::vector<Fault> faults; // in the order of their places
};

// `file` is the name for faults, `entries` the names of all entries that icons may name.
[[nodiscard]] CustomizationReading readCustomization(const QByteArray& xml, const QString& file,
                                                     const std::set<QString>& entries);

} // namespace quelhost
