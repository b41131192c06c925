#pragma once

#include "ui/lists/store_list_model.h"

#include <QtQml/qqmlregistration.h>

namespace pingwell {

/// What the team screen shows of one member, and what the person may do with them; the texts are cleaned for display.
struct MemberRow
{
    Q_GADGET
    QML_VALUE_TYPE(memberRow)
    Q_PROPERTY(QString id MEMBER id FINAL)
    Q_PROPERTY(QString title MEMBER title FINAL)
    Q_PROPERTY(QString email MEMBER email FINAL)
    Q_PROPERTY(QString initials MEMBER initials FINAL)
    Q_PROPERTY(QString role MEMBER role FINAL)
    Q_PROPERTY(bool isInvited MEMBER isInvited FINAL)
    Q_PROPERTY(double invitedAt MEMBER invitedAt FINAL)
    Q_PROPERTY(bool hasActions MEMBER hasActions FINAL)
    Q_PROPERTY(bool canChangeRole MEMBER canChangeRole FINAL)
    Q_PROPERTY(bool canRemove MEMBER canRemove FINAL)
    Q_PROPERTY(bool canResend MEMBER canResend FINAL)

public:
    QString id;
    /// The name, or the e-mail address where there is none.
    QString title;
    /// Empty where it is the title already.
    QString email;
    /// One or two letters that stand for the member.
    QString initials;
    /// "owner", "admin", "member" or "viewer".
    QString role;
    bool isInvited = false;
    /// Milliseconds since 1970; negative where it is not known.
    double invitedAt = -1;
    bool hasActions = false;
    bool canChangeRole = false;
    bool canRemove = false;
    bool canResend = false;

    friend bool operator==(const MemberRow &, const MemberRow &) = default;
};

/// The members of the active workspace in the store's order.
// The base is named in full: the registration of QML types does not look names up.
class MemberListModel : public pingwell::StoreListModel
{
    Q_OBJECT
    QML_ELEMENT

public:
    explicit MemberListModel(QObject *parent = nullptr);

private:
    [[nodiscard]] QList<KeyedRow> rowsOf(const AppStore &store) override;
};

} // namespace pingwell
