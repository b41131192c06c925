#include "store/app_store.h"

#include "api/endpoints.h"
#include "store/mutation_steps.h"
#include "store/test_alert.h"

#include <algorithm>

namespace pingwell {

/// Changes of alerts, and what follows the service's answers.
struct AppStore::AlertSteps
{
    static void makeUnread(AppStore &store, const QSet<QString> &alertIDs);
    /// Takes in an alert, new or known.
    static void receive(AppStore &store, Alert alert);
    /// Takes in the test alert that the service made, and announces it.
    static void receiveTestAlert(AppStore &store, const Alert &alert);
};

void AppStore::setRead(const QString &alertID, bool read)
{
    checkMainThread();
    const auto alert = alertWithID(alertID);
    if (!alert || alert->read == read)
        return;
    Alert changed = *alert;
    changed.read = read;
    replaceAlert(changed);
    m_unreadOverrides.set(alertID, !read);
    // The service knows no way back from read: unread is this machine's own mark.
    if (!read) {
        tellIfForgotten();
        return;
    }
    mutate({.operation =
                [workspaceID = alert->workspaceId, alertID](APIClientPtr client) {
                    return consentOf(endpoints::markAlertRead(client, workspaceID, alertID));
                },
            .rollback =
                [before = *alert](AppStore &store) {
                    store.replaceAlert(before);
                    store.m_unreadOverrides.set(before.id, true);
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
    QList<Alert> alerts = m_alerts;
    for (Alert &alert : alerts) {
        if (alert.workspaceId != m_activeWorkspaceID || alert.read)
            continue;
        unread.insert(alert.id);
        alert.read = true;
    }
    if (unread.isEmpty())
        return;
    set(m_alerts, alerts, &AppStore::alertsChanged);
    m_unreadOverrides.remove(unread);
    mutate(
        {.operation = [workspaceID = m_activeWorkspaceID](
                          APIClientPtr client) { return consentOf(endpoints::markAllAlertsRead(client, workspaceID)); },
         .rollback = [unread](AppStore &store) { AlertSteps::makeUnread(store, unread); }});
}

void AppStore::deleteAlert(const QString &alertID)
{
    checkMainThread();
    const auto alert = alertWithID(alertID);
    if (!alert)
        return;
    const auto workspace = workspaceWithID(alert->workspaceId);
    if (!workspace || workspace->role == WorkspaceRole::viewer)
        return;
    withdrawNotifications({alertID});
    QList<Alert> alerts = m_alerts;
    alerts.removeIf([&alertID](const Alert &other) { return other.id == alertID; });
    set(m_alerts, alerts, &AppStore::alertsChanged);
    if (m_selectedAlertID == alertID)
        selectAlert(QString());
    m_unreadOverrides.set(alertID, false);
    mutate({.operation =
                [workspaceID = alert->workspaceId, alertID](APIClientPtr client) {
                    return consentOf(endpoints::deleteAlert(client, workspaceID, alertID));
                },
            .rollback =
                [deleted = *alert](AppStore &store) {
                    if (!store.alertWithID(deleted.id))
                        AlertSteps::receive(store, deleted);
                }});
}

void AppStore::sendTestAlert()
{
    checkMainThread();
    if (!canSendTestAlert())
        return;
    if (!m_backend) {
        AlertSteps::receive(*this, localTestAlert(m_activeWorkspaceID, m_now));
        return;
    }
    mutate({.operation = [this, workspaceID = m_activeWorkspaceID](APIClientPtr client) {
        return consentOf(endpoints::sendTestAlert(client, workspaceID, testAlertBody()),
                         [this](const Alert &alert) { AlertSteps::receiveTestAlert(*this, alert); });
    }});
}

void AppStore::AlertSteps::receiveTestAlert(AppStore &store, const Alert &alert)
{
    receive(store, alert);
    store.m_notificationMark.note(alert, store.serviceNow());
    if (alert.delivered && store.m_backend->notifier)
        store.m_backend->notifier->deliver(alert, store.workspaceName(alert.workspaceId), store.m_settings.sound,
                                           store.canAnswer(alert));
    store.showToast(QStringLiteral("Test alert sent."), false);
}

std::optional<QString> AppStore::workspaceName(const QString &workspaceID) const
{
    const auto workspace = workspaceWithID(workspaceID);
    return workspace ? std::optional(workspace->name) : std::nullopt;
}

void AppStore::replaceAlert(const Alert &alert)
{
    const auto found =
        std::find_if(m_alerts.cbegin(), m_alerts.cend(), [&alert](const Alert &other) { return other.id == alert.id; });
    if (found == m_alerts.cend() || *found == alert)
        return;
    m_alerts[found - m_alerts.cbegin()] = alert;
    emit alertsChanged();
}

void AppStore::AlertSteps::receive(AppStore &store, Alert alert)
{
    if (store.m_unreadOverrides.contains(alert.id))
        alert.read = false;
    if (store.alertWithID(alert.id)) {
        store.replaceAlert(alert);
        return;
    }
    store.m_alerts << alert;
    emit store.alertsChanged();
}

void AppStore::AlertSteps::makeUnread(AppStore &store, const QSet<QString> &alertIDs)
{
    QList<Alert> alerts = store.m_alerts;
    markUnread(alerts, alertIDs);
    store.set(store.m_alerts, alerts, &AppStore::alertsChanged);
}

} // namespace pingwell
