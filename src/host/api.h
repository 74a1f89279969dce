// Linkage of the host interface.
//
// Every function and class marked QUEL_HOST_API is defined by the host and resolved when the module
// is loaded; a module links against none of them. Unless a declaration says otherwise:
//  - it is called on the host's user-interface thread only, one command at a time;
//  - texts are null-terminated wide strings of 4-byte characters (UTF-32) and are borrowed for the
//    length of the call;
//  - an exception thrown by the host passes through the caller, who undoes its own scopes only.
#pragma once

#define QUEL_HOST_API __attribute__((visibility("default")))
