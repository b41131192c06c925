#pragma once

#include "store/app_store.h"

#include <QObject>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

namespace pingwell {

/// Which server the program talks to, by its host: that of the session, or while nobody is signed in that of the next
/// sign-in. The managed service is known by its label and needs none. Main thread.
class ServerInUse : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(pingwell::AppStore *store READ store WRITE setStore NOTIFY storeChanged REQUIRED)
    Q_PROPERTY(QString host READ host NOTIFY changed)
    Q_PROPERTY(bool isFixed READ isFixed NOTIFY changed)

public:
    using QObject::QObject;

    [[nodiscard]] AppStore *store() const { return m_store; }
    void setStore(AppStore *store);
    /// With the port where one is given; empty for the managed service, in the demo and while there is no address.
    [[nodiscard]] QString host() const;
    /// The address was given when the program was started: what is chosen on the sign-in screen has no effect.
    [[nodiscard]] bool isFixed() const;

signals:
    void storeChanged();
    void changed();

private:
    QPointer<AppStore> m_store;
};

} // namespace pingwell
