#include "menufile/menufilepath.h"

#include "host/commands.h"
#include "host/filedialog.h"
#include "host/prompts.h"
#include "menufile/menufilekinds.h"
#include "module/resourcescopes.h"
#include "module/resourcestring.h"
#include "settings/systemvariables.h"

#include <algorithm>
#include <array>
#include <locale>

namespace {

constexpr unsigned int kTitleId = 11062;
constexpr wchar_t kTitle[] = L"Select Menu File";
constexpr unsigned int kFiltersId = 11004;
constexpr wchar_t kFilters[] = L"Customization files(*.cuix)|Menu Template(*.mnu)|"
                               L"Menu File(*.mns)|Menu File(*.menuc)";
constexpr unsigned int kPromptId = 11069;
constexpr wchar_t kPrompt[] = L"Enter customization file name or [. (for none)]<%s>";

// The host's bits for a dialog that picks an existing file.
constexpr int kPickExistingFile = 0x18080002;

constexpr std::size_t kFoundPathRoom = 1024;

// What the dialog starts with. The stored filter counts from 1, the dialog's from 0.
struct DialogStart
{
    std::wstring location;
    int filterIndex = 0;
};

// A stored value of the wrong kind counts as 0 or as the empty text, which on purpose replaces the
// caller's location too: whatever can be read counts.
DialogStart readDialogStart(QueldConfig& store, const std::wstring& initial)
{
    DialogStart start{initial, 0};
    if (!store.isItemExist(kSettingsPath, SettingsKey::kFileDialog))
        return start;
    QuelVariant filter;
    if (store.getValue(kSettingsPath, SettingsKey::kFileDialogFilter, filter) == 0)
        start.filterIndex = filter.integerOrZero();
    QuelVariant file;
    if (store.getValue(kSettingsPath, SettingsKey::kFileDialogFile, file) == 0)
        start.location = file.stringOrEmpty();
    if (start.filterIndex > 0)
        --start.filterIndex;
    return start;
}

// The whole path is remembered, on purpose, although the setting's name says folder: the dialog
// opens on the file chosen last.
void rememberChoice(QueldConfig& store, int filterIndex, const std::wstring& path)
{
    if (!store.isItemExist(kSettingsPath, SettingsKey::kFileDialog))
        store.addItem(kSettingsPath, SettingsKey::kFileDialog);
    QuelVariant filter;
    filter.setInteger(filterIndex >= 0 ? filterIndex + 1 : filterIndex);
    store.setValue(kSettingsPath, SettingsKey::kFileDialogFilter, filter);
    QuelVariant file;
    file.setString(path.c_str(), QuelVariant::kString);
    store.setValue(kSettingsPath, SettingsKey::kFileDialogFile, file);
}

int findInHost(IQuelBuildInCommandContext* context, const std::wstring& name,
               CStdStr<wchar_t>& fullPath)
{
    std::array<wchar_t, kFoundPathRoom> found{};
    if (context->findFile(name.c_str(), found.data()) != 0)
        return 0;
    fullPath = found.data();
    return 1;
}

bool hasMenuFileExtension(const std::wstring& name)
{
    const int dot = static_cast<int>(name.rfind(L'.'));
    if (dot <= 0)
        return false;
    return IsSupportMenuExt(trimmed(name.substr(static_cast<std::size_t>(dot)))) != 0;
}

std::wstring kindsOfHost()
{
    const GlobalResourceScope scope(kHostResourceFile);
    const QuString kinds = menuFileKinds();
    return textOrEmpty(kinds);
}

} // namespace

int getMenuFilePathByDialog(CStdStr<wchar_t>& path, const CStdStr<wchar_t>& initial)
{
    QueldConfig* store = quelConfig();
    if (store == nullptr)
        return QuelStatus::kError;
    DialogStart start = readDialogStart(*store, initial);
    const QuString title = qumdQuResourceString(kTitleId, kTitle);
    const QuString filters = qumdQuResourceString(kFiltersId, kFilters);
    const QuString kinds = menuFileKinds(); // on purpose of the current file, not the host's
    ResultRecord result;
    const int status =
        vxGetFileDialog(title.kwszPtr(), start.location.c_str(), kinds.kwszPtr(), kPickExistingFile,
                        result.get(), nullptr, start.filterIndex, filters.kwszPtr(), nullptr);
    if (status == QuelStatus::kNormal && result.isString()) {
        path = textOrEmpty(result.string());
        result.freeString();
        rememberChoice(*store, start.filterIndex, path);
    }
    return status;
}

int getMenuFilePathByCmd(CStdStr<wchar_t>& path)
{
    ResultRecord menuName;
    quedGetVar(SystemVariable::kMainMenuFile, menuName.get());
    const QuString format = qumdQuResourceString(kPromptId, kPrompt);
    CStdStr<wchar_t> prompt;
    prompt.Format(textOrEmpty(format), menuName.string());

    std::array<wchar_t, kQuelStringAnswerRoom> answer{};
    quedInitGet(0, nullptr);
    const int status = quedGetString(0, prompt.c_str(), answer.data());
    quedInitGet(0, nullptr);
    if (status != QuelStatus::kNormal)
        return status;
    // Only the first character counts, on purpose: "./menu.cuix" means none as "." does, and
    // "~/menu.cuix" opens the dialog as "~" does.
    switch (answer.front()) {
    case L'\0':
        path = textOrEmpty(menuName.string());
        break;
    case L'~':
        return getMenuFilePathByDialog(path, textOrEmpty(menuName.string()));
    case L'.':
        path.clear();
        break;
    default:
        path = answer.data();
    }
    return status;
}

int getMenuFullPath(IQuelBuildInCommandContext* context, const CStdStr<wchar_t>& name,
                    CStdStr<wchar_t>& fullPath)
{
    // On purpose a name with the extension of a menu file is searched once, and with the blanks
    // that may stand around it.
    if (hasMenuFileExtension(name))
        return findInHost(context, name, fullPath);
    // Extensions pile up ("a.cuix", "a.cuix.mnu", ...), an empty kind, even at the front, ends the
    // search, and the last kind is never tried. All three are on purpose: users rely on which file
    // wins.
    std::wstring candidate = name;
    std::wstring kinds = kindsOfHost();
    for (;;) {
        const int length = static_cast<int>(kinds.find(L';'));
        if (length < 1)
            return 0;
        const auto count = static_cast<std::size_t>(length);
        candidate += L'.' + kinds.substr(0, count);
        if (findInHost(context, candidate, fullPath) != 0)
            return 1;
        kinds.erase(0, count + 1);
    }
}

CStdStr<wchar_t> trimmed(const std::wstring& text)
{
    const std::locale locale;
    const auto isSolid = [&locale](wchar_t character) { return !std::isspace(character, locale); };
    const auto first = std::find_if(text.begin(), text.end(), isSolid);
    const auto last =
        std::find_if(text.rbegin(), std::make_reverse_iterator(first), isSolid).base();
    return std::wstring(first, last);
}
