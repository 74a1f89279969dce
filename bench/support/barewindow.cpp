// A main window with as many menus as the host has at a first start, and nothing else.
#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QMainWindow window;
    for (int menu = 0; menu < 5; ++menu)
        window.menuBar()->addMenu(QStringLiteral("Menu %1").arg(menu));
    window.resize(1200, 760);
    window.show();
    return QApplication::exec();
}
