#pragma once

#include "desktop/single_instance.h"

#include <QDBusAbstractAdaptor>

namespace pingwell {

/// What desktops and later starts call on the running program (Desktop Entry Specification, D-Bus Activation). Nothing
/// a caller sends is trusted: a text that is no acceptable URL is dropped.
class ApplicationAdaptor final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    /// Tells `served`, its parent, what was called. It has no signals of its own: Qt would send them over the bus.
    explicit ApplicationAdaptor(SingleInstance *served);

public slots:
    void Activate(const QVariantMap &platformData);
    void Open(const QStringList &texts, const QVariantMap &platformData);
    /// The program offers no actions; none does anything.
    void ActivateAction(const QString &action, const QVariantList &parameters, const QVariantMap &platformData);

private:
    SingleInstance *m_served;
};

} // namespace pingwell
