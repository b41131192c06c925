#include "fields.h"
#include "routes.h"
#include "session_routes.h"
#include "wire.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace pingwell::devserver {

namespace {

constexpr qsizetype longestWorkspaceName = 48;
constexpr double longestResponseTime = 7 * 24 * 60;

Reply changeWorkspace(ServiceState &state, const Call &call)
{
    Workspace &workspace = state.managedWorkspace(call.parameter(u"workspace"));
    Workspace changed = workspace;
    if (const auto minutes = numberField(call.body, u"responseTimeoutMinutes"_s, 1, longestResponseTime))
        changed.responseTimeoutMinutes = std::llround(*minutes);
    if (const auto action = wordField<TimeoutAction>(call.body, u"timeoutAction"_s))
        changed.timeoutAction = *action;
    if (call.body.contains(u"name"_s))
        changed.name = requiredText(call.body, u"name"_s).left(longestWorkspaceName);
    if (!isAllowed(changed.timeoutAction, changed.kind))
        throw badRequest(u"A personal workspace has nobody to escalate to."_s);
    if (changed == workspace && call.body.isEmpty())
        throw badRequest(u"Nothing to change was named."_s);
    workspace = changed;
    return withData(toJson(workspace));
}

Reply createWorkspace(ServiceState &state, const Call &call)
{
    const QString name = requiredText(call.body, u"name"_s).left(longestWorkspaceName);
    const Workspace created{newId(u"w"_s),        name, WorkspaceKind::team,
                            WorkspaceRole::owner, 30,   TimeoutAction::escalate};
    const Member person{newId(u"m"_s),
                        state.account.name,
                        state.account.email,
                        WorkspaceRole::owner,
                        MemberStatus::active,
                        std::nullopt,
                        true};
    state.workspaces.append(created);
    state.members.insert(created.id, {person});
    return withData(QJsonObject{{u"workspace"_s, toJson(created)}, {u"members"_s, membersToJson(state, created.id)}});
}

/// Leaving a workspace one owns deletes it for everyone.
Reply leaveWorkspace(ServiceState &state, const Call &call)
{
    const Workspace workspace = state.workspace(call.parameter(u"workspace"));
    if (workspace.kind == WorkspaceKind::personal)
        throw badRequest(u"You can't leave your personal workspace."_s);
    state.removeWorkspace(workspace.id);
    return done();
}

} // namespace

void addWorkspaceRoutes(Router &router, ServiceState &state)
{
    SessionRoutes routes(router, state);
    routes.add(u"POST"_s, u"/workspaces"_s, createWorkspace);
    routes.add(u"PATCH"_s, u"/workspaces/{workspace}"_s, changeWorkspace);
    routes.add(u"POST"_s, u"/workspaces/{workspace}/leave"_s, leaveWorkspace);
}

} // namespace pingwell::devserver
