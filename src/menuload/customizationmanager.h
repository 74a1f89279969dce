// The way to the host's customization manager.
#pragma once

#include "host/customization.h"

// The manager, or null when the host has no application interface or the interface no manager.
inline QuelCustomizationManager* customizationManagerOrNull()
{
    QuelAppInterface* application = GetQuelAppInterface();
    return application == nullptr ? nullptr : application->customizationManager();
}
