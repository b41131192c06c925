#include "store/app_store.h"

namespace pingwell {

void AppStore::withdrawNotifications(const QStringList &alertIDs)
{
    if (m_backend && m_backend->notifier)
        m_backend->notifier->remove(alertIDs);
}

void AppStore::endNotifications()
{
    const QStringList ended = m_waitingAsks.endedIn(alerts(), m_now);
    if (!ended.isEmpty() && m_backend && m_backend->notifier)
        m_backend->notifier->endAsks(ended);
}

void AppStore::findLeftAsks()
{
    if (m_backend->notifier)
        m_leftAsks = LeftAsks(m_backend->notifier->leftBehind(), m_notificationMark.owner());
}

void AppStore::settleLeftAsks()
{
    if (!m_backend->notifier)
        return;
    const LeftAsks::Fate fate = m_leftAsks.settle(markOwner(m_account), alerts(), m_now);
    if (!fate.dropped.isEmpty())
        m_backend->notifier->remove(fate.dropped);
    const bool namesWorkspaces = workspaces().size() > 1;
    for (const Alert &alert : fate.announced)
        m_backend->notifier->deliver(alert, namesWorkspaces ? workspaceName(alert.workspaceId) : std::nullopt, false,
                                     canAnswer(alert));
}

} // namespace pingwell
