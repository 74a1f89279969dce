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

// One opening, step by step; `m_opened` grows to what is handed out.
class Opening
{
public:
    Opening(const QString& folder, SettingsAccess access, const TellUser& tellUser)
        : m_folder(folder)
        , m_file(settingsFile(folder))
        , m_access(access)
        , m_tellUser(tellUser)
    {}

    Status run();
    OpenedSettings take() { return std::move(m_opened); }

private:
    Status openPresent();
    Status openForReadingOnly(const QString& whyNotWriting);
    Status startNew();
    Status replace(Finding finding);
    Status putFreshInPlace();
    Status keepWhatIsThere(const QString& file, const char* toldBy);
    Status openReplaced();
    Status openForReadingBecause(const Fault& why);
    void readGoodCopy();
    void workWithoutFile(const QString& why);
    void tell(const QString& sentence);
    bool goodCopyExists() const;
    bool mayWrite() const { return m_access == SettingsAccess::ReadWrite; }

    QString m_folder;
    QString m_file;
    SettingsAccess m_access;
    const TellUser& m_tellUser;
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
        return openForReadingOnly({});
    Result<SettingsDatabase::Pointer> opened = SettingsDatabase::openForWriting(m_file);
    if (!opened) {
        const Fault& why = opened.fault();
        if (why.kind == FaultKind::Damaged)
            return replace(Finding::Damaged);
        return openForReadingBecause(why);
    }
    m_opened.database = std::move(opened.value());
    m_opened.writable = true;
    if (const Status copied = renewGoodCopy(*m_opened.database, m_folder); !copied)
        tell(copied.fault().sentence);
    return Done{};
}

Status Opening::openForReadingBecause(const Fault& why)
{
    return mayStillBeRead(why) ? openForReadingOnly(why.sentence) : Status(why);
}

Status Opening::openForReadingOnly(const QString& whyNotWriting)
{
    Result<SettingsDatabase::Pointer> opened = SettingsDatabase::openForReading(m_file);
    if (opened) {
        m_opened.database = std::move(opened.value());
        if (!whyNotWriting.isEmpty())
            tell(qtTrId("settings-only-read").arg(whyNotWriting));
        return Done{};
    }
    const Fault& why = opened.fault();
    if (why.kind == FaultKind::Damaged) {
        tell(qtTrId("settings-damaged").arg(m_file));
        readGoodCopy();
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

// What is found is told before any of it is changed, and what becomes of it before the new file is
// in its place: a program that is ended in between has told it, or the next one finds it again.
Status Opening::replace(Finding finding)
{
    tell((finding == Finding::Missing ? qtTrId("settings-missing") : qtTrId("settings-damaged"))
             .arg(m_file));
    if (mayWrite()) {
        const Status placed = putFreshInPlace();
        if (placed)
            return openReplaced();
        tell(placed.fault().sentence);
    }
    readGoodCopy();
    return Done{};
}

// The new file is complete before the damaged one is moved, so that a full disk leaves everything
// where it was.
Status Opening::putFreshInPlace()
{
    const QString fresh = newCopyFile(m_folder);
    const Result<bool> restored = makeFresh(m_folder, fresh);
    if (!restored)
        return restored.fault();
    if (const Status kept = keepWhatIsThere(m_file, "settings-kept-aside"); !kept)
        return kept;
    const QString good = goodCopyFile(m_folder);
    if (restored.value()) {
        tell(qtTrId("settings-restored").arg(dateOf(good)));
    } else {
        if (const Status kept = keepWhatIsThere(good, "settings-good-copy-unusable"); !kept)
            return kept;
        tell(qtTrId("settings-start-empty"));
    }
    return putInPlace(fresh, m_file);
}

// Keeps a file with its companions aside when there is one, and tells where.
Status Opening::keepWhatIsThere(const QString& file, const char* toldBy)
{
    if (presenceOf(file) == FilePresence::Absent && !hasCompanions(file))
        return Done{};
    const Result<QString> aside = keepAside(file);
    if (!aside)
        return aside.fault();
    tell(qtTrId(toldBy).arg(aside.value()));
    return Done{};
}

Status Opening::openReplaced()
{
    Result<SettingsDatabase::Pointer> opened = SettingsDatabase::openForWriting(m_file);
    if (!opened)
        return openForReadingBecause(opened.fault());
    m_opened.database = std::move(opened.value());
    m_opened.writable = true;
    return Done{};
}

void Opening::readGoodCopy()
{
    m_opened.damaged = true;
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
    tell(qtTrId("settings-not-kept").arg(why));
}

// Two attempts that fail for one cause have one sentence.
void Opening::tell(const QString& sentence)
{
    std::vector<QString>& notices = m_opened.notices;
    if (std::find(notices.begin(), notices.end(), sentence) != notices.end())
        return;
    notices.push_back(sentence);
    if (m_tellUser)
        m_tellUser(sentence);
}

bool Opening::goodCopyExists() const
{
    return presenceOf(goodCopyFile(m_folder)) != FilePresence::Absent;
}

} // namespace

Result<OpenedSettings> openSettings(const QString& folder, SettingsAccess access,
                                    const TellUser& tellUser)
{
    Opening opening(folder, access, tellUser);
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
