#include "api/workspace_dto.h"

#include "api/dashboard_bounds.h"

namespace pingwell {

WorkspaceDTO WorkspaceDTO::read(WireObject object)
{
    WorkspaceDTO dto;
    dto.id = object.requiredIdentifier("id");
    dto.name = object.requiredString("name");
    dto.kind = object.requiredString("kind");
    dto.role = object.requiredString("role");
    dto.responseTimeoutMinutes = object.integer("responseTimeoutMinutes");
    dto.timeoutAction = object.string("timeoutAction");
    return dto;
}

Workspace WorkspaceDTO::mapped(WireStrings &strings) const
{
    Workspace workspace;
    workspace.id = strings.shared(id);
    workspace.name = WireStrings::text(name);
    workspace.kind = fromWord<WorkspaceKind>(kind).value_or(WorkspaceKind::personal);
    // An unknown role of the person's own gets the fewest rights; an unknown role of a colleague is shown as member.
    workspace.role = fromWord<WorkspaceRole>(role).value_or(WorkspaceRole::viewer);
    workspace.responseTimeoutMinutes = responseTimeoutMinutes.value_or(30);
    workspace.timeoutAction = fromWord<TimeoutAction>(timeoutAction).value_or(TimeoutAction::expire);
    return workspace;
}

CreatedWorkspaceDTO CreatedWorkspaceDTO::read(WireObject object)
{
    return {.workspace = required(object.record<WorkspaceDTO>("workspace")),
            .members = required(object.list<MemberDTO>("members"))};
}

CreatedWorkspace CreatedWorkspaceDTO::mapped(WireStrings &strings) const
{
    CreatedWorkspace created;
    created.workspace = workspace.mapped(strings);
    members.mapTo(created.members, maximumMembers, strings);
    return created;
}

} // namespace pingwell
