#include "store/app_store.h"

#include "api/endpoints.h"
#include "desktop/preference_keys.h"
#include "store/local_id.h"
#include "text/text_cut.h"

namespace pingwell {

namespace {

/// In characters, as a person counts them.
constexpr qsizetype longestWorkspaceName = 48;
constexpr std::int64_t newWorkspaceTimeoutMinutes = 30;

Workspace newDemoWorkspace(const QString &name)
{
    return {.id = newLocalID(u'w'),
            .name = name,
            .kind = WorkspaceKind::team,
            .role = WorkspaceRole::owner,
            .responseTimeoutMinutes = newWorkspaceTimeoutMinutes,
            .timeoutAction = TimeoutAction::escalate};
}

Member newDemoOwner(const std::optional<Account> &account)
{
    Member owner{.id = newLocalID(u'm'),
                 .name = std::nullopt,
                 .email = QString(),
                 .role = WorkspaceRole::owner,
                 .status = MemberStatus::active,
                 .invitedAt = std::nullopt,
                 .isYou = true};
    if (account) {
        owner.name = account->name;
        owner.email = account->email;
    }
    return owner;
}

/// One field of a workspace, which the service calls `key`.
template<typename Value>
RecordField fieldOf(const QString &workspaceID, const QString &key, Value Workspace::*member)
{
    RecordField field{.name = key,
                      .changed = &Records::workspacesChanged,
                      .tell = [workspaceID](APIClientPtr client, const JSONObject &change) {
                          return consentOf(endpoints::changeWorkspace(client, workspaceID, change));
                      }};
    bindField(
        field, [workspaceID](const ChangeableRecords &records) { return findIn(records.workspaces, workspaceID); },
        member);
    return field;
}

} // namespace

void AppStore::createWorkspace(const QString &name)
{
    checkMainThread();
    const QString trimmed = name.trimmed();
    if (trimmed.isEmpty())
        return;
    if (!m_backend) {
        enterNewWorkspace(newDemoWorkspace(firstCharacters(trimmed, longestWorkspaceName)), {newDemoOwner(account())});
        return;
    }
    m_mutations.start({.operation = [this, trimmed](APIClientPtr client) {
        return consentOf(endpoints::createWorkspace(client, trimmed), [this](const CreatedWorkspace &created) {
            enterNewWorkspace(created.workspace, created.members);
            showToast(created.workspace.name + QStringLiteral(" is ready. Invite your team from the Team tab."), false);
        });
    }});
}

void AppStore::enterNewWorkspace(const Workspace &workspace, const QList<Member> &members)
{
    QList<Workspace> workspaces = this->workspaces();
    removeFrom(workspaces, workspace.id);
    m_records.set(workspaces << workspace);
    m_records.setMembers(workspace.id, members);
    selectWorkspace(workspace.id);
}

void AppStore::leaveWorkspace()
{
    checkMainThread();
    const auto workspace = activeWorkspace();
    if (!workspace || workspace->kind != WorkspaceKind::team)
        return;
    if (!m_backend) {
        dropWorkspace(workspace->id);
        return;
    }
    // It is shown as long as the service hasn't confirmed; asked for again meanwhile, it is told once.
    const RecordField membership{.name = existenceField,
                                 .read = [](const ChangeableRecords &) { return std::optional<JSON>(true); },
                                 .write = [](const ChangeableRecords &, const JSON &) {},
                                 .tell =
                                     [this, workspaceID = workspace->id](APIClientPtr client, const JSONObject &) {
                                         return consentOf(
                                             endpoints::leaveWorkspace(client, workspaceID),
                                             [this, workspaceID](const Done &) { dropWorkspace(workspaceID); });
                                     }};
    m_changes.change(QStringLiteral("leave/") + workspace->id, {{membership, false}});
}

void AppStore::dropWorkspace(const QString &workspaceID)
{
    QStringList gone;
    for (const Alert &alert : alerts()) {
        if (alert.workspaceId == workspaceID)
            gone << alert.id;
    }
    m_notifications.withdraw(gone);
    m_records.remove<Workspace>(workspaceID);
    // Meanwhile the person may look at another one; that one stays.
    if (activeWorkspaceID() == workspaceID && !workspaces().isEmpty())
        selectWorkspace(workspaces().first().id);
    m_records.forgetAllOf(workspaceID);
}

void AppStore::renameWorkspace(const QString &name)
{
    checkMainThread();
    const QString trimmed = name.trimmed();
    if (managesActiveTeam() && !trimmed.isEmpty())
        changeWorkspace(&Workspace::name, trimmed, QStringLiteral("name"));
}

void AppStore::setResponseTimeout(std::int64_t minutes)
{
    checkMainThread();
    changeWorkspace(&Workspace::responseTimeoutMinutes, minutes, QStringLiteral("responseTimeoutMinutes"));
    rememberTimeout();
}

void AppStore::setTimeoutAction(TimeoutAction action)
{
    checkMainThread();
    const auto workspace = activeWorkspace();
    if (!workspace || !isAllowed(action, workspace->kind))
        return;
    changeWorkspace(&Workspace::timeoutAction, action, QStringLiteral("timeoutAction"));
    rememberTimeout();
}

template<typename Value>
void AppStore::changeWorkspace(Value Workspace::*member, const Value &value, const QString &key)
{
    const auto workspace = activeWorkspace();
    if (workspace && workspace->canManage())
        m_changes.change(QStringLiteral("workspace/") + workspace->id,
                         {{fieldOf(workspace->id, key, member), wireValue(value)}});
}

void AppStore::rememberTimeout()
{
    const auto workspace = activeWorkspace();
    if (m_backend || !workspace || !workspace->canManage())
        return;
    m_defaults->setNumber(preference_keys::responseTimeoutMinutes(workspace->id),
                          static_cast<double>(workspace->responseTimeoutMinutes));
    m_defaults->setString(preference_keys::timeoutAction(workspace->id), rawValue(workspace->timeoutAction));
}

} // namespace pingwell
