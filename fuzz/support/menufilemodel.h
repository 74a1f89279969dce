// How menu files are named and searched for, told as simply as possible and apart from the module.
#pragma once

#include <string>
#include <vector>

namespace fuzzing {

// Without the white space of the classic locale at both ends.
[[nodiscard]] std::wstring withoutBlanks(const std::wstring& text);

// Capital ASCII letters made small.
[[nodiscard]] std::wstring inSmallLetters(std::wstring text);

// Whether an extension with its dot is one of the list's kinds.
[[nodiscard]] bool isMenuFileKind(const std::wstring& extension, const std::wstring& kinds);

// The names that are searched for until one is found.
[[nodiscard]] std::vector<std::wstring> searchedNames(const std::wstring& name,
                                                      const std::wstring& kinds);

// "%s" replaced in a format that has it once and no other percent sign, cut as a module's messages
// are.
[[nodiscard]] std::wstring messageOf(const std::wstring& format, const std::wstring& text);

// What the user reads of a message that is printed: of two percent signs in a row one is left.
[[nodiscard]] std::wstring printedText(const std::wstring& message);

} // namespace fuzzing
