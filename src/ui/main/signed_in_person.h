#pragma once

#include "store/app_store.h"

#include <QObject>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

namespace pingwell {

/// Who is signed in, cleaned for display, and how many invitations wait for that person.
class SignedInPerson : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(pingwell::AppStore *store READ store WRITE setStore NOTIFY storeChanged REQUIRED)
    Q_PROPERTY(QString name READ name NOTIFY personChanged)
    Q_PROPERTY(QString email READ email NOTIFY personChanged)
    /// What there is of both, for a screen reader.
    Q_PROPERTY(QString nameAndEmail READ nameAndEmail NOTIFY personChanged)
    Q_PROPERTY(QString initials READ initials NOTIFY personChanged)
    Q_PROPERTY(int invitationCount READ invitationCount NOTIFY invitationCountChanged)

public:
    using QObject::QObject;

    [[nodiscard]] AppStore *store() const { return m_store; }
    void setStore(AppStore *store);
    [[nodiscard]] QString name() const;
    [[nodiscard]] QString email() const;
    [[nodiscard]] QString nameAndEmail() const;
    [[nodiscard]] QString initials() const;
    [[nodiscard]] int invitationCount() const { return m_store ? int(m_store->invitations().size()) : 0; }

signals:
    void storeChanged();
    void personChanged();
    void invitationCountChanged();

private:
    QPointer<AppStore> m_store;
};

} // namespace pingwell
