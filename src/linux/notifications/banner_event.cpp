#include "linux/notifications/banner_event.h"

#include <algorithm>

namespace pingwell {

namespace {

constexpr qsizetype mostEvents = 64;

} // namespace

void EarlyBannerEvents::keep(const BannerEvent &event)
{
    if (m_events.size() < mostEvents)
        m_events.append(event);
}

QList<BannerEvent> EarlyBannerEvents::take(const QString &server, uint number)
{
    const auto isOfOthers = [&](const BannerEvent &event) { return event.server != server || event.number != number; };
    const auto own = std::stable_partition(m_events.begin(), m_events.end(), isOfOthers);
    const QList<BannerEvent> taken(own, m_events.end());
    m_events.erase(own, m_events.end());
    return taken;
}

} // namespace pingwell
