#pragma once

#include "model/instant.h"

#include <QtGlobal>

#include <vector>

namespace pingwell {

// The limits on what the program accepts from one response. Each limit is far above what a person can use and low
// enough for every screen to stay quick. Records beyond it are left out, and the person is told how many.
inline constexpr qsizetype maximumAlerts = 10'000;
inline constexpr qsizetype maximumWorkspaces = 100;
inline constexpr qsizetype maximumMembers = 2'000;
inline constexpr qsizetype maximumTopics = 500;
inline constexpr qsizetype maximumDevices = 50;
inline constexpr qsizetype maximumInvitations = 50;

/// The facts that decide which alerts are kept when there are more than `maximumAlerts`.
struct AlertRank
{
    /// An ask without an answer that the service has not timed out.
    bool isOpen = false;
    Instant at{};
};

/// The indexes of the alerts to keep, ascending: open asks first, then the newest; among equally old ones those that
/// come first in the list. All indexes where there are no more than `limit` alerts.
[[nodiscard]] std::vector<qsizetype> alertsToTake(const std::vector<AlertRank> &ranks, qsizetype limit);

} // namespace pingwell
