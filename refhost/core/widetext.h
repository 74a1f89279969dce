// Between the wide strings of the host interface (UTF-32), Qt's UTF-16 and UTF-8.
//
// Nothing is dropped on the way: a leading U+FEFF stays, a code point that is no Unicode scalar
// value (a lone surrogate, anything above U+10FFFF) becomes U+FFFD. Byte sequences that are not
// UTF-8 become U+FFFD likewise. No function depends on the locale.
#pragma once

#include <QByteArray>
#include <QString>

#include <string>
#include <string_view>

namespace quelhost {

[[nodiscard]] QString toQString(std::wstring_view text);
[[nodiscard]] std::wstring toWide(const QString& text);
[[nodiscard]] std::string toUtf8(std::wstring_view text);
[[nodiscard]] std::wstring fromUtf8(std::string_view bytes);

// The same, and a NUL, which would end a text before its time, reads U+FFFD too.
[[nodiscard]] std::wstring lenientText(std::string_view bytes);

} // namespace quelhost
