#include "refhost/core/keyassignment.h"

#include <map>

namespace quelhost {

KeyAssignment assignKeys(const std::vector<ShownGroup>& groups)
{
    KeyAssignment result;
    std::map<QKeySequence, GroupKey> keepers;
    for (const ShownGroup& shown : groups) {
        for (const Accelerator& accelerator : shown.group.accelerators) {
            const GroupKey wanted{shown.group.name, accelerator.command, accelerator.keys};
            const auto [kept, isFree] = keepers.try_emplace(wanted.keys, wanted);
            if (isFree)
                result.working.push_back(wanted);
            else
                result.lost.push_back({wanted, kept->second});
        }
    }
    return result;
}

} // namespace quelhost
