#include "tests/support/tracetext.h"

#include "tests/support/recordinghost.h"

#include "refhost/core/widetext.h"

#include <cstdio>

namespace recording {

std::string shown(const std::wstring& text)
{
    if (!host().notesWords)
        return {};
    const std::string bytes = quelhost::toUtf8(text);
    std::string result = "\"";
    result.reserve(bytes.size() + 2);
    for (const char character : bytes) {
        switch (character) {
        case '"':
            result += "\\\"";
            break;
        case '\\':
            result += "\\\\";
            break;
        case '\n':
            result += "\\n";
            break;
        case '\t':
            result += "\\t";
            break;
        default:
            result += character;
        }
    }
    return result + '"';
}

std::string shown(const wchar_t* text)
{
    return text == nullptr || !host().notesWords ? "null" : shown(std::wstring(text));
}

std::string shown(const QuString& text)
{
    return shown(text.kwszPtr());
}

std::string shown(bool value)
{
    return value ? "true" : "false";
}

std::string shown(int value)
{
    return std::to_string(value);
}

std::string shown(unsigned int value)
{
    return std::to_string(value);
}

std::string hexadecimal(unsigned int value)
{
    char digits[16];
    std::snprintf(digits, sizeof digits, "0x%X", value);
    return digits;
}

std::string shown(const QuelVariant& value)
{
    if (!host().notesWords)
        return {};
    switch (value.type()) {
    case QuelVariant::kNone:
        return "none";
    case QuelVariant::kInteger:
        return "integer " + std::to_string(value.integerOrZero());
    case QuelVariant::kString:
        return "string " + shown(value.stringOrEmpty());
    default:
        return "type " + std::to_string(static_cast<int>(value.type()));
    }
}

} // namespace recording
