#include "refhost/core/elementwalker.h"

namespace quelhost {

using Token = LimitedXml::Token;

ElementWalker::ElementWalker(const QByteArray& xml, const QString& file)
    : m_xml(xml, file)
    , m_faults(file)
{}

std::optional<XmlElement> ElementWalker::root()
{
    if (advance() == Token::ElementStart)
        return m_xml.element();
    return std::nullopt;
}

void ElementWalker::children(const XmlElement& parent, const Child& child)
{
    bool textTold = false;
    for (;;) {
        const std::optional<Token> token = advance();
        if (token == Token::ElementStart) {
            // A copy, since reading on changes the walker's own.
            const XmlElement element = m_xml.element();
            child(element);
        } else if (token == Token::Text) {
            if (!textTold)
                m_faults.add(m_xml.textPlace(), qtTrId("package-text").arg(parent.name));
            textTold = true;
        } else {
            return;
        }
    }
}

void ElementWalker::noChildren(const XmlElement& element)
{
    children(element, [&](const XmlElement& child) { unknown(child, element); });
}

void ElementWalker::unknown(const XmlElement& child, const XmlElement& parent)
{
    m_faults.add(child.place,
                 qtTrId("package-element-unknown").arg(shownText(child.name), parent.name));
    skip();
}

void ElementWalker::skip()
{
    int depth = 1;
    while (depth > 0) {
        const std::optional<Token> token = advance();
        if (!token)
            return;
        if (token == Token::ElementStart)
            ++depth;
        else if (token == Token::ElementEnd)
            --depth;
    }
}

void ElementWalker::finish()
{
    static_cast<void>(advance());
}

// Nothing once the reading has stopped.
std::optional<Token> ElementWalker::advance()
{
    m_stopped = m_stopped || m_faults.areTooMany();
    if (m_stopped)
        return std::nullopt;
    const Result<Token> token = m_xml.next();
    if (token)
        return token.value();
    m_stopped = true;
    m_faults.add(token.fault());
    return std::nullopt;
}

} // namespace quelhost
