#include "refhost/core/typedformat.h"

#include <algorithm>
#include <cstdio>
#include <cwchar>
#include <string_view>

namespace {

// A conversion as it stands in a format.
struct Conversion
{
    std::wstring_view text; // from the percent sign to the conversion character
    bool leftAligned = false;
    int width = 0;
    int precision = -1; // -1: none given
    wchar_t character = L'\0';
};

// Widths and precisions beyond this are no conversions: they would only fill memory.
constexpr int kMostDigitsValue = 1 << 20;

bool isDigit(wchar_t character)
{
    return character >= L'0' && character <= L'9';
}

// Reads the number at `at` and moves behind it; false when it is too large.
bool readNumber(std::wstring_view format, std::size_t& at, int& number)
{
    number = 0;
    for (; at < format.size() && isDigit(format[at]); ++at) {
        number = number * 10 + (format[at] - L'0');
        if (number > kMostDigitsValue)
            return false;
    }
    return true;
}

// The conversion that begins with the percent sign at `start`; its character is null when what
// stands there is none.
Conversion parse(std::wstring_view format, std::size_t start)
{
    constexpr std::wstring_view flags = L"-+ #0";
    constexpr std::wstring_view lengths = L"hlLqjzt";
    Conversion found;
    std::size_t at = start + 1;
    for (; at < format.size() && flags.find(format[at]) != flags.npos; ++at)
        found.leftAligned = found.leftAligned || format[at] == L'-';
    if (!readNumber(format, at, found.width))
        return {};
    if (at < format.size() && format[at] == L'.') {
        ++at;
        if (!readNumber(format, at, found.precision))
            return {};
    }
    while (at < format.size() && lengths.find(format[at]) != lengths.npos)
        ++at;
    if (at == format.size())
        return {};
    found.character = format[at];
    found.text = format.substr(start, at + 1 - start);
    return found;
}

std::wstring padded(std::wstring_view text, const Conversion& conversion)
{
    const auto width = static_cast<std::size_t>(conversion.width);
    const std::wstring fill(width > text.size() ? width - text.size() : 0, L' ');
    std::wstring result(text);
    return conversion.leftAligned ? result + fill : fill + result;
}

std::wstring formatText(const Conversion& conversion, const wchar_t* text)
{
    std::wstring_view shown(text == nullptr ? L"" : text);
    if (conversion.precision >= 0)
        shown = shown.substr(0, static_cast<std::size_t>(conversion.precision));
    return padded(shown, conversion);
}

// The C library formats the number: the conversion is rebuilt with the length of the argument.
template<typename Integer>
std::wstring formatInteger(const Conversion& conversion, Integer value)
{
    std::string spec;
    for (const wchar_t character : conversion.text.substr(0, conversion.text.size() - 1)) {
        if (std::wstring_view(L"hlLqjzt").find(character) == std::wstring_view::npos)
            spec += static_cast<char>(character);
    }
    spec += "ll";
    spec += static_cast<char>(conversion.character);
    const auto room =
        static_cast<std::size_t>(std::max({conversion.width, conversion.precision, 0}));
    std::string digits(room + 32, '\0');
    const int length = std::snprintf(digits.data(), digits.size(), spec.c_str(), value);
    return std::wstring(digits.begin(), digits.begin() + std::max(length, 0));
}

// Whether `argument` is of the kind that the conversion names; `result` is then its text.
bool convert(const Conversion& conversion, const FormatArgument& argument, std::wstring& result)
{
    const std::wstring_view integers = L"diuxXo";
    const bool wantsInteger = integers.find(conversion.character) != integers.npos;
    const bool narrow = conversion.text.find(L'h') != std::wstring_view::npos;
    switch (argument.kind()) {
    case FormatArgument::Kind::Text:
        if (conversion.character != L's' || narrow)
            return false;
        result = formatText(conversion, argument.text());
        return true;
    case FormatArgument::Kind::Character:
        if (conversion.character != L'c' || narrow)
            return false;
        result = padded(std::wstring(1, argument.character()), conversion);
        return true;
    case FormatArgument::Kind::Signed:
        if (!wantsInteger)
            return false;
        result = formatInteger(conversion, argument.signedValue());
        return true;
    case FormatArgument::Kind::Unsigned:
        if (!wantsInteger)
            return false;
        result = formatInteger(conversion, argument.unsignedValue());
        return true;
    }
    return false;
}

std::wstring formatAll(std::wstring_view format, const FormatArgument* arguments, std::size_t count)
{
    std::wstring result;
    std::size_t used = 0;
    for (std::size_t at = 0; at < format.size();) {
        if (format[at] != L'%') {
            result += format[at++];
            continue;
        }
        const Conversion conversion = parse(format, at);
        std::wstring converted;
        if (conversion.text == L"%%") {
            result += L'%';
            at += 2;
        } else if (conversion.character != L'\0' && used < count &&
                   convert(conversion, arguments[used], converted)) {
            result += converted;
            at += conversion.text.size();
            ++used;
        } else {
            result += format[at++];
        }
    }
    return result;
}

// A whole conversion with an argument of a variadic function, by its character and length.
FormatArgument nextArgument(const Conversion& conversion, va_list& rest)
{
    const bool isLong = conversion.text.find_first_of(L"lLqjzt") != std::wstring_view::npos;
    switch (conversion.character) {
    case L's':
        return va_arg(rest, const wchar_t*);
    case L'c':
        return static_cast<wchar_t>(va_arg(rest, wint_t));
    case L'd':
    case L'i':
        return isLong ? FormatArgument(va_arg(rest, long)) : FormatArgument(va_arg(rest, int));
    default:
        return isLong ? FormatArgument(va_arg(rest, unsigned long))
                      : FormatArgument(va_arg(rest, unsigned int));
    }
}

bool takesArgument(const Conversion& conversion)
{
    const bool narrow = conversion.text.find(L'h') != std::wstring_view::npos;
    const bool text = conversion.character == L's' || conversion.character == L'c';
    const bool known =
        std::wstring_view(L"scdiuxXo").find(conversion.character) != std::wstring_view::npos;
    return conversion.character != L'\0' && known && !(text && narrow);
}

} // namespace

