#include "refhost/window/mainwindow.h"

#include <QCloseEvent>
#include <QDockWidget>
#include <QLabel>
#include <QShortcut>
#include <QStatusBar>

namespace quelhost {

namespace {

constexpr QSize kStartSize(960, 640);
constexpr int kStartCommandLineHeight = 260;

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
{
    setWindowTitle(QStringLiteral("Quelhost"));
    setCentralWidget(makeDrawingArea());
    auto* const dock = new QDockWidget(qtTrId("window-command-line"), this);
    dock->setObjectName(QStringLiteral("commandLine"));
    dock->setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
    dock->setWidget(m_commandLine);
    addDockWidget(Qt::BottomDockWidgetArea, dock);
    resize(kStartSize);
    resizeDocks({dock}, {kStartCommandLineHeight}, Qt::Vertical);
    statusBar();
    // Wherever the focus is, Esc cancels the prompt.
    auto* const escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    connect(escape, &QShortcut::activated, m_commandLine, &CommandLine::cancelled);
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
