// The host's own menu, the first in the menu bar.
#pragma once

#include "refhost/core/keyassignment.h"

#include <QHash>
#include <QMenu>

#include <vector>

class QMainWindow;

namespace quelhost {

class RecentFilesMenu;

class HostMenu final : public QMenu
{
    Q_OBJECT

public:
    // REQUIRES: the window outlives the menu.
    explicit HostMenu(QMainWindow& window);

    [[nodiscard]] RecentFilesMenu& recentFiles() { return *m_recentFiles; }

    // Gives the host's own actions these keys and no others.
    void setKeys(const std::vector<GroupKey>& keys);

signals:
    void findCommandWanted();
    void commandLineWanted();
    void loadedWanted();
    void quitWanted();

private:
    void addOwn(const char* textId, const char* name, void (HostMenu::*wanted)());
    void fillToolbars();

    QMainWindow& m_window;
    RecentFilesMenu* const m_recentFiles;
    QMenu* const m_toolbars;
    QHash<QString, QAction*> m_own; // those that can have keys, by name
};

} // namespace quelhost
