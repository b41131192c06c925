#include "ui/main/workspace_list_model.h"

#include "text/display_text.h"

namespace pingwell {

namespace {

WorkspaceRow workspaceRow(const Workspace &workspace, const QString &activeID)
{
    WorkspaceRow row;
    row.id = workspace.id;
    row.name = visibleName(workspace.name);
    row.isTeam = workspace.kind == WorkspaceKind::team;
    row.role = rawValue(workspace.role);
    row.isActive = workspace.id == activeID;
    return row;
}

} // namespace

WorkspaceListModel::WorkspaceListModel(QObject *parent)
    : StoreListModel("workspace", {&AppStore::workspacesChanged, &AppStore::activeWorkspaceIDChanged}, parent)
{
}

QList<KeyedRow> WorkspaceListModel::rowsOf(const AppStore &store)
{
    QList<KeyedRow> rows;
    for (const Workspace &workspace : store.workspaces())
        rows.append({workspace.id, QVariant::fromValue(workspaceRow(workspace, store.activeWorkspaceID()))});
    return rows;
}

void WorkspaceListModel::storeMoved()
{
    update();
    const auto workspace = store() ? store()->activeWorkspace() : std::nullopt;
    const WorkspaceRow active = workspace ? workspaceRow(*workspace, workspace->id) : WorkspaceRow();
    if (m_active == active)
        return;
    m_active = active;
    emit activeChanged();
}

} // namespace pingwell
