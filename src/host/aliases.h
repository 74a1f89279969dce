// The host's manager of command aliases: short names for commands, read from a ".pgp" file.
#pragma once

#include "host/api.h"
#include "host/qustring.h"

class QuCmdAliasManager
{
public:
    // The file name, without folder, of the alias file in force.
    virtual QuString getCurValidPgpFileName() = 0;

    // Discards the alias list.
    virtual void uninitAliasNameList() = 0;

    // Builds the alias list from the file; `reread` true reads the file again even when it has not
    // changed. Returns whether the file could be read.
    virtual bool initAliasNameList(bool reread) = 0;

protected:
    ~QuCmdAliasManager() = default;
};

// The host's alias manager, owned by the host; null when there is none.
QUEL_HOST_API QuCmdAliasManager* quCmdAliasManagerPtr();
