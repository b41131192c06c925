#pragma once

#include "ui/lists/store_list_model.h"

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
// The base is named in full: the registration of QML types does not look names up.
class InvitationListModel : public pingwell::StoreListModel
{
    Q_OBJECT
    QML_ELEMENT

public:
    explicit InvitationListModel(QObject *parent = nullptr);

private:
    [[nodiscard]] QList<KeyedRow> rowsOf(const AppStore &store) override;
};

} // namespace pingwell
