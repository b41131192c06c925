#pragma once

#include "api/wire_reader.h"
#include "model/device.h"

namespace pingwell {

/// The wire record of a registered device.
struct DeviceDTO
{
    std::string_view id;
    std::string_view name;
    std::string_view platform;
    std::optional<std::string_view> version;
    std::optional<Instant> lastSeen;

    static DeviceDTO read(WireObject object);
    [[nodiscard]] Device mapped(WireStrings &strings) const;
};

} // namespace pingwell
