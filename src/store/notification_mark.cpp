#include "store/notification_mark.h"

#include "store/preference_keys.h"

#include <algorithm>

namespace pingwell {

std::optional<Instant> notificationMark(const Preferences &preferences)
{
    const auto milliseconds = preferences.number(preference_keys::lastNotifiedAt);
    return milliseconds ? std::optional(instantFromMilliseconds(*milliseconds)) : std::nullopt;
}

void advanceNotificationMark(Preferences &preferences, const QList<Alert> &alerts, Instant now)
{
    const auto newest = std::max_element(alerts.begin(), alerts.end(),
                                         [](const Alert &left, const Alert &right) { return left.at < right.at; });
    if (newest == alerts.end()) {
        if (!preferences.contains(preference_keys::lastNotifiedAt))
            preferences.setNumber(preference_keys::lastNotifiedAt, millisecondsFromInstant(now));
        return;
    }
    const auto before = preferences.number(preference_keys::lastNotifiedAt);
    const double mark = std::max(millisecondsFromInstant(newest->at), before.value_or(0));
    if (mark != before)
        preferences.setNumber(preference_keys::lastNotifiedAt, mark);
}

} // namespace pingwell
