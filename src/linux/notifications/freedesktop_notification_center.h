#pragma once

#include "desktop/notification_center.h"
#include "linux/notifications/banner.h"
#include "linux/notifications/banner_event_source.h"
#include "linux/notifications/banner_record.h"
#include "linux/notifications/notification_server.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QHash>
#include <QObject>
#include <QPointer>

#include <memory>
#include <optional>

class QDBusServiceWatcher;

namespace pingwell {

/// Shows notifications on the session bus's notification server (freedesktop.org Desktop Notifications), with
/// as many buttons as that server can draw. While there is no server, notifications are dropped. A server that starts
/// again gets the notifications added after that, and the newest asks that were on the screen. Main thread; never
/// blocks on the server.
class FreedesktopNotificationCenter final : public QObject, public NotificationCenter
{
    Q_OBJECT

public:
    explicit FreedesktopNotificationCenter(QObject *parent = nullptr);
    /// Closes every notification: after this program no other one receives the answers.
    ~FreedesktopNotificationCenter() override;

    /// Stores in `preferences` what is on the screen, and closes what a killed run left there.
    void rememberIn(std::shared_ptr<Preferences> preferences);

    /// Authorised if a server answers and the desktop's own switch for this program is not off.
    QCoro::Task<AuthorizationStatus> authorizationStatus() override;
    /// Does nothing: Linux desktops have no such dialog.
    QCoro::Task<> requestAuthorization() override;
    [[nodiscard]] bool canOpenSettings() const override;
    void openSettings() override;
    void add(const NotificationRequest &request) override;
    void remove(const QStringList &identifiers) override;
    void removeAll() override;
    [[nodiscard]] QStringList leftBehind() const override { return m_record.leftBehind(); }
    void setResponseHandler(ResponseHandler handler) override;

private:
    void listen();
    void noteOwner(const QString &service, const QString &oldOwner, const QString &newOwner);
    void sendOnceNoted();
    void sendWaiting();
    void send(Banner &banner);
    void noteSent(const NotificationRequest &request, const QDBusMessage &reply);
    void withdraw(const QString &identifier);
    void askSlowServerAgain();
    void closeLeftBehind();
    void recordSoon();
    void record();
    void close(Banner &banner) const;
    void handle(const BannerEvent &event);
    void handleClosed(Banner &banner, uint reason);
    void respond(Banner &banner, const QString &actionIdentifier, const std::optional<QString> &text);

    static QCoro::Task<> readServer(QPointer<FreedesktopNotificationCenter> center);
    static QCoro::Task<> show(QPointer<FreedesktopNotificationCenter> center, NotificationRequest request,
                              QDBusMessage call);

    QDBusConnection m_bus;
    std::unique_ptr<QDBusServiceWatcher> m_ownerWatch;
    std::unique_ptr<BannerEventSource> m_events;
    /// The server's unique name, as the bus announced it last; none before the first announcement.
    std::optional<QString> m_owner;
    /// None until the server was asked, and again when it is replaced.
    std::optional<NotificationServer> m_server;
    bool m_isReadingServer = false;
    /// The number of added notifications whose note in the preferences is not on the disk yet.
    int m_unnoted = 0;
    BannerList m_banners;
    EarlyBannerEvents m_early;
    BannerRecord m_record;
    QString m_busIdentifier;
    bool m_recordsSoon = false;
    ResponseHandler m_responseHandler;
};

} // namespace pingwell
