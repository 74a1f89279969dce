// Pictures of a package as icons.
#pragma once

#include "refhost/core/menugroup.h"

#include <QByteArray>
#include <QIcon>
#include <QString>

namespace quelhost {

// An icon that is drawn anew in every size that is asked for, so that it is sharp at any scale of
// the display, in at most 256 x 256 pixels. Decoding waits until somebody looks. What cannot be
// drawn leaves an empty picture.
// REQUIRES: the bytes are those of a package that was read and found good; `name` says the kind.
[[nodiscard]] QIcon packageIcon(const QString& name, const QByteArray& bytes);

// The icon of a command of the group, as packageIcon() makes it; a null icon where it has none.
[[nodiscard]] QIcon commandIcon(const MenuGroup& group, const MenuCommand& command);

} // namespace quelhost
