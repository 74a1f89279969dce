// The host's application interface and its customization manager, which shows menu groups.
#pragma once

#include "host/api.h"
#include "host/qustring.h"

// Shows the menu groups of the loaded menu file list, the string value "CUIX/LoadedCuix" of the
// configuration store: paths in load order, separated by ";".
class QuelCustomizationManager
{
public:
    // Makes the host show exactly the groups of the files that are in the list now. What cannot be
    // shown is reported to the user by the host.
    virtual void refresh() = 0;

    // Loads the menu file `path` and sets `group` to the name of its menu group. Returns true on
    // success; also for a file that is shown already, which changes nothing. Returns false when the
    // file cannot be shown, with `group` untouched.
    virtual bool loadMenuFile(const QuString& path, QuString& group) = 0;

protected:
    ~QuelCustomizationManager() = default;
};

// The host's application interface.
class QuelAppInterface
{
public:
    // The customization manager, owned by the host; null when there is none.
    virtual QuelCustomizationManager* customizationManager() = 0;

protected:
    ~QuelAppInterface() = default;
};

// The host's application interface, owned by the host; null when there is none.
QUEL_HOST_API QuelAppInterface* GetQuelAppInterface();
