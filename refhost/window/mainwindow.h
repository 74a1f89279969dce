// The main window: menus, toolbars and keys of the loaded groups, the command line, and the view of
// what is loaded.
#pragma once

#include "refhost/window/commandline.h"
#include "refhost/window/commandpalette.h"
#include "refhost/window/groupactions.h"
#include "refhost/window/groupmenus.h"
#include "refhost/window/grouptoolbars.h"
#include "refhost/window/loadedview.h"

#include <QMainWindow>

#include <vector>

class QSettings;

namespace quelhost {

class HostMenu;

class MainWindow final : public QMainWindow
{
    Q_OBJECT

public:
    // `historyFile` as CommandLine takes it.
    explicit MainWindow(const QString& historyFile);
    ~MainWindow() override;

    [[nodiscard]] CommandLine& commandLine() { return *m_commandLine; }

    // Shows exactly the menus, toolbars and keys of these groups. `unshownFiles` are listed, but
    // missing or refused. Returns what the user is to be told about the keys, a sentence each.
    [[nodiscard]] QStringList showGroups(GroupModel model, const QStringList& unshownFiles);
    // While a command asks, only what begins with a cancel can be chosen.
    void setCommandAsking(bool asking);

    // What of the groups can be found in the command palette.
    [[nodiscard]] std::vector<PaletteGroup> paletteGroups() const;

    // Takes back what a former window kept: its place, its docks, the places of all toolbars that
    // it ever had, and the recent files.
    // REQUIRES: no groups were shown yet.
    void restore(const QSettings& kept);
    void keep(QSettings& kept);

signals:
    // An item of a menu, a button or a key was chosen.
    void chosen(const std::vector<quelhost::MacroStep>& macro);
    // The user wants something that goes beyond the window.
    void loadWanted();
    void filesWanted(const QStringList& paths);
    void unloadWanted(const QString& path);
    void findCommandWanted();
    // The user closed the window.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void addDocks();
    void connectHostMenu();
    void showLoaded();
    void showPlace(const QString& group, const QString& command, const CommandPlace& place);
    void pointAtButton(QToolBar& toolbar, QAction& action);

    GroupModel m_model;
    CommandLine* const m_commandLine;
    HostMenu* const m_hostMenu;
    LoadedView* const m_loaded;
    QDockWidget* const m_loadedDock;
    GroupActions m_actions;
    GroupMenus m_menus;
    GroupToolbars m_toolbars;
    bool m_asking = false;
};

} // namespace quelhost