int _tarvswprintf(wchar_t* buffer, std::size_t limit, const wchar_t* format,
                  const FormatArgument* arguments, std::size_t count)
{
    if (limit == 0)
        return -1;
    const std::wstring result = formatAll(format == nullptr ? L"" : format, arguments, count);
    const std::size_t length = std::min(result.size(), limit - 1);
    result.copy(buffer, length);
    buffer[length] = L'\0';
    return length == result.size() ? static_cast<int>(length) : -1;
}

namespace quelhost {

std::wstring formatTyped(const wchar_t* format, const std::vector<FormatArgument>& arguments)
{
    return formatAll(format == nullptr ? L"" : format, arguments.data(), arguments.size());
}

std::wstring formatVariadic(const wchar_t* format, const wchar_t* const* first, va_list rest)
{
    const std::wstring_view text(format == nullptr ? L"" : format);
    std::vector<FormatArgument> arguments;
    if (first != nullptr)
        arguments.emplace_back(*first);
    va_list unread;
    va_copy(unread, rest);
    std::size_t conversions = 0;
    for (std::size_t at = 0; at < text.size();) {
        const Conversion conversion = text[at] == L'%' ? parse(text, at) : Conversion{};
        const bool taken = takesArgument(conversion);
        if (taken && ++conversions > arguments.size())
            arguments.push_back(nextArgument(conversion, unread));
        at += taken || conversion.text == L"%%" ? conversion.text.size() : 1;
    }
    va_end(unread);
    return formatTyped(format, arguments);
}

} // namespace quelhost
