#include "status_host.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QElapsedTimer>

namespace pingwell {

bool StatusHost::serve()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    return bus.registerObject(QStringLiteral("/StatusNotifierWatcher"), this,
                              QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals |
                                  QDBusConnection::ExportAllProperties) &&
           bus.registerService(QStringLiteral("org.kde.StatusNotifierWatcher"));
}

bool StatusHost::waitForItem()
{
    // Nobody asked for the ones that came meanwhile.
    m_isNew = false;
    QElapsedTimer waited;
    waited.start();
    while (!m_isNew && waited.elapsed() < 10'000)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 1);
    return m_isNew;
}

void StatusHost::click()
{
    QDBusMessage call = QDBusMessage::createMethodCall(m_item, m_path, QStringLiteral("org.kde.StatusNotifierItem"),
                                                       QStringLiteral("Activate"));
    call << 900 << 20;
    QDBusConnection::sessionBus().send(call);
    QCoreApplication::processEvents();
}

void StatusHost::RegisterStatusNotifierItem(const QString &service)
{
    // Some programs name their bus name, others the path of the item on the calling connection.
    const bool isPath = service.startsWith(u'/');
    m_item = isPath ? message().service() : service;
    m_path = isPath ? service : QStringLiteral("/StatusNotifierItem");
    m_isNew = true;
    emit StatusNotifierItemRegistered(service);
}

} // namespace pingwell
