// System variables and the record that carries their values.
#pragma once

#include "host/api.h"

// Type codes of a record.
namespace QuelResultType {
constexpr short kNone = -1;     // no value
constexpr short kReal = 5001;   // value.real
constexpr short kShort = 5003;  // value.shortInteger, 16 bits
constexpr short kString = 5005; // value.string, allocated by the host
constexpr short kLong = 5010;   // value.longInteger, 32 bits
} // namespace QuelResultType

// A result of the host: a link to further results, a type code and a value.
struct resbuf
{
    resbuf* link;
    short type;
    union
    {
        short shortInteger;
        int longInteger;
        double real;
        wchar_t* string;
    } value;
};

// Reads system variable `name`, in any case, into `result`. Returns 5100 and sets type and value; a
// string value is a copy that the caller frees with quutDelBuffer. Returns -5001 for an unknown
// variable and leaves the record alone.
// REQUIRES: `result` is not null.
QUEL_HOST_API int quedGetVar(const wchar_t* name, resbuf* result);

// Frees a buffer that the host allocated and sets the pointer to null. Null is ignored.
QUEL_HOST_API void quutDelBuffer(void*& buffer);

// Frees a chain of records with the strings they hold. Null is ignored.
QUEL_HOST_API void quutRelRb(resbuf* chain);
