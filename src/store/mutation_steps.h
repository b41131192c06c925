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
    Rollback rollback;
    Operation operation;
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
    /// Undoes what the service refused and says so. Whether the session still stands then.
    static bool takeBack(AppStore &store, const APIClientPtr &client, const Mutation &mutation,
                         const APIError &failure);
};

} // namespace pingwell
