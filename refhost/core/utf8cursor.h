// Walks forward over UTF-8 text and knows at each step the line and the column.
//
// A line ends at LF, at CR LF and at a CR alone, as in XML.
#pragma once

#include "refhost/core/packagefaults.h"

#include <QtGlobal>

#include <string_view>

namespace quelhost {

// Bytes of the well-formed UTF-8 sequence that `text` begins with: 1 to 4, or 0 when it begins
// with none. Overlong forms, surrogates and values above U+10FFFF are not well-formed.
[[nodiscard]] qint64 utf8Length(std::string_view text);

class Utf8Cursor
{
public:
    // Borrows `text`, which must stay unchanged as long as the cursor is used.
    // REQUIRES: `text` is well-formed up to where the cursor is moved.
    explicit Utf8Cursor(std::string_view text);

    [[nodiscard]] qint64 offset() const { return m_offset; } // in bytes
    [[nodiscard]] qint64 units() const { return m_units; }   // in UTF-16 units
    [[nodiscard]] TextPlace place() const { return m_place; }
    [[nodiscard]] bool atEnd() const;

    // The byte the cursor stands on. REQUIRES: not atEnd().
    [[nodiscard]] char peek() const;

    // Each stops at the end of the text at the latest, and moves nowhere when already past.
    void advanceToOffset(qint64 offset);
    void advanceToUnits(qint64 units);
    void skipBlanks();                      // space, tab, CR, LF
    void skipUntil(std::string_view anyOf); // to the next byte that is one of these

private:
    [[nodiscard]] std::string_view rest() const;
    [[nodiscard]] bool skipRun(qint64 most);
    void step();

    std::string_view m_text;
    qint64 m_offset = 0;
    qint64 m_units = 0;
    TextPlace m_place;
};

} // namespace quelhost
