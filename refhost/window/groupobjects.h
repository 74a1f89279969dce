// What stands in the window for the shown groups.
#pragma once

#include "refhost/core/shownmenugroups.h"
#include "refhost/window/macroaction.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace quelhost {

// Objects for each shown group, menus or toolbars: a group that stays keeps its objects, one that
// goes takes them with it.
template<typename Object>
class GroupObjects
{
public:
    using Objects = std::vector<std::unique_ptr<Object>>;

    // Follows the groups; `make` makes the objects of one that is new.
    template<typename Make>
    void follow(const std::vector<ShownGroup>& groups, const Make& make)
    {
        std::vector<Entry> entries;
        for (const ShownGroup& shown : groups) {
            const auto known =
                std::find_if(m_entries.begin(), m_entries.end(), [&shown](const Entry& entry) {
                    return entry.path == shown.path && entry.name == shown.group.name;
                });
            if (known == m_entries.end()) {
                entries.push_back({shown.path, shown.group.name, make(shown)});
            } else {
                entries.push_back(std::move(*known));
                m_entries.erase(known);
            }
        }
        m_entries = std::move(entries);
    }

    // In the order of the groups.
    template<typename Use>
    void forEach(const Use& use) const
    {
        for (const Entry& entry : m_entries) {
            for (const std::unique_ptr<Object>& object : entry.objects)
                use(*object);
        }
    }

    // Tells every action inside the objects.
    void setCommandAsking(bool asking) const
    {
        forEach([asking](Object& object) {
            for (MacroAction* action : object.template findChildren<MacroAction*>())
                action->setCommandAsking(asking);
        });
    }

private:
    struct Entry
    {
        std::wstring path;
        QString name;
        Objects objects;
    };
    std::vector<Entry> m_entries;
};

} // namespace quelhost
