#include "api/member_dto.h"

namespace pingwell {

MemberDTO MemberDTO::read(WireObject object)
{
    MemberDTO dto;
    dto.id = object.requiredIdentifier("id");
    dto.workspaceId = object.requiredIdentifier("workspaceId");
    dto.email = object.requiredString("email");
    dto.role = object.requiredString("role");
    dto.status = object.requiredString("status");
    dto.invitedAt = object.instant("invitedAt");
    dto.name = object.string("name");
    dto.isSelf = object.flag("isSelf");
    return dto;
}

Member MemberDTO::mapped(WireStrings &) const
{
    Member member;
    member.id = WireStrings::text(id);
    if (name && !name->empty())
        member.name = WireStrings::text(*name);
    member.email = WireStrings::text(email);
    member.role = fromWord<WorkspaceRole>(role).value_or(WorkspaceRole::member);
    member.status = fromWord<MemberStatus>(status).value_or(MemberStatus::active);
    member.invitedAt = invitedAt;
    member.isYou = isSelf.value_or(false);
    return member;
}

} // namespace pingwell
