#include "module/cuiloadcommand.h"

#include "module/resourcescopes.h"

int Quel6940Command::execute(IQuelBuildInCommandContext* context)
{
    const ContextResourceScope scope(context);
    return QuelStatus::kNormal;
}
