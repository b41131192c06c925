#pragma once

#include "ui/settings/login_item_access.h"
#include "ui/settings/notification_access.h"

#include <memory>

namespace pingwell {

/// The settings of the desktop that the windows show and change. Each is null in a mode that must not change it.
struct DesktopAccess
{
    std::unique_ptr<NotificationAccess> notifications = nullptr;
    std::unique_ptr<LoginItemAccess> loginItem = nullptr;
};

} // namespace pingwell
