#include "refhost/core/elementvalues.h"

#include <algorithm>

namespace quelhost {

namespace {

[[nodiscard]] const XmlAttribute* findAttribute(const XmlElement& element, const QString& name)
{
    for (const XmlAttribute& attribute : element.attributes) {
        if (attribute.name == name)
            return &attribute;
    }
    return nullptr;
}

void checkKnown(const XmlElement& element, const XmlAttribute& attribute,
                std::initializer_list<AttributeRule> rules, PackageFaults& faults)
{
    const bool known = std::any_of(rules.begin(), rules.end(), [&](const AttributeRule& rule) {
        return attribute.name == QLatin1String(rule.name);
    });
    if (!known)
        faults.add(
            attribute.place,
            qtTrId("package-attribute-unknown").arg(shownText(attribute.name), element.name));
    else if (hasControlCharacter(attribute.value))
        faults.add(attribute.place, qtTrId("package-attribute-control").arg(attribute.name));
}

void checkRequired(const XmlElement& element, const QString& name, PackageFaults& faults)
{
    const XmlAttribute* attribute = findAttribute(element, name);
    if (attribute == nullptr)
        faults.add(element.place, qtTrId("package-attribute-missing").arg(element.name, name));
    else if (attribute->value.isEmpty())
        faults.add(attribute->place, qtTrId("package-attribute-empty").arg(element.name, name));
}

} // namespace

ElementValues::ElementValues(const XmlElement& element, std::initializer_list<AttributeRule> rules,
                             PackageFaults& faults)
    : m_element(element)
{
    for (const XmlAttribute& attribute : element.attributes)
        checkKnown(element, attribute, rules, faults);
    for (const AttributeRule& rule : rules) {
        if (rule.required)
            checkRequired(element, QLatin1String(rule.name), faults);
    }
}

QString ElementValues::value(const char* name) const
{
    const XmlAttribute* attribute = find(name);
    return attribute == nullptr ? QString() : attribute->value;
}

const XmlAttribute* ElementValues::find(const char* name) const
{
    return findAttribute(m_element, QLatin1String(name));
}

const XmlAttribute* ElementValues::findFilled(const char* name) const
{
    const XmlAttribute* attribute = find(name);
    return attribute != nullptr && !attribute->value.isEmpty() ? attribute : nullptr;
}

} // namespace quelhost
