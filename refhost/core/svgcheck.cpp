#include "refhost/core/imagecheck.h"

#include "refhost/core/limitedxml.h"
#include "refhost/core/packagefaults.h"

#include <QRegularExpression>

#include <cmath>
#include <map>

namespace quelhost {

namespace {

// Without the prefix, since any prefix may stand for the namespace of svg.
[[nodiscard]] QString localName(const QString& name)
{
    return name.mid(name.lastIndexOf(QLatin1Char(':')) + 1);
}

[[nodiscard]] bool isSame(const QString& name, const char* other)
{
    return name.compare(QLatin1String(other), Qt::CaseInsensitive) == 0;
}

[[nodiscard]] bool isForbiddenElement(const QString& name)
{
    constexpr const char* kForbidden[] = {"image", "use", "script", "foreignObject"};
    for (const char* forbidden : kForbidden) {
        if (isSame(name, forbidden))
            return true;
    }
    return false;
}

[[nodiscard]] int skipSpaces(const QString& text, int at)
{
    while (at < text.size() && text.at(at).isSpace())
        ++at;
    return at;
}

// Whether what stands in the brackets of `url(` begins with `#`. Style sheets allow blanks and a
// quote before it.
[[nodiscard]] bool isInner(const QString& style, int at)
{
    at = skipSpaces(style, at);
    const bool quoted = at < style.size() && QStringLiteral("\"'").contains(style.at(at));
    at = skipSpaces(style, quoted ? at + 1 : at);
    return at < style.size() && style.at(at) == QLatin1Char('#');
}

[[nodiscard]] bool leadsOut(const QString& style)
{
    const QString url = QStringLiteral("url(");
    int at = style.indexOf(url, 0, Qt::CaseInsensitive);
    while (at >= 0) {
        at += url.size();
        if (!isInner(style, at))
            return true;
        at = style.indexOf(url, at, Qt::CaseInsensitive);
    }
    return style.contains(QLatin1String("@import"), Qt::CaseInsensitive);
}

// Pixels of a length such as `24`, `1.5em` or `100%` (which has none: 1 stands for it); nothing
// when it is no length.
[[nodiscard]] std::optional<double> pixels(const QString& length)
{
    static const std::map<QString, double> kUnits = {
        {QString(), 1.0},
        {QStringLiteral("px"), 1.0},
        {QStringLiteral("pt"), 96.0 / 72.0},
        {QStringLiteral("pc"), 16.0},
        {QStringLiteral("in"), 96.0},
        {QStringLiteral("cm"), 96.0 / 2.54},
        {QStringLiteral("mm"), 96.0 / 25.4},
        {QStringLiteral("em"), 16.0},
        {QStringLiteral("ex"), 8.0},
    };
    static const QRegularExpression kLength(
        QStringLiteral("^\\s*([+]?[0-9.]+(?:[eE][-+]?[0-9]{1,3})?)\\s*([a-z]*|%)\\s*$"));
    constexpr int kLongest = 32; // keeps the search below from going back and forth over pages
    const QRegularExpressionMatch match = kLength.match(length.left(kLongest + 1));
    bool isNumber = false;
    const double number = match.captured(1).toDouble(&isNumber);
    if (!isNumber || number <= 0 || length.size() > kLongest)
        return std::nullopt;
    if (match.captured(2) == QLatin1String("%"))
        return 1.0;
    const auto unit = kUnits.find(match.captured(2));
    return unit == kUnits.end() ? std::nullopt : std::optional(number * unit->second);
}

class SvgCheck
{
public:
    SvgCheck(const QByteArray& bytes, const QString& file)
        : m_xml(bytes, file)
        , m_faults(file)
    {}

    [[nodiscard]] std::vector<Fault> run();

private:
    void begin(const XmlElement& element);
    void end();
    void checkRoot(const XmlElement& element);
    void checkAttribute(const XmlAttribute& attribute);
    [[nodiscard]] QString attributeSentence(const XmlAttribute& attribute) const;

