// The descriptions of dialogs: files in the form that Qt Designer writes, one for each dialog, with
// texts that are looked up by id in the resource file the description belongs to.
#pragma once

#include "refhost/core/result.h"

#include <QDialog>
#include <QString>

namespace quelhost {

// Where a description and its texts are looked for.
struct DialogDescription
{
    QString resourceFolder; // holds one folder for each resource file
    QString resource;       // "FILE/PART": the resource file's name, and the description's folder
    QString dialog;         // name of the dialog and of its file, without ".ui"
    QString language;
};

// Builds the described controls into `dialog` as its direct children, with the sizes and texts of
// the description in force. The fault names what is missing or wrong: the file, or a control that
// the dialog must have. `dialog` has then no controls.
//
// A description has no layouts: where controls stand is the dialog's own business, and a layout
// would put them back.
[[nodiscard]] Status buildDialog(QDialog& dialog, const DialogDescription& description);

} // namespace quelhost
