// The main window: menus, toolbars and keys of the loaded groups, and the command line.
#pragma once

#include "refhost/window/commandline.h"
#include "refhost/window/groupkeys.h"
#include "refhost/window/groupmenus.h"
#include "refhost/window/grouptoolbars.h"

#include <QMainWindow>

namespace quelhost {

class MainWindow final : public QMainWindow
{
    Q_OBJECT

public:
    // `historyFile` as CommandLine takes it.
    explicit MainWindow(const QString& historyFile);

    [[nodiscard]] CommandLine& commandLine() { return *m_commandLine; }
    [[nodiscard]] GroupMenus& menus() { return m_menus; }

    // Shows exactly the menus, toolbars and keys of these groups. Returns what the user is to be
    // told about them, a sentence each.
    [[nodiscard]] QStringList showGroups(const std::vector<ShownGroup>& groups);
    // While a command asks, only what begins with a cancel can be chosen.
    void setCommandAsking(bool asking);

signals:
    // An item of a menu, a button or a key was chosen.
    void chosen(const std::vector<quelhost::MacroStep>& macro);
    // The user closed the window.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    CommandLine* const m_commandLine;
    GroupMenus m_menus;
    GroupToolbars m_toolbars;
    GroupKeys m_keys;
};

} // namespace quelhost
