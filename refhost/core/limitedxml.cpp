#include "refhost/core/limitedxml.h"

#include "refhost/core/byterun.h"
#include "refhost/core/widetext.h"

#include <QRegularExpression>

#include <algorithm>

namespace quelhost {

namespace {

constexpr qint64 kPieceBytes = 4096;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

[[nodiscard]] bool isBlankByte(char byte)
{
    return byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n';
}

// A character of one byte that XML allows.
[[nodiscard]] bool isPlainByte(char byte)
{
    return static_cast<signed char>(byte) >= ' ' || byte == '\t' || byte == '\r' || byte == '\n';
}

[[nodiscard]] std::string_view trimmedView(const QByteArray& bytes)
{
    std::string_view view(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    if (view.substr(0, kByteOrderMark.size()) == kByteOrderMark)
        view.remove_prefix(kByteOrderMark.size());
    return view.substr(0, view.size() - trailingRun(view, isBlankByte));
}

// XML allows no control characters but tab and line ends, and neither U+FFFE nor U+FFFF.
[[nodiscard]] bool isForbidden(std::string_view sequence)
{
    const bool control = static_cast<unsigned char>(sequence[0]) < 0x20;
    return (control && !isBlankByte(sequence[0])) || sequence == "\xEF\xBF\xBE" ||
           sequence == "\xEF\xBF\xBF";
}

[[nodiscard]] QString hex(uint value, int digits)
{
    return QStringLiteral("%1").arg(value, digits, 16, QLatin1Char('0')).toUpper();
}

[[nodiscard]] bool isBlank(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar character) {
        return character == QLatin1Char(' ') || character == QLatin1Char('\t') ||
               character == QLatin1Char('\r') || character == QLatin1Char('\n');
    });
}

[[nodiscard]] QString badByteSentence(std::string_view rest)
{
    const uint byte = static_cast<unsigned char>(rest[0]);
    return qtTrId("package-xml-utf8").arg(hex(byte, 2));
}

[[nodiscard]] QString forbiddenSentence(std::string_view sequence)
{
    const std::wstring text = fromUtf8(sequence);
    return qtTrId("package-xml-character").arg(hex(static_cast<uint>(text.front()), 4));
}

} // namespace

LimitedXml::LimitedXml(const QByteArray& bytes, const QString& file, const XmlLimits& limits)
    : m_bytes(bytes)
    , m_file(file)
    , m_limits(limits)
    , m_view(trimmedView(m_bytes))
    , m_tokenBegin(m_view)
    , m_tokenEnd(m_view)
{
    m_reader.setNamespaceProcessing(false);
    // An empty QString fixes the parser on UTF-8 for all bytes that follow.
    m_reader.addData(QString());
    checkBytes();
}

Result<LimitedXml::Token> LimitedXml::next()
{
    while (!m_fault) {
        const std::optional<Token> token = step();
        if (token)
            return *token;
    }
    return *m_fault;
}

void LimitedXml::checkBytes()
{
    if (m_bytes.size() > m_limits.bytes) {
        m_fault = Fault{FaultKind::BadInput, qtTrId("package-xml-too-large").arg(m_limits.bytes),
                        m_file, 0, 0};
        return;
    }
    checkCharacters();
    if (!m_fault)
        checkDeclaration();
}

void LimitedXml::checkCharacters()
{
    // Looked for before parsing, and so in comments too: the parser would expand a document type's
    // own references before it reports one, and takes one even behind the root.
    const std::size_t documentType = m_view.find("<!DOCTYPE");
    std::size_t at = 0;
    while (at < std::min(m_view.size(), documentType)) {
        const std::string_view rest = m_view.substr(at);
        const std::size_t run = leadingRun(rest, isPlainByte);
        const qint64 length = run > 0 ? static_cast<qint64>(run) : utf8Length(rest);
        const std::string_view sequence = rest.substr(0, static_cast<std::size_t>(length));
        // The parser would pass over a second one in silence, and its places would be wrong.
        const bool isMark = at == 0 && sequence == kByteOrderMark;
        if (length == 0 || (run == 0 && (isForbidden(sequence) || isMark)))
            return fail(placeOf(at),
                        length == 0 ? badByteSentence(rest) : forbiddenSentence(sequence));
        at += sequence.size();
    }
    if (documentType != std::string_view::npos)
        fail(placeOf(documentType), qtTrId("package-xml-dtd"));
}

TextPlace LimitedXml::placeOf(std::size_t offset) const
{
    Utf8Cursor cursor(m_view);
    cursor.advanceToOffset(static_cast<qint64>(offset));
    return cursor.place();
}

