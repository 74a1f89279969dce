#include "refhost/core/settingsopening.h"

#include "refhost/core/settingsfiles.h"
#include "refhost/core/systemfault.h"

#include <QDateTime>
#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace quelhost {

namespace {

bool mayStillBeRead(const Fault& fault)
{
    return fault.kind == FaultKind::NotPermitted || fault.kind == FaultKind::Io;
}

// What was found of the settings file.
enum class Finding { Missing, Damaged };

// What became of a file that was replaced; names are empty when there was nothing to keep.
struct Replacement
{
    bool restored = false; // from the good copy
    QString keptAside;
    QString goodCopyKeptAside;
};

// One opening, step by step; `m_opened` grows to what is handed out.
class Opening
{
public:
    Opening(const QString& folder, SettingsAccess access)
        : m_folder(folder)
        , m_file(settingsFile(folder))
        , m_access(access)
    {}

    Status run();
    OpenedSettings take() { return std::move(m_opened); }

private:
    Status openPresent();
    Status openForReadingOnly();
    Status startNew();
    Status replace(Finding finding);
    Result<Replacement> putFreshInPlace();
    Status openReplaced();
    void readGoodCopy(Finding finding);
    void workWithoutFile(const QString& why);
    void tell(const QString& sentence);
    void tellReplaced(const Replacement& replaced);
    bool goodCopyExists() const;
    bool mayWrite() const { return m_access == SettingsAccess::ReadWrite; }

