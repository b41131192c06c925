#pragma once

#include "api/api_client.h"
#include "store/consent.h"
#include "store/mutation_count.h"
#include "store/unfinished_work.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>

namespace pingwell {

/// A change already made here, which the service is told now.
struct Mutation
{
    std::function<QCoro::Task<Outcome<Consent>>(APIClientPtr)> operation;
    /// Undoes the change. Like what follows, it is called only while the `Mutations` that it was given to live.
    std::function<void()> rollback = [] {};
    /// Told first of all that it failed, also when the session of `client` has ended meanwhile.
    std::function<void(const APIClientPtr &client, const APIError &error)> failed = [](const APIClientPtr &,
                                                                                       const APIError &) {};
    /// Told after the rollback why the service refused, in words for the person, while the session lasts.
    std::function<void(const QString &message)> refused = [](const QString &) {};
    /// Told at the end, while the session lasts.
    std::function<void(bool accepted)> ended = [](bool) {};
    /// Keeps every dashboard that was fetched meanwhile from being merged; of one that doesn't only those that were
    /// fetched across its end.
    bool holdsMerge = true;
};

/// The person's changes on their way to the service: what it refuses is undone and told, and an epoch tells which of
/// its answers may not know of them. Main thread.
class Mutations : public QObject
{
    Q_OBJECT

public:
    /// What a mutation needs of the session in which it runs.
    struct Surroundings
    {
        /// Of the session that stands; null without one.
        std::function<APIClientPtr()> client;
        std::function<void(const QString &sentence)> say;
        /// Tells why something was not done; ends the session where it has ended at the service.
        std::function<void(const APIError &error)> tellFailure;
    };

    enum class Ending {
        accepted,
        /// What is shown may differ from what the service holds.
        refused,
        /// Its session is over, and maybe another one stands.
        ofAnEarlierSession,
    };

    Mutations(UnfinishedWork &work, Surroundings surroundings);

    /// There is a service to tell; a demo has none.
    [[nodiscard]] bool canTell() const { return m_surroundings.client() != nullptr; }
    /// Tells the service, if there is one.
    void start(Mutation mutation);

    /// Changes are on their way, and no dashboard may be merged meanwhile.
    [[nodiscard]] bool areInFlight() const { return m_count.isAny(); }
    [[nodiscard]] qint64 epoch() const { return m_count.epoch(); }
    /// None is under way, and none began or ended since that epoch.
    [[nodiscard]] bool restSince(qint64 epoch) const { return m_count.restsSince(epoch); }

signals:
    /// One has ended in every respect, and is counted no longer.
    void ended(pingwell::Mutations::Ending ending);

private:
    class InProgress;

    static QCoro::Task<> run(QPointer<Mutations> self, APIClientPtr client, std::shared_ptr<const Mutation> mutation,
                             std::shared_ptr<const void> work);
    Ending conclude(const APIClientPtr &client, const Mutation &mutation, const Outcome<Consent> &outcome);
    void accept(const Consent &consent);
    /// Undoes what the service refused and says so.
    void takeBack(const APIClientPtr &client, const Mutation &mutation, const APIError &failure);
    [[nodiscard]] bool isCurrent(const APIClientPtr &client) const { return m_surroundings.client() == client; }

    UnfinishedWork &m_work;
    Surroundings m_surroundings;
    MutationCount m_count;
};

} // namespace pingwell
