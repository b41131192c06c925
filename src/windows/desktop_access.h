#pragma once

#include "ui/settings/login_item_access.h"
#include "ui/settings/notification_access.h"

#include <memory>

namespace pingwell {

/// What the windows show and change of the desktop itself. Each is null where the program leaves it alone.
struct DesktopAccess
{
    std::unique_ptr<NotificationAccess> notifications = nullptr;
    std::unique_ptr<LoginItemAccess> loginItem = nullptr;
};

} // namespace pingwell
