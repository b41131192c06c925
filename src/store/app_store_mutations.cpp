#include "store/app_store.h"

#include "async/launch.h"
#include "model/check.h"

#include <limits>

namespace pingwell {

/// Counts a mutation as under way for as long as it lives. Both counters move again when it ends: a dashboard fetched
/// across either end is not merged.
class AppStore::MutationInProgress
{
public:
    explicit MutationInProgress(QPointer<AppStore> store)
        : m_store(std::move(store))
    {
        check(m_store->m_mutationsInFlight < std::numeric_limits<int>::max(), "too many mutations in flight");
        ++m_store->m_mutationsInFlight;
        advanceEpoch();
    }

    MutationInProgress(const MutationInProgress &) = delete;
    MutationInProgress &operator=(const MutationInProgress &) = delete;

    ~MutationInProgress()
    {
        if (!m_store)
            return;
        check(m_store->m_mutationsInFlight > 0, "a mutation ended that never began");
        --m_store->m_mutationsInFlight;
        advanceEpoch();
    }

private:
    void advanceEpoch()
    {
        check(m_store->m_mutationEpoch < std::numeric_limits<qint64>::max(), "the mutation epoch is used up");
        ++m_store->m_mutationEpoch;
    }

    QPointer<AppStore> m_store;
};

void AppStore::mutate(Rollback rollback, Operation operation, Refused refused)
{
    checkMainThread();
    if (m_client)
        launch("mutation", runMutation(this, m_client, std::move(rollback), std::move(operation), std::move(refused)));
}

QCoro::Task<> AppStore::runMutation(QPointer<AppStore> store, APIClientPtr client, Rollback rollback,
                                    Operation operation, Refused refused)
{
    std::optional<MutationInProgress> inProgress(std::in_place, store);
    std::optional<APIError> failure;
    try {
        co_await operation(client);
    } catch (...) {
        failure = APIError::from(std::current_exception());
    }
    if (!store)
        co_return;
    const bool ours = store->m_client == client;
    if (failure && ours) {
        rollback(*store);
        store->handleError(*failure);
    }
    const bool stillSignedIn = store->m_client == client;
    if (failure && stillSignedIn && refused)
        refused(*store, failure->message());
    inProgress.reset();
    // Only now: a refresh begun earlier would be thrown away by the very mutation it follows. A session that began
    // while this mutation of an earlier one was under way has had its first dashboards thrown away, too.
    if ((failure && stillSignedIn) || (!ours && !store->m_hasLoaded))
        store->refresh();
}

void AppStore::handleError(const APIError &error)
{
    if (error.status() == 401)
        endSession(error.message());
    else
        showToast(error.message(), true);
}

} // namespace pingwell
