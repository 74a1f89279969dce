#include "refhost/core/filesearch.h"

#include "refhost/core/widetext.h"

#include <QDir>
#include <QFileInfo>

namespace quelhost {

FileSearch::FileSearch(QStringList folders)
    : m_folders(std::move(folders))
{}

std::optional<std::wstring> FileSearch::find(const std::wstring& name) const
{
    const QString wanted = toQString(name);
    if (wanted.isEmpty())
        return std::nullopt;
    for (const QString& folder : QStringList{QDir::currentPath()} + m_folders) {
        // An absolute name ignores the folder. ".." is left to the system, which may follow a link.
        const QString path = QDir(QDir(folder).absolutePath()).absoluteFilePath(wanted);
        if (QFileInfo(path).isFile())
            return toWide(path);
    }
    return std::nullopt;
}

} // namespace quelhost
