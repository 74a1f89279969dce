// UTF-8 for the character functions of the C library, whatever the environment says.
#pragma once

#include <clocale>

namespace quelhost {

// As long as it lives, this thread's characters are UTF-8: multi-byte conversions, widths and
// character classes. Nothing else of the locale changes, and no other thread sees it.
class Utf8Locale
{
public:
    Utf8Locale();
    ~Utf8Locale();
    Utf8Locale(const Utf8Locale&) = delete;
    Utf8Locale& operator=(const Utf8Locale&) = delete;

private:
    locale_t m_utf8;
    locale_t m_before;
};

} // namespace quelhost
