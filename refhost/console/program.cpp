#include "refhost/console/program.h"

#include "refhost/console/consoledialogs.h"
#include "refhost/console/scriptlines.h"
#include "refhost/console/terminallines.h"
#include "refhost/core/display.h"
#include "refhost/core/dynamicsymbol.h"
#include "refhost/core/options.h"
#include "refhost/core/packagecheck.h"
#include "refhost/core/resources.h"
#include "refhost/core/session.h"
#include "refhost/core/settingslisting.h"
#include "refhost/core/widetext.h"
#include "refhost/dialogs/modalrun.h"
#include "refhost/window/windowprogram.h"

#include <QFile>

#include <csignal>
#include <cstdio>
#include <memory>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace quelhost {

namespace {

constexpr int kEndedNormally = 0;
constexpr int kNotDone = 1;
constexpr int kWrongOptions = 2;

int fail(int exitStatus, const QString& sentence)
{
    std::fprintf(stderr, "quelhost: %s\n", sentence.toUtf8().constData());
    return exitStatus;
}

// The toolkit's own remarks say nothing to a user of the command line, and its standard error is
// for the reports that were asked for. Errors are passed on.
void passOnErrors(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", message.toUtf8().constData());
}

// Dialogs need the widgets' application object, which the short tasks can do without.
bool isShortTask(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument(argv[i]);
        for (const char* task : {"--list-settings", "--check", "--help", "--version"}) {
            if (argument == task)
                return true;
        }
    }
    return false;
}

std::unique_ptr<QCoreApplication> makeApplication(int& argc, char** argv, bool hasDisplay)
{
    QCoreApplication::setApplicationName(QStringLiteral("quelhost"));
    QCoreApplication::setApplicationVersion(QStringLiteral(QUELHOST_VERSION));
    if (isShortTask(argc, argv))
        return std::make_unique<QCoreApplication>(argc, argv);
    // Of the platforms without a display this one asks for no fonts, which take the longest.
    if (!hasDisplay)
        qputenv("QT_QPA_PLATFORM", "minimal");
    return std::make_unique<HostApplication>(argc, argv);
}

QString environmentLanguage()
{
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const QString value = qEnvironmentVariable(variable);
        if (!value.isEmpty())
            return value;
    }
    return {};
}

Result<std::unique_ptr<LineSource>> makeLines(const Options& options, const Profile& profile,
                                              Output& output)
{
    if (!options.script.isEmpty())
        return openScript(options.script, output, !options.interactiveInput);
    if (isatty(STDIN_FILENO) == 0)
        return std::unique_ptr<LineSource>(
            std::make_unique<ScriptLines>(STDIN_FILENO, true, output));
    auto terminal =
        std::make_unique<TerminalLines>(profile.folder() + QStringLiteral("/history"), output);
    return std::unique_ptr<LineSource>(std::move(terminal));
}

int check(const Options& options, Output& output)
{
    LoadedGroups loaded;
    if (!options.profile.isEmpty()) {
        Result<LoadedGroups> groups = groupsOfProfile(options.profile);
        if (!groups)
            return fail(kNotDone, groups.fault().text());
        loaded = std::move(groups.value());
    }
    const PackageCheck result = checkPackages(options.files, loaded);
    for (const QString& line : result.lines)
        output.writeRow(toWide(line));
    return result.allGood ? kEndedNormally : kNotDone;
}

int printSettings(const Options& options)
{
    const QString folder = options.profile.isEmpty() ? Profile::defaultFolder() : options.profile;
    const Result<QByteArray> lines = listSettings(folder);
    if (!lines)
        return fail(kNotDone, lines.fault().text());
    std::fwrite(lines.value().constData(), 1, static_cast<std::size_t>(lines.value().size()),
                stdout);
    return kEndedNormally;
}

bool isPiped(int descriptor)
{
    struct stat about = {};
    return ::fstat(descriptor, &about) == 0 &&
           (S_ISFIFO(about.st_mode) || S_ISREG(about.st_mode) || S_ISSOCK(about.st_mode));
}

// Without a word about it, a window goes where one can be shown and nothing comes in by itself.
bool isWindowWanted(const Options& options, const InstalledFiles& files, bool hasDisplay)
{
    if (options.window || options.console)
        return options.window;
    return hasDisplay && options.script.isEmpty() && !isPiped(STDIN_FILENO) &&
           QFile::exists(files.window);
}

int runWindow(const Options& options, const InstalledFiles& files, bool hasDisplay)
{
    if (!hasDisplay)
        return fail(kNotDone, qtTrId("program-no-display"));
    if (!QFile::exists(files.window))
        return fail(kNotDone, qtTrId("program-no-window"));
    // Stays until the process ends: the toolkit may keep what comes from it.
    void* const library = dlopen(files.window.toUtf8().constData(), RTLD_NOW);
    const auto run =
        library == nullptr ? nullptr : functionNamed<RunWindow>(library, kRunWindowName);
    if (run == nullptr)
        return fail(kNotDone,
                    qtTrId("program-window-unusable").arg(QString::fromLocal8Bit(dlerror())));
    Status result = Done{};
    run(options, files, result);
    return result ? kEndedNormally : fail(kNotDone, result.fault().text());
}

int runSession(const Options& options, const InstalledFiles& files, Output& output, bool hasDisplay)
{
    const auto lines = [&](const Profile& profile) { return makeLines(options, profile, output); };
    std::unique_ptr<ConsoleDialogs> dialogs; // used by the session's host
    Result<std::unique_ptr<Session>> session =
        Session::open(options, files, lines, output, hasDisplay);
    if (!session)
        return fail(kNotDone, session.fault().text());
    if (hasDisplay)
        dialogs = std::make_unique<ConsoleDialogs>(session.value()->host(),
                                                   HelpPages{files.help, options.language});
    session.value()->run();
    return kEndedNormally;
}

} // namespace

int runProgram(int argc, char** argv)
{
    // A reader who has gone must not end the session in the middle of a command.
    std::signal(SIGPIPE, SIG_IGN);
    qInstallMessageHandler(passOnErrors);
    const bool hasDisplay = displayAnswers();
    const std::unique_ptr<QCoreApplication> application = makeApplication(argc, argv, hasDisplay);
    const InstalledFiles files = InstalledFiles::beside(QCoreApplication::applicationDirPath());
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    const QString asked = languageOption(arguments);
    const QString language = asked.isEmpty() ? environmentLanguage() : asked;
    if (!installHostTexts(files.resources, language))
        return fail(kNotDone,
                    QStringLiteral("its own texts are missing from %1").arg(files.resources));
    installToolkitTexts(language);

    Result<Options> parsed = parseOptions(arguments);
    if (!parsed)
        return fail(kWrongOptions, parsed.fault().text());
    Options& options = parsed.value();
    options.language = language;
    DescriptorOutput output(STDOUT_FILENO);
    switch (options.task) {
    case Options::Task::Help:
    case Options::Task::Version:
        output.writeRow(toWide(options.text));
        return kEndedNormally;
    case Options::Task::Check:
        return check(options, output);
    case Options::Task::ListSettings:
        return printSettings(options);
    case Options::Task::Session:
        break;
    }
    return isWindowWanted(options, files, hasDisplay)
               ? runWindow(options, files, hasDisplay)
               : runSession(options, files, output, hasDisplay);
}

} // namespace quelhost
