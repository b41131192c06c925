#include "store/waiting_asks.h"

#include <utility>

namespace pingwell {

QStringList WaitingAsks::endedIn(const QList<Alert> &alerts, Instant now)
{
    QSet<QString> waiting;
    m_nextDeadline.reset();
    for (const Alert &alert : alerts) {
        if (!alert.isWaiting(now))
            continue;
        waiting.insert(alert.id);
        if (alert.expiresAt && (!m_nextDeadline || *alert.expiresAt < *m_nextDeadline))
            m_nextDeadline = alert.expiresAt;
    }
    const QSet<QString> ended = std::exchange(m_ids, waiting) - waiting;
    return ended.values();
}

} // namespace pingwell
