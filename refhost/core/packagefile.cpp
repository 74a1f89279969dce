#include "refhost/core/packagefile.h"

#include "refhost/core/filedescriptor.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace quelhost {

namespace {

[[nodiscard]] Fault systemFault(int error, const QString& path)
{
    if (error == ENOENT || error == ENOTDIR)
        return {FaultKind::NotFound, qtTrId("package-file-missing"), path, 0, 0};
    if (error == EACCES || error == EPERM)
        return {FaultKind::NotPermitted, qtTrId("package-file-permission"), path, 0, 0};
    const std::string reason = std::generic_category().message(error);
    const QString sentence =
        qtTrId("package-file-unreadable").arg(QString::fromLocal8Bit(reason.c_str()));
    return {FaultKind::Io, sentence, path, 0, 0};
}

[[nodiscard]] QString kindSentence(const struct stat& status, qint64 maxBytes)
{
    if (S_ISDIR(status.st_mode))
        return qtTrId("package-file-folder");
    if (!S_ISREG(status.st_mode))
        return qtTrId("package-file-special");
    if (status.st_size > maxBytes)
        return qtTrId("package-file-too-large").arg(maxBytes / 1024 / 1024);
    return {};
}

// As many bytes as the file has, at most `size`.
[[nodiscard]] Result<QByteArray> readBytes(int file, qint64 size, const QString& path)
{
    QByteArray bytes(static_cast<int>(size), '\0');
    int filled = 0;
    while (filled < bytes.size()) {
        const ssize_t got =
            ::read(file, bytes.data() + filled, static_cast<std::size_t>(bytes.size() - filled));
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return systemFault(errno, path);
        if (got == 0)
            break;
        filled += static_cast<int>(got);
    }
    bytes.truncate(filled);
    return bytes;
}

} // namespace

Result<QByteArray> readPackageFile(const QString& path, qint64 maxBytes)
{
    // Without O_NONBLOCK, opening a pipe would wait for somebody to write to it.
    const FileDescriptor file(
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!file.isOpen())
        return systemFault(errno, path);
    struct stat status = {};
    if (::fstat(file.number(), &status) != 0)
        return systemFault(errno, path);
    const QString sentence = kindSentence(status, maxBytes);
    if (!sentence.isEmpty())
        return Fault{FaultKind::BadInput, sentence, path, 0, 0};
    return readBytes(file.number(), status.st_size, path);
}

} // namespace quelhost
