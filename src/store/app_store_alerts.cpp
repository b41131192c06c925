#include "store/app_store.h"

#include "api/endpoints.h"
#include "store/test_alert.h"

namespace pingwell {

void AppStore::setRead(const QString &alertID, bool read)
{
    checkMainThread();
    const auto alert = alertWithID(alertID);
    if (!alert || alert->read == read)
        return;
    Alert changed = *alert;
    changed.read = read;
    m_records.replace(changed);
    m_unreadOverrides.set(alertID, !read);
    // The service knows no way back from read: unread is this machine's own mark.
    if (!read) {
        tellIfForgotten();
        return;
    }
    m_mutations.start({.operation =
                           [workspaceID = alert->workspaceId, alertID](APIClientPtr client) {
                               return consentOf(endpoints::markAlertRead(client, workspaceID, alertID));
                           },
                       .rollback =
                           [this, before = *alert] {
                               m_records.replace(before);
                               m_unreadOverrides.set(before.id, true);
                           }});
}

void AppStore::toggleRead(const QString &alertID)
{
    if (const auto alert = alertWithID(alertID))
        setRead(alertID, !alert->read);
}

void AppStore::markAllRead()
{
    checkMainThread();
    QSet<QString> unread;
    QList<Alert> alerts = this->alerts();
    for (Alert &alert : alerts) {
        if (alert.workspaceId != activeWorkspaceID() || alert.read)
            continue;
        unread.insert(alert.id);
        alert.read = true;
    }
    if (unread.isEmpty())
        return;
    m_records.set(alerts);
    m_unreadOverrides.remove(unread);
    m_mutations.start(
        {.operation = [workspaceID = activeWorkspaceID()](
                          APIClientPtr client) { return consentOf(endpoints::markAllAlertsRead(client, workspaceID)); },
         .rollback =
             [this, unread] {
                 QList<Alert> all = m_records.all<Alert>();
                 markUnread(all, unread);
                 m_records.set(all);
             }});
}

void AppStore::deleteAlert(const QString &alertID)
{
    checkMainThread();
    const auto alert = alertWithID(alertID);
    const auto workspace = alert ? workspaceWithID(alert->workspaceId) : std::nullopt;
    if (!workspace || workspace->role == WorkspaceRole::viewer)
        return;
    m_notifications.withdraw({alertID});
    const auto removed = m_records.remove<Alert>(alertID);
    if (selectedAlertID() == alertID)
        selectAlert(QString());
    m_unreadOverrides.set(alertID, false);
    m_mutations.start({.operation =
                           [workspaceID = alert->workspaceId, alertID](APIClientPtr client) {
                               return consentOf(endpoints::deleteAlert(client, workspaceID, alertID));
                           },
                       .rollback = [this, removed = *removed] { m_records.putBack(removed); }});
}

void AppStore::sendTestAlert()
{
    checkMainThread();
    if (!canSendTestAlert())
        return;
    if (!m_backend) {
        m_records.add(localTestAlert(activeWorkspaceID(), now()));
        return;
    }
    m_mutations.start({.operation = [this, workspaceID = activeWorkspaceID()](APIClientPtr client) {
        return consentOf(endpoints::sendTestAlert(client, workspaceID, testAlertBody()),
                         [this](const Alert &alert) { receiveTestAlert(alert); });
    }});
}

void AppStore::receiveTestAlert(Alert alert)
{
    if (m_unreadOverrides.contains(alert.id))
        alert.read = false;
    m_records.replace(alert);
    m_records.add(alert);
    m_notifications.announce(alert, workspaceName(alert.workspaceId), settings().sound, canAnswer(alert),
                             m_ticker.present());
    showToast(QStringLiteral("Test alert sent."), false);
}

std::optional<QString> AppStore::workspaceName(const QString &workspaceID) const
{
    const auto workspace = workspaceWithID(workspaceID);
    return workspace ? std::optional(workspace->name) : std::nullopt;
}

} // namespace pingwell
