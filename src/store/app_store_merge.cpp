#include "store/app_store.h"

#include "async/background.h"
#include "desktop/preference_keys.h"
#include "store/left_out_text.h"
#include "store/notification_choice.h"

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

/// What makes a dashboard the store's state.
struct AppStore::MergeSteps
{
    static void merge(AppStore &store, Dashboard dashboard);
    static QString chooseActiveWorkspace(const AppStore &store, const QList<Workspace> &fresh);
    static void takePlan(AppStore &store, const QString &plan);
    static void leaveVanishedTopic(AppStore &store);
    static void notifyAbout(AppStore &store, const Dashboard &dashboard);
};

void AppStore::applyDashboard(FetchedDashboard fetched)
{
    if (fetched.dashboard) {
        fetched.dashboard->settings.quietHoursEnabled = settings().quietHoursEnabled;
        MergeSteps::notifyAbout(*this, *fetched.dashboard);
        MergeSteps::merge(*this, std::move(*fetched.dashboard));
        m_appliedBody = std::move(fetched.body);
        m_appliedEpoch = m_mutations.epoch();
        // There may be a deadline before the next tick.
        takeTime();
        settleLeftAsks();
    } else {
        // At the first dashboard of a run it was not known yet what had vanished.
        m_unreadOverrides.keepOnly(alerts());
    }
    set(m_connectionProblem, std::optional<QString>(), &AppStore::connectionProblemChanged);
    set(m_lastSyncedAt, std::optional(serviceNow()), &AppStore::lastSyncedAtChanged);
}

void AppStore::MergeSteps::merge(AppStore &store, Dashboard dashboard)
{
    // Every field is in place before the first observer is told: nobody sees half a dashboard.
    Announcements changes;
    store.m_changes.applyTo(dashboard);
    // Before the first dashboard of a run nothing is known that could have vanished.
    if (store.m_hasLoaded)
        store.m_unreadOverrides.keepOnly(dashboard.alerts);
    store.m_unreadOverrides.applyTo(dashboard.alerts);
    QString active = chooseActiveWorkspace(store, dashboard.workspaces);
    const bool moves = active != store.m_activeWorkspaceID;
    bool loaded = true;
    changes.put(&store, store.m_activeWorkspaceID, active, &AppStore::activeWorkspaceIDChanged);
    store.m_records.take(dashboard, changes);
    changes.put(&store, store.m_hasLoaded, loaded, &AppStore::hasLoadedChanged);
    changes.make();
    if (moves)
        store.clearSelectionAndFilter();
    leaveVanishedTopic(store);
    takePlan(store, dashboard.plan);
    store.set(store.m_leftOut, leftOutText(dashboard.counts), &AppStore::leftOutChanged);
    destroyInBackground(std::move(dashboard.alerts));
}

void AppStore::MergeSteps::takePlan(AppStore &store, const QString &plan)
{
    if (!store.m_account || store.m_account->plan == plan)
        return;
    Account account = *store.m_account;
    account.plan = plan;
    store.takeAccount(account);
}

/// A filter that no chip stands for would show an empty inbox and no way to see why.
void AppStore::MergeSteps::leaveVanishedTopic(AppStore &store)
{
    if (store.m_filter.kind() == InboxFilter::Kind::topic && !store.topicNamed(store.m_filter.topicName()))
        store.setFilter(InboxFilter::all());
}

QString AppStore::MergeSteps::chooseActiveWorkspace(const AppStore &store, const QList<Workspace> &fresh)
{
    const auto holds = [&fresh](const QString &id) {
        return std::any_of(fresh.begin(), fresh.end(),
                           [&id](const Workspace &workspace) { return workspace.id == id; });
    };
    if (holds(store.m_activeWorkspaceID))
        return store.m_activeWorkspaceID;
    const auto stored = store.m_defaults ? store.m_defaults->string(preference_keys::activeWorkspace) : std::nullopt;
    if (stored && holds(*stored))
        return *stored;
    return fresh.isEmpty() ? QString() : fresh.first().id;
}

QString AppStore::markOwner(const std::optional<Account> &account) const
{
    return account && m_client ? notificationMarkOwner(m_client->baseURL(), *account) : QString();
}

void AppStore::MergeSteps::notifyAbout(AppStore &store, const Dashboard &dashboard)
{
    NotificationMark &mark = store.m_notificationMark;
    const Instant now = store.serviceNow();
    mark.claim(store.markOwner(store.m_account), now);
    QList<AlertToNotify> chosen;
    if (const auto after = mark.after())
        chosen = chooseAlertsToNotify(dashboard, store.alerts(),
                                      {.after = *after,
                                       .ahead = mark.ahead(),
                                       .now = store.m_now,
                                       .minuteOfDay = localMinuteOfDay(store.m_now),
                                       .hasLoaded = store.m_hasLoaded});
    mark.advance(dashboard.alerts, now);
    if (!store.m_backend->notifier)
        return;
    for (const AlertToNotify &notification : std::as_const(chosen))
        store.m_backend->notifier->deliver(notification.alert, notification.workspaceName, notification.sound,
                                           notification.canAnswer);
}

} // namespace pingwell
