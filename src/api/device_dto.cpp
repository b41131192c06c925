#include "api/device_dto.h"

namespace pingwell {

DeviceDTO DeviceDTO::read(WireObject object)
{
    DeviceDTO dto;
    dto.id = object.requiredIdentifier("id");
    dto.name = object.requiredString("name");
    dto.platform = object.requiredString("platform");
    dto.version = object.string("version");
    dto.lastSeen = object.instant("lastSeen");
    return dto;
}

Device DeviceDTO::mapped(WireStrings &) const
{
    Device device;
    device.id = WireStrings::text(id);
    device.name = WireStrings::text(name);
    device.platform = fromWord<DevicePlatform>(platform).value_or(DevicePlatform::web);
    device.version = WireStrings::text(version.value_or(""));
    device.lastSeen = lastSeen.value_or(distantPast);
    return device;
}

} // namespace pingwell
