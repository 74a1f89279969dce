// Reads a customization package: the one entry to everything about the format.
//
// A package is good or it is refused whole; there is no group with parts missing. The file is
// read into memory at once, and neither it nor anything else is written.
#pragma once

#include "refhost/core/menugroup.h"
#include "refhost/core/result.h"

#include <QByteArray>
#include <QString>

#include <variant>
#include <vector>

namespace quelhost {

// Either the group or everything that is wrong.
class [[nodiscard]] PackageReading
{
public:
    explicit PackageReading(MenuGroup group);

    // REQUIRES: `faults` is not empty.
    explicit PackageReading(std::vector<Fault> faults);

    explicit operator bool() const { return m_state.index() == 0; }

    // REQUIRES: the package was good.
    [[nodiscard]] const MenuGroup& group() const { return std::get<0>(m_state); }

    // The archive's faults first, then those of `customization.xml` in the order of their places,
    // then each image's. Of a text or an image no more than 10,001 are looked for, and once there
    // are as many together, no further image is looked at; the last fault says so. REQUIRES: the
    // package was not good.
    [[nodiscard]] const std::vector<Fault>& faults() const { return std::get<1>(m_state); }

private:
    std::variant<MenuGroup, std::vector<Fault>> m_state;
};

// Faults name the file as `path` has it. One with a line and no further name is in
// `customization.xml`; those of an image name it behind the path: `plant.cuix!images/pump.svg`.
PackageReading readPackage(const QString& path);

// The same for a package in memory, called `file` in faults.
PackageReading readPackageBytes(const QByteArray& bytes, const QString& file);

} // namespace quelhost
