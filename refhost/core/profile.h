// The folder where a user's settings, aliases and main customization file live.
//
// While a Profile that can be written is open, no other host has the same folder open for writing.
// A folder that cannot be written is used without holding it: nothing in it changes.
#pragma once

#include "refhost/core/profilelock.h"
#include "refhost/core/result.h"
#include "refhost/core/settingsstore.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace quelhost {

class Profile
{
public:
    // `$XDG_CONFIG_HOME/quelhost`; `~/.config/quelhost` when that variable holds no absolute path.
    [[nodiscard]] static QString defaultFolder();

    // Opens a profile folder, making it with its parents when it is not there, and holds it until
    // the object goes. A folder that cannot be written is no fault: `notices` and `writable` say
    // so. Faults: the folder cannot be made (NotPermitted, Io), its path holds a ';' and could not
    // stand in the list of loaded files (BadInput), another host holds it (Busy).
    [[nodiscard]] static Result<std::unique_ptr<Profile>> open(const QString& folder);

    // The absolute path, without "." and "..", links as they were given.
    [[nodiscard]] const QString& folder() const { return m_folder; }
    [[nodiscard]] QString mainFile() const { return m_folder + QStringLiteral("/QUELD.cuix"); }
    [[nodiscard]] QString aliasFile() const { return m_folder + QStringLiteral("/QUELD.pgp"); }

    // Whether there were no settings in it, nor a good copy of them, when it was opened.
    [[nodiscard]] bool isNew() const { return m_new; }
    [[nodiscard]] bool writable() const { return m_lock.has_value(); }
    [[nodiscard]] SettingsAccess settingsAccess() const;

    // What the user is to be told about the opening, one sentence each.
    [[nodiscard]] const std::vector<QString>& notices() const { return m_notices; }

    // Writes the main customization file and the alias file of a new profile; one that is already
    // there stays as it is. To be called before the settings store is opened: until there are
    // settings the profile stays new, and an interrupted first start is made up for by the next.
    [[nodiscard]] Status writeStarterFiles(const QByteArray& mainFile,
                                           const QByteArray& aliasFile) const;

private:
    explicit Profile(const QString& folder);

    [[nodiscard]] Status hold();

    QString m_folder;
    bool m_new = false;
    std::optional<ProfileLock> m_lock;
    std::vector<QString> m_notices;
};

// Replaces a file by one with these bytes in one step, or makes it; when it returns, they are on
// disk. On a fault the former file is as it was.
[[nodiscard]] Status writeFileSafely(const QString& file, const QByteArray& bytes);

// Sees to it that the main customization file exists and is entry 0 of the list of loaded files
// ("CUIX/LoadedCuix", paths joined by ';'). Returns what the user is to be told, one sentence each.
//
// A missing file is written anew with `content`. Without a list, or with one that is empty or no
// text, the list becomes the main file alone. Otherwise the main file is put in front, taken away
// from where else it stands, and all other entries, empty ones too, stay as they are. An entry that
// names the main file in another way counts as the main file. Settings without any item are a first
// start's, and there is nothing to tell about their list.
//
// What cannot be stored is put in force for this run, and told unless the settings were opened as
// ones that cannot be written, which a notice has said. The only fault is that the list cannot be
// read.
[[nodiscard]] Result<std::vector<QString>>
ensureMainFile(const Profile& profile, SettingsStore& settings, const QByteArray& content);

} // namespace quelhost
