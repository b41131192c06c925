#include "notify/notification_permission.h"

#include <exception>

namespace pingwell {

NotificationPermission permissionFrom(AuthorizationStatus status)
{
    switch (status) {
    case AuthorizationStatus::notDetermined:
        return NotificationPermission::notAsked;
    case AuthorizationStatus::denied:
        return NotificationPermission::denied;
    case AuthorizationStatus::authorized:
    case AuthorizationStatus::provisional:
    case AuthorizationStatus::ephemeral:
        return NotificationPermission::allowed;
    case AuthorizationStatus::other:
        break;
    }
    return NotificationPermission::unknown;
}

QCoro::Task<NotificationPermission> currentPermission(std::shared_ptr<NotificationCenter> center)
{
    const AuthorizationStatus status = co_await center->authorizationStatus();
    co_return permissionFrom(status);
}

QCoro::Task<NotificationPermission> requestPermission(std::shared_ptr<NotificationCenter> center)
{
    try {
        co_await center->requestAuthorization();
    } catch (const std::exception &) {
        // A failure needs no report: the permission is read again below, and is all that the caller needs.
    }
    const NotificationPermission permission = co_await currentPermission(center);
    co_return permission;
}

void openNotificationSettings(NotificationCenter &center)
{
    if (center.canOpenSettings())
        center.openSettings();
}

} // namespace pingwell
