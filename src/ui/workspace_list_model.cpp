#include "ui/workspace_list_model.h"

#include "ui/display_text.h"

namespace pingwell {

namespace {

WorkspaceRow workspaceRow(const Workspace &workspace, const QString &activeID)
{
    const QString name = displayName(workspace.name);
    WorkspaceRow row;
    row.id = workspace.id;
    row.name = name.isEmpty() ? QStringLiteral("(no name)") : name;
    row.isTeam = workspace.kind == WorkspaceKind::team;
    row.role = rawValue(workspace.role);
    row.isActive = workspace.id == activeID;
    return row;
}

} // namespace

WorkspaceListModel::WorkspaceListModel(QObject *parent)
    : KeyedListModel("workspace", parent)
{
}

void WorkspaceListModel::setStore(AppStore *store)
{
    if (m_store == store)
        return;
    if (m_store)
        m_store->disconnect(this);
    m_store = store;
    if (store) {
        connect(store, &AppStore::workspacesChanged, this, &WorkspaceListModel::update);
        connect(store, &AppStore::activeWorkspaceIDChanged, this, &WorkspaceListModel::update);
    }
    emit storeChanged();
    update();
}

void WorkspaceListModel::update()
{
    QList<KeyedRow> rows;
    WorkspaceRow active;
    if (m_store) {
        for (const Workspace &workspace : m_store->workspaces()) {
            const WorkspaceRow row = workspaceRow(workspace, m_store->activeWorkspaceID());
            if (row.isActive && active.id.isEmpty())
                active = row;
            rows.append({row.id, QVariant::fromValue(row)});
        }
    }
    setRows(std::move(rows));
    if (m_active == active)
        return;
    m_active = active;
    emit activeChanged();
}

} // namespace pingwell
