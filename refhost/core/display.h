// Whether windows can be shown.
#pragma once

namespace quelhost {

// Whether there is a display that answers. A display that is named in the environment and does not
// answer would end the program as soon as a window toolkit tried it, so it is asked first.
[[nodiscard]] bool displayAnswers();

} // namespace quelhost
