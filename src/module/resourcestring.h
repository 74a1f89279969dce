// The module's own resource lookup, and what its commands share in reading texts.
#pragma once

#include "host/resources.h"

// String resource `id` of the current resource file; the empty text when there is none. Exported.
// The form with two parameters, which takes a default text, is the host's.
// REQUIRES: the caller is inside a resource scope of the module (module/resourcescopes.h); none is
// entered here.
__attribute__((visibility("default"))) QuString qumdQuResourceString(unsigned int id);

// The text of a host string, which may have none: then the empty text, never null. Valid as long as
// `text` is neither changed nor destroyed; it cannot be taken from a temporary.
inline const wchar_t* textOrEmpty(const QuString& text)
{
    return text.kwszPtr() == nullptr ? L"" : text.kwszPtr();
}
const wchar_t* textOrEmpty(QuString&&) = delete;
