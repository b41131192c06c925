#pragma once

#include "model/instant.h"

#include <QtGlobal>

#include <vector>

namespace pingwell {

// What the program takes in of one answer. Each bound is far above what a person can use and low enough for every
// screen to stay quick; what lies beyond is left out, and the person is told so.
inline constexpr qsizetype maximumAlerts = 10'000;
inline constexpr qsizetype maximumWorkspaces = 100;
inline constexpr qsizetype maximumMembers = 2'000;
inline constexpr qsizetype maximumTopics = 500;
inline constexpr qsizetype maximumDevices = 50;
inline constexpr qsizetype maximumInvitations = 50;

/// What decides which alerts are taken in when there are more than `maximumAlerts`.
struct AlertRank
{
    /// An ask that nobody has answered and the service has not closed.
    bool isOpen = false;
    Instant at{};
};

/// Which of the alerts are taken in, by their place, in rising order: open asks first, then the newest; of equal ones
/// those that come first. All of them where there are no more than `limit`.
[[nodiscard]] std::vector<qsizetype> alertsToTake(const std::vector<AlertRank> &ranks, qsizetype limit);

} // namespace pingwell
