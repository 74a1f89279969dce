// The program's help pages: HTML files, one folder for each language.
#pragma once

#include "refhost/core/result.h"

#include <QString>

namespace quelhost {

// Where the pages lie and which language is read.
struct HelpPages
{
    QString folder;
    QString language;
};

// The file of the page of that name in the best language there is; the fault says that there is
// none.
[[nodiscard]] Result<QString> helpFile(const HelpPages& pages, const QString& name);

// The page as plain text.
[[nodiscard]] Result<QString> helpText(const HelpPages& pages, const QString& name);

} // namespace quelhost
