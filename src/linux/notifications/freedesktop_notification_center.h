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

/// The notification server of the session bus (freedesktop Desktop Notifications Specification), whichever it is. What
/// is asked for is fitted to what the server at hand can draw. A server that is missing costs what was to be shown
/// meanwhile; one that comes back gets what comes then, and the newest questions of those that were on the screen. Main
/// thread; never blocks on the server.
class FreedesktopNotificationCenter final : public QObject, public NotificationCenter
{
    Q_OBJECT

public:
    explicit FreedesktopNotificationCenter(QObject *parent = nullptr);
    /// Takes every notification back: nobody would hear of an answer any more.
    ~FreedesktopNotificationCenter() override;

    /// Remembers in `preferences` what is on the screen, and takes back what an earlier run, that was killed, left
    /// there.
    void rememberIn(std::shared_ptr<Preferences> preferences);

    /// A server that answers shows them, unless the desktop's own switch for this program is off.
    QCoro::Task<AuthorizationStatus> authorizationStatus() override;
    /// These desktops have no such question.
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
    /// As last announced; none before anything was.
    std::optional<QString> m_owner;
    /// None until it was asked, and again when it is replaced.
    std::optional<NotificationServer> m_server;
    bool m_isReadingServer = false;
    /// How many additions wait for the disk.
    int m_unnoted = 0;
    BannerList m_banners;
    EarlyBannerEvents m_early;
    BannerRecord m_record;
    QString m_busIdentifier;
    bool m_recordsSoon = false;
    ResponseHandler m_responseHandler;
};

} // namespace pingwell
