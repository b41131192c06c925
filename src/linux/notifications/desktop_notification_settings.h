#pragma once

#include "desktop/notification_center.h"

#include <QCoroTask>
#include <QDBusConnection>
#include <QStringList>

namespace pingwell {

/// Whether the desktop shows this program's notifications: a notification server answers, and the desktop's own switch
/// for this program is not off. A switch that can be read exists on GNOME and Plasma.
QCoro::Task<AuthorizationStatus> readAuthorizationStatus(QDBusConnection bus);

/// The command line that opens the desktop's notification settings; empty where there is none.
[[nodiscard]] QStringList notificationSettingsCommand();

} // namespace pingwell
