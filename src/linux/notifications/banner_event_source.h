#pragma once

#include "linux/notifications/banner_event.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

namespace pingwell {

/// Emits the events about all programs' banners that the notification server of a bus reports. Main thread.
class BannerEventSource final : public QObject
{
    Q_OBJECT

public:
    explicit BannerEventSource(QDBusConnection bus, QObject *parent = nullptr);

signals:
    void told(const BannerEvent &event);

private slots:
    void noteAction(uint number, const QString &key, const QDBusMessage &signal);
    void noteReply(uint number, const QString &text, const QDBusMessage &signal);
    void noteClosed(uint number, uint reason, const QDBusMessage &signal);
    void noteToken(uint number, const QString &token, const QDBusMessage &signal);
};

} // namespace pingwell
