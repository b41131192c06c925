#pragma once

#include "api/dashboard.h"
#include "store/backend.h"
#include "store/merge.h"
#include "store/mutations.h"
#include "store/ticker.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>
#include <optional>
#include <stop_token>

namespace pingwell {

/// Follows the service: one dashboard request at a time, in the rhythm of the backend, when asked, and when one is
/// owed. What was asked for across a change of the person's is not taken, and asked for again. Main thread.
class LiveSync : public QObject
{
    Q_OBJECT

public:
    /// Where the answers go. All but `client` are called only for the session that stands.
    struct Surroundings
    {
        /// Of the session that stands; null without one.
        std::function<APIClientPtr()> client;
        std::function<void(FetchedDashboard)> takeDashboard;
        std::function<void(const Account &)> takeAccount;
        std::function<void(const QList<Invitation> &)> takeInvitations;
        /// This computer at the service; empty when it is not registered there.
        std::function<QString()> deviceID;
        /// The service has registered it, or with none does not know it any more.
        std::function<void(const std::optional<Device> &)> takeDevice;
        /// The service refused the session, in these words.
        std::function<void(const QString &message)> endSession;
    };

    /// Without `backend`, in the demo, there is nothing to follow.
    LiveSync(std::shared_ptr<Backend> backend, std::shared_ptr<Clock> clock, Ticker &ticker, const Merge &merge,
             const Mutations &mutations, Surroundings surroundings);
    ~LiveSync() override;

    /// Why the service can't be followed, in words for the person.
    [[nodiscard]] const std::optional<QString> &problem() const { return m_problem; }
    [[nodiscard]] const std::optional<Instant> &lastSyncedAt() const { return m_lastSyncedAt; }

    /// (Re)starts the rounds; does nothing without a session.
    void start();
    /// Fetches the dashboard, unless a fetch is under way.
    void refresh();
    /// The same over new connections.
    void reconnect();
    /// What is shown may differ from what the service holds, until a dashboard that is taken.
    void oweRefresh() { m_refreshIsOwed = true; }
    /// The session is over.
    void reset();

signals:
    void problemChanged();
    void lastSyncedAtChanged();

private:
    class RefreshInProgress;

    static QCoro::Task<> run(QPointer<LiveSync> self, std::shared_ptr<Clock> clock, std::stop_token stop);
    static QCoro::Task<> runRefresh(QPointer<LiveSync> self);
    static QCoro::Task<> refreshAccount(QPointer<LiveSync> self, std::stop_token stop);
    static QCoro::Task<> refreshInvitations(QPointer<LiveSync> self, std::stop_token stop);
    static QCoro::Task<> registerDevice(QPointer<LiveSync> self, std::stop_token stop);
    static QCoro::Task<Outcome<bool>> isKnownDevice(APIClientPtr client, QString deviceID, QString version);

    void take(Outcome<FetchedDashboard> outcome, qint64 epoch, Seconds sent);
    void mutationEnded(Mutations::Ending ending);
    void payDebts();
    void noteProblem(const APIError &error);
    [[nodiscard]] bool isRefreshing() const;
    [[nodiscard]] bool isCurrent(const APIClientPtr &client) const { return m_surroundings.client() == client; }
    template<typename Value>
    void set(Value &field, Value value, void (LiveSync::*changed)());

    std::shared_ptr<Backend> m_backend;
    std::shared_ptr<Clock> m_clock;
    Ticker &m_ticker;
    const Merge &m_merge;
    const Mutations &m_mutations;
    Surroundings m_surroundings;
    std::stop_source m_rounds{std::nostopstate};
    /// Whose dashboard request is outstanding; that of an earlier session does not hold up the next one's.
    APIClientPtr m_refreshingClient;
    bool m_refreshIsOwed = false;
    /// Invitations were answered across a change of the person's, and have to be asked for again.
    bool m_invitationsAreOwed = false;
    std::optional<QString> m_problem;
    std::optional<Instant> m_lastSyncedAt;
};

} // namespace pingwell
