#pragma once

#include "linux/bus/bus_call.h"

#include <QCoroTask>
#include <QString>

#include <chrono>
#include <optional>

namespace pingwell {

/// How long a question to the notification server may take.
inline constexpr std::chrono::milliseconds longestServerQuestion{3'000};

/// The notification server at hand, as it describes itself (freedesktop Desktop Notifications Specification).
struct NotificationServer
{
    /// Its unique name on the bus: another one is another run, or another program, with identifiers of its own.
    QString owner;
    QString name;
    bool drawsActions = false;
    bool readsMarkup = false;
    bool takesReplies = false;
    /// Identifies the bus among all there ever were: unique names repeat after a restart of the computer.
    QString bus;

    friend bool operator==(const NotificationServer &, const NotificationServer &) = default;
};

inline const QString gnomeServerName = QStringLiteral("gnome-shell");
inline const QString plasmaServerName = QStringLiteral("Plasma");

inline const QString notificationService = QStringLiteral("org.freedesktop.Notifications");
inline const QString notificationPath = QStringLiteral("/org/freedesktop/Notifications");

/// A call of one of the service's methods: on whoever serves now, who may be started for it, or on one server by its
/// unique name, which fails when that one is gone.
[[nodiscard]] QDBusMessage notificationCall(const QString &method, const QString &server = notificationService);

/// Asks the server who it is; none when it is missing, too slow or replaced meanwhile.
QCoro::Task<std::optional<NotificationServer>> readNotificationServer(QDBusConnection bus);

} // namespace pingwell
