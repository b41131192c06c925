#include "fields.h"
#include "routes.h"
#include "session_routes.h"
#include "wire.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace pingwell::devserver {

namespace {

bool isEmailAddress(const QString &text)
{
    static const QRegularExpression shape(u"^[^@\\s]+@[^@\\s]+\\.[^@\\s.]{2,}$"_s);
    return shape.match(text).hasMatch();
}

/// The team, when the person may change who is in it.
Workspace &managedTeam(ServiceState &state, const Call &call)
{
    Workspace &workspace = state.workspace(call.parameter(u"workspace"));
    if (workspace.kind != WorkspaceKind::team || !workspace.canManage())
        throw forbidden(u"Only owners and admins of a team workspace can invite people or change roles."_s);
    return workspace;
}

/// The member whom the call names, when their place in the team is anyone's to change.
Member &changeableMember(ServiceState &state, const Call &call)
{
    Member &member = state.member(managedTeam(state, call).id, call.parameter(u"member"));
    if (member.isYou)
        throw forbidden(u"You can't change your own place in the team."_s);
    if (member.role == WorkspaceRole::owner && member.status == MemberStatus::active)
        throw forbidden(u"The owner's role can't be changed."_s);
    return member;
}

Reply inviteMember(ServiceState &state, const Call &call)
{
    const QString team = managedTeam(state, call).id;
    const QString email = requiredText(call.body, u"email"_s).toLower();
    const auto role = wordField<WorkspaceRole>(call.body, u"role"_s).value_or(WorkspaceRole::member);
    if (!isEmailAddress(email))
        throw badRequest(u"Enter a valid email address."_s);
    QList<Member> &members = state.members[team];
    const auto hasEmail = [&](const Member &member) { return member.email.compare(email, Qt::CaseInsensitive) == 0; };
    if (std::any_of(members.cbegin(), members.cend(), hasEmail))
        throw conflict(u"duplicate"_s, u"That email is already a member or has a pending invite."_s);
    members.append({newId(u"m"_s), std::nullopt, email, role, MemberStatus::invited, call.now, false});
    return withData(toJson(members.constLast(), team), u"Invitation sent to %1."_s.arg(email));
}

Reply resendInvitation(ServiceState &state, const Call &call)
{
    const QString team = managedTeam(state, call).id;
    Member &member = state.member(team, call.parameter(u"member"));
    if (member.status != MemberStatus::invited)
        throw conflict(u"already_joined"_s, u"%1 has already joined."_s.arg(member.email));
    member.invitedAt = call.now;
    return withData(toJson(member, team), u"Invitation sent again to %1."_s.arg(member.email));
}

Reply changeRole(ServiceState &state, const Call &call)
{
    Member &member = changeableMember(state, call);
    const std::optional<WorkspaceRole> role = wordField<WorkspaceRole>(call.body, u"role"_s);
    if (!role || *role == WorkspaceRole::owner)
        throw badRequest(u"A member can become admin, member or viewer."_s);
    member.role = *role;
    const QString message = u"%1 is now %2."_s.arg(member.name.value_or(member.email), rawValue(*role));
    return withData(toJson(member, call.parameter(u"workspace")), message);
}

Reply removeMember(ServiceState &state, const Call &call)
{
    const QString id = changeableMember(state, call).id;
    state.members[call.parameter(u"workspace")].removeIf([&](const Member &member) { return member.id == id; });
    return done();
}

} // namespace

void addMemberRoutes(Router &router, ServiceState &state)
{
    SessionRoutes routes(router, state);
    routes.add(u"POST"_s, u"/workspaces/{workspace}/members"_s, inviteMember);
    routes.add(u"POST"_s, u"/workspaces/{workspace}/members/{member}/resend"_s, resendInvitation);
    routes.add(u"PATCH"_s, u"/workspaces/{workspace}/members/{member}"_s, changeRole);
    routes.add(u"DELETE"_s, u"/workspaces/{workspace}/members/{member}"_s, removeMember);
}

} // namespace pingwell::devserver
