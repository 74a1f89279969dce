#include "refhost/window/windowprogram.h"

#include "refhost/console/scriptlines.h"
#include "refhost/dialogs/widgetface.h"
#include "refhost/window/acceleratoreditor.h"
#include "refhost/window/libraries.h"
#include "refhost/window/mainwindow.h"
#include "refhost/window/toolbareditor.h"
#include "refhost/window/windowlines.h"
#include "refhost/window/windowsession.h"

#include "host/dialogs.h"

#include <QGuiApplication>
#include <QSettings>

#include <cstdio>
#include <memory>

namespace quelhost {

namespace {

class WindowFace final : public WidgetFace
{
public:
    WindowFace(HelpPages help, MainWindow& window)
        : WidgetFace(std::move(help), &window)
        , m_main(window)
        , m_window(&window)
    {}

    [[nodiscard]] CWnd* mainWindow() override { return &m_window; }

    // How the toolbar editor shows what it would do.
    void setPreview(ToolbarPreview preview) { m_preview = std::move(preview); }

    [[nodiscard]] std::optional<int> openEditor(CustomizationEditor editor) override
    {
        if (editor == CustomizationEditor::Toolbars)
            return editToolbars(*Host::current(), m_main, m_preview);
        return editAccelerators(*Host::current(), m_main);
    }

private:
    MainWindow& m_main;
    CWnd m_window;
    ToolbarPreview m_preview;
};

// The place of the window and its parts is kept beside the settings, which belong to commands. The
// window is gone by now, so what went wrong is told where the program was started.
void keepWindow(MainWindow& window, QSettings& kept)
{
    window.keep(kept);
    kept.sync();
    if (kept.status() != QSettings::NoError)
        std::fprintf(stderr, "quelhost: %s\n",
                     qtTrId("window-not-kept").arg(kept.fileName()).toUtf8().constData());
}

Status runInWindow(const Options& options, const InstalledFiles& files)
{
    QGuiApplication::setDesktopFileName(QStringLiteral("quelhost"));
    const QString folder = options.profile.isEmpty() ? Profile::defaultFolder() : options.profile;
    prepareLibraries(options.language, folder);
    MainWindow window(folder + QStringLiteral("/history"));
    WindowOutput output(window.commandLine());
    WindowLines* typed = nullptr;
    const auto lines = [&](const Profile&) -> Result<std::unique_ptr<LineSource>> {
        if (!options.script.isEmpty())
            return openScript(options.script, output, !options.interactiveInput);
        auto own = std::make_unique<WindowLines>(window.commandLine(), output);
        typed = own.get();
        return std::unique_ptr<LineSource>(std::move(own));
    };
    WindowFace face({files.help, options.language}, window);
    Result<std::unique_ptr<Session>> session = Session::open(options, files, lines, output, true);
    if (!session)
        return session.fault();
    Host& host = session.value()->host();
    host.setFace(face);
    QSettings kept(folder + QStringLiteral("/window.ini"), QSettings::IniFormat);
    window.restore(kept);
    WindowSession inWindow(host, window, typed);
    face.setPreview([&inWindow](const ToolbarChanges& changes) { inWindow.showToolbars(changes); });
    window.show();
    session.value()->run();
    keepWindow(window, kept);
    return Done{};
}

} // namespace

} // namespace quelhost

void quelhostRunWindow(const quelhost::Options& options, const quelhost::InstalledFiles& files,
                       quelhost::Status& result)
{
    result = quelhost::runInWindow(options, files);
}
