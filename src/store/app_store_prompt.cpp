#include "store/app_store.h"

#include "desktop/preference_keys.h"

namespace pingwell {

void AppStore::considerNotificationPrompt(NotificationPermission permission)
{
    checkMainThread();
    if (!m_backend || !m_backend->notifier || !isSignedIn() || permission == NotificationPermission::allowed)
        return;
    if (m_defaults && m_defaults->boolean(preference_keys::promptDismissed).value_or(false))
        return;
    set(m_showsNotificationPrompt, true, &AppStore::showsNotificationPromptChanged);
}

void AppStore::dismissNotificationPrompt()
{
    checkMainThread();
    set(m_showsNotificationPrompt, false, &AppStore::showsNotificationPromptChanged);
    if (m_defaults)
        m_defaults->setBoolean(preference_keys::promptDismissed, true);
}

} // namespace pingwell
