// Formatting of wide texts with checked arguments.
//
// A conversion is % [flags] [width] [.precision] [length] character, as in C, with these rules:
//  - %s and %ls name a WIDE string, whatever the C library makes of a bare %s; a null string
//    formats as the empty text;
//  - %d %i %u %x %X %o name an integer of any size, %c a character;
//  - %% is one percent sign;
//  - a conversion without an argument, with an argument of another kind, with a * or of any other
//    character (%n above all) is no conversion: it stays in the result as it is written. It uses
//    up no argument.
// Arguments that no conversion asks for are ignored. Nothing depends on the locale.
#pragma once

#include "host/api.h"

#include <cstddef>
#include <string>

// One argument. Converts implicitly from the kinds that a format can name and from nothing else,
// so a string object passed by mistake does not compile.
class FormatArgument
{
public:
    enum class Kind { Text, Signed, Unsigned, Character };

    FormatArgument(const wchar_t* text)
        : m_kind(Kind::Text)
        , m_text(text)
    {}
    FormatArgument(int value)
        : FormatArgument(static_cast<long long>(value))
    {}
    FormatArgument(long value)
        : FormatArgument(static_cast<long long>(value))
    {}
    FormatArgument(long long value)
        : m_kind(Kind::Signed)
        , m_signed(value)
    {}
    FormatArgument(unsigned int value)
        : FormatArgument(static_cast<unsigned long long>(value))
    {}
    FormatArgument(unsigned long value)
        : FormatArgument(static_cast<unsigned long long>(value))
    {}
    FormatArgument(unsigned long long value)
        : m_kind(Kind::Unsigned)
        , m_unsigned(value)
    {}
    FormatArgument(wchar_t value)
        : m_kind(Kind::Character)
        , m_character(value)
    {}

    Kind kind() const { return m_kind; }
    // REQUIRES: kind() is the one named. text() may be null.
    const wchar_t* text() const { return m_text; }
    long long signedValue() const { return m_signed; }
    unsigned long long unsignedValue() const { return m_unsigned; }
    wchar_t character() const { return m_character; }

private:
    Kind m_kind;
    union
    {
        const wchar_t* m_text;
        long long m_signed;
        unsigned long long m_unsigned;
        wchar_t m_character;
    };
};

// Formats into `buffer`, writing at most `limit` characters, the terminating null included.
// Returns the number of characters before the null, or -1 when the result did not fit: the buffer
// then holds its first limit - 1 characters and a null. A limit of 0 writes nothing and returns -1.
// A null format gives the empty text.
// REQUIRES: `buffer` has room for `limit` characters; `arguments` holds `count` of them.
QUEL_HOST_API int _tarvswprintf(wchar_t* buffer, std::size_t limit, const wchar_t* format,
                                const FormatArgument* arguments, std::size_t count);
