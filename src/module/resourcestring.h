// The module's own resource lookup, and what its commands share in reading texts.
#pragma once

#include "host/resources.h"

// String resource `id` of the current resource file; the empty text when there is none. Exported.
// The form with two parameters, which takes a default text, is the host's.
// REQUIRES: the caller is inside a resource scope of the module (module/resourcescopes.h); none is
// entered here.
__attribute__((visibility("default"))) QuString qumdQuResourceString(unsigned int id);

// The text, or the empty one where the host has none; never null. Valid as long as `text` is
// neither changed nor destroyed, so it cannot be taken from a temporary host string.
inline const wchar_t* textOrEmpty(const wchar_t* text)
{
    return text == nullptr ? L"" : text;
}
inline const wchar_t* textOrEmpty(const QuString& text)
{
    return textOrEmpty(text.kwszPtr());
}
const wchar_t* textOrEmpty(QuString&&) = delete;
