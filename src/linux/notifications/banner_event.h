#pragma once

#include <QList>
#include <QString>

namespace pingwell {

/// An event about one banner, reported by a notification server.
struct BannerEvent
{
    enum class Kind { action, reply, closed, activationToken };

    Kind kind = Kind::closed;
    /// The server's unique name, and the banner's number there.
    QString server;
    uint number = 0;
    /// The action's key, the reply's text or the activation token.
    QString text;
    /// The reason of NotificationClosed, as freedesktop.org's standard numbers it.
    uint reason = 0;
};

/// Events about banners whose number is not known yet: a person can press a button before the server has replied with
/// the banner's number. The list is bounded, because other programs' banners have events, too.
class EarlyBannerEvents
{
public:
    void keep(const BannerEvent &event);
    /// Removes and returns the events of one banner, in their order.
    [[nodiscard]] QList<BannerEvent> take(const QString &server, uint number);
    void clear() { m_events.clear(); }

private:
    QList<BannerEvent> m_events;
};

} // namespace pingwell
