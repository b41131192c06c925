#include "store/app_store.h"

#include "api/endpoints.h"
#include "desktop/preference_keys.h"
#include "store/local_id.h"
#include "store/mutation_steps.h"
#include "store/record_field.h"
#include "text/text_cut.h"

#include <algorithm>

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

} // namespace

/// Changes of workspaces, and what follows the service's answers.
struct AppStore::WorkspaceSteps
{
    /// Changes one field of the active workspace, which the service calls `key`.
    template<typename Value>
    static void change(AppStore &store, Value Workspace::*field, const Value &value, const QString &key);
    static void rememberTimeout(AppStore &store);
    static void add(AppStore &store, const Workspace &workspace, const QList<Member> &members);
    static void remove(AppStore &store, const QString &workspaceID);
    static void takeIn(AppStore &store, const CreatedWorkspace &created);
};

void AppStore::createWorkspace(const QString &name)
{
    checkMainThread();
    const QString trimmed = name.trimmed();
    if (trimmed.isEmpty())
        return;
    if (!m_backend) {
        const Workspace workspace = newDemoWorkspace(firstCharacters(trimmed, longestWorkspaceName));
        WorkspaceSteps::add(*this, workspace, {newDemoOwner(m_account)});
        return;
    }
    mutate({.operation = [this, trimmed](APIClientPtr client) {
        return consentOf(endpoints::createWorkspace(client, trimmed),
                         [this](const CreatedWorkspace &created) { WorkspaceSteps::takeIn(*this, created); });
    }});
}

void AppStore::WorkspaceSteps::takeIn(AppStore &store, const CreatedWorkspace &created)
{
    add(store, created.workspace, created.members);
    store.showToast(created.workspace.name + QStringLiteral(" is ready. Invite your team from the Team tab."), false);
}

void AppStore::WorkspaceSteps::add(AppStore &store, const Workspace &workspace, const QList<Member> &members)
{
    QList<Workspace> workspaces = store.m_workspaces;
    workspaces.removeIf([&workspace](const Workspace &other) { return other.id == workspace.id; });
    workspaces << workspace;
    store.set(store.m_workspaces, workspaces, &AppStore::workspacesChanged);
    QMap<QString, QList<Member>> all = store.m_members;
    all.insert(workspace.id, members);
    store.set(store.m_members, all, &AppStore::membersChanged);
    store.selectWorkspace(workspace.id);
}

void AppStore::leaveWorkspace()
{
    checkMainThread();
    const auto workspace = activeWorkspace();
    if (!workspace || workspace->kind != WorkspaceKind::team)
        return;
    if (!m_backend) {
        WorkspaceSteps::remove(*this, workspace->id);
        return;
    }
    // It is shown as long as the service hasn't confirmed; asked for again meanwhile, it is told once.
    const RecordField membership{
        .name = existenceField,
        .read = [](const Records &) { return std::optional<JSON>(true); },
        .write = [](const Records &, const JSON &) {},
        .tell =
            [this, workspaceID = workspace->id](APIClientPtr client, const JSONObject &) {
                return consentOf(endpoints::leaveWorkspace(client, workspaceID),
                                 [this, workspaceID](const Done &) { WorkspaceSteps::remove(*this, workspaceID); });
            }};
    changeFields(QStringLiteral("leave/") + workspace->id, {{membership, false}});
}

void AppStore::WorkspaceSteps::remove(AppStore &store, const QString &workspaceID)
{
    const auto belongs = [&workspaceID](const auto &record) { return record.workspaceId == workspaceID; };
    QList<Workspace> workspaces = store.m_workspaces;
    workspaces.removeIf([&workspaceID](const Workspace &other) { return other.id == workspaceID; });
    QMap<QString, QList<Member>> members = store.m_members;
    members.remove(workspaceID);
    QList<Topic> topics = store.m_topics;
    topics.removeIf(belongs);
    QList<Alert> alerts;
    QStringList gone;
    for (const Alert &alert : std::as_const(store.m_alerts)) {
        if (belongs(alert))
            gone << alert.id;
        else
            alerts << alert;
    }
    store.withdrawNotifications(gone);
    store.set(store.m_workspaces, workspaces, &AppStore::workspacesChanged);
    // Meanwhile the person may look at another one; that one stays.
    if (store.m_activeWorkspaceID == workspaceID && !workspaces.isEmpty())
        store.selectWorkspace(workspaces.first().id);
    store.set(store.m_members, members, &AppStore::membersChanged);
    store.set(store.m_topics, topics, &AppStore::topicsChanged);
    store.set(store.m_alerts, alerts, &AppStore::alertsChanged);
}

void AppStore::renameWorkspace(const QString &name)
{
    checkMainThread();
    const QString trimmed = name.trimmed();
    if (managesActiveTeam() && !trimmed.isEmpty())
        WorkspaceSteps::change(*this, &Workspace::name, trimmed, QStringLiteral("name"));
}

void AppStore::setResponseTimeout(std::int64_t minutes)
{
    checkMainThread();
    WorkspaceSteps::change(*this, &Workspace::responseTimeoutMinutes, minutes,
                           QStringLiteral("responseTimeoutMinutes"));
    WorkspaceSteps::rememberTimeout(*this);
}

void AppStore::setTimeoutAction(TimeoutAction action)
{
    checkMainThread();
    const auto workspace = activeWorkspace();
    if (!workspace || !isAllowed(action, workspace->kind))
        return;
    WorkspaceSteps::change(*this, &Workspace::timeoutAction, action, QStringLiteral("timeoutAction"));
    WorkspaceSteps::rememberTimeout(*this);
}

template<typename Value>
void AppStore::WorkspaceSteps::change(AppStore &store, Value Workspace::*field, const Value &value, const QString &key)
{
    const auto workspace = store.activeWorkspace();
    if (!workspace || !workspace->canManage())
        return;
    const auto find = [id = workspace->id](const Records &records) -> Workspace * {
        const auto found = std::find_if(records.workspaces.begin(), records.workspaces.end(),
                                        [&id](const Workspace &candidate) { return candidate.id == id; });
        return found == records.workspaces.end() ? nullptr : &*found;
    };
    RecordField changed{.name = key,
                        .changed = &AppStore::workspacesChanged,
                        .tell = [id = workspace->id](APIClientPtr client, const JSONObject &change) {
                            return consentOf(endpoints::changeWorkspace(client, id, change));
                        }};
    bindField(changed, find, field);
    store.changeFields(QStringLiteral("workspace/") + workspace->id, {{changed, wireValue(value)}});
}

void AppStore::WorkspaceSteps::rememberTimeout(AppStore &store)
{
    const auto workspace = store.activeWorkspace();
    if (store.m_backend || !store.m_defaults || !workspace || !workspace->canManage())
        return;
    store.m_defaults->setNumber(preference_keys::responseTimeoutMinutes(workspace->id),
                                static_cast<double>(workspace->responseTimeoutMinutes));
    store.m_defaults->setString(preference_keys::timeoutAction(workspace->id), rawValue(workspace->timeoutAction));
}

} // namespace pingwell
