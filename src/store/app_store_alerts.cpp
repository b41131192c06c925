#include "store/app_store.h"

#include "api/endpoints.h"
#include "store/local_id.h"
#include "store/mark_unread.h"
#include "store/preference_keys.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace pingwell {

namespace {

/// `text` without the characters at its end that reach beyond the limit; what a person sees as one character is never
/// split (Unicode UAX #29).
QString cutToLimit(const QString &text)
{
    if (text.size() <= maximumAnswerLength)
        return text;
    QTextBoundaryFinder graphemes(QTextBoundaryFinder::Grapheme, text);
    graphemes.setPosition(maximumAnswerLength);
    const qsizetype end = graphemes.isAtBoundary() ? maximumAnswerLength : graphemes.toPreviousBoundary();
    return text.left(std::max<qsizetype>(end, 0));
}

/// What the test alert says, here and at the service.
namespace test_alert {
const QString app = QStringLiteral("Pingwell");
const QString title = QStringLiteral("Test alert from your Mac");
const QString body = QStringLiteral("If you can see this, Pingwell is wired up.");
const QString topic = QStringLiteral("test");
constexpr Priority priority = Priority::normal;
} // namespace test_alert

Alert localTestAlert(const QString &workspaceID, Instant now)
{
    Alert alert;
    alert.id = newLocalID(u'a');
    alert.workspaceId = workspaceID;
    alert.app = test_alert::app;
    alert.title = test_alert::title;
    alert.body = test_alert::body;
    alert.topic = test_alert::topic;
    alert.priority = test_alert::priority;
    alert.at = now;
    return alert;
}

JSONObject testAlertBody()
{
    return {{QStringLiteral("app"), test_alert::app},
            {QStringLiteral("title"), test_alert::title},
            {QStringLiteral("body"), test_alert::body},
            {QStringLiteral("topic"), test_alert::topic},
            {QStringLiteral("priority"), QString(rawValue(test_alert::priority))}};
}

/// The answer call, for its success or failure alone: the next refresh brings the alert as the service holds it.
QCoro::Task<> sendAnswer(APIClientPtr client, QString workspaceID, QString alertID, QString answer)
{
    co_await endpoints::answerAlert(client, workspaceID, alertID, answer);
}

} // namespace

/// What follows an answer of the service about alerts.
struct AppStore::AlertSteps
{
    static void tellRefusal(AppStore &store, const QString &alertID, const QString &message);
    static QCoro::Task<> performTestAlert(QPointer<AppStore> store, APIClientPtr client, QString workspaceID);
};

void AppStore::setReplyDraft(const QString &text, const QString &alertID)
{
    checkMainThread();
    keepReplyDraft(cutToLimit(text), alertID);
}

void AppStore::keepReplyDraft(const QString &text, const QString &alertID)
{
    const auto draft = m_replyDrafts.constFind(alertID);
    if (draft != m_replyDrafts.constEnd() && *draft == text)
        return;
    m_replyDrafts.insert(alertID, text);
    emit replyDraftChanged(alertID);
}

void AppStore::removeReplyDraft(const QString &alertID)
{
    if (m_replyDrafts.remove(alertID))
        emit replyDraftChanged(alertID);
}

void AppStore::answer(const QString &alertID, const QString &text)
{
    submitAnswer(alertID, text, {});
}

void AppStore::answerFromNotification(const QString &alertID, const QString &text)
{
    const auto refused = [alertID](AppStore &store, const QString &message) {
        AlertSteps::tellRefusal(store, alertID, message);
    };
    if (submitAnswer(alertID, text, refused))
        return;
    const auto alert = alertWithID(alertID);
    if (!alert)
        return;
    // The banner is gone with what was typed into it; a window keeps its field.
    if (canAnswer(*alert) && alert->acceptsText())
        setReplyDraft(text, alertID);
    AlertSteps::tellRefusal(*this, alertID,
                            canAnswer(*alert) ? QStringLiteral("An answer has 1 to 1000 characters.")
                                              : QStringLiteral("This question can't be answered any more."));
}

void AppStore::AlertSteps::tellRefusal(AppStore &store, const QString &alertID, const QString &message)
{
    const auto alert = store.alertWithID(alertID);
    if (alert && store.m_backend && store.m_backend->notifier)
        store.m_backend->notifier->deliverRefusal(*alert, store.workspaceName(alert->workspaceId), message);
}

