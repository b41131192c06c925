#include "store/live_sync.h"

#include "api/endpoints.h"
#include "async/launch.h"
#include "model/check.h"
#include "store/announcements.h"

#include <limits>
#include <utility>

namespace pingwell {

/// Marks a dashboard request of a session as outstanding for as long as it lives.
class LiveSync::RefreshInProgress
{
public:
    RefreshInProgress(QPointer<LiveSync> sync, APIClientPtr client)
        : m_sync(std::move(sync))
        , m_client(std::move(client))
    {
        m_sync->m_refreshingClient = m_client;
    }
    Q_DISABLE_COPY_MOVE(RefreshInProgress)

    ~RefreshInProgress()
    {
        // The next session may have begun a request of its own.
        if (m_sync && m_sync->m_refreshingClient == m_client)
            m_sync->m_refreshingClient.reset();
    }

private:
    QPointer<LiveSync> m_sync;
    APIClientPtr m_client;
};

LiveSync::LiveSync(std::shared_ptr<Backend> backend, std::shared_ptr<Clock> clock, Ticker &ticker, const Merge &merge,
                   const Mutations &mutations, Surroundings surroundings)
    : m_backend(std::move(backend))
    , m_clock(std::move(clock))
    , m_ticker(ticker)
    , m_merge(merge)
    , m_mutations(mutations)
    , m_surroundings(std::move(surroundings))
{
    const bool isEndless = m_backend && (m_backend->heartbeatEvery == 0 || m_backend->invitesEvery == 0);
    check(!isEndless, "a poll count of the backend is zero");
    connect(&m_mutations, &Mutations::ended, this, &LiveSync::mutationEnded);
}

LiveSync::~LiveSync()
{
    m_rounds.request_stop();
}

template<typename Value>
void LiveSync::set(Value &field, Value value, void (LiveSync::*changed)())
{
    Announcements announcements;
    announcements.put(this, field, value, changed);
    announcements.make();
}

void LiveSync::start()
{
    m_rounds.request_stop();
    if (!m_backend || !m_surroundings.client())
        return;
    m_rounds = std::stop_source();
    launch("sync", run(this, m_clock, m_rounds.get_token()));
}

QCoro::Task<> LiveSync::run(QPointer<LiveSync> self, std::shared_ptr<Clock> clock, std::stop_token stop)
{
    const auto pollInterval = self->m_backend->pollInterval;
    const qint64 invitesEvery = self->m_backend->invitesEvery;
    const qint64 heartbeatEvery = self->m_backend->heartbeatEvery;

    co_await runRefresh(self);
    co_await refreshAccount(self, stop);
    co_await registerDevice(self, stop);
    co_await refreshInvitations(self, stop);
    qint64 round = 0;
    while (self && !stop.stop_requested()) {
        co_await clock->sleep(pollInterval, stop);
        if (!self || stop.stop_requested())
            co_return;
        check(round < std::numeric_limits<qint64>::max(), "the poll counter is used up");
        ++round;
        co_await runRefresh(self);
        if (round % invitesEvery == 0)
            co_await refreshInvitations(self, stop);
        if (round % heartbeatEvery == 0)
            co_await registerDevice(self, stop);
    }
}

void LiveSync::refresh()
{
    launch("refresh", runRefresh(this));
}

void LiveSync::reconnect()
{
    if (m_backend)
        m_backend->transport->dropConnections();
    refresh();
}

bool LiveSync::isRefreshing() const
{
    return m_refreshingClient && isCurrent(m_refreshingClient);
}

QCoro::Task<> LiveSync::runRefresh(QPointer<LiveSync> self)
{
    if (!self || !self->m_surroundings.client() || self->isRefreshing())
        co_return;
    self->m_ticker.takeTime();
    const APIClientPtr client = self->m_surroundings.client();
    std::optional<RefreshInProgress> inProgress(std::in_place, self, client);
    const qint64 epoch = self->m_mutations.epoch();
    const QByteArray known = self->m_merge.knownBody();
    const Seconds sent = self->m_ticker.uptime();
    Outcome<FetchedDashboard> outcome = co_await endpoints::fetchDashboard(client, known);
    if (!self || !self->isCurrent(client))
        co_return;
    self->take(std::move(outcome), epoch, sent);
    inProgress.reset();
    self->payDebts();
}

void LiveSync::take(Outcome<FetchedDashboard> outcome, qint64 epoch, Seconds sent)
{
    const std::optional<APIError> failure = outcome.error();
    const bool applies = !failure && m_mutations.restSince(epoch);
    if (failure || applies)
        m_refreshIsOwed = false;
    std::optional<FetchedDashboard> fetched = std::move(outcome).value();
    if (fetched && fetched->date)
        m_ticker.learn(*fetched->date, sent);
    // What has arrived is judged at this moment, not at that of the last tick.
    m_ticker.takeTime();
    if (failure)
        noteProblem(*failure);
    if (!applies)
        return;
    m_surroundings.takeDashboard(std::move(*fetched));
    set(m_problem, std::optional<QString>(), &LiveSync::problemChanged);
    set(m_lastSyncedAt, std::optional(m_ticker.present()), &LiveSync::lastSyncedAtChanged);
}

void LiveSync::mutationEnded(Mutations::Ending ending)
{
    // A session that began while a mutation of an earlier one was under way has had its first dashboards thrown away.
    const bool wasHeldUp =
        ending == Mutations::Ending::ofAnEarlierSession && m_surroundings.client() && !m_merge.hasLoaded();
    if (ending == Mutations::Ending::refused || wasHeldUp)
        oweRefresh();
    payDebts();
}

void LiveSync::payDebts()
{
    // What is asked for earlier would be thrown away because of the very changes that it is to follow.
    if (m_mutations.areInFlight())
        return;
    if (m_refreshIsOwed && !isRefreshing())
        refresh();
    if (std::exchange(m_invitationsAreOwed, false))
        launch("invitations", refreshInvitations(this, m_rounds.get_token()));
}

QCoro::Task<> LiveSync::refreshAccount(QPointer<LiveSync> self, std::stop_token stop)
{
    if (!self || stop.stop_requested() || !self->m_surroundings.client())
        co_return;
    const APIClientPtr client = self->m_surroundings.client();
    const Outcome<Session> session = co_await endpoints::fetchUserData(client);
    if (!self || !self->isCurrent(client))
        co_return;
    // The dashboard tells every other problem; a stale name is none.
    if (session.error() && session.error()->status() == 401)
        self->noteProblem(*session.error());
    if (session.value())
        self->m_surroundings.takeAccount(session.value()->account);
}

QCoro::Task<> LiveSync::refreshInvitations(QPointer<LiveSync> self, std::stop_token stop)
{
    if (!self || stop.stop_requested() || !self->m_surroundings.client())
        co_return;
    const APIClientPtr client = self->m_surroundings.client();
    const qint64 epoch = self->m_mutations.epoch();
    const Outcome<QList<Invitation>> invitations = co_await endpoints::listInvitations(client);
    if (!self || !self->isCurrent(client))
        co_return;
    // One just answered would come back for a while, as in a dashboard.
    self->m_invitationsAreOwed = !invitations.error() && !self->m_mutations.restSince(epoch);
    if (invitations.error())
        self->noteProblem(*invitations.error());
    else if (!self->m_invitationsAreOwed)
        self->m_surroundings.takeInvitations(*invitations.value());
    self->payDebts();
}

QCoro::Task<> LiveSync::registerDevice(QPointer<LiveSync> self, std::stop_token stop)
{
    if (!self || stop.stop_requested() || !self->m_surroundings.client())
        co_return;
    const APIClientPtr client = self->m_surroundings.client();
    const QString name = self->m_backend->deviceName;
    const QString version = self->m_backend->appVersion;
    const QString deviceID = self->m_surroundings.deviceID();
    const Outcome<bool> isKnown = co_await isKnownDevice(client, deviceID, version);
    if (!self || !self->isCurrent(client))
        co_return;
    if (isKnown.error())
        self->noteProblem(*isKnown.error());
    if (isKnown.value() != false)
        co_return;
    self->m_surroundings.takeDevice(std::nullopt);
    const Outcome<Device> device = co_await endpoints::registerDevice(client, name, version);
    if (!self || !self->isCurrent(client))
        co_return;
    if (device.error())
        self->noteProblem(*device.error());
    else
        self->m_surroundings.takeDevice(device.value());
}

/// Tells the service that the device is still there; no identifier is one that it does not know.
QCoro::Task<Outcome<bool>> LiveSync::isKnownDevice(APIClientPtr client, QString deviceID, QString version)
{
    if (deviceID.isEmpty())
        co_return false;
    const Outcome<Device> device = co_await endpoints::sendHeartbeat(client, deviceID, version);
    if (device.error() && device.error()->status() != 404)
        co_return *device.error();
    co_return device.value().has_value();
}

void LiveSync::noteProblem(const APIError &error)
{
    if (error.status() == 401)
        m_surroundings.endSession(error.message());
    else
        set(m_problem, std::optional(error.message()), &LiveSync::problemChanged);
}

void LiveSync::reset()
{
    m_rounds.request_stop();
    m_rounds = std::stop_source(std::nostopstate);
    m_refreshIsOwed = false;
    m_invitationsAreOwed = false;
    set(m_problem, std::optional<QString>(), &LiveSync::problemChanged);
    set(m_lastSyncedAt, std::optional<Instant>(), &LiveSync::lastSyncedAtChanged);
}

} // namespace pingwell
