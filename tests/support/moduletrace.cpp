#include "tests/support/moduletrace.h"

#include <fstream>
#include <utility>

namespace {

std::vector<std::string>& calls()
{
    static std::vector<std::string> all;
    return all;
}

} // namespace

void noteModuleCall(const char* call)
{
    calls().emplace_back(call);
}

namespace quelhost::test {

std::vector<std::string> takeModuleCalls()
{
    return std::exchange(calls(), {});
}

bool isMapped(const std::string& name)
{
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        const bool longEnough = line.size() >= name.size();
        if (longEnough && line.compare(line.size() - name.size(), name.size(), name) == 0)
            return true;
    }
    return false;
}

} // namespace quelhost::test
