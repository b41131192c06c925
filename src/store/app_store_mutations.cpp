#include "store/mutation_steps.h"

#include "async/launch.h"

namespace pingwell {

void AppStore::mutate(Mutation mutation)
{
    checkMainThread();
    if (m_client)
        MutationSteps::start(*this, std::move(mutation));
}

AppStore::MutationInProgress::MutationInProgress(AppStore *store, bool holdsMerge)
    : m_store(store)
    , m_holdsMerge(holdsMerge)
{
    if (m_holdsMerge)
        m_store->m_mutations.begin();
}

AppStore::MutationInProgress::~MutationInProgress()
{
    if (!m_store)
        return;
    if (m_holdsMerge)
        m_store->m_mutations.end();
    else
        m_store->m_mutations.endBeside();
}

void AppStore::MutationSteps::start(AppStore &store, Mutation mutation)
{
    launch("mutation", run(&store, store.m_client, std::make_shared<const Mutation>(std::move(mutation)),
                           store.m_unfinishedWork.begin()));
}

QCoro::Task<> AppStore::MutationSteps::run(QPointer<AppStore> store, APIClientPtr client,
                                           std::shared_ptr<const Mutation> mutation,
                                           [[maybe_unused]] std::shared_ptr<const void> work)
{
    std::optional<MutationInProgress> inProgress(std::in_place, store, mutation->holdsMerge);
    const Outcome<Consent> outcome = co_await mutation->operation(client);
    if (!store)
        co_return;
    const std::optional<APIError> &failure = outcome.error();
    if (failure && mutation->failed)
        mutation->failed(*store, client, *failure);
    const bool ours = store->m_client == client;
    if (failure && ours)
        store->m_refreshIsOwed = takeBack(*store, client, *mutation, *failure);
    else if (ours)
        accept(*store, *outcome.value());
    // What waits in a lane is dropped with the session: it must not be sent with another session's token.
    if (mutation->ended && store->m_client == client)
        mutation->ended(*store, !failure);
    inProgress.reset();
    // A session that began while a mutation of an earlier one was under way has had its first dashboards thrown away.
    if (!ours && !store->m_hasLoaded)
        store->m_refreshIsOwed = true;
    store->refreshIfOwed();
}

bool AppStore::MutationSteps::takeBack(AppStore &store, const APIClientPtr &client, const Mutation &mutation,
                                       const APIError &failure)
{
    mutation.rollback(store);
    store.tellFailure(failure);
    const bool stillSignedIn = store.m_client == client;
    if (stillSignedIn && mutation.refused)
        mutation.refused(store, failure.message());
    return stillSignedIn;
}

void AppStore::MutationSteps::accept(AppStore &store, const Consent &consent)
{
    consent.takeIn();
    if (consent.sentence)
        store.showToast(*consent.sentence, false);
}

void AppStore::notifyUnlessWatching(const QString &identifier, const QString &title, const QString &message) const
{
    if (m_backend && m_backend->notifier && !m_attention.isOnWindow())
        m_backend->notifier->deliverMessage(identifier, title, message);
}

void AppStore::tellFailure(const APIError &error)
{
    if (error.status() == 401)
        endRefusedSession(error.message());
    else
        showToast(error.message(), true);
}

} // namespace pingwell
