// The main window: menus of the loaded groups, and the command line.
#pragma once

#include "refhost/window/commandline.h"
#include "refhost/window/groupmenus.h"

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

signals:
    // The user closed the window.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    CommandLine* const m_commandLine;
    GroupMenus m_menus;
};

} // namespace quelhost
