#include "refhost/core/utf8cursor.h"

#include "refhost/core/byterun.h"

#include <algorithm>

namespace quelhost {

namespace {

[[nodiscard]] bool isBlank(char byte)
{
    return byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n';
}

// Whether it is a character, a unit and a column by itself.
[[nodiscard]] bool isSimple(char byte)
{
    return static_cast<signed char>(byte) >= 0 && byte != '\n' && byte != '\r';
}

[[nodiscard]] unsigned byteAt(std::string_view text, std::size_t index)
{
    return index < text.size() ? static_cast<unsigned char>(text[index]) : 0U;
}

[[nodiscard]] bool isBetween(unsigned byte, unsigned first, unsigned last)
{
    return first <= byte && byte <= last;
}

// How a sequence may go on after its first byte.
struct Lead
{
    unsigned first, last;             // first byte
    unsigned secondFirst, secondLast; // narrower than 80..BF where that excludes bad values
    qint64 length;
};

constexpr Lead kLeads[] = {
    {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3}, {0xE1, 0xEC, 0x80, 0xBF, 3},
    {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3}, {0xF0, 0xF0, 0x90, 0xBF, 4},
    {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4},
};

[[nodiscard]] qint64 multiByteLength(std::string_view text)
{
    for (const Lead& lead : kLeads) {
        if (!isBetween(byteAt(text, 0), lead.first, lead.last))
            continue;
        bool good = isBetween(byteAt(text, 1), lead.secondFirst, lead.secondLast);
        for (std::size_t i = 2; i < static_cast<std::size_t>(lead.length); ++i)
            good = good && isBetween(byteAt(text, i), 0x80, 0xBF);
        return good ? lead.length : 0;
    }
    return 0;
}

} // namespace

qint64 utf8Length(std::string_view text)
{
    if (text.empty())
        return 0;
    return byteAt(text, 0) < 0x80 ? 1 : multiByteLength(text);
}

Utf8Cursor::Utf8Cursor(std::string_view text)
    : m_text(text)
{}

bool Utf8Cursor::atEnd() const
{
    return m_offset >= static_cast<qint64>(m_text.size());
}

char Utf8Cursor::peek() const
{
    return m_text[static_cast<std::size_t>(m_offset)];
}

void Utf8Cursor::advanceToOffset(qint64 offset)
{
    while (!atEnd() && m_offset < offset) {
        if (!skipRun(offset - m_offset))
            step();
    }
}

void Utf8Cursor::advanceToUnits(qint64 units)
{
    while (!atEnd() && m_units < units) {
        if (!skipRun(units - m_units))
            step();
    }
}

void Utf8Cursor::skipBlanks()
{
    advanceToOffset(m_offset + static_cast<qint64>(leadingRun(rest(), isBlank)));
}

void Utf8Cursor::skipUntil(std::string_view anyOf)
{
    const std::size_t found = m_text.find_first_of(anyOf, static_cast<std::size_t>(m_offset));
    advanceToOffset(static_cast<qint64>(std::min(found, m_text.size())));
}

std::string_view Utf8Cursor::rest() const
{
    return m_text.substr(static_cast<std::size_t>(m_offset));
}

// Passes over at most `most` bytes that are alike in what they do to the place; whether there was
// any.
bool Utf8Cursor::skipRun(qint64 most)
{
    const std::string_view text = rest().substr(0, static_cast<std::size_t>(most));
    const auto simple = static_cast<qint64>(leadingRun(text, isSimple));
    const auto lines = static_cast<qint64>(
        simple > 0 ? 0 : leadingRun(text, [](char byte) { return byte == '\n'; }));
    m_offset += simple + lines;
    m_units += simple + lines;
    m_place.line += lines;
    m_place.column = lines > 0 ? 1 : m_place.column + simple;
    return simple + lines > 0;
}

void Utf8Cursor::step()
{
    const auto at = static_cast<std::size_t>(m_offset);
    const char byte = m_text[at];
    // Most text is of one-byte characters.
    const bool isShort = static_cast<unsigned char>(byte) < 0x80;
    const qint64 length = isShort ? 1 : std::max<qint64>(1, utf8Length(m_text.substr(at)));
    m_offset += length;
    m_units += length == 4 ? 2 : 1;
    // A CR before LF belongs to that line end and makes none of its own.
    if (byte == '\n' || (byte == '\r' && byteAt(m_text, at + 1) != '\n'))
        m_place = {m_place.line + 1, 1};
    else
        ++m_place.column;
}

} // namespace quelhost
