// The menu of the customization files that were loaded last.
#pragma once

#include "refhost/core/groupmodel.h"
#include "refhost/core/recentfiles.h"

#include <QMenu>

#include <optional>

namespace quelhost {

// Each item tells beforehand what loading the file would change. What is loaded or missing cannot
// be chosen and says so.
class RecentFilesMenu final : public QMenu
{
    Q_OBJECT

public:
    explicit RecentFilesMenu(const QString& title, QWidget* parent = nullptr);

    [[nodiscard]] const RecentFiles& files() const { return m_files; }
    void setFiles(const RecentFiles& files) { m_files = files; }

    // Takes note of what is loaded: new files, but for the main customization file, come to the
    // front of the menu.
    void follow(const GroupModel& model);
    // While a command asks, nothing can be loaded, and the items say why.
    void setCommandAsking(bool asking) { m_asking = asking; }

signals:
    void fileWanted(const QString& path);

private:
    void fill();
    void addFile(const QString& path, int number);
    void tellChange(QAction& action, const QString& path) const;

    RecentFiles m_files;
    std::optional<GroupModel> m_model;
    bool m_asking = false;
};

} // namespace quelhost
