// Counts how often zlib is asked to inflate, by whatever library of the program. The program must
// export its symbols, so that they come before those of its libraries.
#pragma once

namespace testsupport {

// Calls since the program started.
[[nodiscard]] long inflateCalls();

} // namespace testsupport
