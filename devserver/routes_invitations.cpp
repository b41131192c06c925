#include "refusal.h"
#include "routes.h"
#include "session_routes.h"
#include "wire.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace pingwell::devserver {

namespace {

/// Takes the invitation out of the list: it is answered once, one way or the other.
Invitation takeInvitation(ServiceState &state, const QString &token)
{
    const auto hasToken = [&](const Invitation &invitation) { return invitation.token == token; };
    const auto position = std::find_if(state.invitations.begin(), state.invitations.end(), hasToken);
    if (position == state.invitations.end())
        throw notFound(u"This invitation is no longer valid."_s);
    Invitation invitation = *position;
    state.invitations.erase(position);
    return invitation;
}

Reply listInvitations(ServiceState &state, const Call &)
{
    QJsonArray array;
    for (const Invitation &invitation : state.invitations)
        array.append(toJson(invitation));
    return withData(array);
}

Reply acceptInvitation(ServiceState &state, const Call &call)
{
    const Invitation invitation = takeInvitation(state, call.parameter(u"token"));
    const Workspace joined{newId(u"w"_s),        invitation.workspaceName, WorkspaceKind::team, invitation.role, 30,
                           TimeoutAction::expire};
    const Member person{
        newId(u"m"_s), state.account.name, state.account.email, invitation.role, MemberStatus::active, std::nullopt,
        true};
    state.workspaces.append(joined);
    state.members.insert(joined.id, {person});
    return withData(toJson(joined), u"You joined %1."_s.arg(joined.name));
}

Reply declineInvitation(ServiceState &state, const Call &call)
{
    const Invitation invitation = takeInvitation(state, call.parameter(u"token"));
    return done(u"You declined the invitation to %1."_s.arg(invitation.workspaceName));
}

} // namespace

void addInvitationRoutes(Router &router, ServiceState &state)
{
    SessionRoutes routes(router, state);
    routes.add(u"GET"_s, u"/invites"_s, listInvitations);
    routes.add(u"POST"_s, u"/invites/{token}/accept"_s, acceptInvitation);
    routes.add(u"POST"_s, u"/invites/{token}/reject"_s, declineInvitation);
}

} // namespace pingwell::devserver
