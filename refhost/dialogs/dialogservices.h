// What the dialogs ask of the host around them. The reference host answers in
// hostdialogservices.cpp; who uses the dialogs without it answers by itself.
#pragma once

#include "refhost/core/face.h"

#include <QString>

class QWidget;

namespace quelhost {

// Whether there is a display to show dialogs on.
[[nodiscard]] bool canShowDialogs();
// Tells the user one sentence on the command line.
void tellOnCommandLine(const QString& sentence);

// What dialogs without a parent stand in front of; null where there is no window.
[[nodiscard]] QWidget* windowBehindDialogs();

// Where the descriptions of dialogs lie: one folder for each resource file.
[[nodiscard]] QString dialogResourceFolder();
// The language of their texts.
[[nodiscard]] QString dialogLanguage();

// A message box over the dialog in front, and the help page of that name.
[[nodiscard]] int askBoxOverDialog(const BoxRequest& request);
void showDialogHelp(const QString& page);

} // namespace quelhost
