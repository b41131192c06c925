#include "platform/notification_server.h"

#include <QStringList>

namespace pingwell {

QDBusMessage notificationCall(const QString &method, const QString &server)
{
    return QDBusMessage::createMethodCall(server, notificationPath, notificationService, method);
}

QCoro::Task<std::optional<NotificationServer>> readNotificationServer(QDBusConnection bus)
{
    // Both are under way before the first is awaited.
    BusCall askName(bus, notificationCall(QStringLiteral("GetServerInformation")), longestServerQuestion);
    BusCall askCapabilities(bus, notificationCall(QStringLiteral("GetCapabilities")), longestServerQuestion);
    const QDBusMessage information = co_await askName;
    const QDBusMessage capabilities = co_await askCapabilities;

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
    co_return server;
}

} // namespace pingwell
