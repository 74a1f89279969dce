#include "module/cuiunloadcommand.h"

#include "commands/menuunloadcommand.h"
#include "module/resourcescopes.h"

int Quel6941Command::execute(IQuelBuildInCommandContext* context)
{
    const ContextResourceScope scope(context);
    Quel6917Command command;
    command.execute(context);
    return QuelStatus::kNormal;
}
