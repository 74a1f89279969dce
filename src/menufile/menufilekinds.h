// Menu file kinds, and whether a command talks through prompts or dialogs. All three functions are
// exported; they keep no state between calls.
#pragma once

#include "host/cstdstr.h"

// String resource 11005: the extensions of menu files without dots, separated by ";".
constexpr unsigned int kMenuFileKindsId = 11005;

// The kinds as the current resource file has them, or the module's own "cuix;mnu;mns;menuc".
QuString menuFileKinds();

// 1 when the running command is to use the command line: a script runs, the document's no-dialog
// flag is set, or FILEDIA is not 1. 0 when it may use dialogs.
__attribute__((visibility("default"))) int IsRunAsCmdLineCommand();

// 1 when `ext`, with its leading dot, is one of the menu file kinds, in any case; else 0. The last
// of several kinds is never compared: with the kinds above, ".menuc" is none. Callers rely on it.
__attribute__((visibility("default"))) int IsSupportMenuExt(const CStdStr<wchar_t>& ext);

// Warns that loading `path`, unless it is a ".mns" file, loses toolbar customization. Returns 0 to
// go on, which is always the case on the command line, and 181 when the user declined.
__attribute__((visibility("default"))) int MenuLoadReplaceAll(const CStdStr<wchar_t>& path);
