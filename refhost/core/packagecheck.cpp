#include "refhost/core/packagecheck.h"

#include "refhost/core/groupmodel.h"
#include "refhost/core/hostkeys.h"
#include "refhost/core/package.h"
#include "refhost/core/settingsstore.h"
#include "refhost/core/storedconfig.h"
#include "refhost/core/widetext.h"

#include <QFileInfo>

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

[[nodiscard]] QString changeLine(const GroupModel& model, const QString& path,
                                 const MenuGroup& group)
{
    return QStringLiteral("%1: %2").arg(path, loadingPreview(model, path, group));
}

} // namespace

PackageCheck checkPackages(const QStringList& paths, std::vector<ShownGroup> loaded)
{
    PackageCheck check;
    GroupModel model(hostKeys(), std::move(loaded));
    for (const QString& path : paths) {
        const PackageReading reading = readPackage(path);
        if (reading) {
            check.lines << goodLine(path, reading.group())
                        << changeLine(model, path, reading.group());
            if (model.find(reading.group().name) == nullptr) {
                std::vector<ShownGroup> groups = model.groups();
                const QString absolute = QFileInfo(path).absoluteFilePath();
                groups.push_back({toWide(absolute), reading.group(), false});
                model = GroupModel(hostKeys(), std::move(groups));
            }
            continue;
        }
        check.allGood = false;
        for (const Fault& fault : reading.faults())
            check.lines.push_back(fault.text());
    }
    return check;
}

Result<std::vector<ShownGroup>> groupsOfProfile(const QString& folder)
{
    const auto settings = SettingsStore::open(folder, SettingsAccess::ReadOnly);
    if (!settings)
        return settings.fault();
    const auto ignore = [](const Fault&) {};
    StoredConfig config(*settings.value(), ignore);
    ShownMenuGroups groups(config, ignore);
    groups.refresh();
    return groups.groups();
}

} // namespace quelhost
