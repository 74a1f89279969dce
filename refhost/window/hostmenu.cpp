#include "refhost/window/hostmenu.h"

#include "refhost/core/hostkeys.h"
#include "refhost/window/recentfilesmenu.h"

#include <QMainWindow>
#include <QToolBar>

namespace quelhost {

HostMenu::HostMenu(QMainWindow& window)
    : QMenu(qtTrId("host-menu"), &window)
    , m_window(window)
    , m_recentFiles(new RecentFilesMenu(qtTrId("host-menu-recent"), this))
    , m_toolbars(new QMenu(qtTrId("host-menu-toolbars"), this))
{
    setObjectName(QStringLiteral("hostMenu"));
    addOwn("host-menu-find", kFindCommandAction, &HostMenu::findCommandWanted);
    addMenu(m_recentFiles);
    addSeparator();
    addOwn("host-menu-loaded", kLoadedAction, &HostMenu::loadedWanted);
    addOwn("host-menu-command-line", kCommandLineAction, &HostMenu::commandLineWanted);
    addMenu(m_toolbars);
    addSeparator();
    addOwn("host-menu-quit", nullptr, &HostMenu::quitWanted);
    connect(m_toolbars, &QMenu::aboutToShow, this, &HostMenu::fillToolbars);
    setKeys(hostKeys());
}

void HostMenu::addOwn(const char* textId, const char* name, void (HostMenu::*wanted)())
{
    QAction* const action = addAction(qtTrId(textId), this, wanted);
    m_window.addAction(action);
    if (name != nullptr)
        m_own.insert(QLatin1String(name), action);
}

void HostMenu::setKeys(const std::vector<GroupKey>& keys)
{
    QHash<QString, QList<QKeySequence>> keysOf;
    for (const GroupKey& key : keys)
        keysOf[key.command] << key.keys;
    for (auto own = m_own.cbegin(); own != m_own.cend(); ++own)
        own.value()->setShortcuts(keysOf.value(own.key()));
}

// The toolbars come and go with the groups.
void HostMenu::fillToolbars()
{
    m_toolbars->clear();
    for (const auto* const toolbar :
         m_window.findChildren<QToolBar*>(QString(), Qt::FindDirectChildrenOnly))
        m_toolbars->addAction(toolbar->toggleViewAction());
    if (m_toolbars->isEmpty())
        m_toolbars->addAction(qtTrId("host-menu-no-toolbars"))->setEnabled(false);
}

} // namespace quelhost
