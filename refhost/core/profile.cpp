#include "refhost/core/profile.h"

#include "refhost/core/settingsfiles.h"
#include "refhost/core/systemfault.h"
#include "refhost/core/widetext.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringList>

#include <cerrno>
#include <filesystem>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quelhost {

namespace {

constexpr int kListCategory = 4;
constexpr const wchar_t* kListKey = L"CUIX/LoadedCuix";
constexpr wchar_t kSeparator = L';';

Fault notMade(const QString& folder, int error)
{
    return plainFault(kindOfError(error),
                      qtTrId("profile-not-made").arg(folder, qt_error_string(error)));
}

// Settings may tell what somebody works on: a folder that we make is the user's own. What is
// already there keeps its permissions.
Status makeFolder(const QString& folder)
{
    std::error_code error;
    const std::filesystem::path path(QFile::encodeName(folder).toStdString());
    std::filesystem::create_directories(path.parent_path(), error);
    if (error)
        return notMade(folder, error.value());
    const int reason = ::mkdir(path.c_str(), S_IRWXU) == 0 ? 0 : errno;
    if (QFileInfo(folder).isDir())
        return Done{};
    return notMade(folder, reason == EEXIST ? ENOTDIR : reason);
}

// 0, or the errno that says why there is no such access.
int accessError(const QString& path, int access)
{
    const QByteArray name = QFile::encodeName(path);
    return ::faccessat(AT_FDCWD, name.constData(), access, AT_EACCESS) == 0 ? 0 : errno;
}

// Relative entries mean another file in every working directory, so they never count as one.
bool isMainFile(std::wstring_view entry, const QString& mainFile)
{
    const QString path = toQString(entry);
    if (path == mainFile)
        return true;
    const bool nameable = QDir::isAbsolutePath(path) && !path.contains(QChar(QChar::Null));
    const QString real = nameable ? QFileInfo(path).canonicalFilePath() : QString();
    return !real.isEmpty() && real == QFileInfo(mainFile).canonicalFilePath();
}

std::vector<std::wstring_view> entriesOf(std::wstring_view list)
{
    std::vector<std::wstring_view> entries;
    for (auto end = list.find(kSeparator); end != list.npos; end = list.find(kSeparator)) {
        entries.push_back(list.substr(0, end));
        list.remove_prefix(end + 1);
    }
    entries.push_back(list);
    return entries;
}

// The main file, then all entries of the list that are not the main file. An empty text is a list
// without entries, not one with an empty entry.
std::wstring withMainFileFirst(std::wstring_view list, const QString& mainFile)
{
    std::wstring result = toWide(mainFile);
    if (list.empty())
        return result;
    for (const std::wstring_view entry : entriesOf(list)) {
        if (!isMainFile(entry, mainFile))
            result.append(1, kSeparator).append(entry);
    }
    return result;
}

bool beginsWithMainFile(const Item& list, const QString& mainFile)
{
    const std::wstring_view text = list.text;
    return list.kind == ItemKind::String &&
           isMainFile(text.substr(0, text.find(kSeparator)), mainFile);
}

// Why the list is not as it should be, as a sentence about what becomes of it.
QString listSentence(const std::optional<Item>& list, const QString& mainFile)
{
    if (!list)
        return qtTrId("profile-list-missing").arg(mainFile);
    if (list->kind != ItemKind::String)
        return qtTrId("profile-list-no-text").arg(mainFile);
    return qtTrId("profile-main-file-first").arg(mainFile);
}

// The sentence that tells what became of a missing main file; empty when there is none to tell.
QString ensureMainFileExists(const Profile& profile, const QByteArray& content)
{
    const QString file = profile.mainFile();
    if (QFileInfo::exists(file))
        return {};
    if (!profile.writable())
        return qtTrId("profile-main-file-missing").arg(file);
    if (const Status written = writeFileSafely(file, content); !written)
        return written.fault().sentence;
    return profile.isNew() ? QString() : qtTrId("profile-main-file-written").arg(file);
}

// A first start that was ended before it stored the list leaves settings without any item; it is
// made up for without a word.
bool wereUsed(const SettingsStore& settings)
{
    const Result<std::vector<Item>> items = settings.all();
    return !items || !items.value().empty();
}

} // namespace

