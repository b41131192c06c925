#include "store/app_store.h"

#include "api/endpoints.h"

#include "store/mutation_steps.h"

#include <algorithm>

namespace pingwell {

/// What answers the invitations that others sent to the person.
struct AppStore::InvitationSteps
{
    /// Takes the invitation off the list, and tells the service by `operation`.
    static void take(AppStore &store, const QString &token, Operation operation);
};

void AppStore::acceptInvitation(const QString &token)
{
    checkMainThread();
    InvitationSteps::take(*this, token, [this, token](APIClientPtr client) {
        // The workspace joined comes with the next dashboard, as soon as one may be merged.
        return consentOf(endpoints::acceptInvitation(client, token),
                         [this](const std::optional<QString> &) { m_refreshIsOwed = true; });
    });
}

void AppStore::rejectInvitation(const QString &token)
{
    checkMainThread();
    InvitationSteps::take(
        *this, token, [token](APIClientPtr client) { return consentOf(endpoints::declineInvitation(client, token)); });
}

void AppStore::InvitationSteps::take(AppStore &store, const QString &token, Operation operation)
{
    const QList<Invitation> before = store.m_invitations;
    const auto found = std::find_if(before.begin(), before.end(),
                                    [&token](const Invitation &invitation) { return invitation.token == token; });
    if (found == before.end())
        return;
    QList<Invitation> left = before;
    left.remove(found - before.begin());
    store.set(store.m_invitations, left, &AppStore::invitationsChanged);
    store.mutate({.operation = std::move(operation),
                  .rollback = [taken = *found, index = found - before.begin()](AppStore &owner) {
                      QList<Invitation> all = owner.m_invitations;
                      if (!all.contains(taken))
                          all.insert(std::min<qsizetype>(index, all.size()), taken);
                      owner.set(owner.m_invitations, all, &AppStore::invitationsChanged);
                  }});
}

} // namespace pingwell
