#include "refhost/core/settingsfiles.h"

#include "refhost/core/filedescriptor.h"
#include "refhost/core/systemfault.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>

namespace quelhost {

namespace {

constexpr const char* kCompanions[] = {"-wal", "-shm", "-journal"};

bool isThere(const QString& file)
{
    struct stat status = {};
    return ::lstat(QFile::encodeName(file).constData(), &status) == 0;
}

QString companion(const QString& file, const char* suffix)
{
    return file + QString::fromLatin1(suffix);
}

Fault renameFault(const QString& from, const QString& to, int error)
{
    return plainFault(kindOfError(error),
                      qtTrId("settings-not-renamed").arg(from, to, qt_error_string(error)));
}

Status renameFile(const QString& from, const QString& to)
{
    if (std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0)
        return renameFault(from, to, errno);
    return Done{};
}

Status syncPath(const QString& path, int flags)
{
    const FileDescriptor descriptor(::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC));
    // Some file systems refuse to sync a folder with EINVAL: there, nothing is to be done.
    if (descriptor.isOpen() && (::fsync(descriptor.number()) == 0 || errno == EINVAL))
        return Done{};
    const int error = errno;
    const QString reason = qt_error_string(error);
    return plainFault(kindOfError(error), qtTrId("settings-not-synced").arg(path, reason));
}

QString unusedAsideName(const QString& file)
{
    const QString stem = file.chopped(3); // ".db"
    const QString date = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    const QString dated = stem + QStringLiteral(".damaged-") + date;
    QString name = dated + QStringLiteral(".db");
    for (int number = 2; isThere(name) || hasCompanions(name); ++number)
        name = QStringLiteral("%1-%2.db").arg(dated, QString::number(number));
    return name;
}

} // namespace

QString settingsFile(const QString& folder)
{
    return folder + QStringLiteral("/settings.db");
}

QString goodCopyFile(const QString& folder)
{
    return folder + QStringLiteral("/settings.good.db");
}

QString newCopyFile(const QString& folder)
{
    return folder + QStringLiteral("/settings.new.db");
}

FilePresence presenceOf(const QString& file)
{
    const QByteArray name = QFile::encodeName(file);
    struct stat status = {};
    if (::lstat(name.constData(), &status) != 0)
        return errno == ENOENT ? FilePresence::Absent : FilePresence::Unreachable;
    if (::stat(name.constData(), &status) != 0)
        return errno == EACCES ? FilePresence::Unreachable : FilePresence::Unusable;
    const bool database = S_ISREG(status.st_mode) && status.st_size > 0;
    return database ? FilePresence::Present : FilePresence::Unusable;
}

bool hasCompanions(const QString& file)
{
    for (const char* suffix : kCompanions) {
        if (isThere(companion(file, suffix)))
            return true;
    }
    return false;
}

Result<QString> keepAside(const QString& file)
{
    const QString aside = unusedAsideName(file);
    // The log goes after the file it belongs to: should the program be ended in between, a log
    // without a file is found at the next start, whereas a file without its log would pass for an
    // older state.
    if (isThere(file)) {
        if (const Status moved = renameFile(file, aside); !moved)
            return moved.fault();
    }
    for (const char* suffix : kCompanions) {
        const QString from = companion(file, suffix);
        if (!isThere(from))
            continue;
        if (const Status moved = renameFile(from, companion(aside, suffix)); !moved)
            return moved.fault();
    }
    return aside;
}

Status discard(const QString& file)
{
    for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
        const QString name = companion(file, suffix);
        if (isThere(name) && !QFile::remove(name))
            return plainFault(FaultKind::Io, qtTrId("settings-not-removed").arg(name));
    }
    return Done{};
}

Status replaceWhole(const QString& from, const QString& to)
{
    const Status synced = syncPath(from, O_RDONLY);
    return synced ? renameFile(from, to) : synced;
}

Status putInPlace(const QString& from, const QString& to)
{
    const Status replaced = replaceWhole(from, to);
    return replaced ? syncFolder(QFileInfo(to).path()) : replaced;
}

Status syncFolder(const QString& folder)
{
    return syncPath(folder, O_RDONLY | O_DIRECTORY);
}

} // namespace quelhost
