#include "store/app_store.h"

#include "desktop/preference_keys.h"

namespace pingwell {

void AppStore::setSection(SidebarSection section)
{
    checkMainThread();
    set(m_section, section, &AppStore::sectionChanged);
}

void AppStore::setSectionWord(const QString &word)
{
    if (const auto section = fromRawValue<SidebarSection>(word))
        setSection(*section);
}

void AppStore::setFilter(const InboxFilter &filter)
{
    checkMainThread();
    set(m_filter, filter, &AppStore::filterChanged);
}

void AppStore::selectAlert(const QString &alertID)
{
    checkMainThread();
    const std::optional<QString> selected = alertID.isEmpty() ? std::nullopt : std::optional(alertID);
    set(m_selectedAlertID, selected, &AppStore::selectedAlertIDChanged);
}

void AppStore::setIsCreatingWorkspace(bool creating)
{
    checkMainThread();
    set(m_isCreatingWorkspace, creating, &AppStore::isCreatingWorkspaceChanged);
}

void AppStore::selectWorkspace(const QString &workspaceID)
{
    checkMainThread();
    if (workspaceID == m_activeWorkspaceID || !workspaceWithID(workspaceID))
        return;
    set(m_activeWorkspaceID, workspaceID, &AppStore::activeWorkspaceIDChanged);
    clearSelectionAndFilter();
    if (m_defaults)
        m_defaults->setString(preference_keys::activeWorkspace, workspaceID);
}

void AppStore::clearSelectionAndFilter()
{
    selectAlert(QString());
    requestReply(QString());
    setFilter(InboxFilter::all());
}

void AppStore::revealAlert(const QString &alertID)
{
    checkMainThread();
    const auto alert = alertWithID(alertID);
    if (!alert)
        return;
    selectWorkspace(alert->workspaceId);
    setSection(SidebarSection::inbox);
    setFilter(InboxFilter::all());
    selectAlert(alertID);
}

void AppStore::requestReply(const QString &alertID)
{
    checkMainThread();
    set(m_requestedReplyID, alertID, &AppStore::requestedReplyIDChanged);
}

void AppStore::setFocusMode(bool on)
{
    checkMainThread();
    set(m_focusMode, on, &AppStore::focusModeChanged);
}

void AppStore::setServer(ServerKind server)
{
    checkMainThread();
    set(m_server, server, &AppStore::serverChanged);
    if (m_defaults)
        m_defaults->setString(preference_keys::serverKind, rawValue(server));
    refreshProvidersSoon();
}

void AppStore::setServerWord(const QString &word)
{
    if (const auto server = fromRawValue<ServerKind>(word))
        setServer(*server);
}

void AppStore::setSelfHostedURL(const QString &text)
{
    checkMainThread();
    set(m_selfHostedURL, text, &AppStore::selfHostedURLChanged);
    if (m_defaults)
        m_defaults->setString(preference_keys::selfHostedURL, text);
    refreshProvidersSoon();
}

} // namespace pingwell
