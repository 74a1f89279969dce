// Any format with any arguments, against the C library one conversion at a time.
//
// The input is lines: the arguments, each a letter for its kind and its value, and then "f" and the
// format, which goes on to the end. For example
//
//     s/t/plant.cuix
//     d-42
//     fLoading "%s" took %5.3d%%.
#include "fuzz/support/broken.h"
#include "fuzz/support/fuzzinput.h"

#include "host/cstdstr.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cwchar>
#include <memory>
#include <vector>

using fuzzing::mustHold;

namespace {

struct Argument
{
    enum Kind { Text, Null, Int, Long, Unsigned, Character } kind;
    std::wstring text;
    long long number = 0;
};

struct Case
{
    std::vector<Argument> arguments;
    std::wstring format;
};

constexpr std::size_t kMostArguments = 6;
// A resource text is cut at this many characters, and a result so far behind its format's length.
constexpr std::size_t kResourceLength = 1023;
constexpr std::size_t kResultRoom = 1022;

Argument argumentOf(char letter, std::string_view line)
{
    const std::string digits(line.substr(0, 24));
    const long long number = std::strtoll(digits.c_str(), nullptr, 10);
    switch (letter) {
    case 'n':
        return {Argument::Null, {}};
    case 'd':
        return {Argument::Int, {}, static_cast<int>(number)};
    case 'l':
        return {Argument::Long, {}, number};
    case 'u':
        return {Argument::Unsigned, {}, number};
    case 'c': {
        const std::wstring text = fuzzing::wideText(line);
        return {Argument::Character, {}, text.empty() ? 0 : text.front()};
    }
    default:
        return {Argument::Text, fuzzing::wideText(line)};
    }
}

Case caseOf(fuzzing::FuzzInput input)
{
    Case result;
    while (!input.isAtEnd()) {
        const char letter = static_cast<char>(input.byte());
        if (letter == 'f' || result.arguments.size() == kMostArguments) {
            result.format = fuzzing::wideText(input.rest());
            break;
        }
        result.arguments.push_back(argumentOf(letter, input.line()));
    }
    return result;
}

bool isDigit(wchar_t character)
{
    return character >= L'0' && character <= L'9';
}

// Widths that are obeyed and so large that they only cost time.
bool isWide(const std::wstring& format)
{
    for (std::size_t at = 0; at < format.size(); ++at) {
        if (!isDigit(format[at]))
            continue;
        long number = 0;
        for (; at < format.size() && isDigit(format[at]); ++at)
            number = std::min(number * 10 + (format[at] - L'0'), 1L << 30);
        if (number > 3000 && number <= 1 << 20)
            return true;
    }
    return false;
}

// --- What the result must be.

// What stands at a percent sign: "%", the flags and numbers without the length, the character.
struct Spec
{
    std::wstring front;
    bool isLeft = false;
    bool isNarrow = false;
    wchar_t character = L'\0'; // null when it is no conversion
    std::size_t end = 0;
};

// False when the digits at `at` name too large a number.
bool takeDigits(const std::wstring& format, std::size_t& at, Spec& spec)
{
    const std::size_t begin = at;
    while (at < format.size() && isDigit(format[at]))
        ++at;
    const std::wstring digits = format.substr(begin, at - begin);
    spec.front += digits;
    return std::wcstoul(digits.c_str(), nullptr, 10) <= 1UL << 20;
}

Spec specAt(const std::wstring& format, std::size_t at)
{
    Spec spec{L"%"};
    for (++at; at < format.size() && std::wcschr(L"-+ #0", format[at]) != nullptr; ++at) {
        spec.isLeft = spec.isLeft || format[at] == L'-';
        spec.front += format[at];
    }
    if (!takeDigits(format, at, spec))
        return spec;
    if (at < format.size() && format[at] == L'.') {
        spec.front += format[at++];
        if (!takeDigits(format, at, spec))
            return spec;
    }
    for (; at < format.size() && std::wcschr(L"hlLqjzt", format[at]) != nullptr; ++at)
        spec.isNarrow = spec.isNarrow || format[at] == L'h';
    if (at == format.size())
        return spec;
    spec.character = format[at];
    spec.end = at + 1;
    return spec;
}

bool fits(const Spec& spec, const Argument& argument)
{
    const bool isText = argument.kind == Argument::Text || argument.kind == Argument::Null;
    if (isText || argument.kind == Argument::Character)
        return spec.character == (isText ? L's' : L'c') && !spec.isNarrow;
    return spec.character != L'\0' && std::wcschr(L"diuxXo", spec.character) != nullptr;
}

template<typename Value>
std::wstring byTheLibrary(const std::wstring& conversion, Value value, std::size_t room)
{
    std::wstring result(room, L'\0');
    const int length = std::swprintf(result.data(), room, conversion.c_str(), value);
    mustHold(length >= 0, "the C library formats a single conversion");
    result.resize(static_cast<std::size_t>(length));
    return result;
}

std::wstring converted(const Spec& spec, const Argument& argument)
{
    std::wstring front = spec.front;
    if (spec.character == L's' || spec.character == L'c') {
        // Texts know a width, a precision and the left side; the C library more.
        const std::size_t numbers = front.find_first_not_of(L"%-+ #0");
        front =
            (spec.isLeft ? L"%-" : L"%") + (numbers == front.npos ? L"" : front.substr(numbers));
    }
    constexpr std::size_t room = 8192;
    if (spec.character == L's')
        return byTheLibrary(front + L"ls", argument.text.c_str(), room + argument.text.size());
    if (spec.character == L'c') {
        // The C library refuses some characters; none is refused here, and no precision counts.
        const std::size_t width = std::wcstoul(front.c_str() + (spec.isLeft ? 2 : 1), nullptr, 10);
        const std::wstring fill(std::max<std::size_t>(width, 1) - 1, L' ');
        const auto character = static_cast<wchar_t>(argument.number);
        return spec.isLeft ? character + fill : fill + character;
    }
    return byTheLibrary(front + L"ll" + spec.character, argument.number, room);
}

std::wstring expected(const std::wstring& format, const std::vector<Argument>& arguments)
{
    std::wstring result;
    std::size_t used = 0;
    for (std::size_t at = 0; at < format.size();) {
        if (format[at] != L'%') {
            result += format[at++];
        } else if (format.compare(at, 2, L"%%") == 0) {
            result += L'%';
            at += 2;
        } else if (const Spec spec = specAt(format, at);
                   used < arguments.size() && fits(spec, arguments[used])) {
            result += converted(spec, arguments[used++]);
            at = spec.end;
        } else {
            result += format[at++];
        }
    }
    return result;
}

// As texts end for who reads them.
std::wstring upToNull(const std::wstring& text)
{
    return text.c_str();
}

// --- What it is.

FormatArgument given(const Argument& argument)
{
    switch (argument.kind) {
    case Argument::Text:
        return argument.text.c_str();
    case Argument::Null:
        return static_cast<const wchar_t*>(nullptr);
    case Argument::Int:
        return static_cast<int>(argument.number);
    case Argument::Long:
        return argument.number;
    case Argument::Unsigned:
        return static_cast<unsigned long long>(argument.number);
    case Argument::Character:
        return static_cast<wchar_t>(argument.number);
    }
    return 0;
}

// The text that the string resource of every number has.
std::wstring theResource;

// Format as modules call it, with the arguments written out.
template<typename Format, typename... Given>
void callFormat(CStdStr<wchar_t>& text, const Format& format, const Argument* next,
                std::size_t count, Given... values)
{
    if constexpr (sizeof...(values) < 3) {
        if (count > 0) {
            const auto with = [&](auto value) {
                callFormat(text, format, next + 1, count - 1, values..., value);
            };
            switch (next->kind) {
            case Argument::Text:
                return with(next->text.c_str());
            case Argument::Null:
                return with(static_cast<const wchar_t*>(nullptr));
            case Argument::Int:
                return with(static_cast<int>(next->number));
            case Argument::Long:
                return with(next->number);
            case Argument::Unsigned:
                return with(static_cast<unsigned long long>(next->number));
            case Argument::Character:
                return with(static_cast<wchar_t>(next->number));
            }
        }
    }
    text.Format(format, values...);
}

void checkFormat(const Case& tried)
{
    // No more arguments than are handed on.
    const std::vector<Argument> arguments(
        tried.arguments.begin(),
        tried.arguments.begin() +
            static_cast<std::ptrdiff_t>(std::min<std::size_t>(tried.arguments.size(), 3)));
    const auto told = [&arguments](const std::wstring& format) {
        return upToNull(expected(format, arguments).substr(0, format.size() + kResultRoom));
    };
    CStdStr<wchar_t> text(L"before");
    callFormat(text, tried.format.c_str(), arguments.data(), arguments.size());
    mustHold(text == told(tried.format), "a format with its arguments gives what C gives");

    theResource = tried.format;
    CStdStr<wchar_t> ofResource(L"before");
    callFormat(ofResource, 11064U, arguments.data(), arguments.size());
    const std::wstring format = tried.format.substr(0, kResourceLength);
    mustHold(ofResource == (format.empty() ? L"before" : told(format)),
             "a resource's format with its arguments gives what C gives");
}

// In arrays of just the size that is told, so that one item too far is seen.
void checkLimits(const Case& tried, std::size_t limit)
{
    std::vector<FormatArgument> arguments;
    for (const Argument& argument : tried.arguments)
        arguments.push_back(given(argument));
    const std::unique_ptr<wchar_t[]> buffer(new wchar_t[limit]);
    const int length = _tarvswprintf(buffer.get(), limit, tried.format.c_str(), arguments.data(),
                                     arguments.size());
    if (limit == 0) {
        mustHold(length == -1, "nothing fits into no room");
        return;
    }
    const std::wstring whole = expected(tried.format, tried.arguments);
    const std::wstring cut = whole.substr(0, limit - 1);
    mustHold(std::equal(cut.begin(), cut.end(), buffer.get()) && buffer[cut.size()] == L'\0',
             "the room holds the first characters and a null");
    mustHold(length == (cut.size() == whole.size() ? static_cast<int>(whole.size()) : -1),
             "the result is the length, or -1 for a text that was cut");
}

} // namespace

QuelResourceHandle AfxGetResourceHandle()
{
    return nullptr;
}

int LoadStringW(QuelResourceHandle, unsigned int, wchar_t* buffer, int maxChars)
{
    const std::size_t length = theResource.copy(buffer, static_cast<std::size_t>(maxChars) - 1);
    buffer[length] = L'\0';
    return static_cast<int>(length);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Case tried = caseOf({data, size});
    if (isWide(tried.format))
        return -1;
    checkFormat(tried);
    checkLimits(tried, size == 0 ? 0 : data[size - 1] % 64U);
    return 0;
}
