#include "refhost/core/commandstore.h"

#include "refhost/core/widetext.h"

#include <algorithm>

namespace quelhost {

namespace {

using NameOf = const wchar_t* (IQuelCommandFactory::*)() const;

auto named(const QString& name, NameOf nameOf)
{
    return [&name, nameOf](const IQuelCommandFactory* factory) {
        return toQString((factory->*nameOf)()).compare(name, Qt::CaseInsensitive) == 0;
    };
}

} // namespace

int CommandStore::addCommand(IQuelCommandFactory* factory, int)
{
    const QString name = toQString(factory->globalName());
    const auto same = named(name, &IQuelCommandFactory::globalName);
    if (std::any_of(m_factories.begin(), m_factories.end(), same))
        return 1;
    m_factories.push_back(factory);
    return 0;
}

int CommandStore::removeCommand(const wchar_t* globalName)
{
    const QString name = toQString(globalName);
    const auto found = std::find_if(m_factories.begin(), m_factories.end(),
                                    named(name, &IQuelCommandFactory::globalName));
    if (found == m_factories.end())
        return 1;
    m_factories.erase(found);
    return 0;
}

IQuelCommandFactory* CommandStore::find(const QString& name) const
{
    for (const NameOf nameOf :
         {&IQuelCommandFactory::localName, &IQuelCommandFactory::globalName}) {
        const auto found =
            std::find_if(m_factories.begin(), m_factories.end(), named(name, nameOf));
        if (found != m_factories.end())
            return *found;
    }
    return nullptr;
}

QStringList CommandStore::names() const
{
    QStringList result;
    for (const IQuelCommandFactory* factory : m_factories)
        result << toQString(factory->localName()) << toQString(factory->globalName());
    result.removeDuplicates();
    result.sort();
    return result;
}

} // namespace quelhost
