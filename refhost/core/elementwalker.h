// Walks over the elements of an XML text, child by child, and goes on after a fault.
#pragma once

#include "refhost/core/limitedxml.h"
#include "refhost/core/packagefaults.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>

namespace quelhost {

class ElementWalker
{
public:
    // Called at the start of a child; has to read on to the child's end with one of the
    // functions below.
    using Child = std::function<void(const XmlElement& child)>;

    // `file` is the name for faults.
    ElementWalker(const QByteArray& xml, const QString& file);

    [[nodiscard]] PackageFaults& faults() { return m_faults; }

    // Whether the text could not be read to its end; the fault that says so is among the others,
    // unless they are too many.
    // Nothing is read any more then, and what is missing so far may well follow unread.
    [[nodiscard]] bool hasStopped() const { return m_stopped; }

    // The root element, to begin with; nothing when there is none.
    [[nodiscard]] std::optional<XmlElement> root();

    // Reads to the end of `parent`, which was begun last. Text in it is a fault, told once.
    void children(const XmlElement& parent, const Child& child);

    // The same for an element that may hold nothing.
    void noChildren(const XmlElement& element);

    // Tells that `parent` knows no such child, and passes over it with all that is in it.
    void unknown(const XmlElement& child, const XmlElement& parent);

    // Passes over the element that was begun last, with all that is in it.
    void skip();

    // Reads what follows the root. REQUIRES: the root was read to its end.
    void finish();

private:
    [[nodiscard]] std::optional<LimitedXml::Token> advance();

    LimitedXml m_xml;
    PackageFaults m_faults;
    bool m_stopped = false;
};

} // namespace quelhost
