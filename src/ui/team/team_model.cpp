#include "ui/team/team_model.h"

#include "text/display_text.h"
#include "ui/engine/replace_store.h"

#include <algorithm>

namespace pingwell {

namespace {

QString subtitleOf(const QList<Member> &members)
{
    const qsizetype pending = std::count_if(
        members.begin(), members.end(), [](const Member &member) { return member.status == MemberStatus::invited; });
    QString text = QString::number(members.size());
    text += members.size() == 1 ? QStringLiteral(" member") : QStringLiteral(" members");
    if (pending > 0)
        text += QStringLiteral(" · %1 pending").arg(pending);
    return text;
}

QString messageOf(InviteError error)
{
    switch (error) {
    case InviteError::invalidEmail:
        return QStringLiteral("Enter a valid email address.");
    case InviteError::duplicate:
        return QStringLiteral("That email is already a member or has a pending invite.");
    case InviteError::notAllowed:
        return QStringLiteral("Only owners and admins of a team workspace can invite people.");
    }
    return {};
}

} // namespace

void TeamModel::setStore(AppStore *store)
{
    if (!replaceStore(m_store, store, this))
        return;
    if (store) {
        connect(store, &AppStore::membersChanged, this, &TeamModel::update);
        connect(store, &AppStore::workspacesChanged, this, &TeamModel::update);
        connect(store, &AppStore::activeWorkspaceIDChanged, this, &TeamModel::update);
    }
    emit storeChanged();
    update();
}

QStringList TeamModel::roles()
{
    QStringList words;
    for (const WorkspaceRole role : allCases<WorkspaceRole>())
        words << rawValue(role);
    return words;
}

QString TeamModel::invite(const QString &email, const QString &role)
{
    const auto wanted = fromRawValue<WorkspaceRole>(role);
    if (!m_store || !wanted)
        return messageOf(InviteError::notAllowed);
    const auto error = m_store->invite(email, *wanted);
    return error ? messageOf(*error) : QString();
}

void TeamModel::changeRole(const QString &memberID, const QString &role)
{
    const auto wanted = fromRawValue<WorkspaceRole>(role);
    if (m_store && wanted)
        m_store->changeRole(memberID, *wanted);
}

TeamModel::State TeamModel::stateOf(const AppStore &store)
{
    State state;
    state.subtitle = subtitleOf(store.members().value(store.activeWorkspaceID()));
    const auto workspace = store.activeWorkspace();
    if (!workspace)
        return state;
    state.isTeam = workspace->kind == WorkspaceKind::team;
    state.isOwner = workspace->role == WorkspaceRole::owner;
    state.isViewer = workspace->role == WorkspaceRole::viewer;
    state.canManage = workspace->canManage();
    state.workspaceName = visibleName(workspace->name);
    state.editableName = displayLine(workspace->name);
    return state;
}

void TeamModel::update()
{
    const State state = m_store ? stateOf(*m_store) : State();
    if (m_state == state)
        return;
    m_state = state;
    emit changed();
}

} // namespace pingwell
