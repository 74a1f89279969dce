// Loading a large package into the window, beside building its menus and toolbars and nothing else.
#include "bench/support/ratios.h"

#include "refhost/core/hostkeys.h"
#include "refhost/core/package.h"
#include "refhost/window/mainwindow.h"
#include "tests/support/packagebuilder.h"

#include <QApplication>
#include <QFile>
#include <QMenuBar>
#include <QTemporaryDir>
#include <QToolBar>

#include <memory>
#include <vector>

using namespace quelhost;

namespace {

constexpr int kCommands = 1200;
constexpr int kMenus = 30;
constexpr int kToolbars = 20;
constexpr int kOnToolbar = 30;
constexpr int kInMenu = kCommands / kMenus;

QByteArray section(const char* name, const QByteArray& content)
{
    return QByteArray("<") + name + ">" + content + "</" + name + ">";
}

QByteArray items(int first, int count)
{
    QByteArray xml;
    for (int i = 0; i < count; ++i)
        xml += "<item command=\"c" + QByteArray::number((first + i) % kCommands) + "\"/>";
    return xml;
}

QByteArray largePackage()
{
    QByteArray commands;
    for (int i = 0; i < kCommands; ++i) {
        const QByteArray number = QByteArray::number(i);
        commands += "<command id=\"c" + number + "\" text=\"Command " + number +
                    "\" tip=\"Does what command " + number + " does\" macro=\"{cancel}ECHO " +
                    number + "\"/>";
    }
    QByteArray menus;
    for (int i = 0; i < kMenus; ++i) {
        const QByteArray number = QByteArray::number(i);
        menus += "<menu id=\"m" + number + "\" text=\"Menu " + number + "\">" +
                 items(i * kInMenu, kInMenu) + "</menu>";
    }
    QByteArray toolbars;
    for (int i = 0; i < kToolbars; ++i) {
        const QByteArray number = QByteArray::number(i);
        toolbars += "<toolbar id=\"t" + number + "\" text=\"Toolbar " + number + "\">" +
                    items(i * kOnToolbar, kOnToolbar) + "</toolbar>";
    }
    return packages::packageOf(packages::customization(
        section("commands", commands) + section("menus", menus) + section("toolbars", toolbars)));
}

ShownGroup mainGroup()
{
    ShownGroup shown;
    shown.path = L"/t/main.cuix";
    shown.group.name = QStringLiteral("MAIN");
    return shown;
}

// From the file to what the user sees, the view of what is loaded included.
void loadPackage(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("large.cuix"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(largePackage()) <= 0)
        return state.SkipWithError("the package could not be written");
    file.close();
    MainWindow window{QString()};
    window.show();
    const std::vector<ShownGroup> before{mainGroup()};
    const auto show = [&window](const std::vector<ShownGroup>& groups) {
        static_cast<void>(window.showGroups(GroupModel(hostKeys(), groups), {}));
        QApplication::processEvents();
    };
    show(before);
    for (auto _ : state) {
        const PackageReading reading = readPackage(path);
        if (!reading)
            return state.SkipWithError("the package was refused");
        std::vector<ShownGroup> with = before;
        with.push_back({path.toStdWString(), reading.group(), false});
        show(with);
        state.PauseTiming();
        if (window.findChildren<QToolBar*>().size() != kToolbars)
            return state.SkipWithError("the toolbars are not there");
        show(before);
        state.ResumeTiming();
    }
}

void buildMenusAndToolbars(benchmark::State& state)
{
    QMainWindow window;
    window.menuBar();
    window.resize(1200, 760);
    window.show();
    QApplication::processEvents();
    for (auto _ : state) {
        std::vector<std::unique_ptr<QAction>> actions;
        for (int i = 0; i < kCommands; ++i)
            actions.push_back(std::make_unique<QAction>(QStringLiteral("Command %1").arg(i)));
        std::vector<std::unique_ptr<QMenu>> menus;
        for (int i = 0; i < kMenus; ++i) {
            menus.push_back(std::make_unique<QMenu>(QStringLiteral("Menu %1").arg(i)));
            for (int item = 0; item < kInMenu; ++item)
                menus.back()->addAction(actions[std::size_t(i * kInMenu + item)].get());
            window.menuBar()->addMenu(menus.back().get());
        }
        std::vector<std::unique_ptr<QToolBar>> toolbars;
        for (int i = 0; i < kToolbars; ++i) {
            toolbars.push_back(std::make_unique<QToolBar>(QStringLiteral("Toolbar %1").arg(i)));
            for (int item = 0; item < kOnToolbar; ++item)
                toolbars.back()->addAction(
                    actions[std::size_t((i * kOnToolbar + item) % kCommands)].get());
            window.addToolBar(toolbars.back().get());
        }
        QApplication::processEvents();
        state.PauseTiming();
        toolbars.clear();
        menus.clear();
        actions.clear();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    return ratios::run(argc, argv,
                       {{"load1200Commands", loadPackage, "the same menus and toolbars alone",
                         buildMenusAndToolbars, 1 / 3.0}});
}
