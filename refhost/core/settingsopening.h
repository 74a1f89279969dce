// How the settings of a profile are opened: what is read when the file is missing, damaged or not
// to be written, and what the user is told about it.
#pragma once

#include "refhost/core/result.h"
#include "refhost/core/settingsdatabase.h"
#include "refhost/core/settingsstore.h"

#include <QString>

#include <vector>

namespace quelhost {

struct OpenedSettings
{
    SettingsDatabase::Pointer database; // null: there is nothing to read
    bool writable = false;              // `database` is the settings file, open for writing
    bool damaged = false; // the damaged file is still in its place; `database` is the good copy
    std::vector<QString> notices;
};

// Opens the settings of an existing profile folder. A damaged file is kept aside and replaced, a
// missing one made; with ReadOnly access no file is changed. `tellUser` hears each notice at once,
// also those of an opening that ends with a fault.
// Faults: Busy, BadInput (written by a newer version).
[[nodiscard]] Result<OpenedSettings> openSettings(const QString& folder, SettingsAccess access,
                                                  const TellUser& tellUser);

// Tries once more to open the settings file for writing, making it when there is none. Repairs
// nothing.
[[nodiscard]] Result<SettingsDatabase::Pointer> openSettingsAgain(const QString& folder);

// Puts a copy of `database` in place of the last good copy, unless that is sound and holds the same
// items already. On a fault the former one stands.
[[nodiscard]] Status renewGoodCopy(const SettingsDatabase& database, const QString& folder);

} // namespace quelhost
