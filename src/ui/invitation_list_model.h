#pragma once

#include "store/app_store.h"
#include "ui/keyed_list_model.h"

#include <QPointer>
#include <QtQml/qqmlregistration.h>

namespace pingwell {

/// What a screen shows of one invitation to the person; the name is cleaned for display.
struct InvitationRow
{
    Q_GADGET
    QML_VALUE_TYPE(invitationRow)
    Q_PROPERTY(QString token MEMBER token FINAL)
    Q_PROPERTY(QString workspaceName MEMBER workspaceName FINAL)
    Q_PROPERTY(QString role MEMBER role FINAL)
    Q_PROPERTY(double invitedAt MEMBER invitedAt FINAL)

public:
    QString token;
    QString workspaceName;
    /// "owner", "admin", "member" or "viewer".
    QString role;
    /// Milliseconds since 1970; negative where it is not known.
    double invitedAt = -1;

    friend bool operator==(const InvitationRow &, const InvitationRow &) = default;
};

/// What other workspaces have sent to the person, in the store's order.
class InvitationListModel : public pingwell::KeyedListModel
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(pingwell::AppStore *store READ store WRITE setStore NOTIFY storeChanged REQUIRED)

public:
    explicit InvitationListModel(QObject *parent = nullptr);

    [[nodiscard]] AppStore *store() const { return m_store; }
    void setStore(AppStore *store);

signals:
    void storeChanged();

private:
    void update();

    QPointer<AppStore> m_store;
};

} // namespace pingwell
