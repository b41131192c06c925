#include "store/app_store.h"

#include "api/endpoints.h"
#include "store/invite_rules.h"
#include "store/local_id.h"
#include "store/mutation_steps.h"
#include "store/record_field.h"

#include <algorithm>

namespace pingwell {

namespace {

QString laneOf(const QString &memberID)
{
    return QStringLiteral("member/") + memberID;
}

} // namespace

/// Changes of members, and what follows the service's answers.
struct AppStore::MemberSteps
{
    /// A member, and where it stands.
    struct Place
    {
        QString workspaceID;
        qsizetype index = 0;
        Member member;
    };

    static std::optional<Place> find(const AppStore &store, const QString &workspaceID, const QString &memberID);
    static std::optional<Place> findActive(const AppStore &store, const QString &memberID);
    static void setList(AppStore &store, const QString &workspaceID, const QList<Member> &members);
    static void replace(AppStore &store, const Place &place, const Member &member);
    static void remove(AppStore &store, const QString &workspaceID, const QString &memberID);
    static Member *findIn(const Records &records, const Place &place);
    // How the service is told is the caller's to say.
    template<typename Value>
    static RecordField fieldOf(const Place &place, const QString &name, Value Member::*member);
    static RecordField existenceOf(const Place &place);
    /// The service knows the one who was invited by that name here.
    static void takeInvited(AppStore &store, const Place &provisional, const Member &member);
};

bool AppStore::managesActiveTeam() const
{
    const auto workspace = activeWorkspace();
    return workspace && workspace->kind == WorkspaceKind::team && workspace->canManage();
}

std::optional<InviteError> AppStore::invite(const QString &email, WorkspaceRole role)
{
    checkMainThread();
    if (!managesActiveTeam())
        return InviteError::notAllowed;
    QList<Member> members = m_members.value(m_activeWorkspaceID);
    if (const auto error = inviteError(email, members))
        return error;
    const Member member{.id = newLocalID(u'm'),
                        .name = std::nullopt,
                        .email = normalizedEmail(email),
                        .role = role,
                        .status = MemberStatus::invited,
                        .invitedAt = m_now,
                        .isYou = false};
    members << member;
    if (m_client)
        m_provisionalMembers.insert(member.id);
    MemberSteps::setList(*this, m_activeWorkspaceID, members);
    const MemberSteps::Place place{m_activeWorkspaceID, members.size() - 1, member};
    mutate({.operation =
                [this, place, role](APIClientPtr client) {
                    return consentOf(endpoints::inviteMember(client, place.workspaceID, place.member.email, role),
                                     [this, place](const WithMessage<Member> &invited) {
                                         MemberSteps::takeInvited(*this, place, invited.record);
                                     });
                },
            .rollback = [place](AppStore &store) { MemberSteps::remove(store, place.workspaceID, place.member.id); }});
    return std::nullopt;
}

void AppStore::MemberSteps::takeInvited(AppStore &store, const Place &provisional, const Member &member)
{
    store.m_provisionalMembers.remove(provisional.member.id);
    replace(store, provisional, member);
}

bool AppStore::canChangeRole(const Member &member) const
{
    return managesActiveTeam() && member.role != WorkspaceRole::owner && !member.isYou;
}

void AppStore::changeRole(const QString &memberID, WorkspaceRole role)
{
    checkMainThread();
    const auto place = MemberSteps::findActive(*this, memberID);
    if (!place || !canChangeRole(place->member) || role == WorkspaceRole::owner || role == place->member.role)
        return;
    RecordField field = MemberSteps::fieldOf(*place, QStringLiteral("role"), &Member::role);
    field.tell = [place = *place](APIClientPtr client, const JSONObject &change) {
        WorkspaceRole wanted = place.member.role;
        takeWireValue(wanted, change.first());
        return consentOf(endpoints::changeMemberRole(client, place.workspaceID, place.member.id, wanted));
    };
    changeFields(laneOf(memberID), {{field, wireValue(role)}});
}

bool AppStore::canRemoveMember(const Member &member) const
{
    const bool isOwner = member.role == WorkspaceRole::owner && member.status == MemberStatus::active;
    return managesActiveTeam() && !member.isYou && !isOwner && !m_provisionalMembers.contains(member.id);
}

void AppStore::removeMember(const QString &memberID)
{
    checkMainThread();
    const auto place = MemberSteps::findActive(*this, memberID);
    if (!place || !canRemoveMember(place->member))
        return;
    RecordField field = MemberSteps::existenceOf(*place);
    field.tell = [place = *place](APIClientPtr client, const JSONObject &) {
        return consentOf(endpoints::removeMember(client, place.workspaceID, place.member.id));
    };
    changeFields(laneOf(memberID), {{field, false}});
}

bool AppStore::canResendInvitation(const Member &member) const
{
    return managesActiveTeam() && member.status == MemberStatus::invited && !m_provisionalMembers.contains(member.id);
}

void AppStore::resendInvitation(const QString &memberID)
{
    checkMainThread();
    const auto place = MemberSteps::findActive(*this, memberID);
    if (!place || !canResendInvitation(place->member))
        return;
    RecordField field = MemberSteps::fieldOf(*place, QStringLiteral("invitedAt"), &Member::invitedAt);
    field.tell = [place = *place](APIClientPtr client, const JSONObject &) {
        return consentOf(endpoints::resendInvitation(client, place.workspaceID, place.member.id));
    };
    changeFields(laneOf(memberID), {{field, wireValue(std::optional(m_now))}});
}

std::optional<AppStore::MemberSteps::Place>
AppStore::MemberSteps::find(const AppStore &store, const QString &workspaceID, const QString &memberID)
{
    const QList<Member> members = store.m_members.value(workspaceID);
    for (qsizetype index = 0; index < members.size(); ++index) {
        if (members.at(index).id == memberID)
            return Place{workspaceID, index, members.at(index)};
    }
    return std::nullopt;
}

std::optional<AppStore::MemberSteps::Place> AppStore::MemberSteps::findActive(const AppStore &store,
                                                                              const QString &memberID)
{
    return find(store, store.m_activeWorkspaceID, memberID);
}

void AppStore::MemberSteps::setList(AppStore &store, const QString &workspaceID, const QList<Member> &members)
{
    QMap<QString, QList<Member>> all = store.m_members;
    all.insert(workspaceID, members);
    store.set(store.m_members, all, &AppStore::membersChanged);
}

void AppStore::MemberSteps::replace(AppStore &store, const Place &place, const Member &member)
{
    const auto now = find(store, place.workspaceID, place.member.id);
    if (!now)
        return;
    QList<Member> members = store.m_members.value(place.workspaceID);
    members[now->index] = member;
    setList(store, place.workspaceID, members);
}

void AppStore::MemberSteps::remove(AppStore &store, const QString &workspaceID, const QString &memberID)
{
    store.m_provisionalMembers.remove(memberID);
    QList<Member> members = store.m_members.value(workspaceID);
    if (members.removeIf([&memberID](const Member &member) { return member.id == memberID; }) > 0)
        setList(store, workspaceID, members);
}

Member *AppStore::MemberSteps::findIn(const Records &records, const Place &place)
{
    const auto list = records.members.find(place.workspaceID);
    if (list == records.members.end())
        return nullptr;
    const auto found = std::find_if(list->begin(), list->end(),
                                    [&place](const Member &member) { return member.id == place.member.id; });
    return found == list->end() ? nullptr : &*found;
}

template<typename Value>
RecordField AppStore::MemberSteps::fieldOf(const Place &place, const QString &name, Value Member::*member)
{
    RecordField field{.name = name, .changed = &AppStore::membersChanged};
    bindField(
        field, [place](const Records &records) { return findIn(records, place); }, member);
    return field;
}

RecordField AppStore::MemberSteps::existenceOf(const Place &place)
{
    return {.name = existenceField,
            .read = [place](const Records &records) { return std::optional<JSON>(findIn(records, place) != nullptr); },
            .write =
                [place](const Records &records, const JSON &exists) {
                    const auto list = records.members.find(place.workspaceID);
                    if (list == records.members.end())
                        return;
                    if (exists == JSON(true))
                        list->insert(std::min(place.index, list->size()), place.member);
                    else
                        list->removeIf([&place](const Member &member) { return member.id == place.member.id; });
                },
            .changed = &AppStore::membersChanged};
}

} // namespace pingwell
