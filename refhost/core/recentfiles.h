// The customization files that were loaded last.
#pragma once

#include <QStringList>

namespace quelhost {

class RecentFiles
{
public:
    static constexpr int kMost = 10;

    // Takes paths as they were stored; what is too much or stands there twice is dropped.
    explicit RecentFiles(const QStringList& paths = {});

    // The one loaded last comes first.
    [[nodiscard]] const QStringList& paths() const { return m_paths; }

    // Puts a file in front.
    void add(const QString& path);

private:
    QStringList m_paths;
};

} // namespace quelhost
