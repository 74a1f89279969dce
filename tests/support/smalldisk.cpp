#include "tests/support/smalldisk.h"

#include <QFile>

#include <array>
#include <cerrno>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

namespace {

bool writeTo(const char* path, const QByteArray& text)
{
    QFile file(QString::fromLatin1(path));
    return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) &&
           file.write(text) == text.size();
}

// Mounts of this process are no longer those of others.
bool leaveSharedMounts()
{
    const QByteArray user = QByteArray::number(::getuid());
    const QByteArray group = QByteArray::number(::getgid());
    if (::unshare(CLONE_NEWNS) != 0) {
        // Without the right to mount: in a user namespace where we stay who we are.
        if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0 ||
            !writeTo("/proc/self/setgroups", "deny") ||
            !writeTo("/proc/self/uid_map", user + " " + user + " 1\n") ||
            !writeTo("/proc/self/gid_map", group + " " + group + " 1\n"))
            return false;
    }
    return ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

} // namespace

SmallDisk::SmallDisk(const QString& folder, int kilobytes)
    : m_folder(QFile::encodeName(folder))
{
    static const bool left = leaveSharedMounts();
    const QByteArray options = "mode=0755,size=" + QByteArray::number(kilobytes) + "k";
    m_mounted = left && ::mount("disk", m_folder.constData(), "tmpfs", MS_NODEV | MS_NOSUID,
                                options.constData()) == 0;
}

SmallDisk::~SmallDisk()
{
    if (m_mounted)
        ::umount2(m_folder.constData(), MNT_DETACH);
}

bool SmallDisk::fill(int butKilobytes) const
{
    const int file = ::open(ballast().constData(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    const std::array<char, 1024> bytes{};
    off_t size = ::lseek(file, 0, SEEK_END);
    ssize_t written = 0;
    while ((written = ::write(file, bytes.data(), bytes.size())) > 0)
        size += written;
    const bool full = file >= 0 && errno == ENOSPC;
    const bool left = ::ftruncate(file, size - butKilobytes * 1024) == 0;
    ::close(file);
    return full && left;
}

bool SmallDisk::makeRoom() const
{
    return ::unlink(ballast().constData()) == 0;
}

bool SmallDisk::setReadOnly(bool readOnly) const
{
    unsigned long flags = MS_REMOUNT | MS_NODEV | MS_NOSUID;
    if (readOnly)
        flags |= MS_RDONLY;
    return ::mount("disk", m_folder.constData(), "tmpfs", flags, nullptr) == 0;
}
