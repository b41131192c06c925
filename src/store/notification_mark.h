#pragma once

#include "model/alert.h"
#include "model/preferences.h"

#include <QList>

#include <optional>

namespace pingwell {

// The notification mark: the time of the newest alert that this installation has ever known. Only later alerts are
// announced, so that none is announced twice.

/// The mark; none before the first dashboard of an installation.
[[nodiscard]] std::optional<Instant> notificationMark(const Preferences &preferences);

/// Moves the mark to the newest of the alerts, never back. Without alerts a mark that is missing becomes `now`.
void advanceNotificationMark(Preferences &preferences, const QList<Alert> &alerts, Instant now);

} // namespace pingwell