QString Profile::defaultFolder()
{
    const QString set = QFile::decodeName(qgetenv("XDG_CONFIG_HOME"));
    const bool usable = QDir::isAbsolutePath(set);
    const QString parent = usable ? set : QDir::homePath() + QStringLiteral("/.config");
    return QDir::cleanPath(parent + QStringLiteral("/quelhost"));
}

Profile::Profile(const QString& folder)
    : m_folder(QDir::cleanPath(QDir(folder).absolutePath()))
{}

Result<std::unique_ptr<Profile>> Profile::open(const QString& folder)
{
    std::unique_ptr<Profile> profile(new Profile(folder));
    if (profile->m_folder.contains(QLatin1Char(';'))) {
        return plainFault(FaultKind::BadInput,
                          qtTrId("profile-holds-semicolon").arg(profile->m_folder));
    }
    if (const Status made = makeFolder(profile->m_folder); !made)
        return made.fault();
    if (const Status held = profile->hold(); !held)
        return held.fault();
    profile->m_new = presenceOf(settingsFile(profile->m_folder)) == FilePresence::Absent &&
                     presenceOf(goodCopyFile(profile->m_folder)) == FilePresence::Absent;
    return profile;
}

Status Profile::hold()
{
    if (const int error = accessError(m_folder, W_OK | X_OK); error != 0) {
        m_notices.push_back(qtTrId("profile-not-writable").arg(m_folder, qt_error_string(error)));
        return Done{};
    }
    Result<ProfileLock> lock = ProfileLock::take(m_folder);
    if (lock) {
        m_lock.emplace(std::move(lock.value()));
        return Done{};
    }
    if (lock.fault().kind == FaultKind::Busy)
        return lock.fault();
    // Writing without the lock could meet another host's writing.
    m_notices.push_back(qtTrId("profile-only-read").arg(lock.fault().sentence));
    return Done{};
}

SettingsAccess Profile::settingsAccess() const
{
    return writable() ? SettingsAccess::ReadWrite : SettingsAccess::ReadOnly;
}

Status Profile::writeStarterFiles(const QByteArray& mainFileBytes,
                                  const QByteArray& aliasFileBytes) const
{
    if (!m_new || !writable())
        return Done{};
    if (!QFileInfo::exists(mainFile())) {
        if (const Status written = writeFileSafely(mainFile(), mainFileBytes); !written)
            return written;
    }
    if (!QFileInfo::exists(aliasFile()))
        return writeFileSafely(aliasFile(), aliasFileBytes);
    return Done{};
}

Status writeFileSafely(const QString& file, const QByteArray& bytes)
{
    QSaveFile target(file);
    // A buffer that finds the disk full at the end would be lost without a fault.
    const bool written = target.open(QIODevice::WriteOnly | QIODevice::Unbuffered) &&
                         target.write(bytes) == bytes.size() && target.commit();
    if (written)
        return syncFolder(QFileInfo(file).path());
    const bool refused = isRefusal(accessError(QFileInfo(file).path(), W_OK | X_OK)) ||
                         isRefusal(accessError(file, W_OK));
    return plainFault(refused ? FaultKind::NotPermitted : FaultKind::Io,
                      qtTrId("profile-file-not-written").arg(file, target.errorString()));
}

Result<std::vector<QString>> ensureMainFile(const Profile& profile, SettingsStore& settings,
                                            const QByteArray& content)
{
    std::vector<QString> sentences;
    if (const QString told = ensureMainFileExists(profile, content); !told.isEmpty())
        sentences.push_back(told);
    const Result<std::optional<Item>> read = settings.read(kListCategory, kListKey);
    if (!read)
        return read.fault();
    const std::optional<Item>& list = read.value();
    if (list && beginsWithMainFile(*list, profile.mainFile()))
        return sentences;
    const bool text = list && list->kind == ItemKind::String;
    const Item whole =
        Item::string(kListCategory, kListKey,
                     withMainFileFirst(text ? std::wstring_view(list->text) : std::wstring_view(),
                                       profile.mainFile()));
    if (list || wereUsed(settings))
        sentences.push_back(listSentence(list, profile.mainFile()));
    const bool writable = settings.writable();
    if (const Status stored = settings.write(whole); !stored) {
        settings.setForThisRun(whole);
        if (writable)
            sentences.push_back(stored.fault().sentence);
    }
    return sentences;
}

} // namespace quelhost
