#include "ui/invitation_list_model.h"

#include "ui/display_text.h"

namespace pingwell {

namespace {

InvitationRow invitationRow(const Invitation &invitation)
{
    const QString name = displayLine(invitation.workspaceName);
    InvitationRow row;
    row.token = invitation.token;
    row.workspaceName = name.isEmpty() ? QStringLiteral("(no name)") : name;
    row.role = rawValue(invitation.role);
    row.invitedAt = invitation.invitedAt ? millisecondsFromInstant(*invitation.invitedAt) : -1;
    return row;
}

} // namespace

InvitationListModel::InvitationListModel(QObject *parent)
    : KeyedListModel("invitation", parent)
{
}

void InvitationListModel::setStore(AppStore *store)
{
    if (m_store == store)
        return;
    if (m_store)
        m_store->disconnect(this);
    m_store = store;
    if (store)
        connect(store, &AppStore::invitationsChanged, this, &InvitationListModel::update);
    emit storeChanged();
    update();
}

void InvitationListModel::update()
{
    QList<KeyedRow> rows;
    if (m_store) {
        for (const Invitation &invitation : m_store->invitations())
            rows.append({invitation.token, QVariant::fromValue(invitationRow(invitation))});
    }
    setRows(std::move(rows));
}

} // namespace pingwell
