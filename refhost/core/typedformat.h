// Formatting with the conversions of host/wideformat.h into a string of any length.
#pragma once

#include "host/wideformat.h"

#include <cstdarg>
#include <string>
#include <vector>

namespace quelhost {

// `format` with `arguments` in place of its conversions. Null counts as the empty text.
[[nodiscard]] std::wstring formatTyped(const wchar_t* format,
                                       const std::vector<FormatArgument>& arguments);

// The same with the arguments of a variadic function, of the kinds that the format names; `first`,
// unless it is null, goes before them. Nothing is read for a "%" that is no conversion.
// REQUIRES: `rest` holds what the format names. It is used up.
[[nodiscard]] std::wstring formatVariadic(const wchar_t* format, const wchar_t* const* first,
                                          va_list rest);

} // namespace quelhost
