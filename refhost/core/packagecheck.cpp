#include "refhost/core/packagecheck.h"

#include "refhost/core/groupmodel.h"
#include "refhost/core/hostkeys.h"
#include "refhost/core/package.h"
#include "refhost/core/settingsstore.h"
#include "refhost/core/storedconfig.h"
#include "refhost/core/usercustomization.h"
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

PackageCheck checkPackages(const QStringList& paths, const LoadedGroups& loaded)
{
    PackageCheck check;
    std::vector<ShownGroup> groups = loaded.groups;
    for (const QString& path : paths) {
        const PackageReading reading = readPackage(path);
        if (reading) {
            const MenuGroup& group = reading.group();
            const GroupModel model(hostKeys(), groups, loaded.changes);
            check.lines << goodLine(path, group) << changeLine(model, path, group);
            if (model.find(group.name) == nullptr)
                groups.push_back({toWide(QFileInfo(path).absoluteFilePath()), group, false});
            continue;
        }
        check.allGood = false;
        for (const Fault& fault : reading.faults())
            check.lines.push_back(fault.text());
    }
    return check;
}

Result<LoadedGroups> groupsOfProfile(const QString& folder)
{
    const auto settings = SettingsStore::open(folder, SettingsAccess::ReadOnly);
    if (!settings)
        return settings.fault();
    const auto ignore = [](const Fault&) {};
    StoredConfig config(*settings.value(), ignore);
    ShownMenuGroups groups(config, ignore);
    groups.refresh();
    return LoadedGroups{groups.groups(), UserCustomization(*settings.value(), ignore).changes()};
}

} // namespace quelhost
