#include "refhost/core/widetext.h"

#include <algorithm>

#include <QChar>

namespace quelhost {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

char32_t scalarOrReplacement(char32_t code)
{
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    return surrogate || code > 0x10FFFF ? kReplacement : code;
}

// Whether each character is one and the same unit in wide texts and in Qt's: none is beyond 15
// bits.
bool isPlain(std::wstring_view text)
{
    constexpr char32_t plainBits = 0x7FFF;
    char32_t bits = 0;
    for (const wchar_t character : text)
        bits |= static_cast<char32_t>(character);
    return (bits & ~plainBits) == 0;
}

QString fromPlain(std::wstring_view text)
{
    QString result(static_cast<int>(text.size()), Qt::Uninitialized);
    std::transform(text.begin(), text.end(), result.begin(),
                   [](wchar_t character) { return QChar(static_cast<ushort>(character)); });
    return result;
}

} // namespace

QString toQString(std::wstring_view text)
{
    if (isPlain(text))
        return fromPlain(text);
    QString result;
    result.reserve(static_cast<int>(text.size()));
    for (const wchar_t character : text) {
        const char32_t code = scalarOrReplacement(static_cast<char32_t>(character));
        if (QChar::requiresSurrogates(code)) {
            result += QChar(QChar::highSurrogate(code));
            result += QChar(QChar::lowSurrogate(code));
        } else {
            result += QChar(static_cast<ushort>(code));
        }
    }
    return result;
}

std::wstring toWide(const QString& text)
{
    std::wstring result = text.toStdWString();
    for (wchar_t& character : result)
        character = static_cast<wchar_t>(scalarOrReplacement(static_cast<char32_t>(character)));
    return result;
}

std::string toUtf8(std::wstring_view text)
{
    return toQString(text).toStdString();
}

std::wstring fromUtf8(std::string_view bytes)
{
    // QString::fromUtf8 drops a byte order mark in front; here it is a character like any other.
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    std::wstring result;
    while (bytes.substr(0, mark.size()) == mark) {
        result += static_cast<wchar_t>(0xFEFF);
        bytes.remove_prefix(mark.size());
    }
    return result + toWide(QString::fromUtf8(bytes.data(), static_cast<int>(bytes.size())));
}

std::wstring lenientText(std::string_view bytes)
{
    std::wstring text = fromUtf8(bytes);
    std::replace(text.begin(), text.end(), L'\0', static_cast<wchar_t>(0xFFFD));
    return text;
}

} // namespace quelhost
