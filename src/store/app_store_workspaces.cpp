#include "store/app_store.h"

#include "api/endpoints.h"
#include "store/local_id.h"

namespace pingwell {

namespace {

constexpr qsizetype maximumWorkspaceNameLength = 48;
constexpr std::int64_t newWorkspaceTimeoutMinutes = 30;

} // namespace

void AppStore::createWorkspace(const QString &name)
{
    checkMainThread();
    const QString trimmed = name.trimmed();
    if (trimmed.isEmpty())
        return;
    if (!m_backend) {
        createDemoWorkspace(trimmed.left(maximumWorkspaceNameLength));
        return;
    }
    mutate([](AppStore &) {}, [store = QPointer(this), trimmed](
                                  APIClientPtr client) { return performCreateWorkspace(store, client, trimmed); });
}

QCoro::Task<> AppStore::performCreateWorkspace(QPointer<AppStore> store, APIClientPtr client, QString name)
{
    const CreatedWorkspace created = co_await endpoints::createWorkspace(client, name);
    if (!store || store->m_client != client)
        co_return;
    store->addWorkspace(created.workspace, created.members);
    store->showToast(created.workspace.name + QStringLiteral(" is ready. Invite your team from the Team tab."), false);
}

void AppStore::createDemoWorkspace(const QString &name)
{
    const Workspace workspace{.id = newLocalID(u'w'),
                              .name = name,
                              .kind = WorkspaceKind::team,
                              .role = WorkspaceRole::owner,
                              .responseTimeoutMinutes = newWorkspaceTimeoutMinutes,
                              .timeoutAction = TimeoutAction::escalate};
    Member owner{.id = newLocalID(u'm'),
                 .name = std::nullopt,
                 .email = QString(),
                 .role = WorkspaceRole::owner,
                 .status = MemberStatus::active,
                 .invitedAt = std::nullopt,
                 .isYou = true};
    if (m_account) {
        owner.name = m_account->name;
        owner.email = m_account->email;
    }
    addWorkspace(workspace, {owner});
}

void AppStore::addWorkspace(const Workspace &workspace, const QList<Member> &members)
{
    QList<Workspace> workspaces = m_workspaces;
    workspaces.removeIf([&workspace](const Workspace &other) { return other.id == workspace.id; });
    workspaces << workspace;
    set(m_workspaces, workspaces, &AppStore::workspacesChanged);
    QMap<QString, QList<Member>> all = m_members;
    all.insert(workspace.id, members);
    set(m_members, all, &AppStore::membersChanged);
    selectWorkspace(workspace.id);
}

} // namespace pingwell
