#pragma once

#include "async/clock.h"

#include <QList>

namespace pingwell {

/// The service's time, by which deadlines are judged, learned from the moments at which it says that it answered. What
/// is kept is its distance from a clock that nobody can set, so that setting this computer's clock moves nothing. Until
/// something was learned, and where the two clocks agree to about two seconds, it is this computer's time: the service
/// tells whole seconds only, and the way to it takes its part.
class ServiceClock
{
public:
    /// Takes in that an answer to a request, under way from `sent` to `received` on `Clock::uptime`, was written at
    /// `date` on the service's clock. Of the last few the middle one counts, so that one odd answer moves nothing.
    void learn(Instant date, Seconds sent, Seconds received);
    /// Another server has another clock.
    void forget() { m_readings.clear(); }

    [[nodiscard]] Instant now(const Clock &clock) const;

private:
    struct Reading
    {
        /// The service's time when `Clock::uptime` was zero.
        Instant origin;
        /// How far that may be off, for the time the answer was under way.
        Seconds uncertainty{};
    };

    QList<Reading> m_readings;
};

} // namespace pingwell
