#include "store/unread_overrides.h"

#include "desktop/preference_keys.h"

namespace pingwell {

UnreadOverrides::UnreadOverrides(std::shared_ptr<Preferences> preferences)
    : m_preferences(std::move(preferences))
{
    const QStringList written = m_preferences->strings(preference_keys::unreadAlerts).value_or(QStringList());
    m_ids = QSet<QString>(written.begin(), written.end());
}

void UnreadOverrides::set(const QString &alertID, bool unread)
{
    QSet<QString> ids = m_ids;
    if (unread)
        ids.insert(alertID);
    else
        ids.remove(alertID);
    change(ids);
}

void UnreadOverrides::remove(const QSet<QString> &alertIDs)
{
    change(QSet<QString>(m_ids).subtract(alertIDs));
}

void UnreadOverrides::keepOnly(const QList<Alert> &alerts)
{
    if (m_ids.isEmpty())
        return;
    QSet<QString> kept;
    for (const Alert &alert : alerts) {
        if (m_ids.contains(alert.id))
            kept.insert(alert.id);
    }
    change(kept);
}

void UnreadOverrides::applyTo(QList<Alert> &alerts) const
{
    markUnread(alerts, m_ids);
}

void UnreadOverrides::change(const QSet<QString> &ids)
{
    if (ids == m_ids)
        return;
    m_ids = ids;
    m_preferences->setStrings(preference_keys::unreadAlerts, m_ids.values());
}

void markUnread(QList<Alert> &alerts, const QSet<QString> &ids)
{
    if (ids.isEmpty())
        return;
    for (Alert &alert : alerts) {
        if (alert.read && ids.contains(alert.id))
            alert.read = false;
    }
}

} // namespace pingwell
