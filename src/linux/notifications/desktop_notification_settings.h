#pragma once

#include "desktop/notification_center.h"

#include <QCoroTask>
#include <QDBusConnection>
#include <QStringList>

namespace pingwell {

/// Whether the desktop shows this program's notifications: there is a server that answers, and the desktop's own switch
/// for this program, where it has one that can be read (GNOME, Plasma), is not off.
QCoro::Task<AuthorizationStatus> readAuthorizationStatus(QDBusConnection bus);

/// The desktop's page of notification settings as a command line; empty where there is none.
[[nodiscard]] QStringList notificationSettingsCommand();

} // namespace pingwell
