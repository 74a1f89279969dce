#include "commands/menuunloadcommand.h"

#include "module/resourcescopes.h"

int Quel6917Command::execute(IQuelBuildInCommandContext* context)
{
    const ContextResourceScope scope(context);
    return QuelStatus::kNormal;
}
