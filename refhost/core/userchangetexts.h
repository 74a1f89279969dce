// The user's changes as texts, for the settings and for files that people read.
#pragma once

#include "refhost/core/userchanges.h"

#include <QString>

#include <optional>

namespace quelhost {

// "Ctrl+Shift+P; F7", the same in every language; empty for no keys.
[[nodiscard]] QString keysText(const Keys& keys);

// The keys of such a text, in any case. Nothing when it names a key that there is none of, or the
// same keys twice.
[[nodiscard]] std::optional<Keys> keysOfText(const QString& text);

// A JSON object in one line, without what is not changed; a separator is "|":
//
//     {"entries":["PLANT/pump","|","SURVEY/mark"],"hidden":true,"title":"Mine"}
//
// Further members are `deleted`.
[[nodiscard]] QString toolbarText(const ToolbarChange& change);

// The change of such a text. Members that are not known are passed over; nothing when it is no such
// object or a known member is not what it has to be.
[[nodiscard]] std::optional<ToolbarChange> toolbarOfText(const QString& text);

// "PLANT/pump".
[[nodiscard]] QString entryText(const GroupEntry& entry);

// The entry of such a text: the id is all behind the first slash. Nothing when one of both is
// empty.
[[nodiscard]] std::optional<GroupEntry> entryOfText(const QString& text);

} // namespace quelhost
