// Any names of menu files, through everything that makes a path of a name.
//
// The input is lines, each with a letter and a text; a letter that comes again replaces the text:
//
//     k  the kinds of menu files (without it the module's own; "K" for a resource without a text)
//     n  the name that is searched for
//     f  a digit, which of the names that are searched for is found, and the path found
//     m  the main menu file (without it there is no such variable; "M" for a null pointer)
//     a  the answer at the prompt ("e" for Enter, "c" for a cancel, "x" for an error)
//     d  a digit, the filter, and the file picked in a dialog
//     i  a digit, the stored filter, and the stored file ("j" and "J": one of them of a wrong kind)
//     w  one letter each: s a script runs, d no dialogs, f FILEDIA is 1, y the box is answered Yes
#include "fuzz/support/broken.h"
#include "fuzz/support/fuzzinput.h"
#include "fuzz/support/menufilemodel.h"
#include "fuzz/support/searchcontext.h"
#include "fuzz/support/smallhost.h"

#include "menufile/menufilekinds.h"
#include "menufile/menufilepath.h"

#include <optional>

using fuzzing::mustHold;
using fuzzing::smallHost;
using Lines = std::map<char, std::wstring>;

namespace {

constexpr wchar_t kModuleKinds[] = L"cuix;mnu;mns;menuc";
constexpr wchar_t kPrompt[] = L"Enter customization file name or [. (for none)]<%s>";
Lines linesOf(fuzzing::FuzzInput input)
{
    Lines lines;
    while (!input.isAtEnd()) {
        const char letter = static_cast<char>(input.byte());
        lines[letter] = fuzzing::wideText(input.line());
    }
    return lines;
}

std::optional<std::wstring> textOf(const Lines& lines, char letter)
{
    const auto found = lines.find(letter);
    return found == lines.end() ? std::nullopt : std::optional(found->second);
}

bool has(const Lines& lines, char letter)
{
    return lines.count(letter) > 0;
}

// A line's digit, which may be missing, and what stands behind it.
struct Numbered
{
    int number = 0;
    std::wstring text;
};

Numbered numberedOf(const Lines& lines, char letter)
{
    const std::wstring line = textOf(lines, letter).value_or(L"");
    const bool isNumbered = !line.empty() && line.front() >= L'0' && line.front() <= L'9';
    return isNumbered ? Numbered{line.front() - L'0', line.substr(1)} : Numbered{0, line};
}

// The last letter in the alphabet decides.
std::wstring kindsOf(const Lines& lines)
{
    if (has(lines, 'K'))
        return {};
    return textOf(lines, 'k').value_or(kModuleKinds);
}

bool isSwitched(const Lines& lines, wchar_t letter)
{
    return textOf(lines, 'w').value_or(L"").find(letter) != std::wstring::npos;
}

void setUpAnswers(const Lines& lines)
{
    fuzzing::SmallHost& host = smallHost();
    if (has(lines, 'a') || has(lines, 'e'))
        host.promptStatus = 5100;
    else if (has(lines, 'x'))
        host.promptStatus = -5001;
    host.answer = textOf(lines, 'a').value_or(L"");
    const Numbered picked = numberedOf(lines, 'd');
    host.dialogStatus = has(lines, 'd') ? 5100 : -5002;
    host.picked = picked.text;
    host.pickedFilter = picked.number - 1;
    host.furtherResults = picked.number % 3;
    const Numbered stored = numberedOf(lines, 'i');
    if (!has(lines, 'i'))
        return;
    host.hasSection = true;
    host.storedFilter.setInteger(stored.number);
    host.storedFile.setString(stored.text.c_str(), QuelVariant::kString);
    if (has(lines, 'j'))
        host.storedFilter.setString(L"3", QuelVariant::kString);
    if (has(lines, 'J'))
        host.storedFile.setInteger(3);
}

void setUpHost(const Lines& lines)
{
    fuzzing::SmallHost& host = smallHost();
    host = fuzzing::SmallHost();
    if (has(lines, 'K'))
        host.kinds.emplace(std::nullopt);
    else if (has(lines, 'k'))
        host.kinds.emplace(kindsOf(lines));
    if (has(lines, 'M'))
        host.menuName.emplace(std::nullopt);
    else if (has(lines, 'm'))
        host.menuName.emplace(textOf(lines, 'm'));
    host.fileDialogs = isSwitched(lines, L'f');
    host.scriptRuns = isSwitched(lines, L's');
    host.noDialogs = isSwitched(lines, L'd');
    host.boxAnswer = isSwitched(lines, L'y') ? 6 : 7;
    setUpAnswers(lines);
}

// --- The search.

void checkSearch(const Lines& lines)
{
    const std::wstring kinds = kindsOf(lines);
    const std::wstring name = textOf(lines, 'n').value_or(L"");
    const std::vector<std::wstring> names = fuzzing::searchedNames(name, kinds);
    const Numbered found = numberedOf(lines, 'f');
    const bool isFound = has(lines, 'f') && static_cast<std::size_t>(found.number) < names.size();
    fuzzing::SearchContext context(smallHost().resources);
    if (isFound)
        context.files[names[static_cast<std::size_t>(found.number)]] = found.text;
    CStdStr<wchar_t> path(L"before");
    const int result = getMenuFullPath(&context, name, path);
    mustHold(result == (isFound ? 1 : 0), "a search tells whether the file was found");
    mustHold(path == (isFound ? found.text.substr(0, context.kRoom - 1) : L"before"),
             "a search gives the path that the host found, or leaves it");
    const std::size_t tried = isFound ? static_cast<std::size_t>(found.number) + 1 : names.size();
    mustHold(context.searched ==
                 std::vector<std::wstring>(names.begin(),
                                           names.begin() + static_cast<std::ptrdiff_t>(tried)),
             "the names searched for are those that the kinds make, in their order");
    mustHold(smallHost().resources.size() == 1, "every resource file is put back");
}

void checkKinds(const Lines& lines)
{
    const std::wstring name = textOf(lines, 'n').value_or(L"");
    const int isKind = IsSupportMenuExt(name);
    mustHold(isKind == (fuzzing::isMenuFileKind(name, kindsOf(lines)) ? 1 : 0),
             "an extension is one of the kinds or not");
    mustHold(trimmed(name) == fuzzing::withoutBlanks(name), "a text is trimmed at both ends");
}

void checkWarning(const Lines& lines)
{
    const std::wstring name = textOf(lines, 'n').value_or(L"");
    const bool isSource =
        name.size() > 4 && fuzzing::inSmallLetters(name.substr(name.size() - 4)) == L".mns";
    const bool byPrompt =
        isSwitched(lines, L's') || isSwitched(lines, L'd') || !isSwitched(lines, L'f');
    const bool asks = !isSource && !byPrompt;
    const int result = MenuLoadReplaceAll(name);
    mustHold(result == (asks && !isSwitched(lines, L'y') ? 181 : 0),
             "only an answer other than Yes declines");
    mustHold(smallHost().boxes == (asks ? 1 : 0), "the box is shown where dialogs are");
    mustHold(smallHost().printed.empty() == (isSource || !byPrompt),
             "the warning is printed where no dialogs are");
}

// --- The prompt and the dialog.

// What a prompt or a dialog gave.
struct Given
{
    int status = 0;
    std::wstring path;
};

// What a dialog that begins at `initial` gives, and where it must begin.
Given dialogOf(const Lines& lines, const std::wstring& initial, fuzzing::DialogCall& call)
{
    const Numbered stored = numberedOf(lines, 'i');
    const bool isStored = has(lines, 'i');
    call.filter = isStored && !has(lines, 'j') ? stored.number : 0;
    call.filter -= call.filter > 0 ? 1 : 0;
    call.location = !isStored ? initial : (has(lines, 'J') ? L"" : stored.text);
    if (!has(lines, 'K'))
        call.kinds = kindsOf(lines);
    return has(lines, 'd') ? Given{5100, numberedOf(lines, 'd').text} : Given{-5002, L"before"};
}

Given givenAtPrompt(const Lines& lines, std::optional<fuzzing::DialogCall>& dialog)
{
    const std::wstring menuName =
        has(lines, 'M') ? std::wstring() : textOf(lines, 'm').value_or(L"");
    const auto answer = textOf(lines, 'a');
    if (!answer && !has(lines, 'e'))
        return {has(lines, 'x') ? -5001 : -5002, L"before"};
    if (!answer || answer->empty())
        return {5100, menuName};
    if (answer->front() == L'~')
        return dialogOf(lines, menuName, dialog.emplace());
    return {5100, answer->front() == L'.' ? std::wstring() : answer->substr(0, 2047)};
}

void checkStored(const Lines& lines)
{
    const Numbered picked = numberedOf(lines, 'd');
    const int filter = picked.number - 1;
    mustHold(smallHost().storedFilter.integerOrZero() == (filter >= 0 ? filter + 1 : filter),
             "the filter is stored as people count");
    mustHold(smallHost().storedFile.stringOrEmpty() == picked.text, "the file picked is stored");
    mustHold(smallHost().hasSection, "the section is there");
}

void checkDialog(const std::optional<fuzzing::DialogCall>& told)
{
    const std::vector<fuzzing::DialogCall>& dialogs = smallHost().dialogs;
    mustHold(dialogs.size() == (told ? 1U : 0U), "the dialog is shown for a tilde alone");
    if (!told)
        return;
    mustHold(dialogs.front().location == told->location && dialogs.front().filter == told->filter,
             "the dialog begins with what is stored");
    mustHold(dialogs.front().kinds == told->kinds, "the dialog knows the kinds");
}

void checkPrompt(const Lines& lines)
{
    std::optional<fuzzing::DialogCall> dialog;
    const Given told = givenAtPrompt(lines, dialog);
    CStdStr<wchar_t> path(L"before");
    const int status = getMenuFilePathByCmd(path);
    mustHold(status == told.status, "a prompt's status is its answer's");
    mustHold(path == told.path, "a prompt gives the path that was answered");
    checkDialog(dialog);
    if (dialog && status == 5100)
        checkStored(lines);
    const std::wstring menuName =
        has(lines, 'M') ? std::wstring() : textOf(lines, 'm').value_or(L"");
    mustHold(smallHost().prompt == fuzzing::messageOf(kPrompt, menuName),
             "the prompt names the main menu file");
    mustHold(smallHost().handedOut == 0, "every buffer of the host is given back");
    mustHold(smallHost().resources.size() == 1, "every resource file is put back");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Lines lines = linesOf({data, size});
    setUpHost(lines);
    if (has(lines, 'n')) {
        checkSearch(lines);
        checkKinds(lines);
    }
    if (has(lines, 'w'))
        checkWarning(lines);
    if (has(lines, 'a') || has(lines, 'e') || has(lines, 'x') || has(lines, 'c'))
        checkPrompt(lines);
    smallHost() = fuzzing::SmallHost(); // so that no run frees what another one took
    return 0;
}
