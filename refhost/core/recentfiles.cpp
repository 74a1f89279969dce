#include "refhost/core/recentfiles.h"

namespace quelhost {

RecentFiles::RecentFiles(const QStringList& paths)
    : m_paths(paths)
{
    m_paths.removeAll(QString());
    m_paths.removeDuplicates();
    m_paths = m_paths.mid(0, kMost);
}

void RecentFiles::add(const QString& path)
{
    m_paths.removeAll(path);
    m_paths.prepend(path);
    m_paths = m_paths.mid(0, kMost);
}

} // namespace quelhost
