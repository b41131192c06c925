#pragma once

#include <QList>
#include <QString>

namespace pingwell {

/// What a notification server told about one of its banners.
struct BannerEvent
{
    enum class Kind { action, reply, closed, activationToken };

    Kind kind = Kind::closed;
    /// The server's unique name and its number of the banner.
    QString server;
    uint number = 0;
    /// The action's key, the reply or the token.
    QString text;
    /// Why it was closed, as freedesktop.org numbers the reasons for notifications.
    uint reason = 0;
};

/// Events about banners whose numbers are not known yet: a person can be faster than the reply that names the banner.
/// Bounded; others' banners have events too.
class EarlyBannerEvents
{
public:
    void keep(const BannerEvent &event);
    /// Hands out those of one banner, in their order.
    [[nodiscard]] QList<BannerEvent> take(const QString &server, uint number);
    void clear() { m_events.clear(); }

private:
    QList<BannerEvent> m_events;
};

} // namespace pingwell
