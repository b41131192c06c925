#include "ui/settings/settings_model.h"

#include "ui/engine/replace_store.h"

namespace pingwell {

void SettingsModel::setStore(AppStore *store)
{
    if (!replaceStore(m_store, store, this))
        return;
    if (store) {
        connect(store, &AppStore::accountChanged, this, &SettingsModel::updateAccount);
        connect(store, &AppStore::workspacesChanged, this, &SettingsModel::updateResponseTime);
        connect(store, &AppStore::activeWorkspaceIDChanged, this, &SettingsModel::updateResponseTime);
        connect(store, &AppStore::settingsChanged, this, &SettingsModel::updateNotifications);
        connect(store, &AppStore::lastSyncedAtChanged, this, &SettingsModel::lastSyncedAtChanged);
    }
    emit storeChanged();
    updateAccount();
    updateResponseTime();
    updateNotifications();
    emit lastSyncedAtChanged();
}

double SettingsModel::lastSyncedAt() const
{
    return m_store && m_store->lastSyncedAt() ? millisecondsFromInstant(*m_store->lastSyncedAt()) : -1;
}

void SettingsModel::setTimeout(const QString &minutes)
{
    bool isNumber = false;
    const std::int64_t value = minutes.toLongLong(&isNumber);
    if (m_store && isNumber)
        m_store->setResponseTimeout(value);
}

void SettingsModel::setTimeoutAction(const QString &action)
{
    const auto value = fromRawValue<TimeoutAction>(action);
    if (m_store && value)
        m_store->setTimeoutAction(*value);
}

void SettingsModel::setQuietHours(bool on)
{
    change(&NotificationSettings::quietHoursEnabled, on);
}

void SettingsModel::setQuietFrom(const QString &time)
{
    change(&NotificationSettings::quietFrom, time);
}

void SettingsModel::setQuietTo(const QString &time)
{
    change(&NotificationSettings::quietTo, time);
}

void SettingsModel::setDigest(bool on)
{
    change(&NotificationSettings::digest, on);
}

void SettingsModel::setSound(bool on)
{
    change(&NotificationSettings::sound, on);
}

void SettingsModel::updateAccount()
{
    const AccountFacts account = m_store ? accountFacts(*m_store) : AccountFacts();
    if (m_account == account)
        return;
    m_account = account;
    emit accountChanged();
}

void SettingsModel::updateResponseTime()
{
    const ResponseTimeFacts responseTime = m_store ? responseTimeFacts(*m_store) : ResponseTimeFacts();
    if (m_responseTime == responseTime)
        return;
    m_responseTime = responseTime;
    emit responseTimeChanged();
}

void SettingsModel::updateNotifications()
{
    const NotificationFacts notifications = m_store ? notificationFacts(*m_store) : NotificationFacts();
    if (m_notifications == notifications)
        return;
    m_notifications = notifications;
    emit notificationsChanged();
}

template<typename Value>
void SettingsModel::change(Value NotificationSettings::*field, const Value &value)
{
    if (m_store)
        m_store->updateSettings([field, value](NotificationSettings &settings) { settings.*field = value; });
}

} // namespace pingwell
