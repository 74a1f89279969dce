// The stored settings as lines of text, for programs and people outside the host.
#pragma once

#include "refhost/core/result.h"
#include "refhost/core/settingsitem.h"

#include <QByteArray>
#include <QString>

namespace quelhost {

// One line without its newline, UTF-8:
//
//     KEY<TAB>section
//     KEY<TAB>int<TAB>VALUE
//     KEY<TAB>string<TAB>VALUE
//
// Tabs, newlines and backslashes in KEY and VALUE are written \t \n \\.
[[nodiscard]] QByteArray settingLine(const Item& item);

// The line of every stored item, each ended by a newline, by category and then by the code points
// of the key. Changes nothing in the profile, needs no hold on it and works while a host is writing
// it. A folder without settings, or no folder at all, has no lines.
// Faults: Damaged (nothing is repaired here), NotPermitted, Busy, Io, BadInput.
[[nodiscard]] Result<QByteArray> listSettings(const QString& profileFolder);

} // namespace quelhost
