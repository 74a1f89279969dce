#include "commands/customizecommand.h"

#include "host/editors.h"
#include "host/prompts.h"
#include "module/resourcescopes.h"
#include "module/resourcestring.h"

#include <array>

namespace {

constexpr unsigned int kPromptId = 8051;
constexpr unsigned int kKeywordsId = 8052;
constexpr wchar_t kAccelerator[] = L"Accelerator";
constexpr wchar_t kToolbar[] = L"Toolbar";

int openEditor(int editor)
{
    return vxExcuteWSCommand(editor, nullptr, nullptr);
}

} // namespace

int Quel60005Command::execute(IQuelBuildInCommandContext* context)
{
    const ContextResourceScope scope(context);
    std::array<wchar_t, kQuelKeywordAnswerRoom> answer{};
    const QuString keywords = qumdQuResourceString(kKeywordsId);
    quedInitGet(0, keywords.kwszPtr());
    const QuString prompt = qumdQuResourceString(kPromptId);
    const int status = quedGetKword(prompt.kwszPtr(), answer.data());
    // Enter is the only status that counts. A cancel leaves the answer empty and so, on purpose,
    // ends as a command that ran its course.
    const QuString given(answer.data());
    if (status == QuelStatus::kEmptyAnswer || given.compareNoCase(kAccelerator) == 0)
        return openEditor(QuelEditor::kAccelerators);
    if (given.compareNoCase(kToolbar) == 0)
        return openEditor(QuelEditor::kToolbars);
    return QuelStatus::kNormal;
}
