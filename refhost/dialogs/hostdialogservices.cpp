// The reference host's answers to its dialogs.
#include "refhost/dialogs/dialogservices.h"

#include "host/dialogs.h"
#include "refhost/core/host.h"
#include "refhost/core/widetext.h"

namespace quelhost {

bool canShowDialogs()
{
    return Host::current()->hasDisplay();
}

QWidget* windowBehindDialogs()
{
    const CWnd* const window = Host::current()->face().mainWindow();
    return window == nullptr ? nullptr : window->widget();
}

void tellOnCommandLine(const QString& sentence)
{
    Host::current()->output.writeRow(toWide(sentence));
}

QString dialogResourceFolder()
{
    return Host::current()->resources.folder();
}

QString dialogLanguage()
{
    return Host::current()->resources.language();
}

int askBoxOverDialog(const BoxRequest& request)
{
    return Host::current()->face().askBox(request);
}

void showDialogHelp(const QString& page)
{
    Host::current()->face().showHelp(page);
}

} // namespace quelhost
