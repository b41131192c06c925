#include "ui/team/member_list_model.h"

#include "text/display_text.h"
#include "text/initials.h"

namespace pingwell {

namespace {

MemberRow memberRow(const Member &member, const AppStore &store)
{
    const QString name = displayLine(member.name.value_or(QString()));
    const QString email = displayLine(member.email);
    const bool isNamed = !name.isEmpty();
    MemberRow row;
    row.id = member.id;
    row.title = isNamed ? name : visibleName(member.email);
    row.email = isNamed ? email : QString();
    row.initials = initialsOf(isNamed ? name : email.section(u'@', 0, 0));
    row.role = rawValue(member.role);
    row.isInvited = member.status == MemberStatus::invited;
    row.invitedAt = member.invitedAt ? millisecondsFromInstant(*member.invitedAt) : -1;
    row.hasActions = store.managesActiveTeam() && !member.isYou;
    row.canChangeRole = store.canChangeRole(member);
    row.canRemove = store.canRemoveMember(member);
    row.canResend = store.canResendInvitation(member);
    return row;
}

} // namespace

MemberListModel::MemberListModel(QObject *parent)
    : StoreListModel("member",
                     {&AppStore::membersChanged, &AppStore::workspacesChanged, &AppStore::activeWorkspaceIDChanged},
                     parent)
{
}

QList<KeyedRow> MemberListModel::rowsOf(const AppStore &store)
{
    QList<KeyedRow> rows;
    for (const Member &member : store.members().value(store.activeWorkspaceID()))
        rows.append({member.id, QVariant::fromValue(memberRow(member, store))});
    return rows;
}

} // namespace pingwell
