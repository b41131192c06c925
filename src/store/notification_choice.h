#pragma once

#include "api/dashboard.h"
#include "model/alert.h"
#include "model/notification_settings.h"

#include <QList>
#include <QSet>
#include <QString>

#include <optional>

namespace pingwell {

/// The most alerts that one refresh announces.
inline constexpr qsizetype maximumNotificationsPerRefresh = 5;

/// What a choice depends on beside the alerts.
struct NotificationMoment
{
    /// Only alerts posted later are new.
    Instant after;
    /// These have been announced before, although they are dated later still.
    QSet<QString> ahead = {};
    Instant now;
    /// Minutes since midnight in the person's time zone.
    int minuteOfDay = 0;
    /// A dashboard was merged before in this run; the first one announces the last hour only.
    bool hasLoaded = false;
};

/// One alert to announce, and how.
struct AlertToNotify
{
    Alert alert;
    /// Named where the person belongs to more than one workspace.
    std::optional<QString> workspaceName;
    bool sound = false;
    /// Viewers are told of asks but can't answer them.
    bool canAnswer = false;

    friend bool operator==(const AlertToNotify &, const AlertToNotify &) = default;
};

/// The alerts of `fresh` that a person who holds `known` should be told of, newest first.
[[nodiscard]] QList<AlertToNotify> chooseAlertsToNotify(const Dashboard &fresh, const QList<Alert> &known,
                                                        const NotificationMoment &moment);

/// Whether the settings ask for quiet at that minute of the day. A window that ends before it starts spans midnight;
/// one that can't be read, or is empty, never applies.
[[nodiscard]] bool isQuiet(const NotificationSettings &settings, int minuteOfDay);

} // namespace pingwell
