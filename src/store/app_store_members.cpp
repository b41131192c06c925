#include "store/app_store.h"

#include "api/endpoints.h"
#include "store/invite_rules.h"
#include "store/local_id.h"

namespace pingwell {

namespace {

QString laneOf(const QString &memberID)
{
    return QStringLiteral("member/") + memberID;
}

QList<Member> *listIn(const ChangeableRecords &records, const QString &workspaceID)
{
    const auto list = records.members.find(workspaceID);
    return list == records.members.end() ? nullptr : &*list;
}

// How the service is told is the caller's to say.
template<typename Value>
RecordField fieldOf(const QString &workspaceID, const QString &memberID, const QString &name, Value Member::*member)
{
    RecordField field{.name = name, .changed = &Records::membersChanged};
    const auto find = [workspaceID, memberID](const ChangeableRecords &records) {
        QList<Member> *const list = listIn(records, workspaceID);
        return list ? findIn(*list, memberID) : nullptr;
    };
    bindField(field, find, member);
    return field;
}

RecordField existenceOf(const QString &workspaceID, const Removed<Member> &member)
{
    RecordField field{.changed = &Records::membersChanged};
    bindExistence(
        field, [workspaceID](const ChangeableRecords &records) { return listIn(records, workspaceID); }, member);
    return field;
}

} // namespace

bool AppStore::managesActiveTeam() const
{
    const auto workspace = activeWorkspace();
    return workspace && workspace->kind == WorkspaceKind::team && workspace->canManage();
}

std::optional<Member> AppStore::activeMember(const QString &memberID) const
{
    QList<Member> active = members().value(activeWorkspaceID());
    const Member *const found = findIn(active, memberID);
    return found ? std::optional(*found) : std::nullopt;
}

std::optional<InviteError> AppStore::invite(const QString &email, WorkspaceRole role)
{
    checkMainThread();
    if (!managesActiveTeam())
        return InviteError::notAllowed;
    QList<Member> all = members().value(activeWorkspaceID());
    if (const auto error = inviteError(email, all))
        return error;
    const Member member{.id = newLocalID(u'm'),
                        .name = std::nullopt,
                        .email = normalizedEmail(email),
                        .role = role,
                        .status = MemberStatus::invited,
                        .invitedAt = now(),
                        .isYou = false};
    if (m_client)
        m_provisionalMembers.insert(member.id);
    m_records.setMembers(activeWorkspaceID(), all << member);
    m_mutations.start({.operation =
                           [this, workspaceID = activeWorkspaceID(), member](APIClientPtr client) {
                               return consentOf(
                                   endpoints::inviteMember(client, workspaceID, member.email, member.role),
                                   [this, workspaceID, id = member.id](const WithMessage<Member> &invited) {
                                       replaceProvisional(workspaceID, id, invited.record);
                                   });
                           },
                       .rollback = [this, workspaceID = activeWorkspaceID(),
                                    id = member.id] { replaceProvisional(workspaceID, id, std::nullopt); }});
    return std::nullopt;
}

void AppStore::replaceProvisional(const QString &workspaceID, const QString &memberID,
                                  const std::optional<Member> &member)
{
    m_provisionalMembers.remove(memberID);
    QList<Member> all = members().value(workspaceID);
    const auto provisional = removeFrom(all, memberID);
    if (!provisional)
        return;
    if (member)
        all.insert(provisional->place, *member);
    m_records.setMembers(workspaceID, all);
}

bool AppStore::canChangeRole(const Member &member) const
{
    return managesActiveTeam() && member.role != WorkspaceRole::owner && !member.isYou;
}

void AppStore::changeRole(const QString &memberID, WorkspaceRole role)
{
    checkMainThread();
    const auto member = activeMember(memberID);
    if (!member || !canChangeRole(*member) || role == WorkspaceRole::owner || role == member->role)
        return;
    RecordField field = fieldOf(activeWorkspaceID(), memberID, QStringLiteral("role"), &Member::role);
    field.tell = [workspaceID = activeWorkspaceID(), memberID, role](APIClientPtr client, const JSONObject &change) {
        WorkspaceRole wanted = role;
        takeWireValue(wanted, change.first());
        return consentOf(endpoints::changeMemberRole(client, workspaceID, memberID, wanted));
    };
    m_changes.change(laneOf(memberID), {{field, wireValue(role)}});
}

bool AppStore::canRemoveMember(const Member &member) const
{
    const bool isOwner = member.role == WorkspaceRole::owner && member.status == MemberStatus::active;
    return managesActiveTeam() && !member.isYou && !isOwner && !m_provisionalMembers.contains(member.id);
}

void AppStore::removeMember(const QString &memberID)
{
    checkMainThread();
    const auto member = activeMember(memberID);
    if (!member || !canRemoveMember(*member))
        return;
    const qsizetype place = placeOf(memberID, members().value(activeWorkspaceID()));
    RecordField field = existenceOf(activeWorkspaceID(), {*member, place});
    field.tell = [workspaceID = activeWorkspaceID(), memberID](APIClientPtr client, const JSONObject &) {
        return consentOf(endpoints::removeMember(client, workspaceID, memberID));
    };
    m_changes.change(laneOf(memberID), {{field, false}});
}

bool AppStore::canResendInvitation(const Member &member) const
{
    return managesActiveTeam() && member.status == MemberStatus::invited && !m_provisionalMembers.contains(member.id);
}

void AppStore::resendInvitation(const QString &memberID)
{
    checkMainThread();
    const auto member = activeMember(memberID);
    if (!member || !canResendInvitation(*member))
        return;
    RecordField field = fieldOf(activeWorkspaceID(), memberID, QStringLiteral("invitedAt"), &Member::invitedAt);
    field.tell = [workspaceID = activeWorkspaceID(), memberID](APIClientPtr client, const JSONObject &) {
        return consentOf(endpoints::resendInvitation(client, workspaceID, memberID));
    };
    m_changes.change(laneOf(memberID), {{field, wireValue(std::optional(now()))}});
}

} // namespace pingwell
