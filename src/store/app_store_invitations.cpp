#include "store/app_store.h"

#include "api/endpoints.h"

#include <algorithm>

namespace pingwell {

/// What answers the invitations that others sent to the person.
struct AppStore::InvitationSteps
{
    /// Takes the invitation off the list, and tells the service by `operation`.
    static void take(AppStore &store, const QString &token, Operation operation);
    static QCoro::Task<> performAccept(QPointer<AppStore> store, APIClientPtr client, QString token);
    static QCoro::Task<> performReject(QPointer<AppStore> store, APIClientPtr client, QString token);
};

void AppStore::acceptInvitation(const QString &token)
{
    checkMainThread();
    InvitationSteps::take(*this, token, [store = QPointer(this), token](APIClientPtr client) {
        return InvitationSteps::performAccept(store, client, token);
    });
}

QCoro::Task<> AppStore::InvitationSteps::performAccept(QPointer<AppStore> store, APIClientPtr client, QString token)
{
    const std::optional<QString> message = co_await endpoints::acceptInvitation(client, token);
    // The workspace joined comes with the next dashboard, as soon as one may be merged.
    if (store && store->m_client == client)
        store->m_refreshIsOwed = true;
    tellReply(store, client, message);
}

void AppStore::rejectInvitation(const QString &token)
{
    checkMainThread();
    InvitationSteps::take(*this, token, [store = QPointer(this), token](APIClientPtr client) {
        return InvitationSteps::performReject(store, client, token);
    });
}

QCoro::Task<> AppStore::InvitationSteps::performReject(QPointer<AppStore> store, APIClientPtr client, QString token)
{
    const std::optional<QString> message = co_await endpoints::declineInvitation(client, token);
    tellReply(store, client, message);
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
    store.mutate(
        [taken = *found, index = found - before.begin()](AppStore &owner) {
            QList<Invitation> all = owner.m_invitations;
            if (!all.contains(taken))
                all.insert(std::min<qsizetype>(index, all.size()), taken);
            owner.set(owner.m_invitations, all, &AppStore::invitationsChanged);
        },
        std::move(operation));
}

} // namespace pingwell
