#include "refhost/core/options.h"

#include "refhost/core/variables.h"

#include <QCommandLineParser>
#include <QCoreApplication>

namespace quelhost {

namespace {

Fault wrong(const QString& sentence)
{
    return {FaultKind::BadInput, sentence, {}, 0, 0};
}

QCommandLineOption plain(const char* name, const char* id)
{
    return QCommandLineOption(QLatin1String(name), qtTrId(id));
}

QCommandLineOption valued(const char* name, const char* id, const char* value)
{
    return QCommandLineOption(QLatin1String(name), qtTrId(id), QLatin1String(value));
}

void describe(QCommandLineParser& parser)
{
    parser.setApplicationDescription(qtTrId("options-description"));
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.addOptions({
        plain("console", "options-console"),
        plain("window", "options-window"),
        valued("script", "options-script", "FILE"),
        plain("interactive-input", "options-interactive-input"),
        valued("profile", "options-profile", "DIR"),
        valued("module", "options-module", "PATH"),
        valued("var", "options-var", "NAME=VALUE"),
        valued("support", "options-support", "DIR"),
        valued("lang", "options-lang", "CODE"),
        plain("report-status", "options-report-status"),
        plain("list-settings", "options-list-settings"),
        plain("check", "options-check"),
        plain("help", "options-help"),
        plain("version", "options-version"),
    });
    parser.addPositionalArgument(QStringLiteral("FILE.cuix"), qtTrId("options-file"),
                                 QStringLiteral("[FILE.cuix ...]"));
}

Options::Task taskOf(const QCommandLineParser& parser)
{
    const std::pair<const char*, Options::Task> tasks[] = {
        {"help", Options::Task::Help},
        {"version", Options::Task::Version},
        {"list-settings", Options::Task::ListSettings},
        {"check", Options::Task::Check},
    };
    for (const auto& [name, task] : tasks) {
        if (parser.isSet(QLatin1String(name)))
            return task;
    }
    return Options::Task::Session;
}

} // namespace

Result<Options> parseOptions(const QStringList& arguments)
{
    QCommandLineParser parser;
    describe(parser);
    const auto is = [&parser](const char* name) { return parser.isSet(QLatin1String(name)); };
    const auto value = [&parser](const char* name) { return parser.value(QLatin1String(name)); };
    const auto values = [&parser](const char* name) { return parser.values(QLatin1String(name)); };

    if (!parser.parse(QStringList{QStringLiteral("quelhost")} + arguments))
        return wrong(parser.errorText());
    Options options;
    options.task = taskOf(parser);
    options.text = options.task == Options::Task::Help
                       ? parser.helpText()
                       : QStringLiteral("quelhost ") + QCoreApplication::applicationVersion();
    options.console = is("console");
    options.window = is("window");
    options.script = value("script");
    options.interactiveInput = is("interactive-input");
    options.profile = value("profile");
    options.modules = values("module");
    options.supportFolders = values("support");
    options.language = value("lang");
    options.reportStatus = is("report-status");
    options.files = parser.positionalArguments();
    for (const QString& assignment : values("var")) {
        const int equals = assignment.indexOf(QLatin1Char('='));
        if (equals < 1)
            return wrong(qtTrId("options-var-form").arg(assignment));
        const QString name = assignment.left(equals);
        const QString text = assignment.mid(equals + 1);
        const Status possible = Variables::check(name, text);
        if (!possible)
            return possible.fault();
        options.variables.emplace_back(name, text);
    }
    if (options.console && options.window)
        return wrong(qtTrId("options-two-faces"));
    if (options.interactiveInput && options.script.isEmpty())
        return wrong(qtTrId("options-interactive-without-script"));
    if (options.task == Options::Task::Check && options.files.isEmpty())
        return wrong(qtTrId("options-check-nothing"));
    return options;
}

// What is wrong with the other arguments is told later, in this language.
QString languageOption(const QStringList& arguments)
{
    QCommandLineParser parser;
    describe(parser);
    static_cast<void>(parser.parse(QStringList{QStringLiteral("quelhost")} + arguments));
    return parser.value(QStringLiteral("lang"));
}

} // namespace quelhost
