#include "menufile/menufilekinds.h"

#include "host/messageboxes.h"
#include "host/output.h"
#include "host/prompts.h"
#include "module/resourcescopes.h"
#include "module/resourcestring.h"
#include "settings/systemvariables.h"

#include <algorithm>
#include <locale>

namespace {

constexpr unsigned int kWarningId = 11006;
constexpr wchar_t kWarning[] = L"Loading a template menu file will result in the loss of any "
                               L"toolbar customization changes that have been made.";
constexpr unsigned int kQuestionId = 11008;
constexpr wchar_t kQuestion[] = L" Continue loading?";

constexpr wchar_t kMenuSource[] = L".mns";
constexpr std::size_t kMenuSourceLength = 4;

constexpr int kGoOn = 0;
constexpr int kDeclined = 181;

// By the classic locale, so that extensions mean the same whatever locale the process has set.
bool equalInAnyCase(const std::wstring& left, const std::wstring& right)
{
    const auto& letters = std::use_facet<std::ctype<wchar_t>>(std::locale::classic());
    const auto equal = [&letters](wchar_t a, wchar_t b) {
        return letters.tolower(a) == letters.tolower(b);
    };
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), equal);
}

// A name that is nothing but the extension has none, on purpose.
bool hasMenuSourceExtension(const std::wstring& path)
{
    if (path.size() <= kMenuSourceLength)
        return false;
    return equalInAnyCase(path.substr(path.size() - kMenuSourceLength), kMenuSource);
}

std::wstring withoutOuterSeparators(const std::wstring& list)
{
    const std::size_t first = list.find_first_not_of(L';');
    if (first == list.npos)
        return {};
    return list.substr(first, list.find_last_not_of(L';') + 1 - first);
}

} // namespace

QuString menuFileKinds()
{
    return qumdQuResourceString(kMenuFileKindsId, L"cuix;mnu;mns;menuc");
}

int IsRunAsCmdLineCommand()
{
    const QuelDocumentData* document = GetQuelAppCtxActiveDocData();
    if (quedScriptAppRunning())
        return 1;
    if (document != nullptr && (document->flags & QuelDocumentData::kNoDialogs) != 0)
        return 1;
    return fileDialogsEnabled() ? 0 : 1;
}

int IsSupportMenuExt(const CStdStr<wchar_t>& ext)
{
    const GlobalResourceScope scope(kHostResourceFile);
    const QuString kinds = menuFileKinds();
    std::wstring list = withoutOuterSeparators(textOrEmpty(kinds));
    if (list.find(L';') == list.npos)
        return equalInAnyCase(ext, L'.' + list) ? 1 : 0;
    // An empty kind ends the search, and the last kind is never compared, both on purpose: the
    // kinds that count are those in front of a separator.
    for (;;) {
        const int length = static_cast<int>(list.find(L';'));
        if (length < 1)
            return 0;
        const auto count = static_cast<std::size_t>(length);
        if (equalInAnyCase(ext, L'.' + list.substr(0, count)))
            return 1;
        list.erase(0, count + 1);
    }
}

int MenuLoadReplaceAll(const CStdStr<wchar_t>& path)
{
    const GlobalResourceScope scope(kHostResourceFile);
    if (hasMenuSourceExtension(path))
        return kGoOn;
    const QuString warning = qumdQuResourceString(kWarningId, kWarning);
    if (IsRunAsCmdLineCommand() != 0) {
        quutPrintf(textOrEmpty(warning)); // the finished text is the format, as in all messages
        return kGoOn;
    }
    const QuString question = qumdQuResourceString(kQuestionId, kQuestion);
    const std::wstring text = std::wstring(textOrEmpty(warning)) + textOrEmpty(question);
    const int answer =
        MessageBoxW(AfxGetMainWnd(), text.c_str(), GetOemProductName(), QuelBox::kYesNo);
    return answer == QuelBox::kAnswerYes ? kGoOn : kDeclined;
}
