// Prompts on the command line, and whether a command may use dialogs instead.
#pragma once

#include "host/api.h"
#include "host/status.h"

class IQuelBuildInCommandContext;

// Room, in characters with the null, that the buffers of the two prompt functions must have. Longer
// answers are cut.
constexpr int kQuelStringAnswerRoom = 2048;
constexpr int kQuelKeywordAnswerRoom = 1024;

// Sets input flags (0: none) and the keyword list, separated by blanks, for the next prompt. Null
// clears the list. Returns 5100.
QUEL_HOST_API int quedInitGet(int flags, const wchar_t* keywords);

// Asks for one string. With `cronly` 0 a blank ends the answer as Enter does, and what follows on
// the line answers the next prompt; with 1 only Enter ends it. An answer that begins with a double
// quote runs to the closing one; the pair is removed when something stands between. Returns 5100
// with the answer, which is empty when the user just pressed Enter; -5002 when the user cancelled
// or the input has ended, and `answer` is then untouched. REQUIRES: `answer` has room for
// kQuelStringAnswerRoom characters. `prompt` may be null.
[[nodiscard]] QUEL_HOST_API int quedGetString(int cronly, const wchar_t* prompt, wchar_t* answer);

// Asks for one keyword of the list set with quedInitGet. It may be shortened to its capital letters
// and comes back whole; unknown input is asked for again. Returns 5100 with the keyword, 5000 for
// Enter, -5002 for cancel or the end of input; `answer` is untouched but for 5100.
// REQUIRES: `answer` has room for kQuelKeywordAnswerRoom characters. `prompt` may be null.
[[nodiscard]] QUEL_HOST_API int quedGetKword(const wchar_t* prompt, wchar_t* answer);

// Whether a script is answering the prompts.
QUEL_HOST_API bool quedScriptAppRunning();

// Whether this run of a command may show dialogs: there is a display, no script is running, and the
// call is not for the command line only. System variables are the command's own business.
QUEL_HOST_API bool commandShouldUseDialog(IQuelBuildInCommandContext* context);

// The host's record of the active document, as far as modules read it.
struct QuelDocumentData
{
    static constexpr unsigned char kNoDialogs = 0x01;
    unsigned char flags;
};

// The active document's record, owned by the host. A module takes null as "no flag set".
QUEL_HOST_API QuelDocumentData* GetQuelAppCtxActiveDocData();
