// From the user's choice of a menu file to a path. All three functions are exported.
#pragma once

#include "host/cstdstr.h"

class IQuelBuildInCommandContext;

// Shows the host's file dialog for menu files and remembers the filter and file chosen. Opens on
// the file chosen last or, before there is one, on `initial`. Returns the dialog's status: on 5100
// with a file, `path` holds it; otherwise `path` and the settings are unchanged. -5001 when the
// host has no configuration store, and then no dialog is shown.
__attribute__((visibility("default"))) int getMenuFilePathByDialog(CStdStr<wchar_t>& path,
                                                                   const CStdStr<wchar_t>& initial);

// Asks for a menu file on the command line. Returns the prompt's status: on 5100 `path` holds the
// name as typed, the current main menu file for Enter, or nothing for an answer that begins with
// "."; otherwise it is unchanged. An answer that begins with "~" shows the file dialog instead.
__attribute__((visibility("default"))) int getMenuFilePathByCmd(CStdStr<wchar_t>& path);

// Has the host search for the file `name`, as it is when it has the extension of a menu file, else
// with the kinds' extensions added. Returns 1 and sets `fullPath` when found; 0, and `fullPath`
// unchanged, when not.
// REQUIRES: `context` is not null.
__attribute__((visibility("default"))) int getMenuFullPath(IQuelBuildInCommandContext* context,
                                                           const CStdStr<wchar_t>& name,
                                                           CStdStr<wchar_t>& fullPath);

// `text` without white space at both ends, the left end first. What is white space is up to the
// global C++ locale. Not exported.
CStdStr<wchar_t> trimmed(const std::wstring& text);
