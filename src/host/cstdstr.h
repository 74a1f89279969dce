// CStdStr: the working string of a module, a standard string that can format itself.
#pragma once

#include "host/resources.h"
#include "host/wideformat.h"

#include <cwchar>
#include <initializer_list>
#include <string>

template<typename Char>
class CStdStr;

// Header-only: a module compiles it, the host sees only _tarvswprintf and LoadStringW.
template<>
class CStdStr<wchar_t> : public std::wstring
{
public:
    using std::wstring::wstring;
    CStdStr() = default;
    CStdStr(const std::wstring& text)
        : std::wstring(text)
    {}
    // The text of a host string; one without a text counts as empty.
    // The compiler's branches on exceptions, in copies that nothing calls, are not counted in the
    // coverage, here and below. GCOVR_EXCL_BR_START
    CStdStr(const QuString& text)
        : std::wstring(text.kwszPtr() == nullptr ? L"" : text.kwszPtr())
    {}
    // GCOVR_EXCL_BR_STOP

    // Replaces the text by `format` with the arguments in place of its conversions
    // (host/wideformat.h). The result is cut at format length + 1022 characters. A null format
    // gives the empty text.
    template<typename... Arguments>
    void Format(const wchar_t* format, const Arguments&... arguments)
    {
        formatChecked(format, {FormatArgument(arguments)...}); // GCOVR_EXCL_BR_LINE: exceptions
    }

    // The same with string resource `id` of the current resource file as format, of which at most
    // 1023 characters are used. Without such a resource the text stays as it is.
    template<typename... Arguments>
    void Format(unsigned int id, const Arguments&... arguments)
    {
        // GCOVR_EXCL_BR_START: exceptions
        std::wstring format(kResourceRoom, L'\0');
        const int loaded =
            LoadStringW(AfxGetResourceHandle(), id, format.data(), static_cast<int>(kResourceRoom));
        // GCOVR_EXCL_BR_STOP
        if (loaded <= 0)
            return;
        // GCOVR_EXCL_BR_START: exceptions
        formatChecked(format.c_str(), {FormatArgument(arguments)...});
        // GCOVR_EXCL_BR_STOP
    }

private:
    static constexpr std::size_t kResourceRoom = 1024;
    static constexpr std::size_t kFormatRoom = 1024;

    // The count handed on leaves the scratch string's last character out, and includes the null.
    void formatChecked(const wchar_t* format, std::initializer_list<FormatArgument> arguments)
    {
        const std::size_t length = format == nullptr ? 0 : std::wcslen(format);
        // GCOVR_EXCL_BR_START: exceptions
        std::wstring scratch(length + kFormatRoom, L'\0');
        _tarvswprintf(scratch.data(), scratch.size() - 1, format, arguments.begin(),
                      arguments.size());
        assign(scratch.c_str());
        // GCOVR_EXCL_BR_STOP
    }
};
