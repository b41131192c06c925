#pragma once

#include "store/app_store.h"

namespace pingwell {

/// Counts a mutation as under way for as long as it lives. One that holds the merge keeps every dashboard that was
/// fetched meanwhile from being merged; of one that doesn't only those that were fetched across its end.
class AppStore::MutationInProgress
{
public:
    MutationInProgress(AppStore *store, bool holdsMerge);
    Q_DISABLE_COPY_MOVE(MutationInProgress)
    ~MutationInProgress();

private:
    QPointer<AppStore> m_store;
    bool m_holdsMerge;
};

/// A change already made here, which the service is told now.
struct AppStore::Mutation
{
    Operation operation;
    Rollback rollback = [](AppStore &) {};
    /// Told first of all that it failed, also when the session of `client` has ended meanwhile.
    std::function<void(AppStore &, const APIClientPtr &client, const APIError &error)> failed = {};
    Refused refused = {};
    /// Told at the end, after a rollback, while the session lasts.
    std::function<void(AppStore &, bool accepted)> ended = {};
    bool holdsMerge = true;
};

/// How mutations run.
struct AppStore::MutationSteps
{
    static void start(AppStore &store, Mutation mutation);
    static QCoro::Task<> run(QPointer<AppStore> store, APIClientPtr client, std::shared_ptr<const Mutation> mutation,
                             std::shared_ptr<const void> work);
    /// Takes in what the service answered, and says what it says.
    static void accept(AppStore &store, const Consent &consent);
    /// Undoes what the service refused and says so. Whether the session still stands then.
    static bool takeBack(AppStore &store, const APIClientPtr &client, const Mutation &mutation,
                         const APIError &failure);
};

} // namespace pingwell
