// How arguments and results are written in the trace of the recording host.
#pragma once

#include "host/quelvariant.h"
#include "host/qustring.h"

#include <string>

namespace recording {

// The text in double quotes, as UTF-8, with \" \\ \n and \t in the manner of C; a null pointer is
// the word null.
[[nodiscard]] std::string shown(const wchar_t* text);
[[nodiscard]] std::string shown(const std::wstring& text);
[[nodiscard]] std::string shown(const QuString& text);

[[nodiscard]] std::string shown(bool value);
[[nodiscard]] std::string shown(int value);
[[nodiscard]] std::string shown(unsigned int value);

// Upper case hexadecimal with 0x in front.
[[nodiscard]] std::string hexadecimal(unsigned int value);

// The kind and the value: integer 7, string "a;b", none, or type 8 for the kinds that no test
// stores.
[[nodiscard]] std::string shown(const QuelVariant& value);

// Whatever is shown, separated by commas.
template<typename First, typename... Rest>
std::string list(const First& first, const Rest&... rest)
{
    std::string result = first;
    static_cast<void>(((result += ", " + std::string(rest)), ...));
    return result;
}

} // namespace recording
