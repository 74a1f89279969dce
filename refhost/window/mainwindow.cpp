#include "refhost/window/mainwindow.h"

#include <QCloseEvent>
#include <QDockWidget>
#include <QLabel>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>

namespace quelhost {

namespace {

constexpr QSize kStartSize(960, 640);
constexpr int kStartCommandLineHeight = 260;

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

} // namespace

MainWindow::MainWindow(const QString& historyFile)
    : m_commandLine(new CommandLine(historyFile))
    , m_menus(*menuBar())
    , m_toolbars(*this)
    , m_keys(*this)
{
    connect(&m_menus, &GroupMenus::chosen, this, &MainWindow::chosen);
    connect(&m_toolbars, &GroupToolbars::chosen, this, &MainWindow::chosen);
    connect(&m_keys, &GroupKeys::chosen, this, &MainWindow::chosen);
    setWindowTitle(QStringLiteral("Quelhost"));
    setCentralWidget(makeDrawingArea());
    auto* const dock = new CommandLineDock(qtTrId("window-command-line"), this);
    dock->setObjectName(QStringLiteral("commandLine"));
    dock->setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
    dock->setWidget(m_commandLine);
    addDockWidget(Qt::BottomDockWidgetArea, dock);
    resize(kStartSize.boundedTo(screen()->availableSize()));
    resizeDocks({dock}, {kStartCommandLineHeight}, Qt::Vertical);
    statusBar();
    // Wherever the focus is, Esc cancels the prompt.
    auto* const escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    connect(escape, &QShortcut::activated, m_commandLine, &CommandLine::cancelled);
}

QStringList MainWindow::showGroups(const std::vector<ShownGroup>& groups)
{
    m_menus.show(groups);
    m_toolbars.show(groups);
    return m_keys.show(groups);
}

void MainWindow::setCommandAsking(bool asking)
{
    m_menus.setCommandAsking(asking);
    m_toolbars.setCommandAsking(asking);
    m_keys.setCommandAsking(asking);
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

} // namespace quelhost
