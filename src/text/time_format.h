#pragma once

#include "model/instant.h"

#include <QString>
#include <QStringList>

#include <cstdint>

namespace pingwell {

// Every time text of the program: terse, English, truncated. Each function takes the current instant from its caller,
// so that a text changes exactly when the store's clock ticks.

/// The time left of an open ask: "—" without a deadline, else "42s" (rounded up, never negative), "5m", "2h".
[[nodiscard]] QString countdownText(double seconds);

/// A whole number of minutes: "45m", "2h", "1h 30m".
[[nodiscard]] QString durationText(std::int64_t minutes);

/// "now" for the last minute and for future instants, then "5m", "3h", "12d".
[[nodiscard]] QString shortAge(Instant at, Instant now);

/// "just now", else the short age followed by " ago".
[[nodiscard]] QString relativeAge(Instant at, Instant now);

/// A response time as a choice in a menu: "30 minutes", "1 hour", "4 hours".
[[nodiscard]] QString minutesText(std::int64_t minutes);

/// "00:00" to "23:00", the choices of the quiet-hours pickers.
[[nodiscard]] const QStringList &hourLabels();

} // namespace pingwell
