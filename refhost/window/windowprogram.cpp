#include "refhost/window/windowprogram.h"

#include "refhost/console/scriptlines.h"
#include "refhost/core/widetext.h"
#include "refhost/dialogs/widgetface.h"
#include "refhost/window/mainwindow.h"
#include "refhost/window/windowlines.h"

#include "host/dialogs.h"

#include <memory>

namespace quelhost {

namespace {

class WindowFace final : public WidgetFace
{
public:
    WindowFace(HelpPages help, MainWindow& window)
        : WidgetFace(std::move(help), &window)
        , m_window(&window)
    {}

    [[nodiscard]] CWnd* mainWindow() override { return &m_window; }

private:
    CWnd m_window;
};

// Connects the window's parts with the lines that the session reads.
void connectLines(MainWindow& window, WindowLines& lines)
{
    QObject::connect(&window, &MainWindow::closed, &lines, &WindowLines::end);
    QObject::connect(&window, &MainWindow::chosen, &lines, &WindowLines::type);
    QObject::connect(&lines, &WindowLines::waiting, &window,
                     [&window](bool forCommand) { window.setCommandAsking(!forCommand); });
}

Status runInWindow(const Options& options, const InstalledFiles& files)
{
    const QString folder = options.profile.isEmpty() ? Profile::defaultFolder() : options.profile;
    MainWindow window(folder + QStringLiteral("/history"));
    WindowOutput output(window.commandLine());
    const auto lines = [&](const Profile&) -> Result<std::unique_ptr<LineSource>> {
        if (!options.script.isEmpty())
            return openScript(options.script, output, !options.interactiveInput);
        auto typed = std::make_unique<WindowLines>(window.commandLine(), output);
        connectLines(window, *typed);
        return std::unique_ptr<LineSource>(std::move(typed));
    };
    WindowFace face({files.help, options.language}, window);
    Result<std::unique_ptr<Session>> session = Session::open(options, files, lines, output, true);
    if (!session)
        return session.fault();
    Host& host = session.value()->host();
    host.setFace(face);
    const auto showGroups = [&] {
        for (const QString& sentence : window.showGroups(host.groups.groups()))
            output.writeRow(toWide(sentence));
    };
    host.groups.setListener(showGroups);
    showGroups();
    window.show();
    session.value()->run();
    return Done{};
}

} // namespace

} // namespace quelhost

void quelhostRunWindow(const quelhost::Options& options, const quelhost::InstalledFiles& files,
                       quelhost::Status& result)
{
    result = quelhost::runInWindow(options, files);
}
