#include "api/workspace_dto.h"

namespace pingwell {

WorkspaceDTO WorkspaceDTO::read(WireObject object)
{
    WorkspaceDTO dto;
    dto.id = required(object.string("id"));
    dto.name = required(object.string("name"));
    dto.kind = required(object.string("kind"));
    dto.role = required(object.string("role"));
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
    // An unknown role in one's own workspace allows the least; an unknown one of a colleague's is just a member's.
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
    created.members = members.mapped(strings);
    return created;
}

} // namespace pingwell
