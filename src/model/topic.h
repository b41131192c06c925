#pragma once

#include "model/enumerations.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace pingwell {

/// A named stream of alerts within a workspace.
struct Topic
{
    QString id;
    QString workspaceId;
    QString name;
    /// Alerts below it are not surfaced.
    Priority minPriority = Priority::normal;
    bool quietHours = false;
    bool muted = false;
    /// None: the workspace's.
    std::optional<std::int64_t> responseTimeoutMinutes;

    friend bool operator==(const Topic &, const Topic &) = default;
};

} // namespace pingwell
