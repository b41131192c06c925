#include "ui/team/invitation_list_model.h"

#include "text/display_text.h"

namespace pingwell {

namespace {

InvitationRow invitationRow(const Invitation &invitation)
{
    InvitationRow row;
    row.token = invitation.token;
    row.workspaceName = visibleName(invitation.workspaceName);
    row.role = rawValue(invitation.role);
    row.invitedAt = invitation.invitedAt ? millisecondsFromInstant(*invitation.invitedAt) : -1;
    return row;
}

} // namespace

InvitationListModel::InvitationListModel(QObject *parent)
    : StoreListModel("invitation", {&AppStore::invitationsChanged}, parent)
{
}

QList<KeyedRow> InvitationListModel::rowsOf(const AppStore &store)
{
    QList<KeyedRow> rows;
    for (const Invitation &invitation : store.invitations())
        rows.append({invitation.token, QVariant::fromValue(invitationRow(invitation))});
    return rows;
}

} // namespace pingwell
