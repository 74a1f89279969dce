#include "fuzz/support/menufilemodel.h"

#include "tests/support/listrules.h"

namespace fuzzing {

std::wstring withoutBlanks(const std::wstring& text)
{
    constexpr wchar_t blanks[] = L" \t\n\v\f\r";
    const std::size_t begin = text.find_first_not_of(blanks);
    return begin == text.npos ? std::wstring()
                              : text.substr(begin, text.find_last_not_of(blanks) + 1 - begin);
}

std::wstring inSmallLetters(std::wstring text)
{
    for (wchar_t& character : text) {
        if (character >= L'A' && character <= L'Z')
            character += L'a' - L'A';
    }
    return text;
}

bool isMenuFileKind(const std::wstring& extension, const std::wstring& kinds)
{
    std::vector<std::wstring> parts = listrules::partsOf(kinds);
    while (parts.size() > 1 && parts.back().empty())
        parts.pop_back();
    while (parts.size() > 1 && parts.front().empty())
        parts.erase(parts.begin());
    // The last one of several never counts, and none behind an empty one does.
    if (parts.size() > 1)
        parts.pop_back();
    else
        return inSmallLetters(extension) == L"." + inSmallLetters(parts.front());
    for (const std::wstring& part : parts) {
        if (part.empty())
            return false;
        if (inSmallLetters(extension) == L"." + inSmallLetters(part))
            return true;
    }
    return false;
}

std::vector<std::wstring> searchedNames(const std::wstring& name, const std::wstring& kinds)
{
    const std::size_t dot = name.rfind(L'.');
    if (dot != name.npos && dot > 0 && isMenuFileKind(withoutBlanks(name.substr(dot)), kinds))
        return {name};
    std::vector<std::wstring> names;
    std::vector<std::wstring> parts = listrules::partsOf(kinds);
    parts.pop_back();
    std::wstring longer = name;
    for (const std::wstring& part : parts) {
        if (part.empty())
            break;
        longer += L"." + part;
        names.push_back(longer);
    }
    return names;
}

std::wstring messageOf(const std::wstring& format, const std::wstring& text)
{
    std::wstring message = format;
    message.replace(message.find(L"%s"), 2, text);
    return message.substr(0, format.size() + 1022);
}

std::wstring printedText(const std::wstring& message)
{
    std::wstring printed;
    for (std::size_t at = 0; at < message.size(); ++at) {
        printed += message[at];
        if (message.compare(at, 2, L"%%") == 0)
            ++at;
    }
    return printed;
}

} // namespace fuzzing
