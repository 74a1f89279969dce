// The host's customization editors.
#pragma once

#include "host/api.h"

// Opens customization editor 1 (accelerators) or 2 (toolbars) and returns when it is closed: 5100,
// or -5001 for any other number. The two texts are reserved and null.
QUEL_HOST_API int vxExcuteWSCommand(int editor, const wchar_t* reserved1, const wchar_t* reserved2);
