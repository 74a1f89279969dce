#include "refhost/core/settingsconnection.h"

#include "refhost/core/settingsfiles.h"

#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <cerrno>
#include <string>

#include <SQLiteCpp/Exception.h>
#include <fcntl.h>
#include <unistd.h>

namespace quelhost {

namespace {

// How long to wait for a lock that another program holds only in passing.
constexpr int kPatienceMs = 2000;

int accessError(const QString& path, int mode)
{
    const QByteArray name = QFile::encodeName(path);
    return ::faccessat(AT_FDCWD, name.constData(), mode, AT_EACCESS) == 0 ? 0 : errno;
}

// The errno of opening the file, found by asking again: a connection that was never made keeps
// none.
int openingError(const QString& file)
{
    const int error = accessError(file, R_OK);
    return error == ENOENT ? accessError(QFileInfo(file).path(), W_OK | X_OK) : error;
}

Fault openingFault(const QString& file, const SettingsTrouble& trouble)
{
    return plainFault(trouble.kind, qtTrId("settings-not-opened").arg(file, trouble.reason));
}

Result<SettingsConnection> connect(const QString& file, const std::string& name, int flags,
                                   const std::string& vfs = {})
{
    try {
        return std::make_unique<SQLite::Database>(name, flags, kPatienceMs, vfs);
    } catch (const SQLite::Exception& error) {
        return openingFault(file, troubleOf(error.getErrorCode(), openingError(file)));
    }
}

// Makes the library really look at file and log; before the first question it opens neither.
Status askForContent(const QString& file, SQLite::Database& connection)
{
    return attempt(
        connection,
        [&]() -> Status {
            connection.exec("SELECT count(*) FROM sqlite_schema");
            return Done{};
        },
        [&](const QString& reason) { return qtTrId("settings-not-opened").arg(file, reason); });
}

void keepLogOnClose(SQLite::Database& connection, bool keep)
{
    sqlite3_db_config(connection.getHandle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, keep ? 1 : 0,
                      nullptr);
}

Result<SettingsConnection> readable(const QString& file, Result<SettingsConnection> opened,
                                    const char* firstQuestion = "")
{
    if (!opened)
        return opened;
    SQLite::Database& connection = *opened.value();
    connection.tryExec(firstQuestion);
    if (const Status content = askForContent(file, connection); !content)
        return content.fault();
    return opened;
}

// For a folder in which the library cannot make the index of the log. Without a log the file is
// complete as it stands. With one, a connection that takes no locks and claims the file for itself
// keeps the index in its own memory; nobody can be writing then, or there would be an index.
Result<SettingsConnection> connectWithoutIndex(const QString& file)
{
    // The library keeps the log beside the file itself, wherever links lead.
    const QString log = QFileInfo(file).canonicalFilePath() + QStringLiteral("-wal");
    if (presenceOf(log) == FilePresence::Present) {
        return readable(
            file,
            connect(file, QFile::encodeName(file).toStdString(), SQLITE_OPEN_READONLY, "unix-none"),
            "PRAGMA locking_mode=EXCLUSIVE");
    }
    const QByteArray escaped = QUrl::toPercentEncoding(file, "/");
    return readable(file, connect(file, "file:" + escaped.toStdString() + "?immutable=1",
                                  SQLITE_OPEN_READONLY | SQLITE_OPEN_URI));
}

} // namespace

SettingsTrouble troubleOf(int code, int systemError)
{
    switch (code & 0xFF) {
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
    // All that is asked is asked in fixed words: when they make no sense, the file is to blame.
    case SQLITE_ERROR:
        return {FaultKind::Damaged, qtTrId("settings-reason-damaged")};
    case SQLITE_FULL:
        return {FaultKind::Io, qtTrId("settings-reason-full")};
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return {FaultKind::Busy, qtTrId("settings-reason-busy")};
    case SQLITE_TOOBIG:
        return {FaultKind::BadInput, qtTrId("settings-reason-too-long")};
    case SQLITE_READONLY:
    case SQLITE_PERM:
        return {FaultKind::NotPermitted, qtTrId("settings-reason-read-only")};
    default:
        break;
    }
    if (systemError == ENOSPC || systemError == EDQUOT)
        return {FaultKind::Io, qtTrId("settings-reason-full")};
    if (isRefusal(systemError))
        return {FaultKind::NotPermitted, qtTrId("settings-reason-refused")};
    const QString reason =
        systemError != 0 ? qt_error_string(systemError) : QString::fromUtf8(sqlite3_errstr(code));
    return {FaultKind::Io, reason};
}

SettingsTrouble troubleOf(const SQLite::Exception& error, const SQLite::Database& connection)
{
    const int extended = error.getExtendedErrorCode();
    const int code = extended > 0 ? extended : error.getErrorCode();
    const bool system = (code & 0xFF) == SQLITE_IOERR || (code & 0xFF) == SQLITE_CANTOPEN;
    return troubleOf(code, system ? sqlite3_system_errno(connection.getHandle()) : 0);
}

Result<SettingsConnection> connectForWriting(const QString& file)
{
    Result<SettingsConnection> opened =
        connect(file, QFile::encodeName(file).toStdString(), SQLITE_OPEN_READWRITE);
    if (!opened)
        return opened;
    SQLite::Database& connection = *opened.value();
    keepLogOnClose(connection, true);
    // The library opens a file that it may not write for reading and does not say so.
    if (sqlite3_db_readonly(connection.getHandle(), "main") != 0)
        return openingFault(file, troubleOf(SQLITE_READONLY, 0));
    if (const Status content = askForContent(file, connection); !content)
        return content.fault();
    // The system permits writing and the header of the file does not.
    if (sqlite3_db_readonly(connection.getHandle(), "main") != 0)
        return openingFault(file, troubleOf(SQLITE_CORRUPT, 0));
    return opened;
}

void foldLogOnClose(SQLite::Database& connection)
{
    keepLogOnClose(connection, false);
}

Result<SettingsConnection> connectForReading(const QString& file)
{
    Result<SettingsConnection> usual =
        readable(file, connect(file, QFile::encodeName(file).toStdString(), SQLITE_OPEN_READONLY));
    if (usual || usual.fault().kind == FaultKind::Damaged || usual.fault().kind == FaultKind::Busy)
        return usual;
    return connectWithoutIndex(file);
}

Result<SettingsConnection> connectToNew(const QString& file)
{
    Result<SettingsConnection> opened = connect(file, QFile::encodeName(file).toStdString(),
                                                SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    if (opened)
        opened.value()->tryExec("PRAGMA synchronous=OFF; PRAGMA journal_mode=MEMORY;"
                                " PRAGMA locking_mode=EXCLUSIVE");
    return opened;
}

} // namespace quelhost
