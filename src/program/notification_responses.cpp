#include "program/notification_responses.h"

namespace pingwell {

NotificationResponses::NotificationResponses(AppStore *store, AppWindows *windows)
    : m_store(store)
    , m_windows(windows)
{
}

void NotificationResponses::answer(const QString &alertId, const QString &text)
{
    if (m_store)
        m_store->answerFromNotification(alertId, text);
}

void NotificationResponses::open(const QString &alertId, bool focusReply, const QString &activationToken)
{
    if (!m_store || !m_windows)
        return;
    m_store->revealAlert(alertId);
    if (focusReply)
        m_store->requestReply(alertId);
    m_windows->showMain(activationToken.toUtf8());
}

} // namespace pingwell
