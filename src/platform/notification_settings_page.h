#pragma once

#include "platform/notification_server.h"

#include <QCoroTask>
#include <QStringList>

#include <optional>

namespace pingwell {

/// Whether the desktop of that server shows this program's notifications, by its own switch for each program; none
/// where it has no such switch that can be read.
QCoro::Task<std::optional<bool>> readProgramSwitch(QString serverName);

/// The desktop's page of notification settings as a command line; empty where there is none.
[[nodiscard]] QStringList notificationSettingsCommand();

} // namespace pingwell
