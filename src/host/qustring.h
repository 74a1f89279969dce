// QuString: the wide string that host operations take and return by value or reference.
#pragma once

#include "host/api.h"

#include <string>

class QUEL_HOST_API QuString
{
public:
    // A string that never got a text: kwszPtr() is null and length() 0.
    QuString();
    // A copy of `text`; a null pointer leaves the string without a text.
    explicit QuString(const wchar_t* text);

    // Replaces the text by string resource `id` of the current resource file (host/resources.h).
    // Returns whether there is such a resource; if not, the string stays as it was.
    bool loadString(unsigned int id);

    // The text, or null when the string never got one. The pointer is valid until the string is
    // changed or destroyed, so it must never be taken from a temporary that dies first.
    const wchar_t* kwszPtr() const;

    // Number of characters, without the terminating null.
    int length() const;

    // Up to `count` characters from `start`. A negative start counts as 0, one beyond the end gives
    // an empty text, a negative count takes the rest.
    QuString substr(int start, int count) const;

    // Compares ignoring case (simple case folding, independent of the locale): negative, 0 or
    // positive like wcscmp. A null `other` compares as the empty text.
    int compareNoCase(const wchar_t* other) const;

    // Replaces or extends the text with a copy; null counts as the empty text.
    QuString& operator=(const wchar_t* text);
    QuString& operator+=(const wchar_t* text);

private:
    std::wstring m_text;
    bool m_hasText = false;
};
