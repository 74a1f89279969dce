// The host's file dialog.
#pragma once

#include "host/api.h"
#include "host/variables.h"

// Lets the user pick an existing file.
//   title            of the dialog
//   initialPath      the folder or file it opens on; empty for the host's choice
//   extensions       the kinds of file without dots, separated by ";"
//   flags            the host's bits; those that pick an existing file are 0x18080002
//   result           receives the path: type 5005 and a string that the caller frees with
//                    quutDelBuffer
//   reserved1        null
//   filterIndex      in: the filter shown first, counted from 0; out: the filter last chosen
//   filters          "label(pattern)" entries separated by "|"
//   reserved2        null
// Returns 5100 when a file was picked; -5002 when the user cancelled, and then `result` and
// `filterIndex` are untouched.
// REQUIRES: `result` is not null.
[[nodiscard]] QUEL_HOST_API int vxGetFileDialog(const wchar_t* title, const wchar_t* initialPath,
                                                const wchar_t* extensions, int flags,
                                                resbuf* result, bool* reserved1, int& filterIndex,
                                                const wchar_t* filters, const wchar_t* reserved2);
