// Reads XML that nobody vouches for: strictly within limits, and with the place of everything.
//
// The text goes to the parser in small pieces, and between two pieces the limits are tested, so
// that a hostile text costs no more than the part of it that keeps within them. (A parser that is
// given everything at once takes half a minute over a megabyte of attributes.)
//
// Accepted is XML 1.0 in UTF-8, with or without byte order mark. Refused besides text that is not
// well-formed: document types (and with them entities of its own), processing instructions, and
// any other encoding. Namespaces are not looked at; names are as written, with their prefixes.
#pragma once

#include "refhost/core/packagefaults.h"
#include "refhost/core/utf8cursor.h"

#include <QByteArray>
#include <QString>
#include <QXmlStreamReader>

#include <optional>
#include <string_view>
#include <vector>

namespace quelhost {

// The largest values that are still accepted.
struct XmlLimits
{
    qint64 bytes = 16 * 1024 * 1024; // of the whole text
    qint64 depth = 32;               // of elements, the root being the first
    qint64 tokenBytes = 64 * 1024;   // of one tag, one text, one comment, as written
    qint64 attributes = 256;         // of one element, namespace declarations included
    qint64 nameBytes = 256 * 1024;   // of all start tags' element and attribute names together
};

struct XmlAttribute
{
    QString name;
    QString value;   // references resolved
    TextPlace place; // of the first letter of the name
};

struct XmlElement
{
    QString name;
    std::vector<XmlAttribute> attributes; // as written; no name twice
    TextPlace place;                      // of the `<`
};

class LimitedXml
{
public:
    enum class Token { ElementStart, ElementEnd, Text, DocumentEnd };

    // `file` is the name for faults.
    LimitedXml(const QByteArray& bytes, const QString& file, const XmlLimits& limits = {});

    LimitedXml(const LimitedXml&) = delete;
    LimitedXml& operator=(const LimitedXml&) = delete;

    // The next token, or the fault that ended the reading, then that fault again and again.
    // An empty element gives a start and an end. Comments, and text of blanks only, are passed
    // over. DocumentEnd comes once, after everything that follows the root has been read too.
    [[nodiscard]] Result<Token> next();

    // The last start tag. REQUIRES: next() has just returned ElementStart.
    [[nodiscard]] const XmlElement& element() const { return m_element; }

    // The last text and its first character that is no blank.
    // REQUIRES: next() has just returned Text.
    [[nodiscard]] const QString& text() const { return m_text; }
    [[nodiscard]] TextPlace textPlace() const { return m_textPlace; }

    // How much work it took so far: bytes that the parser was given, tokens that came of them.
    [[nodiscard]] qint64 bytesFed() const { return m_fed; }
    [[nodiscard]] qint64 tokensRead() const { return m_tokens; }

private:
    void checkBytes();
    void checkCharacters();
    void checkDeclaration();
    void feed();
    [[nodiscard]] qint64 pendingAttributes() const;
    void feedOrFail();
    [[nodiscard]] std::optional<Token> step();
    [[nodiscard]] std::optional<Token> take(QXmlStreamReader::TokenType type);
    [[nodiscard]] std::optional<Token> takeStart();
    [[nodiscard]] std::optional<Token> takeText();
    [[nodiscard]] std::optional<Token> takeEnd();
    [[nodiscard]] std::vector<TextPlace> attributePlaces() const;
    [[nodiscard]] TextPlace placeOf(std::size_t offset) const;
    void fail(TextPlace place, const QString& sentence);

    QByteArray m_bytes;
    QString m_file;
    XmlLimits m_limits;
    QXmlStreamReader m_reader;
    std::string_view m_view; // of m_bytes, without byte order mark and the blanks at the end
    qint64 m_fed = 0;        // of m_view
    qint64 m_tokens = 0;
    qint64 m_depth = 0;
    bool m_rootEnded = false;
    qint64 m_nameBytes = 0;
    Utf8Cursor m_tokenBegin;
    Utf8Cursor m_tokenEnd;
    XmlElement m_element;
    QString m_text;
    TextPlace m_textPlace;
    std::optional<Fault> m_fault;
};

} // namespace quelhost
