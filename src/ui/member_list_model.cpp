#include "ui/member_list_model.h"

#include "ui/display_text.h"
#include "ui/initials.h"

namespace pingwell {

namespace {

MemberRow memberRow(const Member &member, const AppStore &store)
{
    const QString name = displayLine(member.name.value_or(QString()));
    const QString email = displayLine(member.email);
    const bool isNamed = !name.isEmpty();
    MemberRow row;
    row.id = member.id;
    row.title = isNamed ? name : email.isEmpty() ? QStringLiteral("(no name)") : email;
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
    : KeyedListModel("member", parent)
{
}

void MemberListModel::setStore(AppStore *store)
{
    if (m_store == store)
        return;
    if (m_store)
        m_store->disconnect(this);
    m_store = store;
    if (store) {
        connect(store, &AppStore::membersChanged, this, &MemberListModel::update);
        connect(store, &AppStore::workspacesChanged, this, &MemberListModel::update);
        connect(store, &AppStore::activeWorkspaceIDChanged, this, &MemberListModel::update);
    }
    emit storeChanged();
    update();
}

void MemberListModel::update()
{
    QList<KeyedRow> rows;
    if (m_store) {
        const QList<Member> members = m_store->members().value(m_store->activeWorkspaceID());
        rows.reserve(members.size());
        for (const Member &member : members)
            rows.append({member.id, QVariant::fromValue(memberRow(member, *m_store))});
    }
    setRows(std::move(rows));
}

} // namespace pingwell
