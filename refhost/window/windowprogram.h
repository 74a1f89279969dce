// The window face as a library: its one entry point.
#pragma once

#include "refhost/core/options.h"
#include "refhost/core/session.h"

namespace quelhost {

// Runs a session in a window until it is closed or the session ends; the result says why there was
// none.
// REQUIRES: the application object is a HostApplication with a display.
using RunWindow = void (*)(const Options& options, const InstalledFiles& files, Status& result);

// The name of the function of that type in the library.
constexpr char kRunWindowName[] = "quelhostRunWindow";

} // namespace quelhost

extern "C" __attribute__((visibility("default"))) void
quelhostRunWindow(const quelhost::Options& options, const quelhost::InstalledFiles& files,
                  quelhost::Status& result);
