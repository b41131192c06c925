#include "linux/status_area/launcher_entry_badge.h"
#include "model/identity.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QVariantMap>

#include <algorithm>

namespace pingwell {

using namespace Qt::StringLiterals;

LauncherEntryBadge::LauncherEntryBadge(QObject *parent)
    : QObject(parent)
{
    // Sent again, because a dock that starts later has missed the signal.
    auto *const dock = new QDBusServiceWatcher(u"com.canonical.Unity"_s, QDBusConnection::sessionBus(),
                                               QDBusServiceWatcher::WatchForRegistration, this);
    connect(dock, &QDBusServiceWatcher::serviceRegistered, this, &LauncherEntryBadge::announce);
}

LauncherEntryBadge::~LauncherEntryBadge()
{
    setCount(0);
}

void LauncherEntryBadge::setCount(qsizetype count)
{
    const qint64 shown = std::max<qint64>(count, 0);
    if (shown == m_count)
        return;
    m_count = shown;
    announce();
}

void LauncherEntryBadge::announce() const
{
    QDBusMessage update =
        QDBusMessage::createSignal(programBusPath, u"com.canonical.Unity.LauncherEntry"_s, u"Update"_s);
    update << QString(u"application://"_s + desktopEntryFile)
           << QVariantMap{{u"count"_s, m_count}, {u"count-visible"_s, m_count > 0}};
    QDBusConnection::sessionBus().send(update);
}

} // namespace pingwell
