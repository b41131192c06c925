#pragma once

#include "api/wire_reader.h"
#include "model/notification_settings.h"

namespace pingwell {

/// The notification settings as they travel.
struct SettingsDTO
{
    std::optional<std::string_view> quietFrom;
    std::optional<std::string_view> quietTo;
    std::optional<bool> digest;
    std::optional<bool> sound;

    static SettingsDTO read(WireObject object);
    /// What is missing stands at its default.
    [[nodiscard]] NotificationSettings mapped(WireStrings &strings) const;
};

} // namespace pingwell
