#pragma once

#include "desktop/single_instance.h"

#include <QDBusAbstractAdaptor>

namespace pingwell {

/// The methods that desktops and later starts call on the running program (freedesktop.org Desktop Entry, D-Bus
/// Activation). Callers are not trusted: a text that is not an acceptable URL is dropped.
class ApplicationAdaptor final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    /// Makes `served`, the parent, emit its signals. The adaptor has no signals, because Qt would send them over the
    /// bus.
    explicit ApplicationAdaptor(SingleInstance *served);

public slots:
    void Activate(const QVariantMap &platformData);
    void Open(const QStringList &texts, const QVariantMap &platformData);
    /// Does nothing: the program's desktop entry has no actions.
    void ActivateAction(const QString &action, const QVariantList &parameters, const QVariantMap &platformData);

private:
    SingleInstance *m_served;
};

} // namespace pingwell
