#pragma once

#include "desktop/notification_center.h"
#include "model/enumerations.h"

#include <QCoroTask>

#include <memory>

namespace pingwell {

/// What the desktop's status means to the person.
[[nodiscard]] NotificationPermission permissionFrom(AuthorizationStatus status);

/// Whether notifications are shown now; never remembered, the person may change it at any time.
QCoro::Task<NotificationPermission> currentPermission(std::shared_ptr<NotificationCenter> center);

/// Asks the person and resumes with what holds then, whatever became of the question.
QCoro::Task<NotificationPermission> requestPermission(std::shared_ptr<NotificationCenter> center);

/// Opens the desktop's notification settings where there are some.
void openNotificationSettings(NotificationCenter &center);

} // namespace pingwell
