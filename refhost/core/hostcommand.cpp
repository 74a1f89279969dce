#include "refhost/core/hostcommand.h"

#include "refhost/core/host.h"
#include "refhost/core/hostlistings.h"
#include "refhost/core/settingsstore.h"
#include "refhost/core/widetext.h"

namespace quelhost {

namespace {

class HostCommand final : public IQuelBuildInCommand
{
public:
    HostCommand(Host& host, HostCommandFactory::Action action)
        : m_host(host)
        , m_action(action)
    {}

    int execute(IQuelBuildInCommandContext*) override { return m_action(m_host); }

private:
    Host& m_host;
    const HostCommandFactory::Action m_action;
};

LineRequest promptFor(const char* id, const QStringList& words = {})
{
    return {toWide(qtTrId(id)), words.isEmpty() ? Completion::Nothing : Completion::Keywords,
            words};
}

int reported(Host& host, const Status& status)
{
    if (status)
        return QuelStatus::kNormal;
    host.report(status.fault());
    return QuelStatus::kError;
}

int printRows(Host& host, const QStringList& rows)
{
    for (const QString& row : rows)
        host.output.writeRow(toWide(row));
    return QuelStatus::kNormal;
}

QString shownValue(const VariableValue& value)
{
    if (const auto* number = std::get_if<std::int16_t>(&value))
        return QString::number(*number);
    return toQString(std::get<std::wstring>(value));
}

// Asks for a variable's name; nothing when the user gave none.
std::optional<QString> askVariable(Host& host)
{
    const Answer answer =
        host.prompts.ask(promptFor("prompt-variable", Variables::names()), AnswerEnd::Blank);
    if (answer.kind != Answer::Kind::Text)
        return std::nullopt;
    return toQString(answer.text);
}

int setVariable(Host& host)
{
    const std::optional<QString> name = askVariable(host);
    if (!name)
        return QuelStatus::kCancelled;
    const Answer value = host.prompts.ask(promptFor("prompt-value"), AnswerEnd::Enter);
    if (value.kind != Answer::Kind::Text)
        return QuelStatus::kCancelled;
    return reported(host, host.variables.setAndKeep(*name, toQString(value.text)));
}

int showVariable(Host& host)
{
    const std::optional<QString> name = askVariable(host);
    if (!name)
        return QuelStatus::kCancelled;
    const VariableValue* value = host.variables.find(*name);
    if (value == nullptr)
        return reported(host, Variables::unknown(*name));
    return printRows(host, {QStringLiteral("%1 = %2").arg(name->toUpper(), shownValue(*value))});
}

// The rest of the line, without the blanks before Enter, which belong to no answer.
std::wstring takeRest(Host& host)
{
    const std::wstring typed = host.prompts.takeTypedAhead();
    return typed.substr(0, typed.find_last_not_of(L" \t") + 1);
}

int showSettings(Host& host)
{
    const std::wstring key = takeRest(host);
    const Result<std::vector<Item>> items = host.settings.all();
    if (!items)
        return reported(host, items.fault());
    return printRows(host, settingsRows(items.value(), key));
}

int showGroups(Host& host)
{
    return printRows(host, groupRows(host.groups));
}

int showAliases(Host& host)
{
    return printRows(host, aliasRows(host.aliases.all()));
}

int showCommands(Host& host)
{
    return printRows(host, commandRows(host.commands));
}

int echo(Host& host)
{
    host.output.writeRow(host.prompts.takeTypedAhead());
    return QuelStatus::kNormal;
}

int showHelp(Host& host)
{
    return printRows(host, helpRows(host.commands));
}

int quit(Host& host)
{
    host.prompts.end();
    return QuelStatus::kNormal;
}

} // namespace

HostCommandFactory::HostCommandFactory(Host& host, const wchar_t* name, const char* descriptionId,
                                       Action action)
    : m_host(host)
    , m_name(name)
    , m_action(action)
    , m_description(toWide(qtTrId(descriptionId)))
{}

IQuelBuildInCommand* HostCommandFactory::create()
{
    return new HostCommand(m_host, m_action);
}

void HostCommandFactory::release(IQuelBuildInCommand* command)
{
    delete command;
}

void HostCommandFactory::addFlags(unsigned int flags, bool set)
{
    m_flags = set ? m_flags | flags : m_flags & ~flags;
}

std::vector<std::unique_ptr<HostCommandFactory>> makeHostCommands(Host& host)
{
    struct Row
    {
        const wchar_t* name;
        const char* description;
        HostCommandFactory::Action action;
    };
    constexpr Row rows[] = {
        {L"SETVAR", "command-setvar", setVariable},
        {L"GETVAR", "command-getvar", showVariable},
        {L"SETTINGS", "command-settings", showSettings},
        {L"GROUPS", "command-groups", showGroups},
        {L"ALIASES", "command-aliases", showAliases},
        {L"COMMANDS", "command-commands", showCommands},
        {L"ECHO", "command-echo", echo},
        {L"HELP", "command-help", showHelp},
        {L"QUIT", "command-quit", quit},
    };
    std::vector<std::unique_ptr<HostCommandFactory>> commands;
    for (const Row& row : rows)
        commands.push_back(
            std::make_unique<HostCommandFactory>(host, row.name, row.description, row.action));
    return commands;
}

} // namespace quelhost
