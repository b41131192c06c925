#pragma once

#include <QDBusContext>
#include <QObject>
#include <QString>

namespace pingwell {

/// The desktop's side of the status area: programs register their items here. Stands in for a desktop on the private
/// bus of a measurement (the StatusNotifierItem protocol of freedesktop.org and KDE).
class StatusHost : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ isHostRegistered)
    Q_PROPERTY(QStringList RegisteredStatusNotifierItems READ registeredItems)
    Q_PROPERTY(int ProtocolVersion READ protocolVersion)

public:
    using QObject::QObject;

    /// Takes the watcher's place on the session bus.
    bool serve();
    /// Waits for the next item and clicks nothing; false when none came in 10 s.
    bool waitForItem();
    /// Clicks the item that registered last.
    void click();

public slots:
    void RegisterStatusNotifierItem(const QString &service);
    void RegisterStatusNotifierHost(const QString &) {}

signals:
    void StatusNotifierItemRegistered(const QString &service);
    void StatusNotifierHostRegistered();

private:
    static bool isHostRegistered() { return true; }
    static int protocolVersion() { return 0; }
    QStringList registeredItems() const { return m_item.isEmpty() ? QStringList() : QStringList{m_item}; }

    QString m_item;
    QString m_path;
    bool m_isNew = false;
};

} // namespace pingwell
