// What commands look like where they stand in lists.
#pragma once

#include "refhost/core/shownmenugroups.h"
#include "refhost/core/userchanges.h"

#include <QIcon>
#include <QString>

#include <map>
#include <set>
#include <vector>

namespace quelhost {

struct CommandLook
{
    QString text; // without a letter to press
    QString tip;  // all that is known, in rows
    QIcon icon;   // an empty picture for none, so that texts stand below each other
};

// The picture of what has none.
[[nodiscard]] QIcon emptyIcon();

// Of all commands of the loaded groups; what is not there is called by its name and says why.
class CommandLooks
{
public:
    explicit CommandLooks(const std::vector<ShownGroup>& groups);

    // Of a command or a separator.
    [[nodiscard]] CommandLook of(const ToolbarEntry& entry) const;
    [[nodiscard]] bool has(const GroupEntry& command) const { return m_looks.count(command) > 0; }

private:
    const QIcon m_noIcon;
    std::map<GroupEntry, CommandLook> m_looks;
    std::set<QString> m_groups;
};

} // namespace quelhost
