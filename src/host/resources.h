// String resources: texts by number, in the user's language, from named resource files.
//
// The host keeps one stack of current resource files, its own at the bottom. Both scopes, the
// functions here and the command context's (host/commands.h), push to and pop from that stack.
#pragma once

#include "host/api.h"
#include "host/qustring.h"

// Makes the resource file of that name ("VxCuiCmdsRes.dll") current. Returns whether it did; a name
// without a resource file is refused and changes nothing.
[[nodiscard]] QUEL_HOST_API bool SetCurrentResourceName(const wchar_t* name);

// Goes back to the resource file that was current before.
// REQUIRES: exactly one call for each SetCurrentResourceName that returned true.
QUEL_HOST_API void RestorePreviousResource();

// A resource file as LoadStringW takes it. Owned by the host, valid until it ends.
struct QuelResource;
using QuelResourceHandle = const QuelResource*;

// The current resource file. Never null.
QUEL_HOST_API QuelResourceHandle AfxGetResourceHandle();

// Copies string resource `id` into `buffer`: at most maxChars - 1 characters, always ended with a
// null. Returns their number; 0 and an empty text when there is no such resource.
// REQUIRES: `buffer` has room for `maxChars` characters, at least 1.
QUEL_HOST_API int LoadStringW(QuelResourceHandle resource, unsigned int id, wchar_t* buffer,
                              int maxChars);

// String resource `id` of the current resource file or, when it has none, `defaultText`. A null
// default gives a string without a text. A module has a form of its own with one parameter, so
// this one has no default argument.
QUEL_HOST_API QuString qumdQuResourceString(unsigned int id, const wchar_t* defaultText);
