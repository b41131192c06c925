#pragma once

#include "api/wire_reader.h"
#include "model/alert.h"

namespace pingwell {

/// The wire record of an alert. The service also sends "answeredAt"; it is not read, because no screen shows it.
struct AlertDTO
{
    std::string_view id;
    std::string_view workspaceId;
    std::optional<std::string_view> app;
    std::string_view title;
    std::optional<std::string_view> body;
    std::optional<std::string_view> topic;
    std::optional<std::string_view> priority;
    std::optional<std::string_view> kind;
    std::optional<WireTexts> actions;
    std::optional<std::string_view> answerType;
    std::optional<std::string_view> placeholder;
    std::optional<bool> delivered;
    Instant at;
    std::optional<Instant> expiresAt;
    std::optional<std::string_view> answer;
    std::optional<Instant> timedOutAt;
    std::optional<std::string_view> outcome;
    std::optional<bool> isRead;

    static AlertDTO read(WireObject object);
    [[nodiscard]] Alert mapped(WireStrings &strings) const;
};

} // namespace pingwell
