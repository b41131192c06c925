#pragma once

#include "model/enumerations.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace pingwell {

/// A named category of a workspace's alerts.
struct Topic
{
    QString id;
    QString workspaceId;
    QString name;
    /// The service marks alerts of a lower priority as not delivered.
    Priority minPriority = Priority::normal;
    bool quietHours = false;
    bool muted = false;
    /// None where the workspace's value applies.
    std::optional<std::int64_t> responseTimeoutMinutes;

    friend bool operator==(const Topic &, const Topic &) = default;
};

} // namespace pingwell
