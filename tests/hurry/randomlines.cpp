#include "tests/hurry/randomlines.h"

#include <algorithm>
#include <cmath>

namespace hurry {

namespace {

using Prompt = ConsoleModel::Prompt;

constexpr const char* kLoading[] = {"MENULOAD", "CUILOAD", "ML", "CL"};
constexpr const char* kUnloading[] = {"MENUUNLOAD", "CUIUNLOAD", "MU", "CU"};
constexpr const char* kOthers[] = {"MENU",    "REINIT", "CUSTOMIZE", "SETVAR",
                                   "GETVAR",  "GROUPS", "SETTINGS",  "COMMANDS",
                                   "ALIASES", "ECHO",   "HELP",      "?"};
constexpr const char* kMenuAnswers[] = {"plant",     ".",     "~",        "\"\"",
                                        "notes.txt", "QUELD", "plant.cui"};
constexpr const char* kReinitAnswers[] = {"OK", "o", "Cancel", "c", "yes", "ok cancel"};
constexpr const char* kEditors[] = {"Accelerator", "toolbar", "T", "acc", "tool x", "<>", "both"};
constexpr const char* kVariables[] = {"FILEDIA", "filedia", "MENUNAME", "NOTHING", "\"FILEDIA\""};
constexpr const char* kValues[] = {"0",      "1",     "-32768", "32768", " 7 ",
                                   "\"+3\"", "seven", "\"\"",   "0x10",  "/t/my menu"};
constexpr const char* kPieces[] = {"\x1B[A",      "\xF0\x9F\x98\x80",
                                   "\xC3\xA9",    "%s%n%ls",
                                   "\xC0\x80",    "\xED\xA0\x80",
                                   "\xFF\xFE",    "\"",
                                   "\"\"",        ";",
                                   "\t",          "^C",
                                   "~",           "\\",
                                   "{cancel}",    "\xE2\x80\xA8",
                                   "\xEF\xBB\xBF"};
constexpr double kLongest = 200000;

} // namespace

std::string RandomLines::next(Prompt prompt)
{
    std::string text = line(prompt);
    text.erase(std::remove(text.begin(), text.end(), '\n'), text.end());
    return m_random.percent(10) ? text + '\r' : text;
}

std::string RandomLines::nextTyped(Prompt prompt)
{
    std::string text = line(prompt);
    const auto isNoKey = [](unsigned char byte) { return byte < 0x20 || byte == 0x7F; };
    text.erase(std::remove_if(text.begin(), text.end(), isNoKey), text.end());
    constexpr std::size_t kMost = 300;
    return text.substr(0, kMost);
}

AliasTable RandomLines::aliases()
{
    AliasTable table{{L"ML", L"MENULOAD"}, {L"MU", L"menuunload"}, {L"CL", L"CUILOAD"}};
    if (m_random.percent(50))
        table[L"CU"] = L"CUIUNLOAD";
    if (m_random.percent(50))
        table[L"X1"] = L"NOTHING";
    if (m_random.percent(50))
        table[L"PLANT"] = L"ECHO";
    return table;
}

std::string RandomLines::line(Prompt prompt)
{
    const std::size_t kind = m_random.below(1000);
    if (kind < 4)
        return longLine();
    if (kind < 80)
        return garbage();
    if (kind < 120)
        return m_random.percent(70) ? "^C" : " ^C\t";
    if (kind < 150)
        return m_random.percent(50) ? "" : " \t";
    if (kind < 165)
        return "; a remark";
    if (prompt == Prompt::Command || kind < 230)
        return commandLine();
    const std::string text = answer(prompt);
    return m_random.percent(15) ? text + ' ' + commandLine() : text;
}

std::string RandomLines::commandLine()
{
    const std::string blank = m_random.percent(10) ? "\t " : " ";
    std::string text = m_random.percent(5) ? blank : "";
    switch (m_random.below(10)) {
    case 0:
    case 1:
    case 2:
    case 3:
        text += inAnyCase(m_random.of(kLoading));
        for (int files = 0; m_random.percent(files == 0 ? 75 : 20); ++files)
            text += blank + answer(Prompt::Load);
        break;
    case 4:
    case 5:
    case 6:
        text += inAnyCase(m_random.of(kUnloading));
        if (m_random.percent(75))
            text += blank + answer(Prompt::Unload);
        break;
    case 7:
        text += "MENU";
        if (m_random.percent(60))
            text += blank + answer(Prompt::Menu);
        break;
    default:
        text += command();
        if (m_random.percent(60))
            text += blank + answer(m_random.of(std::vector{Prompt::Reinit, Prompt::Editor,
                                                           Prompt::SetName, Prompt::Load}));
    }
    if (m_random.percent(5))
        text += blank;
    if (m_random.percent(5))
        text += blank + commandLine();
    return text;
}

std::string RandomLines::command()
{
    if (m_random.below(300) == 0)
        return "QUIT";
    std::string name = m_random.of(kOthers);
    if (m_random.percent(5))
        name = name.substr(0, 1 + m_random.below(name.size()));
    return m_random.percent(5) ? '"' + name + '"' : inAnyCase(name);
}

std::string RandomLines::answer(Prompt prompt)
{
    switch (prompt) {
    case Prompt::Command:
    case Prompt::Load:
    case Prompt::Unload:
        if (m_random.percent(5))
            return m_random.percent(50) ? "~" : "/nowhere/no.cuix";
        return quoted(m_random.percent(90) ? m_files.loadablePath(m_random)
                                           : m_files.path(m_random));
    case Prompt::Menu:
        return m_random.percent(50) ? m_random.of(kMenuAnswers) : quoted(m_files.path(m_random));
    case Prompt::MenuFile:
        return quoted(m_files.path(m_random));
    case Prompt::Reinit:
        return m_random.of(kReinitAnswers);
    case Prompt::Editor:
        return m_random.of(kEditors);
    case Prompt::SetName:
        return std::string(m_random.of(kVariables)) + ' ' + m_random.of(kValues);
    case Prompt::SetValue:
        return m_random.of(kValues);
    case Prompt::GetName:
        return m_random.of(kVariables);
    }
    return {};
}

std::string RandomLines::quoted(const std::string& path)
{
    if (path.find(' ') != path.npos ? m_random.percent(90) : m_random.percent(20))
        return '"' + path + (m_random.percent(95) ? "\"" : "");
    return path;
}

std::string RandomLines::garbage()
{
    std::string text;
    for (std::size_t pieces = m_random.below(12); pieces > 0; --pieces) {
        switch (m_random.below(5)) {
        case 0:
            text += m_random.of(kPieces);
            break;
        case 1:
            text += static_cast<char>(m_random.below(256));
            break;
        case 2:
            text += ' ';
            break;
        case 3:
            text += command();
            break;
        default:
            text += std::string(1 + m_random.below(9), static_cast<char>('a' + m_random.below(26)));
        }
    }
    return text;
}

// As often of tens of characters as of a hundred thousand, and of one thing again and again.
std::string RandomLines::longLine()
{
    const double share = static_cast<double>(m_random.below(1000)) / 999;
    const auto length = static_cast<std::size_t>(std::pow(kLongest, share));
    const std::string piece = m_random.percent(50)   ? garbage() + 'x'
                              : m_random.percent(50) ? m_files.path(m_random) + ' '
                                                     : "a ";
    std::string text = m_random.percent(50) ? "MENULOAD " : "";
    while (text.size() < length)
        text += piece;
    return text.substr(0, length);
}

std::string RandomLines::inAnyCase(std::string text)
{
    if (m_random.percent(40))
        return text;
    for (char& letter : text) {
        if (letter >= 'A' && letter <= 'Z' && m_random.percent(50))
            letter = static_cast<char>(letter - 'A' + 'a');
    }
    return text;
}

} // namespace hurry
