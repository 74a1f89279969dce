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
        const QFileInfo candidate(QDir(folder), wanted); // an absolute name ignores the folder
        if (candidate.isFile())
            return toWide(QDir::cleanPath(candidate.absoluteFilePath()));
    }
    return std::nullopt;
}

} // namespace quelhost
