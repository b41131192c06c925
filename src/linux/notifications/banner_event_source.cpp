#include "linux/notifications/banner_event_source.h"

#include "linux/notifications/notification_server.h"

namespace pingwell {

BannerEventSource::BannerEventSource(QDBusConnection bus, QObject *parent)
    : QObject(parent)
{
    // Only signals from the service: GNOME Shell sends each one a second time from another sender.
    const auto subscribe = [this, &bus](const QString &signal, const char *slot) {
        bus.connect(notificationService, notificationPath, notificationService, signal, this, slot);
    };
    subscribe(QStringLiteral("ActionInvoked"), SLOT(noteAction(uint, QString, QDBusMessage)));
    subscribe(QStringLiteral("NotificationReplied"), SLOT(noteReply(uint, QString, QDBusMessage)));
    subscribe(QStringLiteral("NotificationClosed"), SLOT(noteClosed(uint, uint, QDBusMessage)));
    subscribe(QStringLiteral("ActivationToken"), SLOT(noteToken(uint, QString, QDBusMessage)));
}

void BannerEventSource::noteAction(uint number, const QString &key, const QDBusMessage &signal)
{
    emit told({BannerEvent::Kind::action, signal.service(), number, key, 0});
}

void BannerEventSource::noteReply(uint number, const QString &text, const QDBusMessage &signal)
{
    emit told({BannerEvent::Kind::reply, signal.service(), number, text, 0});
}

void BannerEventSource::noteClosed(uint number, uint reason, const QDBusMessage &signal)
{
    emit told({BannerEvent::Kind::closed, signal.service(), number, {}, reason});
}

void BannerEventSource::noteToken(uint number, const QString &token, const QDBusMessage &signal)
{
    emit told({BannerEvent::Kind::activationToken, signal.service(), number, token, 0});
}

} // namespace pingwell
