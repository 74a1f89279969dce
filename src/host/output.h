// Messages on the command line.
#pragma once

#include "host/api.h"

// Prints `text` as it stands, but for %%, which is one percent sign. This is the form for finished
// text: what a user typed is never obeyed as a format. No newline is added. Null prints nothing.
QUEL_HOST_API void quutPrintf(const wchar_t* text);

// Prints `format` with its arguments. %s and %ls name wide strings.
// REQUIRES: the arguments are those that the format names.
QUEL_HOST_API void quutPrintf(const wchar_t* format, const wchar_t* first, ...);

// Prints `format` with its arguments, as quutPrintf does.
// REQUIRES: the arguments are those that the format names.
QUEL_HOST_API void promptf(const wchar_t* format, ...);
