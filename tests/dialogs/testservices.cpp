#include "tests/dialogs/testservices.h"

#include "host/messageboxes.h"
#include "refhost/dialogs/dialogservices.h"

namespace dialogtest {

Services& services()
{
    static Services theServices;
    return theServices;
}

void resetServices()
{
    services() = {};
}

} // namespace dialogtest

namespace quelhost {

bool canShowDialogs()
{
    return dialogtest::services().hasDisplay;
}

void tellOnCommandLine(const QString& sentence)
{
    dialogtest::services().sentences << sentence;
}

QWidget* windowBehindDialogs()
{
    return dialogtest::services().windowBehind;
}

QString dialogResourceFolder()
{
    return dialogtest::services().resourceFolder;
}

QString dialogLanguage()
{
    return dialogtest::services().language;
}

int askBoxOverDialog(const BoxRequest& request)
{
    dialogtest::services().boxes.push_back(request);
    const auto answer = dialogtest::services().askBox;
    return answer ? answer(request) : QuelBox::kAnswerCancel;
}

void showDialogHelp(const QString& page)
{
    dialogtest::services().helpPages << page;
}

} // namespace quelhost
