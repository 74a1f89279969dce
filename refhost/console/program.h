// The program: its options, what they ask for, and its exit status.
#pragma once

namespace quelhost {

// Runs the program and returns its exit status: 0 when the session ended normally, 1 when it could
// not do what was asked, 2 when the options were wrong.
[[nodiscard]] __attribute__((visibility("default"))) int runProgram(int argc, char** argv);

} // namespace quelhost
