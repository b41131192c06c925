#pragma once

#include "linux/bus/bus_call.h"

#include <QCoroTask>
#include <QString>

#include <chrono>
#include <optional>

namespace pingwell {

/// How long a call that asks the notification server for information may take.
inline constexpr std::chrono::milliseconds longestServerQuestion{3'000};

/// The running notification server, as it describes itself (freedesktop.org Desktop Notifications).
struct NotificationServer
{
    /// Its unique name on the bus. Another name means another run or another program, with other banner numbers.
    QString owner;
    QString name;
    bool drawsActions = false;
    bool readsMarkup = false;
    bool takesReplies = false;
    /// The bus's globally unique identifier: unique names repeat after a restart of the computer.
    QString bus;

    friend bool operator==(const NotificationServer &, const NotificationServer &) = default;
};

inline const QString gnomeServerName = QStringLiteral("gnome-shell");
inline const QString plasmaServerName = QStringLiteral("Plasma");

inline const QString notificationService = QStringLiteral("org.freedesktop.Notifications");
inline const QString notificationPath = QStringLiteral("/org/freedesktop/Notifications");

/// A call of one of the service's methods. By default it goes to the server that runs now, which the bus may start for
/// it; with a unique name as `server` it goes to that server, and fails when that one is gone.
[[nodiscard]] QDBusMessage notificationCall(const QString &method, const QString &server = notificationService);

/// Asks the server for its properties; none when it is missing, too slow, or replaced meanwhile.
QCoro::Task<std::optional<NotificationServer>> readNotificationServer(QDBusConnection bus);

} // namespace pingwell
