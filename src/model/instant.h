#pragma once

#include <chrono>

namespace pingwell {

using Seconds = std::chrono::duration<double>;

/// An absolute point in time, with fractions of a millisecond.
using Instant = std::chrono::sys_time<Seconds>;

/// The instant `milliseconds` after 1970-01-01T00:00:00Z. The service sends instants in this form.
constexpr Instant instantFromMilliseconds(double milliseconds)
{
    return Instant(Seconds(milliseconds / 1000.0));
}

/// Milliseconds from 1970-01-01T00:00:00Z to `instant`.
constexpr double millisecondsFromInstant(Instant instant)
{
    return instant.time_since_epoch().count() * 1000.0;
}

/// Earlier than any real time: the first day of year 1. Stands for "never".
inline constexpr Instant distantPast{Seconds(-62135596800.0)};

/// The largest distance from 1970 that counts as a date, in milliseconds (ECMA-262, time values).
inline constexpr double maximumInstantMilliseconds = 8.64e15;

} // namespace pingwell
