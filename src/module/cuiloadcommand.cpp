#include "module/cuiloadcommand.h"

#include "menuload/menuloadcommand.h"
#include "module/resourcescopes.h"

int Quel6940Command::execute(IQuelBuildInCommandContext* context)
{
    const ContextResourceScope scope(context);
    Quel6916Command command;
    command.execute(context);
    return QuelStatus::kNormal;
}