void LimitedXml::checkDeclaration()
{
    const std::size_t end =
        m_view.substr(0, static_cast<std::size_t>(m_limits.tokenBytes)).find("?>");
    if (m_view.substr(0, 5) != "<?xml" || end == std::string_view::npos)
        return;
    static const QRegularExpression kEncoding(
        QStringLiteral("\\bencoding\\s*=\\s*[\"']([^\"']*)[\"']"));
    const QString declaration = QString::fromLatin1(m_view.data(), static_cast<int>(end));
    const QRegularExpressionMatch match = kEncoding.match(declaration);
    const QString encoding = match.captured(1);
    if (!match.hasMatch() || encoding.compare(QLatin1String("UTF-8"), Qt::CaseInsensitive) == 0)
        return;
    fail(placeOf(static_cast<std::size_t>(match.capturedStart(0))),
         qtTrId("package-xml-encoding").arg(shownText(encoding)));
}

void LimitedXml::feed()
{
    const std::string_view piece =
        m_view.substr(static_cast<std::size_t>(m_fed), static_cast<std::size_t>(kPieceBytes));
    m_reader.addData(QByteArray(piece.data(), static_cast<int>(piece.size())));
    m_fed += static_cast<qint64>(piece.size());
}

// How many values have begun in the start tag that the parser has in part. At the end of a tag the
// parser compares every attribute with every other, so too many must never get there.
qint64 LimitedXml::pendingAttributes() const
{
    std::string_view pending = m_view.substr(0, static_cast<std::size_t>(m_fed));
    pending.remove_prefix(static_cast<std::size_t>(m_tokenEnd.offset()));
    pending.remove_prefix(leadingRun(pending, isBlankByte));
    const std::string_view begin = pending.substr(0, 2);
    if (begin.substr(0, 1) != "<" || begin == "<!" || begin == "<?")
        return 0;
    qint64 count = 0;
    std::size_t quote = pending.find_first_of("\"'");
    while (quote != std::string_view::npos) {
        ++count;
        const std::size_t end = pending.find(pending[quote], quote + 1);
        if (end == std::string_view::npos)
            break;
        quote = pending.find_first_of("\"'", end + 1);
    }
    return count;
}

void LimitedXml::feedOrFail()
{
    const bool ranDry = m_reader.error() == QXmlStreamReader::PrematureEndOfDocumentError;
    const bool fedAll = m_fed >= static_cast<qint64>(m_view.size());
    if (ranDry && m_fed - m_tokenEnd.offset() > m_limits.tokenBytes) {
        m_tokenEnd.skipBlanks();
        fail(m_tokenEnd.place(), qtTrId("package-xml-token").arg(m_limits.tokenBytes));
    } else if (ranDry && pendingAttributes() > m_limits.attributes) {
        m_tokenEnd.skipBlanks();
        fail(m_tokenEnd.place(), qtTrId("package-xml-attributes").arg(m_limits.attributes));
    } else if (ranDry && !fedAll) {
        feed();
    } else if (ranDry) {
        m_tokenEnd.advanceToOffset(m_fed);
        fail(m_tokenEnd.place(), qtTrId("package-xml-incomplete"));
    } else {
        // The parser has already taken the character that it stumbled over.
        m_tokenEnd.advanceToUnits(m_reader.characterOffset() - 1);
        fail(m_tokenEnd.place(),
             qtTrId("package-xml-malformed").arg(shownText(m_reader.errorString())));
    }
}

std::optional<LimitedXml::Token> LimitedXml::step()
{
    if (m_rootEnded)
        return takeEnd();
    const QXmlStreamReader::TokenType type = m_reader.readNext();
    if (type == QXmlStreamReader::Invalid) {
        feedOrFail();
        return std::nullopt;
    }
    // Without a declaration the parser announces the document in the middle of the first token.
    if (type == QXmlStreamReader::StartDocument && m_reader.documentVersion().isEmpty())
        return std::nullopt;
    return take(type);
}