    LimitedXml m_xml;
    PackageFaults m_faults;
    int m_depth = 0;
    int m_styleDepth = 0; // of the outermost open `style`; 0 when none is open
    QString m_style;      // its text so far
    TextPlace m_stylePlace;
};

std::vector<Fault> SvgCheck::run()
{
    while (!m_faults.areTooMany()) {
        const Result<LimitedXml::Token> token = m_xml.next();
        if (!token) {
            m_faults.add(token.fault());
            break;
        }
        if (token.value() == LimitedXml::Token::DocumentEnd)
            break;
        if (token.value() == LimitedXml::Token::ElementStart)
            begin(m_xml.element());
        else if (token.value() == LimitedXml::Token::ElementEnd)
            end();
        else if (m_styleDepth > 0)
            m_style += m_xml.text();
    }
    return m_faults.take();
}

void SvgCheck::begin(const XmlElement& element)
{
    ++m_depth;
    const QString name = localName(element.name);
    if (m_depth == 1)
        checkRoot(element);
    if (isForbiddenElement(name))
        m_faults.add(element.place, qtTrId("package-svg-element").arg(shownText(element.name)));
    if (isSame(name, "style") && m_styleDepth == 0) {
        m_styleDepth = m_depth;
        m_stylePlace = element.place;
    }
    for (const XmlAttribute& attribute : element.attributes)
        checkAttribute(attribute);
}

void SvgCheck::end()
{
    if (m_depth == m_styleDepth) {
        // A backslash can spell any word in a way that a search does not find.
        if (m_style.contains(QLatin1Char('\\')))
            m_faults.add(m_stylePlace, qtTrId("package-svg-backslash"));
        if (leadsOut(m_style))
            m_faults.add(m_stylePlace, qtTrId("package-svg-style"));
        m_style.clear();
        m_styleDepth = 0;
    }
    --m_depth;
}

void SvgCheck::checkRoot(const XmlElement& element)
{
    if (localName(element.name) != QLatin1String("svg"))
        m_faults.add(element.place, qtTrId("package-svg-root").arg(shownText(element.name)));
    for (const XmlAttribute& attribute : element.attributes) {
        if (attribute.name != QLatin1String("width") && attribute.name != QLatin1String("height"))
            continue;
        const std::optional<double> size = pixels(attribute.value);
        if (!size)
            m_faults.add(
                attribute.place,
                qtTrId("package-svg-length").arg(attribute.name, shownText(attribute.value)));
        else if (*size > static_cast<double>(kMaxSvgPixels))
            m_faults.add(
                attribute.place,
                qtTrId("package-svg-size").arg(attribute.name, QString::number(kMaxSvgPixels)));
    }
}

void SvgCheck::checkAttribute(const XmlAttribute& attribute)
{
    const QString sentence = attributeSentence(attribute);
    if (!sentence.isEmpty())
        m_faults.add(attribute.place, sentence);
}

QString SvgCheck::attributeSentence(const XmlAttribute& attribute) const
{
    const QString shown = shownText(attribute.name);
    const QString name = localName(attribute.name);
    const bool isReference = isSame(name, "href") || isSame(attribute.name, "xml:base");
    if (isReference && !attribute.value.trimmed().startsWith(QLatin1Char('#')))
        return qtTrId("package-svg-reference").arg(shown);
    if (name.startsWith(QLatin1String("on"), Qt::CaseInsensitive))
        return qtTrId("package-svg-event").arg(shown);
    if (leadsOut(attribute.value))
        return qtTrId("package-svg-reference").arg(shown);
    // Editors note paths of their own under a prefix; those are no style.
    const bool mayBeStyle = !attribute.name.contains(QLatin1Char(':'));
    if (mayBeStyle && attribute.value.contains(QLatin1Char('\\')))
        return qtTrId("package-svg-attribute-backslash").arg(shown);
    return {};
}

} // namespace

ImageReading checkSvg(const QByteArray& bytes, const QString& file)
{
    const std::vector<Fault> faults = SvgCheck(bytes, file).run();
    return faults.empty() ? ImageReading{bytes, {}} : ImageReading{{}, faults};
}

} // namespace quelhost