    QString m_folder;
    QString m_file;
    SettingsAccess m_access;
    OpenedSettings m_opened;
};

QString dateOf(const QString& file)
{
    return QFileInfo(file).lastModified().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

Status makeEmpty(const QString& fresh)
{
    const Status discarded = discard(fresh);
    return discarded ? SettingsDatabase::create(fresh) : discarded;
}

// Makes `fresh` a complete settings file: a copy of the good copy when that is sound, else one
// without items. Returns whether it is the copy.
Result<bool> makeFresh(const QString& folder, const QString& fresh)
{
    const QString good = goodCopyFile(folder);
    if (presenceOf(good) == FilePresence::Present) {
        if (const auto sound = SettingsDatabase::openForReading(good)) {
            Status copied = discard(fresh);
            if (copied)
                copied = sound.value()->copyTo(fresh);
            if (copied)
                return true;
            if (copied.fault().kind != FaultKind::Damaged)
                return copied.fault();
        }
    }
    if (const Status made = makeEmpty(fresh); !made)
        return made.fault();
    return false;
}

Status makeNewFile(const QString& folder)
{
    const QString fresh = newCopyFile(folder);
    if (const Status made = makeEmpty(fresh); !made)
        return made;
    return putInPlace(fresh, settingsFile(folder));
}

// Whether the good copy is sound and holds the very items of `database`.
bool isGoodCopyOf(const QString& good, const SettingsDatabase& database)
{
    if (presenceOf(good) != FilePresence::Present || hasCompanions(good))
        return false;
    const Result<SettingsDatabase::Pointer> sound = SettingsDatabase::openForReading(good);
    if (!sound)
        return false;
    const Result<std::vector<Item>> kept = sound.value()->all();
    const Result<std::vector<Item>> present = database.all();
    return kept && present && kept.value() == present.value();
}

// Keeps a file with its companions aside when there is one.
Status keepWhatIsThere(const QString& file, QString& keptAside)
{
    if (presenceOf(file) == FilePresence::Absent && !hasCompanions(file))
        return Done{};
    const Result<QString> aside = keepAside(file);
    if (!aside)
        return aside.fault();
    keptAside = aside.value();
    return Done{};
}

Status Opening::run()
{
    switch (presenceOf(m_file)) {
    case FilePresence::Present:
        return openPresent();
    case FilePresence::Unusable:
        return replace(Finding::Damaged);
    case FilePresence::Unreachable:
        workWithoutFile(
            qtTrId("settings-not-opened").arg(m_file, qtTrId("settings-reason-refused")));
        return Done{};
    case FilePresence::Absent:
        break;
    }
    return goodCopyExists() || hasCompanions(m_file) ? replace(Finding::Missing) : startNew();
}

Status Opening::openPresent()
{
    if (!mayWrite())
        return openForReadingOnly();
    Result<SettingsDatabase::Pointer> opened = SettingsDatabase::openForWriting(m_file);
    if (!opened) {
        const Fault& why = opened.fault();
        if (why.kind == FaultKind::Damaged)
            return replace(Finding::Damaged);
        if (!mayStillBeRead(why))
            return why;
        tell(why.sentence);
        return openForReadingOnly();
    }
    m_opened.database = std::move(opened.value());
    m_opened.writable = true;
    if (const Status copied = renewGoodCopy(*m_opened.database, m_folder); !copied)
        tell(copied.fault().sentence);
    return Done{};
}

Status Opening::openForReadingOnly()
{
    Result<SettingsDatabase::Pointer> opened = SettingsDatabase::openForReading(m_file);
    if (opened) {
        m_opened.database = std::move(opened.value());
        if (mayWrite())
            tell(qtTrId("settings-only-read"));
        return Done{};
    }
    const Fault why = opened.fault();
    if (why.kind == FaultKind::Damaged) {
        readGoodCopy(Finding::Damaged);
        return Done{};
    }
    if (!mayStillBeRead(why))
        return why;
    workWithoutFile(why.sentence);
    return Done{};
}

Status Opening::startNew()
{
    if (!mayWrite())
        return Done{};
    if (const Status made = makeNewFile(m_folder); !made) {
        workWithoutFile(made.fault().sentence);
        return Done{};
    }
    return openPresent();
}

Status Opening::replace(Finding finding)
{
    if (!mayWrite()) {
        readGoodCopy(finding);
        return Done{};
    }
    const Result<Replacement> replaced = putFreshInPlace();
    if (!replaced) {
        tell(replaced.fault().sentence);
        readGoodCopy(finding);
        return Done{};
    }
    tell(finding == Finding::Missing ? qtTrId("settings-missing").arg(m_file)
                                     : qtTrId("settings-damaged").arg(m_file));
    tellReplaced(replaced.value());
    return openReplaced();
}

// The new file is complete before the damaged one is moved, so that a full disk leaves everything
// where it was.
Result<Replacement> Opening::putFreshInPlace()
{
    const QString fresh = newCopyFile(m_folder);
    const Result<bool> restored = makeFresh(m_folder, fresh);
    if (!restored)
        return restored.fault();
    Replacement result;
    result.restored = restored.value();
    const QString good = goodCopyFile(m_folder);
    if (const Status kept = keepWhatIsThere(m_file, result.keptAside); !kept)
        return kept.fault();
    if (!result.restored) {
        if (const Status kept = keepWhatIsThere(good, result.goodCopyKeptAside); !kept)
            return kept.fault();
    }
    if (const Status placed = putInPlace(fresh, m_file); !placed)
        return placed.fault();
    return result;
}

Status Opening::openReplaced()
{
    Result<SettingsDatabase::Pointer> opened = SettingsDatabase::openForWriting(m_file);
    if (!opened)
        return opened.fault();
    m_opened.database = std::move(opened.value());
    m_opened.writable = true;
    return Done{};
}

void Opening::readGoodCopy(Finding finding)
{
    m_opened.damaged = true;
    tell(finding == Finding::Missing ? qtTrId("settings-missing").arg(m_file)
                                     : qtTrId("settings-damage-stays").arg(m_file));
    const QString good = goodCopyFile(m_folder);
    Result<SettingsDatabase::Pointer> opened = SettingsDatabase::openForReading(good);
    if (opened) {
        m_opened.database = std::move(opened.value());
        tell(qtTrId("settings-good-copy-read").arg(dateOf(good)));
    } else {
        tell(qtTrId("settings-nothing-to-read"));
    }
}

void Opening::workWithoutFile(const QString& why)
{
    tell(why);
    tell(qtTrId("settings-not-kept"));
}

// Two attempts that fail for one cause have one sentence.
void Opening::tell(const QString& sentence)
{
    std::vector<QString>& notices = m_opened.notices;
    if (std::find(notices.begin(), notices.end(), sentence) == notices.end())
        notices.push_back(sentence);
}

void Opening::tellReplaced(const Replacement& replaced)
{
    if (!replaced.keptAside.isEmpty())
        tell(qtTrId("settings-kept-aside").arg(replaced.keptAside));
    if (replaced.restored) {
        tell(qtTrId("settings-restored").arg(dateOf(goodCopyFile(m_folder))));
        return;
    }
    if (!replaced.goodCopyKeptAside.isEmpty())
        tell(qtTrId("settings-good-copy-unusable").arg(replaced.goodCopyKeptAside));
    tell(qtTrId("settings-start-empty"));
}

bool Opening::goodCopyExists() const
{
    return presenceOf(goodCopyFile(m_folder)) != FilePresence::Absent;
}

} // namespace

Result<OpenedSettings> openSettings(const QString& folder, SettingsAccess access)
{
    Opening opening(folder, access);
    if (const Status done = opening.run(); !done)
        return done.fault();
    return opening.take();
}

Result<SettingsDatabase::Pointer> openSettingsAgain(const QString& folder)
{
    const QString file = settingsFile(folder);
    if (presenceOf(file) == FilePresence::Absent) {
        if (const Status made = makeNewFile(folder); !made)
            return made.fault();
    }
    return SettingsDatabase::openForWriting(file);
}

Status renewGoodCopy(const SettingsDatabase& database, const QString& folder)
{
    const QString fresh = newCopyFile(folder);
    const QString good = goodCopyFile(folder);
    Status renewed = discard(fresh);
    if (renewed && isGoodCopyOf(good, database))
        return renewed;
    if (renewed)
        renewed = database.copyTo(fresh);
    if (renewed)
        renewed = replaceWhole(fresh, good);
    if (renewed)
        return renewed;
    // Half a copy is of no use and takes room that a full disk needs.
    static_cast<void>(discard(fresh));
    const Fault& why = renewed.fault();
    return plainFault(why.kind, qtTrId("settings-good-copy-not-renewed").arg(why.sentence));
}

} // namespace quelhost