std::optional<LimitedXml::Token> LimitedXml::take(QXmlStreamReader::TokenType type)
{
    ++m_tokens;
    m_tokenBegin = m_tokenEnd;
    // A text is known to have ended when the next bracket has been taken.
    const bool tookMore = type == QXmlStreamReader::Characters && !m_reader.isCDATA();
    m_tokenEnd.advanceToUnits(m_reader.characterOffset() - (tookMore ? 1 : 0));
    const bool tooLong = m_tokenEnd.offset() - m_tokenBegin.offset() > m_limits.tokenBytes;
    m_tokenBegin.skipBlanks();
    if (tooLong) {
        fail(m_tokenBegin.place(), qtTrId("package-xml-token").arg(m_limits.tokenBytes));
        return std::nullopt;
    }
    switch (type) {
    case QXmlStreamReader::StartElement:
        return takeStart();
    case QXmlStreamReader::EndElement:
        m_rootEnded = --m_depth == 0;
        return Token::ElementEnd;
    case QXmlStreamReader::Characters:
        return takeText();
    case QXmlStreamReader::StartDocument:
    case QXmlStreamReader::Comment:
        return std::nullopt;
    default:
        fail(m_tokenBegin.place(), qtTrId("package-xml-instruction"));
        return std::nullopt;
    }
}

std::optional<LimitedXml::Token> LimitedXml::takeStart()
{
    const QXmlStreamAttributes attributes = m_reader.attributes();
    m_element = {m_reader.qualifiedName().toString(), {}, m_tokenBegin.place()};
    if (++m_depth > m_limits.depth) {
        fail(m_element.place, qtTrId("package-xml-depth").arg(m_limits.depth));
        return std::nullopt;
    }
    if (attributes.size() > m_limits.attributes) {
        fail(m_element.place, qtTrId("package-xml-attributes").arg(m_limits.attributes));
        return std::nullopt;
    }
    // Where the reader and the places should disagree, an attribute is told at the place of its
    // element.
    std::vector<TextPlace> places = attributePlaces();
    places.resize(static_cast<std::size_t>(attributes.size()), m_element.place);
    m_nameBytes += m_element.name.toUtf8().size();
    for (int i = 0; i < attributes.size(); ++i) {
        const QString name = attributes.at(i).qualifiedName().toString();
        m_nameBytes += name.toUtf8().size();
        m_element.attributes.push_back(
            {name, attributes.at(i).value().toString(), places.at(static_cast<std::size_t>(i))});
    }
    if (m_nameBytes > m_limits.nameBytes) {
        fail(m_element.place, qtTrId("package-xml-names").arg(m_limits.nameBytes));
        return std::nullopt;
    }
    return Token::ElementStart;
}

std::optional<LimitedXml::Token> LimitedXml::takeText()
{
    m_text = m_reader.text().toString();
    m_textPlace = m_tokenBegin.place();
    if (isBlank(m_text))
        return std::nullopt;
    return Token::Text;
}

// The parser ends the document when it runs dry behind the root, and is then of no use for the next
// piece. What may follow is little enough to be read here: blanks and comments.
std::optional<LimitedXml::Token> LimitedXml::takeEnd()
{
    m_tokenEnd.skipBlanks();
    if (m_tokenEnd.atEnd())
        return Token::DocumentEnd;
    ++m_tokens;
    m_tokenBegin = m_tokenEnd;
    const auto begin = static_cast<std::size_t>(m_tokenBegin.offset());
    const std::size_t dashes =
        m_view.substr(begin, 4) == "<!--" ? m_view.find("--", begin + 4) : std::string_view::npos;
    if (dashes == std::string_view::npos || m_view.substr(dashes, 3) != "-->") {
        fail(m_tokenBegin.place(), qtTrId("package-xml-extra"));
        return std::nullopt;
    }
    const auto end = static_cast<qint64>(dashes) + 3;
    if (end - m_tokenBegin.offset() > m_limits.tokenBytes)
        fail(m_tokenBegin.place(), qtTrId("package-xml-token").arg(m_limits.tokenBytes));
    m_tokenEnd.advanceToOffset(end);
    return std::nullopt;
}

// The parser does not tell where attributes stand. Since it has accepted the tag, what is between
// its brackets is a name and then names and quoted values in turn.
std::vector<TextPlace> LimitedXml::attributePlaces() const
{
    std::vector<TextPlace> places;
    Utf8Cursor cursor = m_tokenBegin;
    cursor.skipUntil(" \t\r\n/>");
    cursor.skipBlanks();
    while (!cursor.atEnd() && cursor.peek() != '/' && cursor.peek() != '>') {
        places.push_back(cursor.place());
        cursor.skipUntil("\"'");
        const char quote[] = {cursor.peek(), '\0'};
        cursor.advanceToOffset(cursor.offset() + 1);
        cursor.skipUntil(quote);
        cursor.advanceToOffset(cursor.offset() + 1);
        cursor.skipBlanks();
    }
    return places;
}

void LimitedXml::fail(TextPlace place, const QString& sentence)
{
    m_fault = Fault{FaultKind::BadInput, sentence, m_file, place.line, place.column};
}

} // namespace quelhost
