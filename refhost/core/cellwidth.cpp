#include "refhost/core/cellwidth.h"

#include <algorithm>
#include <cwchar>

namespace quelhost {

int columnsOf(std::wstring_view text)
{
    int columns = 0;
    for (const wchar_t character : text)
        columns += std::max(::wcwidth(character), 0);
    return columns;
}

} // namespace quelhost
