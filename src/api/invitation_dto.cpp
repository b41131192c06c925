#include "api/invitation_dto.h"

namespace pingwell {

InvitationDTO InvitationDTO::read(WireObject object)
{
    InvitationDTO dto;
    dto.token = object.requiredIdentifier("token");
    dto.role = object.string("role");
    dto.workspace = object.string("workspace");
    dto.invitedAt = object.instant("invitedAt");
    return dto;
}

Invitation InvitationDTO::mapped(WireStrings &) const
{
    Invitation invitation;
    invitation.token = WireStrings::text(token);
    invitation.workspaceName = WireStrings::text(workspace.value_or(""));
    invitation.role = fromWord<WorkspaceRole>(role).value_or(WorkspaceRole::member);
    invitation.invitedAt = invitedAt;
    return invitation;
}

} // namespace pingwell
