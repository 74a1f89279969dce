// All that a main window shows, as a list of texts that can be compared.
#pragma once

#include "tests/window/groupsfixture.h"

namespace quelhost {
class MainWindow;
}

namespace windowtest {

// Every menu, action, key, toolbar with its place, row of the view, and object of the window.
[[nodiscard]] Texts flatList(const quelhost::MainWindow& window);

// What stands in one of the lists only, "+" before what came.
[[nodiscard]] Texts difference(const Texts& before, const Texts& after);

} // namespace windowtest
