#include "store/app_store.h"

#include "api/endpoints.h"

namespace pingwell {

void AppStore::acceptInvitation(const QString &token)
{
    takeInvitation(token, [this, token](APIClientPtr client) {
        // The workspace joined comes with the next dashboard, as soon as one may be merged.
        return consentOf(endpoints::acceptInvitation(client, token),
                         [this](const std::optional<QString> &) { m_sync.oweRefresh(); });
    });
}

void AppStore::rejectInvitation(const QString &token)
{
    takeInvitation(token,
                   [token](APIClientPtr client) { return consentOf(endpoints::declineInvitation(client, token)); });
}

void AppStore::takeInvitation(const QString &token, decltype(Mutation::operation) operation)
{
    checkMainThread();
    const auto taken = m_records.remove<Invitation>(token);
    if (taken)
        m_mutations.start(
            {.operation = std::move(operation), .rollback = [this, taken = *taken] { m_records.putBack(taken); }});
}

} // namespace pingwell
