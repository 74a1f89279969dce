// What the mains of tests with dialogs and windows share.
#pragma once

namespace testsupport {

// Runs all tests with an application object that carries exceptions and with the host's English
// sentences; offscreen unless the environment names a platform or a display is wanted. Returns what
// main() returns. REQUIRES: the test framework is initialised.
[[nodiscard]] int runAllWithDialogs(int& argc, char** argv, bool onDisplay);

} // namespace testsupport
