#include "refhost/core/helppages.h"

#include "refhost/core/resources.h"

#include <QFile>
#include <QTextDocument>

namespace quelhost {

namespace {

Fault noHelp(const QString& name)
{
    return Fault{FaultKind::NotFound, qtTrId("help-missing").arg(name), {}, 0, 0};
}

} // namespace

Result<QString> helpFile(const HelpPages& pages, const QString& name)
{
    for (const QString& language : languageFallbacks(pages.language)) {
        const QString path = QStringLiteral("%1/%2/%3.html").arg(pages.folder, language, name);
        if (QFile::exists(path))
            return path;
    }
    return noHelp(name);
}

Result<QString> helpText(const HelpPages& pages, const QString& name)
{
    const Result<QString> path = helpFile(pages, name);
    if (!path)
        return path.fault();
    QFile file(path.value());
    if (!file.open(QIODevice::ReadOnly))
        return noHelp(name);
    QTextDocument page;
    page.setHtml(QString::fromUtf8(file.readAll()));
    return page.toPlainText().trimmed();
}

} // namespace quelhost
