#include "refhost/window/windowsession.h"

#include "refhost/core/hostkeys.h"
#include "refhost/core/menutext.h"
#include "refhost/core/package.h"
#include "refhost/core/widetext.h"
#include "refhost/window/plaintip.h"

#include <QEventLoop>
#include <QStatusBar>

#include <future>

namespace quelhost {

namespace {

constexpr int kWhyNotShownFor = 5000; // milliseconds

// Reads a package while the window goes on painting; what the user does meanwhile waits.
PackageReading readMeanwhile(const QString& path)
{
    QEventLoop loop;
    std::future<PackageReading> reading = std::async(std::launch::async, [&path, &loop] {
        // Whatever happens, the loop ends.
        struct Waker
        {
            QEventLoop& loop;
            ~Waker() { QMetaObject::invokeMethod(&loop, "quit", Qt::QueuedConnection); }
        } const waker{loop};
        return readPackage(path);
    });
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    return reading.get();
}

} // namespace

WindowSession::WindowSession(Host& host, MainWindow& window, WindowLines* lines)
    : m_host(host)
    , m_window(window)
    , m_lines(lines)
{
    host.groups.setReader(readMeanwhile);
    host.groups.setListener([this] { showGroups(); });
    host.customization.setListener([this] { showGroups(); });
    if (lines != nullptr)
        connectLines(*lines);
    else
        window.setCommandAsking(true);
    showGroups();
}

void WindowSession::connectLines(WindowLines& lines)
{
    connect(&m_window, &MainWindow::closed, &lines, &WindowLines::end);
    connect(&m_window, &MainWindow::chosen, &lines, &WindowLines::type);
    connect(&lines, &WindowLines::waiting, &m_window,
            [this](bool forCommand) { m_window.setCommandAsking(!forCommand); });
    connect(&m_window, &MainWindow::loadWanted, this, &WindowSession::load);
    connect(&m_window, &MainWindow::filesWanted, this, &WindowSession::loadFiles);
    connect(&m_window, &MainWindow::unloadWanted, this,
            [this](const QString& path) { run(QStringLiteral("MENUUNLOAD"), {path}); });
    connect(&m_window, &MainWindow::findCommandWanted, this, &WindowSession::findCommand);
}

void WindowSession::showGroups()
{
    showGroups(m_host.customization.changes());
}

void WindowSession::showToolbars(const ToolbarChanges& changes)
{
    showGroups({m_host.customization.keys(), changes});
}

void WindowSession::showGroups(const UserChanges& changes)
{
    const std::vector<std::wstring> listed = m_host.groups.listedPaths();
    const QString mainFile = listed.empty() ? QString() : toQString(listed.front());
    QStringList unshown;
    for (const std::wstring& path : m_host.groups.notShownPaths())
        unshown << toQString(path);
    for (const QString& sentence : m_window.showGroups(
             GroupModel(hostKeys(), m_host.groups.groups(), changes, mainFile), unshown))
        m_host.output.writeRow(toWide(sentence));
}

void WindowSession::load()
{
    const QString label = qtTrId("window-load-filter");
    const auto picked = m_host.face().pickFile(
        {qtTrId("window-load-title"), {}, {label + QStringLiteral("(*.cuix)")}, 0});
    if (picked)
        loadFiles({picked->path});
}

void WindowSession::loadFiles(const QStringList& paths)
{
    run(QStringLiteral("MENULOAD"), paths);
}

// Once for each answer, one after the other, when the command prompt waits.
void WindowSession::run(const QString& command, const QStringList& answers)
{
    const bool isTaken = m_lines->runAtCommandPrompt([this, command, answers] {
        for (const QString& answer : answers)
            m_host.runCommandLineOnly(command, {toWide(answer)});
    });
    if (!isTaken)
        m_window.statusBar()->showMessage(qtTrId("window-asking-first"), kWhyNotShownFor);
}

QAction* WindowSession::typing(const QString& command, const QString& text,
                               const QString& tip) const
{
    auto* const action = new QAction(unmarkedMenuText(text));
    action->setToolTip(plainTip(tip));
    connect(action, &QAction::triggered, m_lines, [lines = m_lines, command] {
        lines->type(readMacro(QStringLiteral("{cancel}") + command).steps);
    });
    return action;
}

// Commands, their second names and the commands of the groups, all of which end what is asked.
void WindowSession::findCommand()
{
    PaletteGroup commands{qtTrId("palette-commands"), {}};
    for (const IQuelCommandFactory* const factory : m_host.commands.all()) {
        const QString name = toQString(factory->localName());
        const QString description = toQString(factory->description());
        commands.actions << typing(
            name, description.isEmpty() ? name : QStringLiteral("%1 – %2").arg(name, description),
            description);
    }
    PaletteGroup aliases{qtTrId("palette-aliases"), {}};
    const AliasTable& all = m_host.aliases.all();
    for (auto alias = all.begin(); alias != all.end(); ++alias)
        aliases.actions << typing(
            alias.key(), QStringLiteral("%1 – %2").arg(alias.key(), alias.value()), alias.value());
    std::vector<PaletteGroup> groups{commands, aliases};
    for (const PaletteGroup& group : m_window.paletteGroups())
        groups.push_back(group);
    openCommandPalette(m_window, groups, commands.actions + aliases.actions);
}

} // namespace quelhost
