#include "tests/hurry/consolemodel.h"

#include "refhost/core/widetext.h"

#include <algorithm>
#include <array>
#include <sys/stat.h>
#include <utility>

namespace hurry {

namespace {

constexpr int kNormal = 5100;
constexpr int kStopped = 0;
constexpr int kError = -5001;
constexpr int kCancelled = -5002;
constexpr wchar_t kBlanks[] = L" \t";
constexpr std::size_t kLongestAnswer = 2047;
constexpr std::size_t kLongestFound = 1023;

using Prompt = ConsoleModel::Prompt;

struct Command
{
    const wchar_t* name;
    Prompt prompt; // Command: asks nothing
    bool takesRest;
};

constexpr std::array kCommands = {
    Command{L"MENULOAD", Prompt::Load, false},     Command{L"CUILOAD", Prompt::Load, false},
    Command{L"MENUUNLOAD", Prompt::Unload, false}, Command{L"CUIUNLOAD", Prompt::Unload, false},
    Command{L"MENU", Prompt::Menu, false},         Command{L"REINIT", Prompt::Reinit, false},
    Command{L"CUSTOMIZE", Prompt::Editor, false},  Command{L"SETVAR", Prompt::SetName, false},
    Command{L"GETVAR", Prompt::GetName, false},    Command{L"SETTINGS", Prompt::Command, true},
    Command{L"ECHO", Prompt::Command, true},       Command{L"GROUPS", Prompt::Command, false},
    Command{L"ALIASES", Prompt::Command, false},   Command{L"COMMANDS", Prompt::Command, false},
    Command{L"HELP", Prompt::Command, false},      Command{L"QUIT", Prompt::Command, false}};

const Command* commandNamed(const std::wstring& name)
{
    const auto* const found = std::find_if(kCommands.begin(), kCommands.end(), [&](auto& command) {
        return sameName(command.name, name);
    });
    return found == kCommands.end() ? nullptr : found;
}

std::wstring withoutOuter(const wchar_t* characters, const std::wstring& text)
{
    const std::size_t first = text.find_first_not_of(characters);
    if (first == text.npos)
        return {};
    return text.substr(first, text.find_last_not_of(characters) - first + 1);
}

bool isMenuKind(const std::wstring& name)
{
    const std::size_t dot = name.rfind(L'.');
    if (dot == name.npos || dot == 0)
        return false;
    const std::wstring kind = withoutOuter(L" \t\n\v\f\r", name.substr(dot));
    return sameName(kind, L".cuix") || sameName(kind, L".mnu") || sameName(kind, L".mns");
}

bool isFile(const std::wstring& path)
{
    struct stat about = {};
    return ::stat(quelhost::toUtf8(path).c_str(), &about) == 0 && S_ISREG(about.st_mode);
}

// A whole number of 16 bits.
bool isShort(const std::wstring& text)
{
    const QString digits = quelhost::toQString(text).trimmed();
    const bool isSigned =
        digits.startsWith(QLatin1Char('-')) || digits.startsWith(QLatin1Char('+'));
    const QString unsignedDigits = digits.mid(isSigned ? 1 : 0);
    long value = 0;
    for (const QChar digit : unsignedDigits) {
        if (digit < QLatin1Char('0') || digit > QLatin1Char('9') || value > 100000)
            return false;
        value = value * 10 + digit.unicode() - '0';
    }
    return !unsignedDigits.isEmpty() &&
           value <= (digits.startsWith(QLatin1Char('-')) ? 32768 : 32767);
}

} // namespace

bool sameName(const std::wstring& left, const std::wstring& right)
{
    return quelhost::toQString(left).compare(quelhost::toQString(right), Qt::CaseInsensitive) == 0;
}

ConsoleModel::ConsoleModel(Setup setup, ListModel list)
    : m_setup(std::move(setup))
    , m_list(std::move(list))
    , m_aliases(m_setup.aliases)
    , m_aliasFile(m_setup.aliases)
    , m_menuName(m_setup.profile + L"/QUELD")
{}

std::vector<std::string> ConsoleModel::takeStatuses()
{
    return std::exchange(m_statuses, {});
}

void ConsoleModel::line(const std::wstring& text)
{
    if (m_ended)
        return;
    const std::wstring content = withoutOuter(kBlanks, text);
    const bool isRemark = content.empty() || content.front() == L';';
    if (!m_setup.byPerson && m_prompt == Prompt::Command && isRemark)
        return;
    if (content.empty())
        return noAnswer(false);
    m_ahead = text;
    m_taken = text.find_first_not_of(kBlanks);
    while (m_taken != m_ahead.npos && !m_ended)
        answer(takeAnswer());
}

// An answer ends at a blank, or at Enter where a whole row is asked for.
std::wstring ConsoleModel::takeAnswer()
{
    const bool isRow = m_prompt == Prompt::SetValue || m_prompt == Prompt::MenuFile;
    const std::size_t begin = m_taken;
    std::size_t end = m_ahead.npos;
    std::wstring answer;
    if (m_ahead[begin] == L'"') {
        end = m_ahead.find(L'"', begin + 1);
        if (end == m_ahead.npos)
            answer = m_ahead.substr(begin);
        else if (++end == begin + 2)
            answer = L"\"\"";
        else
            answer = m_ahead.substr(begin + 1, end - begin - 2);
    } else if (isRow) {
        answer = m_ahead.substr(begin, m_ahead.find_last_not_of(kBlanks) + 1 - begin);
    } else {
        end = m_ahead.find_first_of(kBlanks, begin);
        answer = m_ahead.substr(begin, end - begin);
    }
    m_taken = end == m_ahead.npos ? end : m_ahead.find_first_not_of(kBlanks, end);
    return answer;
}

void ConsoleModel::cancel()
{
    if (!m_ended)
        noAnswer(true);
}

void ConsoleModel::end()
{
    if (!m_ended && m_prompt != Prompt::Command)
        noAnswer(true);
    m_ended = true;
}

// What SETVAR set is kept.
void ConsoleModel::restart(ListModel list)
{
    m_list = std::move(list);
    m_aliases = m_aliasFile.value_or(AliasTable());
    m_prompt = Prompt::Command;
    m_last.clear();
    m_taken = m_ahead.npos;
    m_ended = false;
}

void ConsoleModel::done(int status)
{
    const bool isSecondName = m_running.compare(0, 3, L"CUI") == 0;
    m_statuses.push_back(quelhost::toUtf8(m_running) + '\t' +
                         std::to_string(isSecondName ? kNormal : status));
    m_prompt = Prompt::Command;
}

void ConsoleModel::noAnswer(bool cancelled)
{
    switch (m_prompt) {
    case Prompt::Command:
        if (!cancelled && !m_last.empty())
            command(m_last);
        return;
    case Prompt::Load:
        return cancelled ? done(kCancelled) : load({});
    case Prompt::Unload:
        return cancelled ? done(kCancelled) : unload({});
    case Prompt::Menu:
        return cancelled ? done(kCancelled) : menuByPath(m_menuName);
    case Prompt::Reinit:
        return cancelled ? done(kError) : void();
    case Prompt::Editor:
        return done(kNormal);
    case Prompt::MenuFile:
    case Prompt::SetName:
    case Prompt::SetValue:
    case Prompt::GetName:
        return done(kCancelled);
    }
}

void ConsoleModel::answer(const std::wstring& text)
{
    const std::wstring cut = text.substr(0, kLongestAnswer);
    switch (m_prompt) {
    case Prompt::Command:
        return command(text);
    case Prompt::Load:
        return load(cut);
    case Prompt::Unload:
        return unload(cut);
    case Prompt::Menu:
        return menu(cut);
    case Prompt::MenuFile:
        if (isFile(m_list.absolute(text)))
            menuByPath(m_list.absolute(text));
        return;
    case Prompt::Reinit:
        return reinit(text);
    case Prompt::Editor:
        if (sameName(text, std::wstring(L"Accelerator").substr(0, text.size())) ||
            sameName(text, std::wstring(L"Toolbar").substr(0, text.size())))
            done(kNormal);
        return;
    case Prompt::SetName:
        m_variable = text;
        m_prompt = Prompt::SetValue;
        return;
    case Prompt::SetValue:
        return setValue(text);
    case Prompt::GetName:
        return done(sameName(text, L"FILEDIA") || sameName(text, L"MENUNAME") ? kNormal : kError);
    }
}

// An unknown name takes what follows it on its line with it.
void ConsoleModel::command(const std::wstring& name)
{
    const Command* found = commandNamed(name);
    if (found == nullptr) {
        const auto alias = m_aliases.find(quelhost::toWide(quelhost::toQString(name).toUpper()));
        found = alias == m_aliases.end() ? nullptr : commandNamed(alias->second);
    }
    if (found == nullptr) {
        m_taken = m_ahead.npos;
        return;
    }
    m_last = name;
    m_running = found->name;
    m_prompt = found->prompt;
    if (m_prompt != Prompt::Command)
        return;
    m_ended = m_running == L"QUIT";
    if (found->takesRest)
        m_taken = m_ahead.npos;
    done(kNormal);
}

bool ConsoleModel::isDialogWanted(const std::wstring& path)
{
    const bool isWanted = path.rfind(L'~', 0) == 0;
    m_dialogs += isWanted ? 1 : 0;
    return isWanted;
}

void ConsoleModel::load(const std::wstring& path)
{
    if (isDialogWanted(path))
        return done(kNormal); // there is no display for it
    switch (m_list.load(path)) {
    case listrules::Outcome::Done:
        ++m_loads;
        return done(kNormal);
    case listrules::Outcome::Refused:
        return done(kStopped);
    default:
        return; // asks again
    }
}

void ConsoleModel::unload(const std::wstring& path)
{
    const listrules::Outcome outcome =
        isDialogWanted(path) ? listrules::Outcome::Nothing : m_list.unload(path);
    m_unloads += outcome == listrules::Outcome::Done ? 1 : 0;
    done(outcome == listrules::Outcome::Refused ? kStopped : kNormal);
}

void ConsoleModel::menu(const std::wstring& path)
{
    if (path.front() == L'.')
        return done(kNormal);
    if (path.front() == L'~')
        m_prompt = Prompt::MenuFile;
    else
        menuByPath(path);
}

void ConsoleModel::menuByPath(std::wstring path)
{
    constexpr wchar_t kSpace[] = L" \t\n\v\f\r";
    if (path.empty())
        return done(kNormal);
    path = withoutOuter(kSpace, withoutOuter(L"\"", withoutOuter(kSpace, path)));
    bool isFound = isMenuKind(path) && finds(path);
    if (!isMenuKind(path)) {
        for (const wchar_t* kind : {L".cuix", L".mnu", L".mns"})
            isFound = isFound || finds(path += kind);
    }
    done(isFound ? kNormal : kError);
}

bool ConsoleModel::finds(const std::wstring& name) const
{
    if (name.empty())
        return false;
    for (const std::wstring& folder : {m_setup.folder, m_setup.profile}) {
        const std::wstring path = name.front() == L'/' ? name : folder + L'/' + name;
        if (isFile(path))
            return path.size() <= kLongestFound;
    }
    return false;
}

void ConsoleModel::reinit(const std::wstring& text)
{
    if (sameName(text, L"OK") || sameName(text, L"O")) {
        m_aliases = m_aliasFile.value_or(AliasTable());
        done(m_aliasFile ? kNormal : kError);
    } else if (sameName(text, L"Cancel") || sameName(text, L"C")) {
        done(kError);
    }
}

void ConsoleModel::setValue(const std::wstring& text)
{
    const bool isPath = sameName(m_variable, L"MENUNAME");
    if (isPath)
        m_menuName = text;
    done(isPath || (sameName(m_variable, L"FILEDIA") && isShort(text)) ? kNormal : kError);
}

} // namespace hurry
