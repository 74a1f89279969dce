#include "module/cuiunloadcommand.h"

#include "module/resourcescopes.h"

int Quel6941Command::execute(IQuelBuildInCommandContext* context)
{
    const ContextResourceScope scope(context);
    return QuelStatus::kNormal;
}
