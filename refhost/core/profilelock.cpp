#include "refhost/core/profilelock.h"

#include "refhost/core/systemfault.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QList>
#include <QThread>

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace quelhost {

namespace {

constexpr int kLongestNote = 4096;

Fault lockFault(const QString& file, int error)
{
    return plainFault(kindOfError(error),
                      qtTrId("profile-not-locked").arg(file, qt_error_string(error)));
}

QByteArray ownNote()
{
    QString program =
        QFileInfo(QFileInfo(QStringLiteral("/proc/self/exe")).symLinkTarget()).fileName();
    if (program.isEmpty())
        program = QCoreApplication::applicationName();
    return QByteArray::number(static_cast<qint64>(::getpid())) + '\n' + QFile::encodeName(program) +
           '\n';
}

// On a full disk the note may not get written; the lock holds all the same, only without a name.
void writeNote(int file)
{
    const QByteArray note = ownNote();
    const bool emptied = ::ftruncate(file, 0) == 0;
    const auto length = static_cast<std::size_t>(note.size());
    const bool written = emptied && ::pwrite(file, note.constData(), length, 0) == note.size();
    if (emptied && !written)
        static_cast<void>(::ftruncate(file, 0) == 0);
}

QByteArray readNote(int file)
{
    QByteArray note(kLongestNote, '\0');
    const auto length = ::pread(file, note.data(), static_cast<std::size_t>(note.size()), 0);
    note.resize(length > 0 ? static_cast<int>(length) : 0);
    return note;
}

// Process number and program; empty when the note is none.
QList<QByteArray> holderOf(int file)
{
    // The holder writes its note a moment after it took the lock.
    constexpr int kTries = 20;
    constexpr unsigned long kPauseMs = 10;
    for (int tries = 0; tries < kTries; ++tries) {
        const QList<QByteArray> lines = readNote(file).split('\n');
        if (lines.size() == 3 && !lines[0].isEmpty())
            return lines;
        QThread::msleep(kPauseMs);
    }
    return {};
}

Fault busyFault(const QString& folder, int file)
{
    const QList<QByteArray> holder = holderOf(file);
    if (holder.isEmpty())
        return plainFault(FaultKind::Busy, qtTrId("profile-in-use-unknown").arg(folder));
    const QString sentence =
        qtTrId("profile-in-use")
            .arg(folder, QFile::decodeName(holder[1]), QString::fromLatin1(holder[0]));
    return plainFault(FaultKind::Busy, sentence);
}

} // namespace

Result<ProfileLock> ProfileLock::take(const QString& folder)
{
    const QString name = folder + QStringLiteral("/lock");
    FileDescriptor file(::open(QFile::encodeName(name).constData(), O_RDWR | O_CREAT | O_CLOEXEC,
                               S_IRUSR | S_IWUSR | S_IRGRP | S_IROTH));
    if (!file.isOpen())
        return lockFault(name, errno);
    if (::flock(file.number(), LOCK_EX | LOCK_NB) != 0)
        return errno == EWOULDBLOCK ? busyFault(folder, file.number()) : lockFault(name, errno);
    writeNote(file.number());
    return ProfileLock(std::move(file));
}

ProfileLock::ProfileLock(FileDescriptor file)
    : m_file(std::move(file))
{}

} // namespace quelhost
