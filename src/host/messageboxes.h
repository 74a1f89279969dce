// Message boxes, the product's name, and help.
#pragma once

#include "host/api.h"

class CWnd;
class QuUiBaseDialog;

// Flags and answers of message boxes. One value of the first group, one icon or none.
namespace QuelBox {
constexpr unsigned int kOk = 0x00;
constexpr unsigned int kOkCancel = 0x01;
constexpr unsigned int kYesNo = 0x04;
constexpr unsigned int kExclamation = 0x30;

constexpr int kAnswerOk = 1;
constexpr int kAnswerCancel = 2;
constexpr int kAnswerYes = 6;
constexpr int kAnswerNo = 7;
} // namespace QuelBox

// Shows a modal box and returns the answer. Closing the box, cancelling and the end of input give
// the safe one: Cancel, No, or OK where there is nothing else. A null caption shows the product's
// name, a null text an empty box. `parent` may be null.
QUEL_HOST_API int MessageBoxW(CWnd* parent, const wchar_t* text, const wchar_t* caption,
                              unsigned int flags);

// The same over the host's main window.
QUEL_HOST_API int MessageBoxW(const wchar_t* text, const wchar_t* caption, unsigned int flags);

// The same under the product's name. `style` takes the flags above; `helpContext` is 0 for none.
QUEL_HOST_API int AfxMessageBox(const wchar_t* text, unsigned int style, unsigned int helpContext);

// The host's main window as a parent of boxes and dialogs, or null when there is none.
QUEL_HOST_API CWnd* AfxGetMainWnd();

// The product's display name. Valid until the host ends; never null.
QUEL_HOST_API const wchar_t* GetOemProductName();

// Opens the help page of `dialog`.
// REQUIRES: `dialog` is not null.
QUEL_HOST_API void quelInvokeHelp(QuUiBaseDialog* dialog);
