#include "refhost/core/packagecheck.h"

#include "refhost/core/package.h"

namespace quelhost {

namespace {

[[nodiscard]] QString count(std::size_t number)
{
    return QString::number(number);
}

[[nodiscard]] QString goodLine(const QString& path, const MenuGroup& group)
{
    return qtTrId("package-good")
        .arg(path, group.name, count(group.commands.size()), count(group.menus.size()),
             count(group.toolbars.size()), count(group.accelerators.size()));
}

} // namespace

PackageCheck checkPackages(const QStringList& paths)
{
    PackageCheck check;
    for (const QString& path : paths) {
        const PackageReading reading = readPackage(path);
        if (reading) {
            check.lines.push_back(goodLine(path, reading.group()));
            continue;
        }
        check.allGood = false;
        for (const Fault& fault : reading.faults())
            check.lines.push_back(fault.text());
    }
    return check;
}

} // namespace quelhost
