#include "store/left_asks.h"

#include "store/notification_choice.h"

#include <algorithm>
#include <utility>

namespace pingwell {

LeftAsks::LeftAsks(QStringList alertIDs, QString owner)
    : m_ids(std::move(alertIDs))
    , m_owner(std::move(owner))
{
}

LeftAsks::Fate LeftAsks::settle(const QString &owner, const QList<Alert> &alerts, Instant now)
{
    if (owner.isEmpty())
        return {};
    Fate fate{.announced = {}, .dropped = std::exchange(m_ids, {})};
    if (fate.dropped.isEmpty() || m_owner != owner)
        return fate;
    std::copy_if(alerts.begin(), alerts.end(), std::back_inserter(fate.announced),
                 [&](const Alert &alert) { return fate.dropped.contains(alert.id) && alert.isWaiting(now); });
    std::stable_sort(fate.announced.begin(), fate.announced.end(),
                     [](const Alert &left, const Alert &right) { return left.at > right.at; });
    fate.announced.resize(std::min(fate.announced.size(), maximumNotificationsPerRefresh));
    for (const Alert &alert : std::as_const(fate.announced))
        fate.dropped.removeAll(alert.id);
    return fate;
}

} // namespace pingwell
