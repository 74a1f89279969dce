#include "menufile/menucommand.h"

#include "host/output.h"
#include "menufile/menufilekinds.h"
#include "menufile/menufilepath.h"
#include "module/resourcescopes.h"
#include "module/resourcestring.h"

namespace {

// The text of MENULOAD under the same number has the name in quotes; this one has not.
constexpr unsigned int kNotFoundId = 11070;
constexpr wchar_t kNotFound[] = L"Menu file load failed.  File not found:%s";

std::wstring withoutOuterQuotes(const std::wstring& text)
{
    const std::size_t first = text.find_first_not_of(L'"');
    if (first == text.npos)
        return {};
    return text.substr(first, text.find_last_not_of(L'"') + 1 - first);
}

int askForPath(CStdStr<wchar_t>& path)
{
    if (IsRunAsCmdLineCommand() == 0)
        return getMenuFilePathByDialog(path, CStdStr<wchar_t>());
    return getMenuFilePathByCmd(path);
}

void printNotFound(const std::wstring& path)
{
    const QuString format = qumdQuResourceString(kNotFoundId, kNotFound);
    CStdStr<wchar_t> message;
    message.Format(textOrEmpty(format), path.c_str());
    quutPrintf(message.c_str());
}

} // namespace

int Quel6915Command::execute(IQuelBuildInCommandContext* context)
{
    const ContextResourceScope scope(context);
    CStdStr<wchar_t> path;
    const int status = askForPath(path);
    if (status != QuelStatus::kNormal || path.empty())
        return status;
    path = trimmed(withoutOuterQuotes(trimmed(path)));
    // What is found is dropped on purpose: the command looks whether there is a file, and MENULOAD
    // loads it.
    CStdStr<wchar_t> resolved = path;
    if (getMenuFullPath(context, path, resolved) == 0) {
        printNotFound(path);
        return QuelStatus::kError;
    }
    return QuelStatus::kNormal;
}
