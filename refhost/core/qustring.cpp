#include "host/qustring.h"

#include "refhost/core/widetext.h"

#include <algorithm>

QuString::QuString() = default;

QuString::QuString(const wchar_t* text)
{
    if (text != nullptr)
        *this = text;
}

const wchar_t* QuString::kwszPtr() const
{
    return m_hasText ? m_text.c_str() : nullptr;
}

int QuString::length() const
{
    return static_cast<int>(m_text.size());
}

QuString QuString::substr(int start, int count) const
{
    const auto from = std::min(static_cast<std::size_t>(std::max(start, 0)), m_text.size());
    const auto most = count < 0 ? std::wstring::npos : static_cast<std::size_t>(count);
    return QuString(m_text.substr(from, most).c_str());
}

int QuString::compareNoCase(const wchar_t* other) const
{
    const QString own = quelhost::toQString(m_text);
    return own.compare(quelhost::toQString(other == nullptr ? L"" : other), Qt::CaseInsensitive);
}

QuString& QuString::operator=(const wchar_t* text)
{
    m_text = std::wstring(text == nullptr ? L"" : text); // may be a part of the old text
    m_hasText = true;
    return *this;
}

QuString& QuString::operator+=(const wchar_t* text)
{
    m_text += std::wstring(text == nullptr ? L"" : text);
    m_hasText = true;
    return *this;
}
