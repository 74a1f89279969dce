// A session in the main window: what the user does there becomes commands of the host.
#pragma once

#include "refhost/core/host.h"
#include "refhost/window/mainwindow.h"
#include "refhost/window/windowlines.h"

#include <QObject>
#include <QStringList>

#include <string>

namespace quelhost {

class WindowSession final : public QObject
{
    Q_OBJECT

public:
    // Shows what is loaded in the window, now and after each change. `lines` is null where a script
    // types them; the window takes no input then.
    // REQUIRES: the window and the lines outlive this object, and it is not used after the host.
    WindowSession(Host& host, MainWindow& window, WindowLines* lines);

    // Shows the toolbars as these changes would make them, until the next change.
    void showToolbars(const ToolbarChanges& changes);

private:
    void showGroups();
    void showGroups(const UserChanges& changes);
    void connectLines(WindowLines& lines);
    void load();
    void loadFiles(const QStringList& paths);
    void run(const QString& command, const QStringList& answers);
    void findCommand();
    [[nodiscard]] QAction* typing(const QString& command, const QString& text,
                                  const QString& tip) const;

    Host& m_host;
    MainWindow& m_window;
    WindowLines* const m_lines;
};

} // namespace quelhost
