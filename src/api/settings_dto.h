#pragma once

#include "api/wire_reader.h"
#include "model/notification_settings.h"

namespace pingwell {

/// The wire record of the notification settings.
struct SettingsDTO
{
    std::optional<std::string_view> quietFrom;
    std::optional<std::string_view> quietTo;
    std::optional<bool> digest;
    std::optional<bool> sound;

    static SettingsDTO read(WireObject object);
    /// Settings that are missing take their default.
    [[nodiscard]] NotificationSettings mapped(WireStrings &strings) const;
};

} // namespace pingwell
