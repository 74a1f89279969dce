#include "refhost/window/mainwindow.h"

#include "refhost/core/hostkeys.h"
#include "refhost/window/hostmenu.h"
#include "refhost/window/recentfilesmenu.h"

#include <QCloseEvent>
#include <QDockWidget>
#include <QLabel>
#include <QMimeData>
#include <QScreen>
#include <QSettings>
#include <QShortcut>
#include <QStatusBar>
#include <QTimer>
#include <QToolButton>
#include <QToolTip>

namespace quelhost {

namespace {

constexpr QSize kStartSize(1200, 760);
constexpr int kStartCommandLineHeight = 240;
constexpr int kStartLoadedWidth = 440;
constexpr int kPointedFor = 1500; // milliseconds
constexpr int kToldFor = 5000;

constexpr char kGeometry[] = "window/geometry";
constexpr char kState[] = "window/state";
constexpr char kToolbars[] = "window/toolbars";
constexpr char kRecentFiles[] = "recentFiles";

// Closed as a window of its own it goes back to its place: there is nothing else to type at.
class CommandLineDock final : public QDockWidget
{
public:
    using QDockWidget::QDockWidget;

protected:
    void closeEvent(QCloseEvent* event) override
    {
        event->ignore();
        setFloating(false);
    }
};

QLabel* makeDrawingArea()
{
    auto* const area = new QLabel(qtTrId("window-no-drawing"));
    area->setAlignment(Qt::AlignCenter);
    area->setWordWrap(true);
    area->setBackgroundRole(QPalette::Base);
    area->setAutoFillBackground(true);
    return area;
}

// The files among what is dragged.
QStringList filesOf(const QMimeData& dragged)
{
    QStringList files;
    for (const QUrl& url : dragged.urls()) {
        if (url.isLocalFile())
            files << url.toLocalFile();
    }
    return files;
}

} // namespace

MainWindow::MainWindow(const QString& historyFile)
    : m_model(hostKeys(), {})
    , m_commandLine(new CommandLine(historyFile))
    , m_hostMenu(new HostMenu(*this))
    , m_loaded(new LoadedView)
    , m_loadedDock(new QDockWidget(qtTrId("window-loaded"), this))
    , m_actions(*this)
    , m_menus(*menuBar(), m_actions)
    , m_toolbars(*this, m_actions)
{
    setWindowTitle(QStringLiteral("Quelhost"));
    setWindowIcon(QIcon(QStringLiteral(":/quelhost/icons/quelhost.svg")));
    setAcceptDrops(true);
    setAnimated(false); // what a group brings stands in its place at once
    setCentralWidget(makeDrawingArea());
    connect(&m_actions, &GroupActions::chosen, this, &MainWindow::chosen);
    connect(m_loaded, &LoadedView::loadWanted, this, &MainWindow::loadWanted);
    connect(m_loaded, &LoadedView::unloadWanted, this, &MainWindow::unloadWanted);
    connect(m_loaded, &LoadedView::placeWanted, this, &MainWindow::showPlace);
    connect(m_loaded, &LoadedView::runWanted, this,
            [this](const QString& group, const QString& command) {
                QAction* const action = m_actions.find(group, command);
                if (action != nullptr && action->isEnabled())
                    action->trigger();
                else if (action != nullptr)
                    statusBar()->showMessage(action->statusTip(), kToldFor);
            });
    connectHostMenu();
    addDocks();
    statusBar();
    // Wherever the focus is, Esc cancels the prompt.
    auto* const escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    connect(escape, &QShortcut::activated, m_commandLine, &CommandLine::cancelled);
}

MainWindow::~MainWindow() = default;

void MainWindow::connectHostMenu()
{
    menuBar()->addMenu(m_hostMenu);
    connect(m_hostMenu, &HostMenu::findCommandWanted, this, &MainWindow::findCommandWanted);
    connect(m_hostMenu, &HostMenu::commandLineWanted, m_commandLine, &CommandLine::focusLine);
    connect(m_hostMenu, &HostMenu::loadedWanted, this, &MainWindow::showLoaded);
    connect(m_hostMenu, &HostMenu::quitWanted, this, &QWidget::close);
    connect(&m_hostMenu->recentFiles(), &RecentFilesMenu::fileWanted, this,
            [this](const QString& path) { emit filesWanted({path}); });
}

void MainWindow::addDocks()
{
    auto* const dock = new CommandLineDock(qtTrId("window-command-line"), this);
    dock->setObjectName(QStringLiteral("commandLine"));
    dock->setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
    dock->setWidget(m_commandLine);
    addDockWidget(Qt::BottomDockWidgetArea, dock);
    m_loadedDock->setObjectName(QStringLiteral("loaded"));
    m_loadedDock->setWidget(m_loaded);
    addDockWidget(Qt::RightDockWidgetArea, m_loadedDock);
    resize(kStartSize.boundedTo(screen()->availableSize()));
    resizeDocks({dock}, {kStartCommandLineHeight}, Qt::Vertical);
    resizeDocks({m_loadedDock}, {kStartLoadedWidth}, Qt::Horizontal);
}

QStringList MainWindow::showGroups(GroupModel model, const QStringList& unshownFiles)
{
    m_model = std::move(model);
    m_hostMenu->setKeys(m_model.hostKeys());
    {
        const GroupActions::Gone gone = m_actions.show(m_model);
        m_menus.show(m_model.groups());
        m_toolbars.show(m_model.toolbars());
    }
    m_loaded->show(m_model, unshownFiles);
    m_hostMenu->recentFiles().follow(m_model);
    return m_actions.takeLostKeys();
}

void MainWindow::setCommandAsking(bool asking)
{
    if (asking == m_asking)
        return;
    m_asking = asking;
    m_actions.setCommandAsking(asking);
    m_loaded->setCommandAsking(asking);
    m_hostMenu->recentFiles().setCommandAsking(asking);
}

std::vector<PaletteGroup> MainWindow::paletteGroups() const
{
    std::vector<PaletteGroup> groups;
    for (const ShownGroup& shown : m_model.groups()) {
        groups.push_back({shown.group.name, {}});
        for (const MenuCommand& command : shown.group.commands)
            groups.back().actions << m_actions.find(shown.group.name, command.id);
    }
    return groups;
}

void MainWindow::showLoaded()
{
    m_loadedDock->show();
    m_loadedDock->raise();
    m_loaded->focusSearch();
}

void MainWindow::showPlace(const QString& group, const QString& command, const CommandPlace& place)
{
    // The menu in which the place was chosen closes first.
    QTimer::singleShot(0, this, [this, group, command, place] {
        QAction* const action = m_actions.find(group, command);
        if (action == nullptr)
            return;
        QToolBar* toolbar = nullptr;
        switch (place.kind) {
        case CommandPlace::Kind::Menu:
            m_menus.open(group, place.ids, *action);
            break;
        case CommandPlace::Kind::Toolbar:
            toolbar = m_toolbars.find({place.ids.value(0), place.ids.value(1)});
            if (toolbar != nullptr)
                pointAtButton(*toolbar, *action);
            break;
        case CommandPlace::Kind::Key:
            m_loaded->goToKey(group, place.text);
            break;
        }
    });
}

void MainWindow::pointAtButton(QToolBar& toolbar, QAction& action)
{
    toolbar.show();
    auto* const button = qobject_cast<QToolButton*>(toolbar.widgetForAction(&action));
    QWidget* const target = button != nullptr && button->isVisible()
                                ? static_cast<QWidget*>(button)
                                : &toolbar; // too narrow for all of its buttons
    if (target == button) {
        button->setDown(true);
        auto* const timer = new QTimer(button); // goes when it is over, or with its button
        connect(timer, &QTimer::timeout, button, [button] { button->setDown(false); });
        connect(timer, &QTimer::timeout, timer, &QObject::deleteLater);
        timer->start(kPointedFor);
    }
    QToolTip::showText(target->mapToGlobal(target->rect().bottomLeft()), action.toolTip(), target,
                       {}, kPointedFor);
}

void MainWindow::restore(const QSettings& kept)
{
    m_toolbars.places().fromValues(kept.value(QLatin1String(kToolbars)).toMap());
    m_hostMenu->recentFiles().setFiles(
        RecentFiles(kept.value(QLatin1String(kRecentFiles)).toStringList()));
    restoreGeometry(kept.value(QLatin1String(kGeometry)).toByteArray());
    restoreState(kept.value(QLatin1String(kState)).toByteArray());
}

void MainWindow::keep(QSettings& kept)
{
    m_toolbars.places().note();
    kept.setValue(QLatin1String(kToolbars), m_toolbars.places().toValues());
    kept.setValue(QLatin1String(kRecentFiles), m_hostMenu->recentFiles().files().paths());
    kept.setValue(QLatin1String(kGeometry), saveGeometry());
    kept.setValue(QLatin1String(kState), saveState());
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    event->accept();
    emit closed();
}

void MainWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && focusWidget() == nullptr)
        m_commandLine->focusLine();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!m_asking && !filesOf(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    emit filesWanted(filesOf(*event->mimeData()));
}

} // namespace quelhost
