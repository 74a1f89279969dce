#include "commands/menuunloadcommand.h"

#include "host/cstdstr.h"
#include "host/output.h"
#include "host/prompts.h"
#include "menuload/customizationmanager.h"
#include "menuload/loadedmenufilelist.h"
#include "menuload/menuloaddialog.h"
#include "module/resourcescopes.h"
#include "module/resourcestring.h"

#include <array>
#include <optional>

namespace {

// String resources. "Cannot be unloaded" has no text of the module's own.
constexpr unsigned int kPromptId = 11067;
constexpr wchar_t kPrompt[] = L"Enter the name of a Menu Group to unload:";
constexpr unsigned int kCannotUnloadId = 11068;

// The answer is the path of a file, although the prompt speaks of a group: a file that is gone
// cannot be unloaded by name.
int unloadTypedFile(const wchar_t* path)
{
    if (!isCustomizationFile(path)) {
        CStdStr<wchar_t> message;
        message.Format(kCannotUnloadId, path);
        quutPrintf(message.c_str());
        return QuelStatus::kNormal;
    }
    QueldConfig* store = quelConfig();
    if (store == nullptr)
        return QuelStatus::kStopped;
    std::optional<LoadedMenuFileList> list = LoadedMenuFileList::read(*store);
    if (!list)
        return QuelStatus::kNormal;
    const LoadedMenuFileList::Found found = list->unload(path);
    if (found == LoadedMenuFileList::Found::MainFile)
        return QuelStatus::kStopped;
    if (found == LoadedMenuFileList::Found::Nothing)
        return QuelStatus::kNormal;
    list->write(*store);
    if (QuelCustomizationManager* manager = customizationManagerOrNull())
        manager->refresh();
    return QuelStatus::kNormal;
}

int unloadFromCommandLine(IQuelBuildInCommandContext* context)
{
    std::array<wchar_t, kQuelStringAnswerRoom> answer{};
    quedInitGet(0, nullptr);
    const QuString prompt = qumdQuResourceString(kPromptId, kPrompt);
    const int status = quedGetString(0, prompt.kwszPtr(), answer.data());
    quedInitGet(0, nullptr);
    if (status != QuelStatus::kNormal)
        return status;
    if (answer.front() == L'~')
        return runMenuLoadDialog(context);
    return unloadTypedFile(answer.data());
}

} // namespace

int Quel6917Command::execute(IQuelBuildInCommandContext* context)
{
    const ContextResourceScope scope(context);
    return menuLoadDialogWanted(context) ? runMenuLoadDialog(context)
                                         : unloadFromCommandLine(context);
}
