#include "store/app_store.h"

#include "async/launch.h"

namespace pingwell {

/// Counts a mutation as under way for as long as it lives.
class AppStore::MutationInProgress
{
public:
    explicit MutationInProgress(AppStore *store)
        : m_store(store)
    {
        m_store->m_mutations.begin();
    }
    Q_DISABLE_COPY_MOVE(MutationInProgress)

    ~MutationInProgress()
    {
        if (!m_store)
            return;
        m_store->m_mutations.end();
        if (!m_store->hasMutationsInFlight())
            emit m_store->mutationsEnded();
    }

private:
    QPointer<AppStore> m_store;
};

/// A change made here whose word to the service is still to be said or under way.
struct AppStore::Mutation
{
    APIClientPtr client;
    Rollback rollback;
    Operation operation;
    Refused refused;
    MutationInProgress inProgress;
};

/// How mutations run.
struct AppStore::MutationSteps
{
    static std::shared_ptr<Mutation> make(AppStore &store, Rollback rollback, Operation operation, Refused refused);
    static void start(AppStore &store, std::shared_ptr<Mutation> mutation, const QString &lane);
    static QCoro::Task<> run(QPointer<AppStore> store, std::shared_ptr<Mutation> mutation, QString lane);
    /// Undoes what the service refused and says so. Whether the session still stands then.
    static bool takeBack(AppStore &store, const Mutation &mutation, const APIError &failure);
    static void leaveLane(AppStore &store, const std::shared_ptr<Mutation> &mutation, const QString &lane);
};

void AppStore::mutate(Rollback rollback, Operation operation, Refused refused)
{
    checkMainThread();
    if (m_client)
        MutationSteps::start(
            *this, MutationSteps::make(*this, std::move(rollback), std::move(operation), std::move(refused)), {});
}

void AppStore::mutateInOrder(const QString &lane, Rollback rollback, Operation operation)
{
    checkMainThread();
    if (!m_client)
        return;
    QList<std::shared_ptr<Mutation>> &waiting = m_mutationLanes[lane];
    waiting << MutationSteps::make(*this, std::move(rollback), std::move(operation), {});
    if (waiting.size() == 1)
        MutationSteps::start(*this, waiting.first(), lane);
}

std::shared_ptr<AppStore::Mutation> AppStore::MutationSteps::make(AppStore &store, Rollback rollback,
                                                                  Operation operation, Refused refused)
{
    return std::shared_ptr<Mutation>(new Mutation{.client = store.m_client,
                                                  .rollback = std::move(rollback),
                                                  .operation = std::move(operation),
                                                  .refused = std::move(refused),
                                                  .inProgress = MutationInProgress(&store)});
}

void AppStore::MutationSteps::start(AppStore &store, std::shared_ptr<Mutation> mutation, const QString &lane)
{
    launch("mutation", run(&store, std::move(mutation), lane));
}

QCoro::Task<> AppStore::MutationSteps::run(QPointer<AppStore> store, std::shared_ptr<Mutation> mutation, QString lane)
{
    const APIClientPtr client = mutation->client;
    std::optional<APIError> failure;
    try {
        co_await mutation->operation(client);
    } catch (...) {
        failure = APIError::from(std::current_exception());
    }
    if (!store)
        co_return;
    const bool ours = store->m_client == client;
    if (failure && ours)
        store->m_refreshIsOwed = takeBack(*store, *mutation, *failure);
    leaveLane(*store, mutation, lane);
    mutation.reset();
    // A session that began while a mutation of an earlier one was under way has had its first dashboards thrown away.
    if (!ours && !store->m_hasLoaded)
        store->m_refreshIsOwed = true;
    store->refreshIfOwed();
}

bool AppStore::MutationSteps::takeBack(AppStore &store, const Mutation &mutation, const APIError &failure)
{
    mutation.rollback(store);
    store.tellFailure(failure);
    const bool stillSignedIn = store.m_client == mutation.client;
    if (stillSignedIn && mutation.refused)
        mutation.refused(store, failure.message());
    return stillSignedIn;
}

void AppStore::MutationSteps::leaveLane(AppStore &store, const std::shared_ptr<Mutation> &mutation, const QString &lane)
{
    const auto waiting = store.m_mutationLanes.find(lane);
    // The end of a session empties the lanes: what the person changed in it is not said in another one's name.
    if (waiting == store.m_mutationLanes.end() || waiting->first() != mutation)
        return;
    waiting->removeFirst();
    if (waiting->isEmpty())
        store.m_mutationLanes.erase(waiting);
    else
        start(store, waiting->first(), lane);
}

void AppStore::tellReply(const QPointer<AppStore> &store, const APIClientPtr &client,
                         const std::optional<QString> &message)
{
    if (store && store->m_client == client && message)
        store->showToast(*message, false);
}

void AppStore::notifyUnlessWatching(const QString &identifier, const QString &title, const QString &message) const
{
    if (m_backend && m_backend->notifier && !m_attention.isOnWindow())
        m_backend->notifier->deliverMessage(identifier, title, message);
}

void AppStore::tellFailure(const APIError &error)
{
    if (error.status() == 401)
        endSession(error.message());
    else
        showToast(error.message(), true);
}

} // namespace pingwell
