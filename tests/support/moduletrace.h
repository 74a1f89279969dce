// What the small command modules of the tests tell about the calls they get.
#pragma once

#include <string>
#include <vector>

// Called by the modules. A module finds it in the program that loads it.
extern "C" __attribute__((visibility("default"))) void noteModuleCall(const char* call);

namespace quelhost::test {

// The calls since the last time this was asked, one text each.
[[nodiscard]] std::vector<std::string> takeModuleCalls();

// Whether a library is in this process; `name` is its file's name or the end of its path.
[[nodiscard]] bool isMapped(const std::string& name);

} // namespace quelhost::test
