// What stands in the window for the shown groups.
#pragma once

#include "refhost/core/shownmenugroups.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace quelhost {

// Objects for each shown group, actions, menus or toolbars: a group that stays keeps its objects,
// one that goes takes them with it.
template<typename Object>
class GroupObjects
{
public:
    using Objects = std::vector<std::unique_ptr<Object>>;

    // Follows the groups; `make` makes the objects of one that is new. Returns the objects of those
    // that are gone, for a caller who has something else to take away first.
    template<typename Make>
    Objects follow(const std::vector<ShownGroup>& groups, const Make& make)
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
        std::swap(entries, m_entries);
        Objects gone;
        for (Entry& entry : entries)
            std::move(entry.objects.begin(), entry.objects.end(), std::back_inserter(gone));
        return gone;
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
