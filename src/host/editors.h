// The host's customization editors.
#pragma once

#include "host/api.h"
#include "host/status.h"

namespace QuelEditor {

// The keys that start the commands of the loaded menu groups.
constexpr int kAccelerators = 1;
// The toolbars of the loaded menu groups and the user's own.
constexpr int kToolbars = 2;

} // namespace QuelEditor

// Opens that customization editor and returns when it is closed: 5100 when the user kept the
// changes, also when they are in force but could not be stored, which the host has told; -5002 when
// the user cancelled; -5001 for any other number. A host that cannot show editors prints what they
// would show and returns 5100. The two texts are reserved and null.
[[nodiscard]] QUEL_HOST_API int vxExcuteWSCommand(int editor, const wchar_t* reserved1,
                                                  const wchar_t* reserved2);
