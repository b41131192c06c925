#include "ui/settings/notification_access.h"

#include "async/launch.h"

namespace pingwell {

NotificationAccess::NotificationAccess(std::shared_ptr<NotificationCenter> center, QObject *parent)
    : QObject(parent)
    , m_center(std::move(center))
{
}

bool NotificationAccess::canOpenSettings() const
{
    return m_center->canOpenSettings();
}

void NotificationAccess::refresh()
{
    launch("reading the notification permission", runRefresh(this, m_center, nullptr));
}

void NotificationAccess::request()
{
    launch("asking for notifications", runRequest(this, m_center));
}

void NotificationAccess::openSettings()
{
    openNotificationSettings(*m_center);
}

void NotificationAccess::considerPrompt(AppStore *store)
{
    launch("considering the notification prompt", runRefresh(this, m_center, store));
}

QString NotificationAccess::permissionWord() const
{
    switch (m_permission) {
    case NotificationPermission::allowed:
        return QStringLiteral("allowed");
    case NotificationPermission::notAsked:
        return QStringLiteral("notAsked");
    case NotificationPermission::denied:
        return QStringLiteral("denied");
    case NotificationPermission::unknown:
        break;
    }
    return QStringLiteral("unknown");
}

void NotificationAccess::take(NotificationPermission permission)
{
    if (m_permission == permission)
        return;
    m_permission = permission;
    emit permissionChanged();
}

QCoro::Task<> NotificationAccess::runRefresh(QPointer<NotificationAccess> access,
                                             std::shared_ptr<NotificationCenter> center, QPointer<AppStore> store)
{
    const NotificationPermission permission = co_await currentPermission(center);
    if (access)
        access->take(permission);
    if (store)
        store->considerNotificationPrompt(permission);
}

QCoro::Task<> NotificationAccess::runRequest(QPointer<NotificationAccess> access,
                                             std::shared_ptr<NotificationCenter> center)
{
    const NotificationPermission permission = co_await requestPermission(center);
    if (access)
        access->take(permission);
}

} // namespace pingwell
