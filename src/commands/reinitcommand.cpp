#include "commands/reinitcommand.h"

#include "module/resourcescopes.h"

int Quel6935Command::execute(IQuelBuildInCommandContext* context)
{
    const ContextResourceScope scope(context);
    return QuelStatus::kNormal;
}
