#pragma once

#include "desktop/notification_center.h"
#include "model/enumerations.h"

#include <QCoroTask>

#include <memory>

namespace pingwell {

/// The permission that the desktop's status amounts to.
[[nodiscard]] NotificationPermission permissionFrom(AuthorizationStatus status);

/// Reads from the desktop whether it shows notifications. Never cached, because the person may change it at any time.
QCoro::Task<NotificationPermission> currentPermission(std::shared_ptr<NotificationCenter> center);

/// Asks the person for permission, then resumes with the permission that the desktop reports, even if asking failed.
QCoro::Task<NotificationPermission> requestPermission(std::shared_ptr<NotificationCenter> center);

/// Opens the desktop's notification settings; does nothing where there are none.
void openNotificationSettings(NotificationCenter &center);

} // namespace pingwell
