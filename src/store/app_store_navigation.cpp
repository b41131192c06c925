#include "store/app_store.h"

namespace pingwell {

void AppStore::setSection(SidebarSection section)
{
    checkMainThread();
    m_navigation.setSection(section);
}

void AppStore::setSectionWord(const QString &word)
{
    if (const auto section = fromRawValue<SidebarSection>(word))
        setSection(*section);
}

void AppStore::setFilter(const InboxFilter &filter)
{
    checkMainThread();
    m_navigation.setFilter(filter);
}

void AppStore::selectAlert(const QString &alertID)
{
    checkMainThread();
    m_navigation.selectAlert(alertID);
}

void AppStore::setIsCreatingWorkspace(bool creating)
{
    checkMainThread();
    m_navigation.setIsCreatingWorkspace(creating);
}

void AppStore::selectWorkspace(const QString &workspaceID)
{
    checkMainThread();
    if (workspaceID != activeWorkspaceID() && workspaceWithID(workspaceID))
        m_navigation.enterWorkspace(workspaceID);
}

void AppStore::revealAlert(const QString &alertID)
{
    checkMainThread();
    const auto alert = alertWithID(alertID);
    if (!alert)
        return;
    selectWorkspace(alert->workspaceId);
    m_navigation.setSection(SidebarSection::inbox);
    m_navigation.setFilter(InboxFilter::all());
    m_navigation.selectAlert(alertID);
}

void AppStore::requestReply(const QString &alertID)
{
    checkMainThread();
    m_navigation.requestReply(alertID);
}

void AppStore::setFocusMode(bool on)
{
    checkMainThread();
    m_navigation.setFocusMode(on);
}

void AppStore::considerNotificationPrompt(NotificationPermission permission)
{
    checkMainThread();
    if (m_notifications.areShown() && isSignedIn() && permission != NotificationPermission::allowed)
        m_navigation.showNotificationPrompt();
}

void AppStore::dismissNotificationPrompt()
{
    checkMainThread();
    m_navigation.dismissNotificationPrompt();
}

} // namespace pingwell
