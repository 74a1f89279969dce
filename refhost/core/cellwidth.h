// How wide text is where all characters take one or two columns: on terminals.
#pragma once

#include <string_view>

namespace quelhost {

// How many columns `text` takes; control characters take none.
// REQUIRES: the thread's characters are UTF-8 (Utf8Locale).
[[nodiscard]] int columnsOf(std::wstring_view text);

} // namespace quelhost
