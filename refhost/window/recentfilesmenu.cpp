#include "refhost/window/recentfilesmenu.h"

#include "refhost/core/menutext.h"
#include "refhost/core/package.h"
#include "refhost/core/widetext.h"
#include "refhost/window/plaintip.h"

#include <QFileInfo>

#include <algorithm>

namespace quelhost {

namespace {

bool isShown(const GroupModel& model, const QString& path)
{
    const std::wstring wanted = toWide(path);
    return std::any_of(model.groups().begin(), model.groups().end(),
                       [&wanted](const ShownGroup& shown) { return shown.path == wanted; });
}

} // namespace

RecentFilesMenu::RecentFilesMenu(const QString& title, QWidget* parent)
    : QMenu(title, parent)
{
    setObjectName(QStringLiteral("recentFiles"));
    setToolTipsVisible(true);
    connect(this, &QMenu::aboutToShow, this, &RecentFilesMenu::fill);
}

void RecentFilesMenu::follow(const GroupModel& model)
{
    for (const ShownGroup& shown : model.groups()) {
        const QString path = toQString(shown.path);
        if (model.isMainFile(path))
            continue;
        const bool isKnown = m_model ? isShown(*m_model, path) : m_files.paths().contains(path);
        if (!isKnown)
            m_files.add(path);
    }
    m_model = model;
}

void RecentFilesMenu::fill()
{
    clear();
    int number = 0;
    for (const QString& path : m_files.paths())
        addFile(path, ++number);
    if (isEmpty())
        addAction(qtTrId("recent-none"))->setEnabled(false);
}

void RecentFilesMenu::addFile(const QString& path, int number)
{
    const QFileInfo info(path);
    const bool isLoaded = m_model && isShown(*m_model, path);
    const char* const mark = isLoaded        ? "recent-loaded"
                             : info.exists() ? "recent-file"
                                             : "recent-missing";
    // The letter to press is the number's last: 1 to 9, and 0 for the tenth.
    QString label = QString::number(number);
    label.insert(label.size() - 1, QLatin1Char('&'));
    const QString name = unmarkedMenuText(info.fileName());
    QAction* const action = addAction(QStringLiteral("%1  %2").arg(label, qtTrId(mark).arg(name)));
    action->setStatusTip(path);
    action->setToolTip(plainTip(m_asking ? qtTrId("window-asking-first") : path));
    action->setEnabled(!isLoaded && info.exists() && !m_asking);
    if (!action->isEnabled())
        return;
    connect(action, &QAction::triggered, this, [this, path] { emit fileWanted(path); });
    // A package is read only when the user looks at its item.
    connect(action, &QAction::hovered, this, [this, action, path] { tellChange(*action, path); });
}

void RecentFilesMenu::tellChange(QAction& action, const QString& path) const
{
    if (action.data().toBool() || !m_model)
        return;
    action.setData(true); // it stays so until the menu is filled again
    const PackageReading reading = readPackage(path);
    const QString change =
        reading ? loadingPreview(*m_model, path, reading.group()) : reading.faults().front().text();
    action.setToolTip(plainTip(path + QLatin1Char('\n') + change));
    action.setStatusTip(change);
}

} // namespace quelhost
