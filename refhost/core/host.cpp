#include "refhost/core/host.h"

#include "refhost/core/customizationtables.h"
#include "refhost/core/keywords.h"
#include "refhost/core/settingsstore.h"
#include "refhost/core/widetext.h"

#include <cstdio>
#include <utility>

namespace quelhost {

namespace {

Host* theHost = nullptr;

} // namespace

Host::Host(const HostSetup& setup)
    : settings(setup.settings)
    , output(setup.output)
    , prompts(setup.lines, setup.output)
    , resources(setup.resourceFolder, setup.language)
    , variables(setup.settings, setup.mainMenuName)
    , config(setup.settings, [this](const Fault& fault) { report(fault); })
    , groups(config, [this](const Fault& fault) { report(fault); })
    , customization(setup.settings, [this](const Fault& fault) { report(fault); })
    , aliases(setup.aliasFile, [this](const Fault& fault) { report(fault); })
    , m_textFace(prompts, setup.output, {setup.helpFolder, setup.language})
    , m_files(setup.searchFolders)
    , m_hasDisplay(setup.hasDisplay)
    , m_reportStatus(setup.reportStatus)
    , m_ownCommands(makeHostCommands(*this))
{
    theHost = this;
    for (const std::unique_ptr<HostCommandFactory>& command : m_ownCommands)
        commands.addCommand(command.get(), 0);
}

// Modules go first: they take their commands out of the store and may still ask the host.
Host::~Host()
{
    while (!m_modules.empty())
        m_modules.pop_back();
    theHost = nullptr;
}

Host* Host::current()
{
    return theHost;
}

Status Host::loadModule(const QString& path)
{
    auto module = std::make_unique<ModuleRecord>(path);
    Status started = module->start(commands);
    if (started)
        m_modules.push_back(std::move(module));
    return started;
}

void Host::runSession()
{
    for (const std::unique_ptr<ModuleRecord>& module : m_modules)
        module->send(kQuelSessionStarted);
    for (;;) {
        const LineRequest request{toWide(qtTrId("prompt-command")), Completion::Commands,
                                  completionWords()};
        const std::optional<std::wstring> typed = prompts.nextCommand(request);
        if (!typed)
            break;
        runTyped(typed->empty() ? m_lastCommand : toQString(*typed));
    }
    for (const std::unique_ptr<ModuleRecord>& module : m_modules)
        module->send(kQuelSessionEnding);
}

int Host::runCommandLineOnly(const QString& globalName, std::deque<std::wstring> answers)
{
    IQuelCommandFactory* factory = commands.find(globalName);
    if (factory == nullptr) {
        tellUnknown(globalName);
        return QuelStatus::kError;
    }
    const Prompts::Prepared prepared(prompts, std::move(answers));
    return run(*factory, true);
}

int Host::openEditor(CustomizationEditor editor)
{
    if (dialogsAllowed()) {
        if (const std::optional<int> status = face().openEditor(editor))
            return *status;
    }
    const QStringList rows = editor == CustomizationEditor::Accelerators
                                 ? acceleratorRows(groups.groups(), customization.keys())
                                 : toolbarRows(groups.groups(), customization.toolbars());
    for (const QString& row : rows)
        output.writeRow(toWide(row));
    return QuelStatus::kNormal;
}

void Host::report(const Fault& fault)
{
    output.writeRow(toWide(fault.text()));
}

bool Host::documentHasNoDialogs() const
{
    return (document.flags & QuelDocumentData::kNoDialogs) != 0;
}

void Host::runTyped(const QString& name)
{
    if (name.isEmpty())
        return;
    const QString aliased = aliases.commandFor(name);
    IQuelCommandFactory* factory = commands.find(name);
    if (factory == nullptr && !aliased.isEmpty())
        factory = commands.find(aliased);
    if (factory == nullptr) {
        tellUnknown(aliased.isEmpty() ? name : aliased);
        static_cast<void>(prompts.takeTypedAhead()); // answers, and nobody to take them
        return;
    }
    m_lastCommand = name;
    run(*factory, false);
}

int Host::run(IQuelCommandFactory& factory, bool commandLineOnly)
{
    const bool noDialogs = !m_hasDisplay || prompts.isScript() || commandLineOnly;
    document.flags = noDialogs ? QuelDocumentData::kNoDialogs : 0;
    const std::wstring name = factory.globalName();
    CommandContext context(name, commandLineOnly, resources, m_files);
    const std::size_t scopes = resources.depth();
    const QString outer = std::exchange(m_running, toQString(name));
    const RunResult result = runCommand(factory, context);
    m_running = outer;
    while (resources.depth() > scopes)
        resources.pop();
    promptOptions = {};
    if (result.thrown)
        output.writeRow(toWide(qtTrId("command-threw").arg(toQString(name), *result.thrown)));
    if (m_reportStatus)
        std::fprintf(stderr, "%s\t%d\n", toUtf8(name).c_str(), result.status);
    return result.status;
}

// Who unloads a file names one that is loaded. The main file, which stays, is no answer.
QStringList Host::expectedFiles() const
{
    if (m_running != QLatin1String("MENUUNLOAD") && m_running != QLatin1String("CUIUNLOAD"))
        return {};
    QStringList files;
    const std::vector<std::wstring> listed = groups.listedPaths();
    for (std::size_t entry = 1; entry < listed.size(); ++entry)
        files << toQString(listed[entry]);
    files.removeAll(QString());
    return files;
}

void Host::tellUnknown(const QString& name)
{
    // An alias of that very name stands for another command that is unknown.
    QStringList known = completionWords();
    known.removeAll(name.toUpper());
    const QStringList nearest = nearestNames(known, name);
    const QString sentence =
        nearest.isEmpty()
            ? qtTrId("command-unknown").arg(name)
            : qtTrId("command-unknown-nearest").arg(name, nearest.join(QStringLiteral(", ")));
    output.writeRow(toWide(sentence));
}

QStringList Host::completionWords() const
{
    QStringList words = commands.names() + aliases.all().keys();
    words.removeDuplicates();
    return words;
}

} // namespace quelhost
