#include "commands/reinitcommand.h"

#include "host/aliases.h"
#include "host/cstdstr.h"
#include "host/messageboxes.h"
#include "module/resourcescopes.h"
#include "module/resourcestring.h"

#include <string>

namespace {

constexpr unsigned int kQuestionId = 6700;
constexpr wchar_t kQuestion[] = L"Re-Load QUELD.pgp?";
constexpr wchar_t kDefaultFile[] = L"QUELD.pgp";
constexpr wchar_t kExtension[] = L".pgp";
constexpr int kExtensionLength = 4;

std::wstring aliasFileName()
{
    QuCmdAliasManager* manager = quCmdAliasManagerPtr();
    QuString name = manager == nullptr ? QuString(kDefaultFile) : manager->getCurValidPgpFileName();
    const QuString end = name.substr(name.length() - kExtensionLength, kExtensionLength);
    if (end.compareNoCase(kExtension) != 0)
        name += kExtension;
    return textOrEmpty(name);
}

std::size_t countOf(const std::wstring& part, const std::wstring& text)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + part.size()))
        ++count;
    return count;
}

// Goes on behind what it put in: a name that contains the replaced one is not replaced again.
void replaceAll(std::wstring& text, const std::wstring& part, const std::wstring& replacement)
{
    if (replacement.size() > part.size())
        text.reserve(text.size() + countOf(part, text) * (replacement.size() - part.size()));
    for (std::size_t at = text.find(part); at != text.npos;
         at = text.find(part, at + replacement.size()))
        text.replace(at, part.size(), replacement);
}

int rebuildAliases()
{
    QuCmdAliasManager* manager = quCmdAliasManagerPtr();
    if (manager == nullptr)
        return QuelStatus::kError;
    manager->uninitAliasNameList();
    return manager->initAliasNameList(true) ? QuelStatus::kNormal : QuelStatus::kError;
}

} // namespace

int Quel6935Command::execute(IQuelBuildInCommandContext* context)
{
    const ContextResourceScope scope(context);
    const QuString format = qumdQuResourceString(kQuestionId, kQuestion);
    // Formatted before the file's name goes in: a "%" in it means itself.
    CStdStr<wchar_t> question;
    question.Format(textOrEmpty(format));
    replaceAll(question, kDefaultFile, aliasFileName());
    const int answer = AfxMessageBox(question.c_str(), QuelBox::kOkCancel, 0);
    return answer == QuelBox::kAnswerOk ? rebuildAliases() : QuelStatus::kError;
}
