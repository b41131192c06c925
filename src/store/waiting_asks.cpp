#include "store/waiting_asks.h"

#include <utility>

namespace pingwell {

QStringList WaitingAsks::endedIn(const QList<Alert> &alerts, Instant now)
{
    QSet<QString> waiting;
    m_nextDeadline = nextDeadline(alerts, now);
    for (const Alert &alert : alerts) {
        if (alert.isWaiting(now))
            waiting.insert(alert.id);
    }
    const QSet<QString> ended = std::exchange(m_ids, waiting) - waiting;
    return ended.values();
}

std::optional<Instant> nextDeadline(const QList<Alert> &alerts, Instant now)
{
    std::optional<Instant> next;
    for (const Alert &alert : alerts) {
        if (alert.expiresAt && (!next || *alert.expiresAt < *next) && alert.isWaiting(now))
            next = alert.expiresAt;
    }
    return next;
}

} // namespace pingwell
