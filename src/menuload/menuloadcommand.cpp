#include "menuload/menuloadcommand.h"

#include "host/cstdstr.h"
#include "host/messageboxes.h"
#include "host/output.h"
#include "host/prompts.h"
#include "menuload/customizationmanager.h"
#include "menuload/loadedmenufilelist.h"
#include "menuload/menuloaddialog.h"
#include "menuload/menuloadmessages.h"
#include "module/resourcescopes.h"
#include "module/resourcestring.h"

#include <array>
#include <optional>

namespace {

// String resources.
constexpr unsigned int kPromptId = 11066;
constexpr wchar_t kPrompt[] = L"Enter name of menu file to load:";
constexpr unsigned int kLoadedId = 11064;
constexpr wchar_t kLoaded[] = L"\nLoading \"%s\" success.group:%s";

// What one answer led to: a status that ends the command, or nothing to prompt again.
using Outcome = std::optional<int>;

// The file has been put into the list; the first call shows it, the second asks for its group.
void loadInHost(QuelCustomizationManager& manager, const wchar_t* path)
{
    manager.refresh();
    QuString group;
    if (manager.loadMenuFile(QuString(path), group)) {
        const QuString format = qumdQuResourceString(kLoadedId, kLoaded);
        promptf(textOrEmpty(format), path, textOrEmpty(group));
    }
    promptf(L"\n");
}

Outcome loadTypedFile(const wchar_t* path)
{
    if (!isCustomizationFile(path)) {
        quutPrintf(menuFileNotFoundMessage(path).c_str());
        return std::nullopt;
    }
    QueldConfig* store = quelConfig();
    if (store == nullptr)
        return QuelStatus::kStopped;
    std::optional<LoadedMenuFileList> list = LoadedMenuFileList::read(*store);
    if (!list)
        return std::nullopt;
    if (list->isLoaded(path)) {
        const CStdStr<wchar_t> message = menuFileAlreadyLoadedMessage(path);
        MessageBoxW(message.c_str(), GetOemProductName(), QuelBox::kExclamation);
        return QuelStatus::kStopped;
    }
    list->append(path);
    list->write(*store);
    QuelCustomizationManager* manager = customizationManagerOrNull();
    if (manager == nullptr)
        return std::nullopt;
    loadInHost(*manager, path);
    return QuelStatus::kNormal;
}

Outcome askOnce(IQuelBuildInCommandContext* context)
{
    std::array<wchar_t, kQuelStringAnswerRoom> answer{};
    const QuString prompt = qumdQuResourceString(kPromptId, kPrompt);
    const int status = quedGetString(0, prompt.kwszPtr(), answer.data());
    quedInitGet(0, nullptr);
    if (status == QuelStatus::kCancelled)
        return status;
    if (status != QuelStatus::kNormal)
        return std::nullopt;
    if (answer.front() == L'~')
        return runMenuLoadDialog(context);
    return loadTypedFile(answer.data());
}

// Prompts for ever: only an answer, a cancel or the end of the input, which the host reports as a
// cancel, ends the command.
int loadFromCommandLine(IQuelBuildInCommandContext* context)
{
    // Hosts prepare their boxes when they are asked for the name, so it is asked for before the
    // first prompt although no message here carries the copy.
    [[maybe_unused]] const CStdStr<wchar_t> productName(GetOemProductName());
    quedInitGet(0, nullptr);
    Outcome outcome;
    while (!outcome)
        outcome = askOnce(context);
    return *outcome;
}

} // namespace

int Quel6916Command::execute(IQuelBuildInCommandContext* context)
{
    const ContextResourceScope scope(context);
    return menuLoadDialogWanted(context) ? runMenuLoadDialog(context)
                                         : loadFromCommandLine(context);
}
