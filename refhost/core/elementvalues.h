// The attributes of one element held against what the element may have.
#pragma once

#include "refhost/core/limitedxml.h"
#include "refhost/core/packagefaults.h"

#include <QString>

#include <initializer_list>

namespace quelhost {

struct AttributeRule
{
    const char* name;
    bool required;
};

// Tells `faults` of every attribute that the rules do not know, of required ones that are missing
// or empty, and of values with control characters.
class ElementValues
{
public:
    // Borrows `element`, which must outlive this.
    ElementValues(const XmlElement& element, std::initializer_list<AttributeRule> rules,
                  PackageFaults& faults);

    // Empty when the attribute is not there.
    [[nodiscard]] QString value(const char* name) const;

    // Null when the attribute is not there.
    [[nodiscard]] const XmlAttribute* find(const char* name) const;

    // Null when the attribute is not there or empty: what a required one must not be.
    [[nodiscard]] const XmlAttribute* findFilled(const char* name) const;

private:
    const XmlElement& m_element;
};

} // namespace quelhost
