#include "store/app_store.h"

#include "async/background.h"
#include "store/notification_choice.h"
#include "store/preference_keys.h"

#include <QDateTime>

#include <algorithm>

namespace pingwell {

namespace {

int localMinuteOfDay(Instant instant)
{
    const auto milliseconds = static_cast<qint64>(millisecondsFromInstant(instant));
    const QTime time = QDateTime::fromMSecsSinceEpoch(milliseconds).time();
    return time.hour() * 60 + time.minute();
}

} // namespace

void AppStore::applyDashboard(FetchedDashboard fetched)
{
    if (fetched.dashboard) {
        fetched.dashboard->settings.quietHoursEnabled = m_settings.quietHoursEnabled;
        notifyAbout(*fetched.dashboard);
        merge(std::move(*fetched.dashboard));
        m_appliedBody = std::move(fetched.body);
        m_appliedEpoch = m_mutationEpoch;
    }
    set(m_connectionProblem, std::optional<QString>(), &AppStore::connectionProblemChanged);
    set(m_lastSyncedAt, std::optional(m_clock->now()), &AppStore::lastSyncedAtChanged);
}

void AppStore::merge(Dashboard dashboard)
{
    // Every field is in place before the first observer is told: nobody sees half a dashboard.
    QList<void (AppStore::*)()> changes;
    const auto take = [&changes](auto &field, auto &fresh, void (AppStore::*changed)()) {
        if (field == fresh)
            return;
        std::swap(field, fresh);
        changes << changed;
    };
    mergeUnreadOverrides(dashboard.alerts);
    markUnread(dashboard.alerts, m_unreadOverrides);
    QString active = chooseActiveWorkspace(dashboard.workspaces);
    const bool workspaceGone = active != m_activeWorkspaceID;
    bool loaded = true;
    take(m_workspaces, dashboard.workspaces, &AppStore::workspacesChanged);
    take(m_members, dashboard.members, &AppStore::membersChanged);
    take(m_topics, dashboard.topics, &AppStore::topicsChanged);
    take(m_devices, dashboard.devices, &AppStore::devicesChanged);
    take(m_settings, dashboard.settings, &AppStore::settingsChanged);
    take(m_activeWorkspaceID, active, &AppStore::activeWorkspaceIDChanged);
    take(m_alerts, dashboard.alerts, &AppStore::alertsChanged);
    take(m_hasLoaded, loaded, &AppStore::hasLoadedChanged);
    for (const auto changed : std::as_const(changes))
        emit(this->*changed)();
    if (workspaceGone)
        clearSelectionAndFilter();
    takePlan(dashboard.plan);
    destroyInBackground(std::move(dashboard.alerts));
}

void AppStore::takePlan(const QString &plan)
{
    m_plan = plan;
    if (!m_account || m_account->plan == plan)
        return;
    Account account = *m_account;
    account.plan = plan;
    takeAccount(account);
}

void AppStore::mergeUnreadOverrides(const QList<Alert> &fresh)
{
    if (!m_hasLoaded || m_unreadOverrides.isEmpty())
        return;
    QSet<QString> kept;
    for (const Alert &alert : fresh) {
        if (m_unreadOverrides.contains(alert.id))
            kept.insert(alert.id);
    }
    setUnreadOverrides(kept);
}

QString AppStore::chooseActiveWorkspace(const QList<Workspace> &fresh) const
{
    const auto holds = [&fresh](const QString &id) {
        return std::any_of(fresh.begin(), fresh.end(),
                           [&id](const Workspace &workspace) { return workspace.id == id; });
    };
    if (holds(m_activeWorkspaceID))
        return m_activeWorkspaceID;
    const auto stored = m_defaults ? m_defaults->string(preference_keys::activeWorkspace) : std::nullopt;
    if (stored && holds(*stored))
        return *stored;
    return fresh.isEmpty() ? QString() : fresh.first().id;
}

void AppStore::notifyAbout(const Dashboard &dashboard)
{
    if (!m_defaults)
        return;
    const auto mark = m_defaults->number(preference_keys::lastNotifiedAt);
    QList<AlertToNotify> chosen;
    if (mark)
        chosen = chooseAlertsToNotify(dashboard, m_alerts,
                                      {.after = instantFromMilliseconds(*mark),
                                       .now = m_now,
                                       .minuteOfDay = localMinuteOfDay(m_now),
                                       .hasLoaded = m_hasLoaded});
    advanceNotificationMark(dashboard.alerts);
    if (!m_backend->notifier)
        return;
    for (const AlertToNotify &notification : std::as_const(chosen))
        m_backend->notifier->deliver(notification.alert, notification.workspaceName, notification.sound);
}

void AppStore::advanceNotificationMark(const QList<Alert> &alerts)
{
    if (!m_defaults)
        return;
    const auto stored = m_defaults->number(preference_keys::lastNotifiedAt);
    const auto newest = std::max_element(alerts.begin(), alerts.end(),
                                         [](const Alert &left, const Alert &right) { return left.at < right.at; });
    if (newest == alerts.end()) {
        if (!m_defaults->contains(preference_keys::lastNotifiedAt))
            m_defaults->setNumber(preference_keys::lastNotifiedAt, millisecondsFromInstant(m_clock->now()));
        return;
    }
    const double mark = std::max(millisecondsFromInstant(newest->at), stored.value_or(0));
    if (mark != stored)
        m_defaults->setNumber(preference_keys::lastNotifiedAt, mark);
}

} // namespace pingwell
