#include "store/service_clock.h"

#include <algorithm>

namespace pingwell {

namespace {

using namespace std::chrono_literals;

constexpr qsizetype readingsKept = 5;
constexpr Seconds ignoredDifference = 2s;

/// A date says which second it was, and on average half of that had passed.
constexpr Seconds halfASecond = 500ms;

} // namespace

void ServiceClock::learn(Instant date, Seconds sent, Seconds received)
{
    const Seconds halfWay = (received - sent) / 2;
    if (m_readings.size() == readingsKept)
        m_readings.removeFirst();
    m_readings << Reading{.origin = date + halfASecond - (sent + halfWay), .uncertainty = halfWay};
}

Instant ServiceClock::now(const Clock &clock) const
{
    if (m_readings.isEmpty())
        return clock.now();
    QList<Reading> sorted = m_readings;
    std::sort(sorted.begin(), sorted.end(),
              [](const Reading &left, const Reading &right) { return left.origin < right.origin; });
    const Reading middle = sorted.at((sorted.size() - 1) / 2);
    const Instant service = middle.origin + clock.uptime();
    const Seconds difference = service - clock.now();
    return std::chrono::abs(difference) < ignoredDifference + middle.uncertainty ? clock.now() : service;
}

} // namespace pingwell
