#pragma once

#include "api/wire_reader.h"
#include "model/topic.h"

namespace pingwell {

/// The wire record of a topic.
struct TopicDTO
{
    std::string_view id;
    std::string_view workspaceId;
    std::string_view name;
    std::optional<std::string_view> minPriority;
    std::optional<bool> quietHours;
    std::optional<bool> muted;
    std::optional<std::int64_t> responseTimeoutMinutes;

    static TopicDTO read(WireObject object);
    [[nodiscard]] Topic mapped(WireStrings &strings) const;
};

} // namespace pingwell
