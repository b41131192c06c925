#include "store/navigation.h"

#include "desktop/preference_keys.h"

namespace pingwell {

Navigation::Navigation(std::shared_ptr<Preferences> preferences)
    : m_preferences(std::move(preferences))
{
}

template<typename Value>
void Navigation::set(Value &field, Value value, void (Navigation::*changed)())
{
    Announcements announcements;
    announcements.put(this, field, value, changed);
    announcements.make();
}

void Navigation::setSection(SidebarSection section)
{
    set(m_section, section, &Navigation::sectionChanged);
}

void Navigation::setFilter(const InboxFilter &filter)
{
    set(m_filter, filter, &Navigation::filterChanged);
}

void Navigation::selectAlert(const QString &alertID)
{
    const std::optional<QString> selected = alertID.isEmpty() ? std::nullopt : std::optional(alertID);
    set(m_selectedAlertID, selected, &Navigation::selectedAlertIDChanged);
}

void Navigation::requestReply(const QString &alertID)
{
    set(m_requestedReplyID, alertID, &Navigation::requestedReplyIDChanged);
}

void Navigation::setFocusMode(bool on)
{
    set(m_focusMode, on, &Navigation::focusModeChanged);
}

void Navigation::setIsCreatingWorkspace(bool creating)
{
    set(m_isCreatingWorkspace, creating, &Navigation::isCreatingWorkspaceChanged);
}

void Navigation::enterWorkspace(const QString &workspaceID)
{
    showWorkspace(workspaceID);
    clearSelectionAndFilter();
    m_preferences->setString(preference_keys::activeWorkspace, workspaceID);
}

void Navigation::showWorkspace(const QString &workspaceID)
{
    set(m_activeWorkspaceID, workspaceID, &Navigation::activeWorkspaceIDChanged);
}

void Navigation::showWorkspace(QString workspaceID, Announcements &announcements)
{
    announcements.put(this, m_activeWorkspaceID, workspaceID, &Navigation::activeWorkspaceIDChanged);
}

std::optional<QString> Navigation::rememberedWorkspaceID() const
{
    return m_preferences->string(preference_keys::activeWorkspace);
}

void Navigation::clearSelectionAndFilter()
{
    selectAlert(QString());
    requestReply(QString());
    setFilter(InboxFilter::all());
}

void Navigation::showNotificationPrompt()
{
    if (m_preferences->boolean(preference_keys::promptDismissed).value_or(false))
        return;
    set(m_showsNotificationPrompt, true, &Navigation::showsNotificationPromptChanged);
}

void Navigation::dismissNotificationPrompt()
{
    set(m_showsNotificationPrompt, false, &Navigation::showsNotificationPromptChanged);
    m_preferences->setBoolean(preference_keys::promptDismissed, true);
}

void Navigation::reset()
{
    m_preferences->remove(preference_keys::promptDismissed);
    showWorkspace(QString());
    setFocusMode(false);
    setSection(SidebarSection::inbox);
    setIsCreatingWorkspace(false);
    set(m_showsNotificationPrompt, false, &Navigation::showsNotificationPromptChanged);
    clearSelectionAndFilter();
}

} // namespace pingwell
