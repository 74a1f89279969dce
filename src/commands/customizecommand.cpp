#include "commands/customizecommand.h"

#include "module/resourcescopes.h"

int Quel60005Command::execute(IQuelBuildInCommandContext* context)
{
    const ContextResourceScope scope(context);
    return QuelStatus::kNormal;
}
