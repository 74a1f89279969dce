// The two refusals that MENULOAD and the menu load dialog share. Which of them is a box and which a
// line on the command line differs between the two on purpose, so only the texts are here.
#pragma once

#include "host/cstdstr.h"

// Says the same of a file that is missing and of one that is no customization file.
[[nodiscard]] CStdStr<wchar_t> menuFileNotFoundMessage(const wchar_t* path);

// Empty where the resource file has no text for it: the module has none of its own.
[[nodiscard]] CStdStr<wchar_t> menuFileAlreadyLoadedMessage(const wchar_t* path);
