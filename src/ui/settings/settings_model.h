#pragma once

#include "ui/settings/settings_facts.h"

#include <QObject>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

namespace pingwell {

/// What the settings screen shows of the store, and how it changes it: a choice comes as its word. Main thread.
class SettingsModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(pingwell::AppStore *store READ store WRITE setStore NOTIFY storeChanged REQUIRED)
    Q_PROPERTY(pingwell::AccountFacts account READ account NOTIFY accountChanged)
    Q_PROPERTY(pingwell::ResponseTimeFacts responseTime READ responseTime NOTIFY responseTimeChanged)
    Q_PROPERTY(pingwell::NotificationFacts notifications READ notifications NOTIFY notificationsChanged)
    /// Milliseconds since 1970; negative while nothing came from the service yet.
    Q_PROPERTY(double lastSyncedAt READ lastSyncedAt NOTIFY lastSyncedAtChanged)

public:
    using QObject::QObject;

    [[nodiscard]] AppStore *store() const { return m_store; }
    void setStore(AppStore *store);
    [[nodiscard]] const AccountFacts &account() const { return m_account; }
    [[nodiscard]] const ResponseTimeFacts &responseTime() const { return m_responseTime; }
    [[nodiscard]] const NotificationFacts &notifications() const { return m_notifications; }
    [[nodiscard]] double lastSyncedAt() const;

    Q_INVOKABLE void setTimeout(const QString &minutes);
    Q_INVOKABLE void setTimeoutAction(const QString &action);
    Q_INVOKABLE void setQuietHours(bool on);
    Q_INVOKABLE void setQuietFrom(const QString &time);
    Q_INVOKABLE void setQuietTo(const QString &time);
    Q_INVOKABLE void setDigest(bool on);
    Q_INVOKABLE void setSound(bool on);

signals:
    void storeChanged();
    void accountChanged();
    void responseTimeChanged();
    void notificationsChanged();
    void lastSyncedAtChanged();

private:
    void updateAccount();
    void updateResponseTime();
    void updateNotifications();
    template<typename Value>
    void change(Value NotificationSettings::*field, const Value &value);

    QPointer<AppStore> m_store;
    AccountFacts m_account;
    ResponseTimeFacts m_responseTime;
    NotificationFacts m_notifications;
};

} // namespace pingwell
