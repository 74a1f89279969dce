#include "refhost/core/keyassignment.h"

#include <map>

namespace quelhost {

namespace {

using Keepers = std::map<QKeySequence, GroupKey>;

bool beginsWith(const QKeySequence& whole, const QKeySequence& beginning)
{
    return beginning.matches(whole) != QKeySequence::NoMatch;
}

// Who has these keys, or keys that begin with these, or the beginning of these: of keys typed one
// after the other, only the shortest would ever be seen.
const GroupKey* keeperOf(const QKeySequence& keys, const Keepers& keepers)
{
    // What begins with these stands right behind them.
    const auto atOrBehind = keepers.lower_bound(keys);
    if (atOrBehind != keepers.end() && beginsWith(atOrBehind->first, keys))
        return &atOrBehind->second;
    int typed[3] = {};
    for (int count = 1; count < keys.count(); ++count) {
        typed[count - 1] = keys[static_cast<unsigned int>(count) - 1];
        const auto kept = keepers.find(QKeySequence(typed[0], typed[1], typed[2]));
        if (kept != keepers.end())
            return &kept->second;
    }
    return nullptr;
}

} // namespace

KeyAssignment assignKeys(const std::vector<GroupKey>& hostKeys,
                         const std::vector<ShownGroup>& groups)
{
    KeyAssignment result;
    Keepers keepers;
    const QKeySequence cancel(Qt::Key_Escape);
    keepers.emplace(cancel, GroupKey{QStringLiteral("Quelhost"), QStringLiteral("cancel"), cancel});
    for (const GroupKey& own : hostKeys)
        keepers.emplace(own.keys, own);
    for (const bool chosen : {true, false}) {
        for (const ShownGroup& shown : groups) {
            for (const Accelerator& accelerator : shown.group.accelerators) {
                if (accelerator.chosen != chosen)
                    continue;
                const GroupKey wanted{shown.group.name, accelerator.command, accelerator.keys};
                if (const GroupKey* const kept = keeperOf(wanted.keys, keepers)) {
                    result.lost.push_back({wanted, *kept});
                } else {
                    keepers.emplace(wanted.keys, wanted);
                    result.working.push_back(wanted);
                }
            }
        }
    }
    return result;
}

} // namespace quelhost