bool AppStore::submitAnswer(const QString &alertID, const QString &text, Refused refused)
{
    checkMainThread();
    const auto alert = alertWithID(alertID);
    if (!alert || !canAnswer(*alert))
        return false;
    const auto validated = alert->validatedAnswer(text);
    if (!validated)
        return false;
    Alert answered = *alert;
    answered.answer = validated;
    answered.read = true;
    replaceAlert(answered);
    removeReplyDraft(alertID);
    setUnreadOverride(alertID, false);
    withdrawNotifications({alertID});
    mutate(
        [before = *alert, sent = *validated](AppStore &store) {
            store.replaceAlert(before);
            if (before.acceptsText())
                store.keepReplyDraft(sent, before.id);
        },
        [workspaceID = alert->workspaceId, alertID, sent = *validated](APIClientPtr client) {
            return sendAnswer(client, workspaceID, alertID, sent);
        },
        std::move(refused));
    return true;
}

void AppStore::setRead(const QString &alertID, bool read)
{
    checkMainThread();
    const auto alert = alertWithID(alertID);
    if (!alert || alert->read == read)
        return;
    Alert changed = *alert;
    changed.read = read;
    replaceAlert(changed);
    setUnreadOverride(alertID, !read);
    // The service knows no way back from read: unread is this machine's own mark.
    if (!read) {
        tellIfForgotten();
        return;
    }
    mutate(
        [before = *alert](AppStore &store) {
            store.replaceAlert(before);
            store.setUnreadOverride(before.id, true);
        },
        [workspaceID = alert->workspaceId, alertID](APIClientPtr client) {
            return endpoints::markAlertRead(client, workspaceID, alertID);
        });
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
    setUnreadOverrides(QSet<QString>(m_unreadOverrides).subtract(unread));
    mutate([unread](AppStore &store) { store.applyUnreadOverrides(unread); },
           [workspaceID = m_activeWorkspaceID](APIClientPtr client) {
               return endpoints::markAllAlertsRead(client, workspaceID);
           });
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
    QList<Alert> alerts = m_alerts;
    alerts.removeIf([&alertID](const Alert &other) { return other.id == alertID; });
    set(m_alerts, alerts, &AppStore::alertsChanged);
    if (m_selectedAlertID == alertID)
        selectAlert(QString());
    setUnreadOverride(alertID, false);
    withdrawNotifications({alertID});
    mutate(
        [deleted = *alert](AppStore &store) {
            if (!store.alertWithID(deleted.id))
                store.receive(deleted);
        },
        [workspaceID = alert->workspaceId, alertID](APIClientPtr client) {
            return endpoints::deleteAlert(client, workspaceID, alertID);
        });
}

void AppStore::sendTestAlert()
{
    checkMainThread();
    if (!canSendTestAlert())
        return;
    if (!m_backend) {
        receive(localTestAlert(m_activeWorkspaceID, m_now));
        return;
    }
    mutate([](AppStore &) {},
           [store = QPointer(this), workspaceID = m_activeWorkspaceID](APIClientPtr client) {
               return AlertSteps::performTestAlert(store, client, workspaceID);
           });
}

QCoro::Task<> AppStore::AlertSteps::performTestAlert(QPointer<AppStore> store, APIClientPtr client, QString workspaceID)
{
    const JSONObject body = testAlertBody();
    const Alert alert = co_await endpoints::sendTestAlert(client, workspaceID, body);
    if (!store || store->m_client != client)
        co_return;
    store->receive(alert);
    store->advanceNotificationMark({alert});
    if (alert.delivered && store->m_backend->notifier)
        store->m_backend->notifier->deliver(alert, store->workspaceName(alert.workspaceId), store->m_settings.sound);
    store->showToast(QStringLiteral("Test alert sent."), false);
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

void AppStore::receive(Alert alert)
{
    if (m_unreadOverrides.contains(alert.id))
        alert.read = false;
    if (alertWithID(alert.id)) {
        replaceAlert(alert);
        return;
    }
    m_alerts << alert;
    emit alertsChanged();
}

void AppStore::applyUnreadOverrides(const QSet<QString> &ids)
{
    QList<Alert> alerts = m_alerts;
    markUnread(alerts, ids);
    set(m_alerts, alerts, &AppStore::alertsChanged);
}

void AppStore::setUnreadOverride(const QString &id, bool unread)
{
    QSet<QString> overrides = m_unreadOverrides;
    if (unread)
        overrides.insert(id);
    else
        overrides.remove(id);
    setUnreadOverrides(overrides);
}

void AppStore::setUnreadOverrides(const QSet<QString> &overrides)
{
    if (overrides == m_unreadOverrides)
        return;
    m_unreadOverrides = overrides;
    if (m_defaults)
        m_defaults->setStrings(preference_keys::unreadAlerts, m_unreadOverrides.values());
}

void AppStore::withdrawNotifications(const QStringList &alertIDs)
{
    if (m_backend && m_backend->notifier)
        m_backend->notifier->remove(alertIDs);
}

} // namespace pingwell
