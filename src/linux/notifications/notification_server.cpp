#include "linux/notifications/notification_server.h"

#include <QStringList>

namespace pingwell {

QDBusMessage notificationCall(const QString &method, const QString &server)
{
    return QDBusMessage::createMethodCall(server, notificationPath, notificationService, method);
}

QCoro::Task<std::optional<NotificationServer>> readNotificationServer(QDBusConnection bus)
{
    const QString busService = QStringLiteral("org.freedesktop.DBus");
    const QDBusMessage busQuestion = QDBusMessage::createMethodCall(busService, QStringLiteral("/org/freedesktop/DBus"),
                                                                    busService, QStringLiteral("GetId"));
    // All three calls are sent before the first reply is awaited.
    BusCall askName(bus, notificationCall(QStringLiteral("GetServerInformation")), longestServerQuestion);
    BusCall askCapabilities(bus, notificationCall(QStringLiteral("GetCapabilities")), longestServerQuestion);
    BusCall askBus(bus, busQuestion, longestServerQuestion);
    const QDBusMessage information = co_await askName;
    const QDBusMessage capabilities = co_await askCapabilities;
    const QDBusMessage busIdentifier = co_await askBus;

    std::optional<NotificationServer> server;
    const bool areReplies =
        information.type() == QDBusMessage::ReplyMessage && capabilities.type() == QDBusMessage::ReplyMessage;
    if (!areReplies || information.service() != capabilities.service())
        co_return server;
    const QStringList words = capabilities.arguments().value(0).toStringList();
    server.emplace();
    server->owner = information.service();
    server->name = information.arguments().value(0).toString();
    server->drawsActions = words.contains(QStringLiteral("actions"));
    server->readsMarkup = words.contains(QStringLiteral("body-markup"));
    server->takesReplies = server->drawsActions && words.contains(QStringLiteral("inline-reply"));
    server->bus = busIdentifier.arguments().value(0).toString();
    co_return server;
}

} // namespace pingwell
