#include "menufile/menucommand.h"

#include "module/resourcescopes.h"

int Quel6915Command::execute(IQuelBuildInCommandContext* context)
{
    const ContextResourceScope scope(context);
    return QuelStatus::kNormal;
}
