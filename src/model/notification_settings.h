#pragma once

#include <QString>

namespace pingwell {

/// When and how the person is notified.
struct NotificationSettings
{
    /// Stored on this machine; the service does not know it.
    bool quietHoursEnabled = false;
    /// Times of day, "HH:mm" on the 24-hour clock.
    QString quietFrom = QStringLiteral("22:00");
    QString quietTo = QStringLiteral("07:00");
    /// Whether the person gets a daily e-mail with a summary.
    bool digest = true;
    bool sound = true;

    friend bool operator==(const NotificationSettings &, const NotificationSettings &) = default;
};

} // namespace pingwell
