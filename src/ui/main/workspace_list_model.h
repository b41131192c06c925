#pragma once

#include "ui/lists/store_list_model.h"

#include <QtQml/qqmlregistration.h>

namespace pingwell {

/// What a screen shows of one workspace; the name is cleaned for display.
struct WorkspaceRow
{
    Q_GADGET
    QML_VALUE_TYPE(workspaceRow)
    Q_PROPERTY(QString id MEMBER id FINAL)
    Q_PROPERTY(QString name MEMBER name FINAL)
    Q_PROPERTY(bool isTeam MEMBER isTeam FINAL)
    Q_PROPERTY(QString role MEMBER role FINAL)
    Q_PROPERTY(bool isActive MEMBER isActive FINAL)

public:
    QString id;
    QString name;
    bool isTeam = false;
    /// "owner", "admin", "member" or "viewer".
    QString role;
    bool isActive = false;

    friend bool operator==(const WorkspaceRow &, const WorkspaceRow &) = default;
};

/// The person's workspaces in the store's order.
// The base is named in full: the registration of QML types does not look names up.
class WorkspaceListModel : public pingwell::StoreListModel
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(pingwell::WorkspaceRow active READ active NOTIFY activeChanged)

public:
    explicit WorkspaceListModel(QObject *parent = nullptr);

    /// The workspace whose data the screens show; an empty row when there is none.
    [[nodiscard]] const WorkspaceRow &active() const { return m_active; }

signals:
    void activeChanged();

private:
    [[nodiscard]] QList<KeyedRow> rowsOf(const AppStore &store) override;
    void storeMoved() override;

    WorkspaceRow m_active;
};

} // namespace pingwell
