// Errors that travel as pointers, and the calls of a host that may throw them.
#pragma once

#include "host/errors.h"

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace recording {

// The error that `call` threw, now the caller's; null when it threw none.
template<typename Call>
std::unique_ptr<VxErrorStatus> errorThrownBy(const Call& call)
{
    try {
        call();
    } catch (VxErrorStatus* error) {
        return std::unique_ptr<VxErrorStatus>(error);
    }
    return nullptr;
}

// A call in a trace: its function, its number among that function's calls, and its line.
struct TracedCall
{
    std::string function;
    int which;
    std::size_t line;
};

// Whether that function only gives something back. The guards call it, on the way of an error too.
inline bool givesBack(const std::string& function)
{
    return function == "quutDelBuffer" || function == "quutRelRb" ||
           function == "RestorePreviousResource" || function == "leaveResourceScope";
}

// The calls in a trace but for those that give something back.
inline std::vector<TracedCall> callsThatMayThrow(const std::vector<std::string>& trace)
{
    std::vector<TracedCall> result;
    std::map<std::string, int> counts;
    for (std::size_t line = 0; line < trace.size(); ++line) {
        const std::string function = trace[line].substr(0, trace[line].find('('));
        if (!givesBack(function))
            result.push_back({function, ++counts[function], line});
    }
    return result;
}

// Whether the call at `line` threw and everything behind it gives something back.
inline bool onlyGivesBackBehind(const std::vector<std::string>& trace, std::size_t line)
{
    const std::string thrown = ") -> throws";
    if (line >= trace.size() || trace[line].size() < thrown.size() ||
        trace[line].compare(trace[line].size() - thrown.size(), thrown.size(), thrown) != 0)
        return false;
    return std::all_of(
        trace.begin() + static_cast<std::ptrdiff_t>(line) + 1, trace.end(),
        [](const std::string& call) { return givesBack(call.substr(0, call.find('('))); });
}

} // namespace recording
