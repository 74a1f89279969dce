#include "bench/support/diskfolder.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStorageInfo>

namespace ratios {

namespace {

// The upper layer of the overlay that is mounted there; empty when the system does not tell.
QString upperLayer(const QString& mountPoint)
{
    QFile mounts(QStringLiteral("/proc/self/mounts"));
    if (!mounts.open(QIODevice::ReadOnly))
        return {};
    const QRegularExpression mount(QStringLiteral("^\\S+ %1 overlay \\S*upperdir=([^, ]+)")
                                       .arg(QRegularExpression::escape(mountPoint)),
                                   QRegularExpression::MultilineOption);
    return mount.match(QString::fromLocal8Bit(mounts.readAll())).captured(1);
}

} // namespace

QString diskFolderTemplate()
{
    const QFileInfo program(QFile::symLinkTarget(QStringLiteral("/proc/self/exe")));
    return program.path() + QStringLiteral("/quelhost-bench-XXXXXX");
}

bool isInMemory(const QString& path)
{
    const QStorageInfo storage(path);
    const QByteArray type = storage.fileSystemType();
    if (type != "overlay")
        return type == "tmpfs" || type == "ramfs";
    const QString upper = upperLayer(storage.rootPath());
    return !upper.isEmpty() && QFileInfo::exists(upper) && isInMemory(upper);
}

} // namespace ratios
