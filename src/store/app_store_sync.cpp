#include "store/app_store.h"

#include "api/endpoints.h"
#include "async/launch.h"
#include "desktop/preference_keys.h"
#include "model/check.h"

#include <limits>
#include <utility>

namespace pingwell {

/// Marks a dashboard request of a session as outstanding for as long as it lives.
class AppStore::RefreshInProgress
{
public:
    explicit RefreshInProgress(QPointer<AppStore> store)
        : m_store(std::move(store))
        , m_client(m_store->m_client)
    {
        m_store->m_refreshingClient = m_client;
    }
    Q_DISABLE_COPY_MOVE(RefreshInProgress)

    ~RefreshInProgress()
    {
        // The next session may have begun a request of its own.
        if (m_store && m_store->m_refreshingClient == m_client)
            m_store->m_refreshingClient.reset();
    }

private:
    QPointer<AppStore> m_store;
    APIClientPtr m_client;
};

/// The rounds of the live loop.
struct AppStore::SyncSteps
{
    static QCoro::Task<> runSync(QPointer<AppStore> store, std::shared_ptr<Clock> clock, std::stop_token stop);
    static QCoro::Task<> runRefresh(QPointer<AppStore> store);
    static QCoro::Task<> refreshAccount(QPointer<AppStore> store, std::stop_token stop);
    static QCoro::Task<> refreshInvitations(QPointer<AppStore> store, std::stop_token stop);
    static QCoro::Task<> registerDevice(QPointer<AppStore> store, std::stop_token stop);
    /// Whether the service still knows the device; no identifier is one it does not know.
    static QCoro::Task<Outcome<bool>> sendHeartbeat(APIClientPtr client, QString deviceID, QString version);
    static void forgetDevice(AppStore &store);
    static void takeDevice(AppStore &store, const Device &device);
    /// What a dashboard that changes nothing looks like; empty where any one counts.
    static QByteArray knownBody(const AppStore &store);
    /// Shows why the service can't be followed.
    static void noteProblem(AppStore &store, const APIError &error);
};

void AppStore::startSync()
{
    checkMainThread();
    m_syncTask.request_stop();
    if (!m_client || !m_backend)
        return;
    m_syncTask = std::stop_source();
    launch("sync", SyncSteps::runSync(this, m_clock, m_syncTask.get_token()));
}

QCoro::Task<> AppStore::SyncSteps::runSync(QPointer<AppStore> store, std::shared_ptr<Clock> clock, std::stop_token stop)
{
    const Backend &backend = *store->m_backend;
    const auto pollInterval = backend.pollInterval;
    const qint64 invitesEvery = backend.invitesEvery;
    const qint64 heartbeatEvery = backend.heartbeatEvery;

    co_await runRefresh(store);
    co_await refreshAccount(store, stop);
    co_await registerDevice(store, stop);
    co_await refreshInvitations(store, stop);
    qint64 tick = 0;
    while (store && !stop.stop_requested()) {
        co_await clock->sleep(pollInterval, stop);
        if (!store || stop.stop_requested())
            co_return;
        check(tick < std::numeric_limits<qint64>::max(), "the poll counter is used up");
        ++tick;
        co_await runRefresh(store);
        if (tick % invitesEvery == 0)
            co_await refreshInvitations(store, stop);
        if (tick % heartbeatEvery == 0)
            co_await registerDevice(store, stop);
    }
}

void AppStore::refreshIfOwed()
{
    // What is asked for earlier would be thrown away because of the very changes that it is to follow.
    if (hasMutationsInFlight())
        return;
    if (m_refreshIsOwed && !isRefreshing())
        refresh();
    if (std::exchange(m_invitationsAreOwed, false))
        launch("invitations", SyncSteps::refreshInvitations(this, m_syncTask.get_token()));
}

void AppStore::refresh()
{
    checkMainThread();
    launch("refresh", SyncSteps::runRefresh(this));
}

void AppStore::reconnect()
{
    checkMainThread();
    if (m_backend)
        m_backend->transport->dropConnections();
    refresh();
}

QCoro::Task<> AppStore::SyncSteps::runRefresh(QPointer<AppStore> store)
{
    if (!store || !store->m_client || store->isRefreshing())
        co_return;
    store->takeTime();
    std::optional<RefreshInProgress> inProgress(std::in_place, store);
    const APIClientPtr client = store->m_client;
    const qint64 epoch = store->m_mutations.epoch();
    const QByteArray known = knownBody(*store);
    const std::shared_ptr<Clock> clock = store->m_clock;
    const Seconds sent = clock->uptime();
    Outcome<FetchedDashboard> outcome = co_await endpoints::fetchDashboard(client, known);
    if (!store || store->m_client != client)
        co_return;
    const std::optional<APIError> failure = outcome.error();
    std::optional<FetchedDashboard> fetched = std::move(outcome).value();
    const bool applies = !failure && store->m_mutations.restSince(epoch);
    if (failure || applies)
        store->m_refreshIsOwed = false;
    if (fetched && fetched->date)
        store->m_serviceClock.learn(*fetched->date, sent, clock->uptime());
    // What has arrived is judged at this moment, not at that of the last tick.
    store->takeTime();
    if (failure)
        noteProblem(*store, *failure);
    else if (applies)
        store->applyDashboard(std::move(*fetched));
    inProgress.reset();
    store->refreshIfOwed();
}

QByteArray AppStore::SyncSteps::knownBody(const AppStore &store)
{
    const bool stands = store.m_hasLoaded && store.m_appliedEpoch == store.m_mutations.epoch();
    return stands ? store.m_appliedBody : QByteArray();
}

QCoro::Task<> AppStore::SyncSteps::refreshAccount(QPointer<AppStore> store, std::stop_token stop)
{
    if (!store || stop.stop_requested() || !store->m_client)
        co_return;
    const APIClientPtr client = store->m_client;
    const Outcome<Session> session = co_await endpoints::fetchUserData(client);
    if (!store || store->m_client != client)
        co_return;
    // The dashboard tells every other problem; a stale name is none.
    if (session.error() && session.error()->status() == 401)
        noteProblem(*store, *session.error());
    if (session.value())
        store->takeAccount(session.value()->account);
}

void AppStore::takeAccount(const Account &account)
{
    if (m_account == account)
        return;
    m_notificationMark.handOver(markOwner(m_account), markOwner(account));
    // The plan that the dashboard told last may have gone with the old record.
    m_appliedBody.clear();
    set(m_account, std::optional(account), &AppStore::accountChanged);
    saveAccount(account);
}

QCoro::Task<> AppStore::SyncSteps::refreshInvitations(QPointer<AppStore> store, std::stop_token stop)
{
    if (!store || stop.stop_requested() || !store->m_client)
        co_return;
    const APIClientPtr client = store->m_client;
    const qint64 epoch = store->m_mutations.epoch();
    const Outcome<QList<Invitation>> invitations = co_await endpoints::listInvitations(client);
    if (!store || store->m_client != client)
        co_return;
    // One just answered would come back for a while, as in a dashboard.
    store->m_invitationsAreOwed = !invitations.error() && !store->m_mutations.restSince(epoch);
    if (invitations.error())
        noteProblem(*store, *invitations.error());
    else if (!store->m_invitationsAreOwed)
        store->m_records.set(*invitations.value());
    store->refreshIfOwed();
}

QCoro::Task<> AppStore::SyncSteps::registerDevice(QPointer<AppStore> store, std::stop_token stop)
{
    if (!store || stop.stop_requested() || !store->m_client)
        co_return;
    const APIClientPtr client = store->m_client;
    const QString name = store->m_backend->deviceName;
    const QString version = store->m_backend->appVersion;
    const QString known = store->deviceIdentifier();
    const Outcome<bool> isKnown = co_await sendHeartbeat(client, known, version);
    if (!store || store->m_client != client)
        co_return;
    if (isKnown.error())
        noteProblem(*store, *isKnown.error());
    if (isKnown.value() != false)
        co_return;
    forgetDevice(*store);
    const Outcome<Device> device = co_await endpoints::registerDevice(client, name, version);
    if (!store || store->m_client != client)
        co_return;
    if (device.error())
        noteProblem(*store, *device.error());
    else
        takeDevice(*store, *device.value());
}

QCoro::Task<Outcome<bool>> AppStore::SyncSteps::sendHeartbeat(APIClientPtr client, QString deviceID, QString version)
{
    if (deviceID.isEmpty())
        co_return false;
    const Outcome<Device> device = co_await endpoints::sendHeartbeat(client, deviceID, version);
    if (device.error() && device.error()->status() != 404)
        co_return *device.error();
    co_return device.value().has_value();
}

QString AppStore::deviceIdentifier() const
{
    if (!m_defaults || !m_client)
        return {};
    return m_defaults->string(preference_keys::device(m_client->baseURL())).value_or(QString());
}

void AppStore::SyncSteps::forgetDevice(AppStore &store)
{
    if (store.m_defaults)
        store.m_defaults->remove(preference_keys::device(store.m_client->baseURL()));
}

void AppStore::SyncSteps::takeDevice(AppStore &store, const Device &device)
{
    if (store.m_defaults)
        store.m_defaults->setString(preference_keys::device(store.m_client->baseURL()), device.id);
    QList<Device> devices = store.devices();
    removeFrom(devices, device.id);
    devices << device;
    store.m_appliedBody.clear();
    store.m_records.set(devices);
}

void AppStore::SyncSteps::noteProblem(AppStore &store, const APIError &error)
{
    if (error.status() == 401)
        store.endRefusedSession(error.message());
    else
        store.set(store.m_connectionProblem, std::optional(error.message()), &AppStore::connectionProblemChanged);
}

} // namespace pingwell
