// Another global locale for a part of a test.
#pragma once

#include <clocale>
#include <locale>
#include <string>

namespace recording {

// While one lives, the C++ and the C library work in the locale of that name. Both are put back:
// setting the C++ one alone would leave the C library in it.
class GlobalLocale
{
public:
    explicit GlobalLocale(const char* name)
        : m_textsBefore(std::setlocale(LC_ALL, nullptr))
        , m_before(std::locale::global(std::locale(name)))
    {}
    ~GlobalLocale()
    {
        std::locale::global(m_before);
        std::setlocale(LC_ALL, m_textsBefore.c_str());
    }
    GlobalLocale(const GlobalLocale&) = delete;
    GlobalLocale& operator=(const GlobalLocale&) = delete;

private:
    std::string m_textsBefore;
    std::locale m_before;
};

} // namespace recording
